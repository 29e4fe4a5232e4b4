#pragma once

#include <QAbstractButton>

namespace tolmer {

// A text that is pressed like a button and looks like a link. Its text has no marked letters.
class LinkWidget : public QAbstractButton {
 public:
  explicit LinkWidget(QWidget* parent);
  void setTextLayout(Qt::Alignment alignment, bool wraps);
  // Text as it stands; the toolkit would take "&" for a mark in a button's text.
  void showText(const QString& text);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  QString shown_;
  Qt::Alignment alignment_ = Qt::AlignLeft | Qt::AlignVCenter;
  bool wraps_ = false;
};

}  // namespace tolmer
