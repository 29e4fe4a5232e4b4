#pragma once

#include <QMainWindow>
#include <QMdiArea>

namespace tolmer {

// The main window on the screen; children find the area they stand in here.
class MainWidget : public QMainWindow {
 public:
  MainWidget();
  QMdiArea& area() { return *area_; }

 private:
  QMdiArea* area_;
};

}  // namespace tolmer
