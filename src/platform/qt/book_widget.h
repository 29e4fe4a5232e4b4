#pragma once

#include <QTabBar>
#include <QWidget>

namespace tolmer {

// The tabs of a notebook along the upper edge and the page below them.
class BookWidget : public QWidget {
 public:
  explicit BookWidget(QWidget* parent);
  QTabBar& tabs() { return *tabs_; }

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void stepBy(int step);

  QTabBar* tabs_;
};

}  // namespace tolmer
