#include "platform/qt/control_shapes.h"

#include <QPolygonF>

#include "platform/qt/theme.h"

namespace tolmer {
namespace {

constexpr double corner = 4;

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

void drawChevron(QPainter& painter, QPointF middle, QColor colour) {
  painter.setPen(QPen(colour, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(Qt::NoBrush);
  painter.drawPolyline(QPolygonF(
      {middle + QPointF(-3.5, -1.5), middle + QPointF(0, 2), middle + QPointF(3.5, -1.5)}));
}

// The sign on a maximise or restore button.
void drawSmallWindow(QPainter& painter, QPoint corner, QSize size, bool hovered) {
  const QColor ink = hovered ? theme::accent : theme::quietText;
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setPen(ink);
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(QRect(corner, size));
  painter.fillRect(QRect(corner, QSize(size.width() + 1, 2)), ink);
}

}  // namespace

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

void drawComboBox(QPainter& painter, const QStyleOptionComplex& option, const QRect& arrow) {
  painter.setPen(borderOf(option, false));
  painter.setBrush(tinted(option, option.palette.color(QPalette::Base)));
  painter.drawRoundedRect(edge(option.rect), 3, 3);
  drawChevron(painter, QRectF(arrow).center(), isEnabled(option) ? theme::quietText : theme::line);
}

void drawScrollBar(QPainter& painter, const QStyleOptionComplex& option, const QRect& groove,
                   const QRect& slider) {
  painter.fillRect(groove, QColor(theme::face));
  if (!isEnabled(option)) return;
  const bool held = isPressed(option) && option.activeSubControls & QStyle::SC_ScrollBarSlider;
  const bool upright = groove.height() > groove.width();
  const QRectF handle =
      upright ? QRectF(slider).adjusted(4, 1, -4, -1) : QRectF(slider).adjusted(1, 4, -1, -4);
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
  const QRect text = option.rect.adjusted(10, 1, -36, 0);
  painter.drawText(text, Qt::AlignVCenter | Qt::AlignLeft,
                   painter.fontMetrics().elidedText(option.text, Qt::ElideRight, text.width()));
  const bool hovered =
      option.activeSubControls & (QStyle::SC_TitleBarMaxButton | QStyle::SC_TitleBarNormalButton);
  drawSmallWindow(painter, button.center() - QPoint(5, 4), QSize(10, 9), hovered);
}

void drawRestoreButton(QPainter& painter, const QRect& place, bool hovered) {
  if (hovered) painter.fillRect(place, QColor(theme::paleAccent));
  const QPoint corner = place.center() - QPoint(6, 5);
  drawSmallWindow(painter, corner + QPoint(3, 0), QSize(9, 7), hovered);
  painter.fillRect(QRect(corner + QPoint(0, 3), QSize(10, 8)),
                   QColor(hovered ? theme::paleAccent : theme::face));
  drawSmallWindow(painter, corner + QPoint(0, 3), QSize(9, 7), hovered);
}

QIcon messageIcon(QColor colour, QChar sign) {
  constexpr int side = 40;
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
    font.setPixelSize(24);
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

}  // namespace tolmer
