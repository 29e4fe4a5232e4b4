#include "platform/qt/link_widget.h"

#include <QPainter>
#include <QStyleOptionFocusRect>

#include "platform/qt/theme.h"

namespace tolmer {

LinkWidget::LinkWidget(QWidget* parent) : QAbstractButton(parent) {
  setCursor(Qt::PointingHandCursor);
  // Not by a click: who has clicked a page turner means the default button by the next Return.
  setFocusPolicy(Qt::TabFocus);
}

void LinkWidget::setTextLayout(Qt::Alignment alignment, bool wraps) {
  alignment_ = alignment;
  wraps_ = wraps;
  update();
}

void LinkWidget::showText(const QString& text) {
  shown_ = text;
  setText(QString(text).replace('&', "&&"));
  setShortcut({});
}

void LinkWidget::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  QFont linkFont = font();
  linkFont.setUnderline(underMouse() || hasFocus());
  painter.setFont(linkFont);
  // A colour of its own, as while it flashes, goes before the link colour.
  const QColor own = palette().color(QPalette::WindowText);
  const QColor link = own == QColor(theme::text) ? QColor(theme::accent) : own;
  painter.setPen(isEnabled() ? link : palette().color(QPalette::WindowText));
  painter.drawText(rect(), static_cast<int>(alignment_) | (wraps_ ? Qt::TextWordWrap : 0), shown_);
  if (!hasFocus()) return;
  QStyleOptionFocusRect option;
  option.initFrom(this);
  style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
}

void LinkWidget::enterEvent(QEnterEvent*) { update(); }
void LinkWidget::leaveEvent(QEvent*) { update(); }

}  // namespace tolmer
