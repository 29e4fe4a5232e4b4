#include "platform/qt/theme.h"

#include <QApplication>
#include <QFont>

#include "platform/qt/control_style.h"

namespace tolmer::theme {
namespace {

struct RoleColour {
  QPalette::ColorRole role;
  QColor colour;
};

constexpr RoleColour everywhere[] = {
    {QPalette::Window, face},
    {QPalette::WindowText, text},
    {QPalette::Base, window},
    {QPalette::AlternateBase, face},
    {QPalette::Text, text},
    {QPalette::Button, window},
    {QPalette::ButtonText, text},
    {QPalette::BrightText, window},
    {QPalette::Highlight, accent},
    {QPalette::HighlightedText, window},
    {QPalette::Link, accent},
    {QPalette::LinkVisited, accent},
    {QPalette::ToolTipBase, window},
    {QPalette::ToolTipText, text},
    {QPalette::PlaceholderText, quietText},
    {QPalette::Light, window},
    {QPalette::Midlight, face},
    {QPalette::Mid, line},
    {QPalette::Dark, strongLine},
    {QPalette::Shadow, quietText},
};

constexpr RoleColour disabled[] = {
    {QPalette::WindowText, disabledText},
    {QPalette::Text, disabledText},
    {QPalette::ButtonText, disabledText},
    {QPalette::Base, face},
    {QPalette::Button, face},
    {QPalette::Highlight, line},
};

}  // namespace

void keepLettersApart(QFont& font) {
  constexpr double least = 1.0 / 64;
  font.setLetterSpacing(QFont::AbsoluteSpacing, least);
}

QPalette palette() {
  QPalette palette;
  for (const auto& [role, colour] : everywhere) palette.setColor(QPalette::All, role, colour);
  for (const auto& [role, colour] : disabled) palette.setColor(QPalette::Disabled, role, colour);
  return palette;
}

void install() {
  QApplication::setDesktopSettingsAware(false);
  QCoreApplication::setAttribute(Qt::AA_DontUseNativeMenuBar);
  QApplication::setStyle(new ControlStyle);
  QApplication::setPalette(palette());
}

void installFont() {
  QFont font(interfaceFamily);
  font.setPixelSize(fontPixels);
  QApplication::setFont(font);
}

}  // namespace tolmer::theme
