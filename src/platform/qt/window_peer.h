// The mirrors of windows.
#pragma once

#include <QMainWindow>
#include <QMdiArea>
#include <memory>

#include "platform/qt/control_peer.h"
#include "platform/window.h"

namespace tolmer {

// What dialogs, frame and children have in common: title, ground, close request, Return and Escape,
// focus, update lock.
class WindowPeer : public ContainerPeer {
 public:
  WindowPeer(Mirror& mirror, Window& window, QWidget* ground);
  ~WindowPeer() override;

  // To the front of the screen, where its model is visible.
  virtual void bringUp() = 0;

 protected:
  // The widget that takes the controls.
  QWidget* makeGround(QWidget* parent);
  QWidget* childrenGround() override { return ground_; }
  void watch() override;
  // For a window of the screen, once it is made there.
  void guardInput();
  void update(Change what) override;
  // Events of the window's widget; true where dealt with.
  virtual bool seen(QEvent& event);
  Window& window() const { return window_; }

 private:
  void followFocus();

  Window& window_;
  EventHook hook_;
  EventHook inputHook_;
  QPointer<QWidget> ground_;
};

// The main window on the screen; children find the area they stand in here, and the frame's own
// controls the strip below it.
class MainWidget : public QMainWindow {
 public:
  MainWidget();
  QMdiArea& area() { return *area_; }
  QWidget& foot() { return *foot_; }

 private:
  QMdiArea* area_;
  QWidget* foot_;
};

// By the window's style; a child needs its frame on the screen, and has no mirror before.
std::unique_ptr<WindowPeer> makeWindowPeer(Mirror& mirror, Window& window);
// Makes the window's mirror where there is none, and brings it to the front.
void presentWindow(Mirror& mirror, Window& window);

std::unique_ptr<WindowPeer> makeDialogPeer(Mirror& mirror, Window& window);
std::unique_ptr<WindowPeer> makeFrameWindowPeer(Mirror& mirror, FrameWindow& frame);
std::unique_ptr<WindowPeer> makeChildPeer(Mirror& mirror, Window& child, QWidget* frameWidget);

}  // namespace tolmer
