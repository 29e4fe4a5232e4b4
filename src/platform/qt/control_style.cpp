#include "platform/qt/control_style.h"

#include <QIcon>
#include <QPainter>
#include <QPolygonF>
#include <QStyleOption>
#include <algorithm>
#include <array>
#include <cmath>

#include "platform/qt/convert.h"
#include "platform/qt/theme.h"
#include "platform/window.h"

namespace tolmer {
namespace {

constexpr double corner = 4;

// Lengths of the toolkit's own that go by no font and are made of no other.
constexpr std::array growing{QStyle::PM_IndicatorWidth,
                             QStyle::PM_IndicatorHeight,
                             QStyle::PM_ExclusiveIndicatorWidth,
                             QStyle::PM_ExclusiveIndicatorHeight,
                             QStyle::PM_CheckBoxLabelSpacing,
                             QStyle::PM_RadioButtonLabelSpacing,
                             QStyle::PM_ScrollBarSliderMin,
                             QStyle::PM_SmallIconSize,
                             QStyle::PM_LargeIconSize,
                             QStyle::PM_MessageBoxIconSize,
                             QStyle::PM_LayoutLeftMargin,
                             QStyle::PM_LayoutTopMargin,
                             QStyle::PM_LayoutRightMargin,
                             QStyle::PM_LayoutBottomMargin,
                             QStyle::PM_LayoutHorizontalSpacing,
                             QStyle::PM_LayoutVerticalSpacing,
                             QStyle::PM_ButtonMargin,
                             QStyle::PM_MenuBarHMargin,
                             QStyle::PM_MenuBarVMargin,
                             QStyle::PM_MenuBarItemSpacing,
                             QStyle::PM_HeaderMargin,
                             QStyle::PM_SplitterWidth,
                             QStyle::PM_TitleBarButtonIconSize};

bool isEnabled(const QStyleOption& option) { return option.state.testFlag(QStyle::State_Enabled); }
bool isHovered(const QStyleOption& option) {
  return isEnabled(option) && option.state.testFlag(QStyle::State_MouseOver);
}
bool hasFocus(const QStyleOption& option) { return option.state.testFlag(QStyle::State_HasFocus); }
bool isPressed(const QStyleOption& option) { return option.state.testFlag(QStyle::State_Sunken); }

// The centres of the pixels along the edge, so that a line of one pixel is sharp.
QRectF edge(const QRect& place) { return QRectF(place).adjusted(0.5, 0.5, -0.5, -0.5); }

QColor borderOf(const QStyleOption& option, bool strong) {
  if (!isEnabled(option)) return theme::line;
  return strong || hasFocus(option) ? theme::accent
         : isHovered(option)        ? theme::strongLine
                                    : theme::line;
}

// An empty box or circle is all that there is to see of a choice, so its line is darker.
QColor choiceBorderOf(const QStyleOption& option) {
  return isEnabled(option) && !hasFocus(option) ? QColor(theme::strongLine)
                                                : borderOf(option, false);
}

QColor tinted(const QStyleOption& option, QColor base) {
  if (!isEnabled(option)) return base;
  if (base != QColor(theme::window)) return isPressed(option) ? base.darker(115) : base;
  return isPressed(option)   ? QColor(theme::paleAccent).darker(106)
         : isHovered(option) ? QColor(theme::paleAccent)
                             : base;
}

void drawChevron(QPainter& painter, QPointF middle, QColor colour, double scale = 1) {
  painter.setPen(QPen(colour, 1.5 * scale, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(Qt::NoBrush);
  painter.drawPolyline(
      QPolygonF({middle + scale * QPointF(-3.5, -1.5), middle + scale * QPointF(0, 2),
                 middle + scale * QPointF(3.5, -1.5)}));
}

// The sign on a maximise or restore button.
void drawSmallWindow(QPainter& painter, QPoint corner, QSize size, bool hovered) {
  const QColor ink = hovered ? theme::accent : theme::quietText;
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setPen(ink);
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(QRect(corner, size));
  const int bar = std::max(size.height() / 4, 2);
  painter.fillRect(QRect(corner, QSize(size.width() + 1, bar)), ink);
}

bool isMessageSign(QStyle::StandardPixmap icon) {
  return icon == QStyle::SP_MessageBoxInformation || icon == QStyle::SP_MessageBoxQuestion ||
         icon == QStyle::SP_MessageBoxWarning || icon == QStyle::SP_MessageBoxCritical;
}

void drawButton(QPainter& painter, const QStyleOption& option) {
  const auto* button = qstyleoption_cast<const QStyleOptionButton*>(&option);
  const bool isDefault = button && button->features.testFlag(QStyleOptionButton::DefaultButton);
  painter.setPen(borderOf(option, isDefault));
  painter.setBrush(tinted(option, option.palette.color(QPalette::Button)));
  painter.drawRoundedRect(edge(option.rect), corner, corner);
}

void drawEditBorder(QPainter& painter, const QStyleOption& option, bool fill) {
  painter.setPen(borderOf(option, false));
  painter.setBrush(fill ? QBrush(option.palette.color(QPalette::Base)) : Qt::NoBrush);
  painter.drawRoundedRect(edge(option.rect), fill ? 3 : 0, fill ? 3 : 0);
}

void drawFocusRing(QPainter& painter, const QRect& place) {
  QColor ring = theme::accent;
  ring.setAlpha(140);
  painter.setPen(ring);
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(edge(place), 2, 2);
}

void drawTick(QPainter& painter, const QStyleOption& option) {
  const bool isOn = option.state.testFlag(QStyle::State_On);
  const bool isGrey = option.state.testFlag(QStyle::State_NoChange);
  const QColor ink = isEnabled(option) ? QColor(theme::accent) : QColor(theme::disabledText);
  const QRectF box = edge(option.rect);
  painter.setPen(isOn || isGrey ? ink : choiceBorderOf(option));
  painter.setBrush(isOn ? ink : tinted(option, option.palette.color(QPalette::Base)));
  painter.drawRoundedRect(box, 3, 3);
  if (isGrey) painter.fillRect(box.adjusted(3, 3, -3, -3), ink);
  if (!isOn) return;
  painter.setPen(QPen(QColor(theme::window), 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(Qt::NoBrush);
  const double w = box.width();
  painter.drawPolyline(QPolygonF({box.topLeft() + QPointF(0.22 * w, 0.53 * w),
                                  box.topLeft() + QPointF(0.42 * w, 0.73 * w),
                                  box.topLeft() + QPointF(0.79 * w, 0.29 * w)}));
}

void drawOption(QPainter& painter, const QStyleOption& option) {
  const bool isOn = option.state.testFlag(QStyle::State_On);
  const QColor ink = isEnabled(option) ? QColor(theme::accent) : QColor(theme::disabledText);
  const QRectF circle = edge(option.rect);
  painter.setPen(isOn ? ink : choiceBorderOf(option));
  painter.setBrush(tinted(option, option.palette.color(QPalette::Base)));
  painter.drawEllipse(circle);
  if (!isOn) return;
  painter.setPen(Qt::NoPen);
  painter.setBrush(ink);
  const double inset = 0.26 * circle.width();
  painter.drawEllipse(circle.adjusted(inset, inset, -inset, -inset));
}

void drawComboBox(QPainter& painter, const QStyleOptionComplex& option, const QRect& arrow,
                  double scale) {
  painter.setPen(borderOf(option, false));
  painter.setBrush(tinted(option, option.palette.color(QPalette::Base)));
  painter.drawRoundedRect(edge(option.rect), 3, 3);
  drawChevron(painter, QRectF(arrow).center(), isEnabled(option) ? theme::quietText : theme::line,
              scale);
}

void drawScrollBar(QPainter& painter, const QStyleOptionComplex& option, const QRect& groove,
                   const QRect& slider) {
  painter.fillRect(groove, QColor(theme::face));
  if (!isEnabled(option)) return;
  const bool held = isPressed(option) && option.activeSubControls & QStyle::SC_ScrollBarSlider;
  const bool upright = groove.height() > groove.width();
  const int beside = (upright ? groove.width() : groove.height()) * 2 / 7;
  const QRectF handle = upright ? QRectF(slider).adjusted(beside, 1, -beside, -1)
                                : QRectF(slider).adjusted(1, beside, -1, -beside);
  painter.setPen(Qt::NoPen);
  painter.setBrush(held || hasFocus(option) ? QColor(theme::accent)
                   : isHovered(option)      ? QColor(theme::strongLine)
                                            : QColor(theme::line).darker(112));
  painter.drawRoundedRect(handle, 3, 3);
}

void drawWindowFrame(QPainter& painter, const QStyleOption& option) {
  const bool isActive = option.state.testFlag(QStyle::State_Active);
  painter.setPen(isActive ? QColor(theme::accent) : QColor(theme::strongLine));
  painter.setBrush(isActive ? QColor(theme::paleAccent) : QColor(theme::face));
  painter.drawRect(edge(option.rect));
}

void drawTitleBar(QPainter& painter, const QStyleOptionTitleBar& option, const QRect& button) {
  const bool isActive = option.titleBarState & QStyle::State_Active;
  painter.fillRect(option.rect, isActive ? QColor(theme::paleAccent) : QColor(theme::face));
  painter.setPen(isActive ? QColor(theme::accent) : QColor(theme::strongLine));
  const QRectF outer = edge(option.rect);
  painter.drawPolyline(QPolygonF({outer.bottomLeft() + QPointF(0, 1), outer.topLeft(),
                                  outer.topRight(), outer.bottomRight() + QPointF(0, 1)}));
  QFont font = painter.font();
  font.setBold(true);
  painter.setFont(font);
  painter.setPen(isActive ? QColor(theme::text) : QColor(theme::quietText));
  const QRect text = option.rect.adjusted(10, 1, -button.width() - 12, 0);
  painter.drawText(text, Qt::AlignVCenter | Qt::AlignLeft,
                   painter.fontMetrics().elidedText(option.text, Qt::ElideRight, text.width()));
  const bool hovered =
      option.activeSubControls & (QStyle::SC_TitleBarMaxButton | QStyle::SC_TitleBarNormalButton);
  const QSize sign = QSize(10, 9) * theme::zoom();
  drawSmallWindow(painter, button.center() - QPoint(sign.width() / 2, (sign.height() - 1) / 2),
                  sign, hovered);
}

void drawRestoreButton(QPainter& painter, const QRect& place, bool hovered) {
  if (hovered) painter.fillRect(place, QColor(theme::paleAccent));
  const float scale = theme::zoom();
  const QPoint corner = place.center() - QPoint(6, 5) * scale;
  const QSize sign = QSize(9, 7) * scale;
  drawSmallWindow(painter, corner + QPoint(3, 0) * scale, sign, hovered);
  const QPoint front = corner + QPoint(0, 3) * scale;
  painter.fillRect(QRect(front, sign + QSize(1, 1)),
                   QColor(hovered ? theme::paleAccent : theme::face));
  drawSmallWindow(painter, front, sign, hovered);
}

QIcon messageIcon(QColor colour, QChar sign) {
  const int side = static_cast<int>(40 * theme::zoom());
  QIcon icon;
  for (const int ratio : {1, 2}) {
    QPixmap pixmap(side * ratio, side * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawEllipse(QRectF(2, 2, side - 4, side - 4));
    QFont font(theme::interfaceFamily);
    font.setPixelSize(side * 3 / 5);
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(QColor(theme::window));
    painter.drawText(QRectF(0, 0, side, side), Qt::AlignCenter, sign);
    icon.addPixmap(pixmap);
  }
  return icon;
}

QIcon moreIcon() {
  QPixmap pixmap(24, 24);
  pixmap.setDevicePixelRatio(2);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  drawChevron(painter, {6, 4}, theme::text);
  drawChevron(painter, {6, 8}, theme::text);
  return pixmap;
}

}  // namespace

ControlStyle::ControlStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

int ControlStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                              const QWidget* widget) const {
  const float scale = theme::scaleOf(widget);
  if (metric == PM_ScrollBarExtent) return toPixel(pixels(14), scale);
  if (metric == PM_MdiSubWindowFrameWidth) return toPixel(FrameWindow::childSide, scale);
  if (metric == PM_TitleBarHeight) return toPixel(FrameWindow::childTop, scale);
  if (metric == PM_DefaultFrameWidth) return 1;
  const int usual = QProxyStyle::pixelMetric(metric, option, widget);
  const bool grows = scale != 1 && std::ranges::find(growing, metric) != growing.end();
  return grows ? static_cast<int>(std::lround(static_cast<float>(usual) * scale)) : usual;
}

int ControlStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                            QStyleHintReturn* returned) const {
  // No icons on buttons, no etched text, square corners in the frame, OK before Cancel, a list
  // below its box.
  constexpr std::array none{SH_DialogButtonBox_ButtonsHaveIcons, SH_EtchDisabledText,
                            SH_WindowFrame_Mask, SH_DialogButtonLayout, SH_ComboBox_Popup};
  return std::ranges::find(none, hint) != none.end()
             ? 0
             : QProxyStyle::styleHint(hint, option, widget, returned);
}

QRect ControlStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                   SubControl part, const QWidget* widget) const {
  // A window in the frame has one button: at the very end of its bar, or, while it is maximised, of
  // the menu bar.
  if (control == CC_MdiControls) return part == SC_MdiNormalButton ? option->rect : QRect();
  const bool isButton = part == SC_TitleBarMaxButton || part == SC_TitleBarNormalButton;
  if (control != CC_TitleBar || !isButton)
    return QProxyStyle::subControlRect(control, option, part, widget);
  const QRect& bar = option->rect;
  return {bar.right() - bar.height() - 3, bar.top(), bar.height(), bar.height()};
}

QSize ControlStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                     const QSize& size, const QWidget* widget) const {
  const float scale = theme::scaleOf(widget);
  if (type == CT_MdiControls) return QSize(28, 18) * scale;
  const QSize usual = QProxyStyle::sizeFromContents(type, option, size, widget);
  return type == CT_PushButton ? usual.expandedTo(QSize(90, 30) * scale) : usual;
}

QIcon ControlStyle::standardIcon(StandardPixmap icon, const QStyleOption* option,
                                 const QWidget* widget) const {
  // The toolkit would search the desktop's icon themes for it while the menu bar is made.
  if (icon == SP_ToolBarHorizontalExtensionButton) return moreIcon();
  if (!isMessageSign(icon)) return QProxyStyle::standardIcon(icon, option, widget);
  if (icon == SP_MessageBoxInformation) return messageIcon(theme::accent, 'i');
  if (icon == SP_MessageBoxQuestion) return messageIcon(theme::accent, '?');
  if (icon == SP_MessageBoxWarning) return messageIcon(QColor(0xD9, 0x8E, 0x04), '!');
  return messageIcon(QColor(0xC0, 0x2B, 0x2B), QChar(0x00D7));
}

void ControlStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                 QPainter* painter, const QWidget* widget) const {
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
  if (element == PE_PanelButtonCommand)
    drawButton(*painter, *option);
  else if (element == PE_FrameFocusRect)
    drawFocusRing(*painter, option->rect);
  else if (element == PE_FrameLineEdit || element == PE_Frame)
    drawEditBorder(*painter, *option, false);
  else if (element == PE_PanelLineEdit && frame && frame->lineWidth > 0)
    drawEditBorder(*painter, *option, true);
  else if (element == PE_PanelLineEdit)  // that of a number box has no border of its own
    painter->fillRect(option->rect, option->palette.base());
  else if (element == PE_IndicatorCheckBox)
    drawTick(*painter, *option);
  else if (element == PE_IndicatorRadioButton)
    drawOption(*painter, *option);
  else if (element == PE_PanelScrollAreaCorner)
    painter->fillRect(option->rect, QColor(theme::face));
  else if (element == PE_FrameWindow)
    drawWindowFrame(*painter, *option);
  else if (element != PE_FrameDefaultButton)
    QProxyStyle::drawPrimitive(element, option, painter, widget);
  painter->restore();
}

void ControlStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                      QPainter* painter, const QWidget* widget) const {
  const auto part = [&](SubControl which) {
    return subControlRect(control, option, which, widget);
  };
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  if (control == CC_ComboBox) {
    drawComboBox(*painter, *option, part(SC_ComboBoxArrow), theme::scaleOf(widget));
  } else if (control == CC_ScrollBar) {
    drawScrollBar(*painter, *option, option->rect, part(SC_ScrollBarSlider));
  } else if (control == CC_TitleBar) {
    const auto& bar = *qstyleoption_cast<const QStyleOptionTitleBar*>(option);
    const bool maximised = bar.titleBarState & Qt::WindowMaximized;
    drawTitleBar(*painter, bar, part(maximised ? SC_TitleBarNormalButton : SC_TitleBarMaxButton));
  } else if (control == CC_MdiControls) {
    drawRestoreButton(*painter, option->rect, option->activeSubControls & SC_MdiNormalButton);
  } else {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
  }
  painter->restore();
}

}  // namespace tolmer
