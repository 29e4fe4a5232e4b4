#include "platform/qt/theme.h"

#include <QApplication>
#include <QFont>
#include <QFontDatabase>
#include <QVariant>
#include <QWidget>

#include "platform/qt/control_style.h"
#include "platform/qt/convert.h"

namespace tolmer::theme {
namespace {

float zoomTimes = 1;
bool anyMagnified = false;
constexpr const char* magnification = "magnification";

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

float zoom() { return zoomTimes; }

// Few windows are magnified, and the style asks often.
float scaleOf(const QWidget* widget) {
  if (!anyMagnified || !widget) return zoomTimes;
  const QVariant times = widget->window()->property(magnification);
  return times.isValid() ? zoomTimes * times.toFloat() : zoomTimes;
}

void setMagnification(QWidget& window, float times) {
  anyMagnified = anyMagnified || times != 1;
  if (anyMagnified) window.setProperty(magnification, times);
}

// A style that is set anew has every widget ask for its measures again. The one before goes if it
// is the program's child, which a style that was set before the program was made is not.
void setZoom(float times) {
  zoomTimes = times;
  installFont();
  QApplication::style()->setParent(qApp);
  QApplication::setStyle(new ControlStyle);
}

const QString& serifFamily() {
  static const QString name = QFontDatabase::hasFamily(QStringLiteral("Liberation Serif"))
                                  ? QStringLiteral("Liberation Serif")
                                  : QStringLiteral("Times New Roman");
  return name;
}

void install() {
  QApplication::setDesktopSettingsAware(false);
  QCoreApplication::setAttribute(Qt::AA_DontUseNativeMenuBar);
  QApplication::setStyle(new ControlStyle);
  QApplication::setPalette(palette());
}

void installFont() {
  QApplication::setFont(toQt(Font{FontFamily::interface, fontPixels}, zoomTimes));
}

}  // namespace tolmer::theme
