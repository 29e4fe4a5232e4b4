// Mouse, keyboard and focus of all widgets, told to the models in one place.
#pragma once

#include <QHash>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QObject>
#include <QWidget>

#include "platform/control.h"

namespace tolmer {

class Gate;

// The key as event procedures name it; 0 for one that they do not know.
KeyPress toKeyPress(const QKeyEvent& event);

// Whether it is input to a window that takes none.
bool keepsOut(const Window& window, QEvent& event);

// Raises MouseDown, MouseUp, MouseMove, KeyDown and the focus events, and Click of those kinds
// whose widgets have no click of their own (label, panel, image, the ground of a window).
//
// A release of the right button goes to the nearest model, outwards, that has a MouseUp handler.
class InputFilter : public QObject {
 public:
  explicit InputFilter(Gate& gate) : gate_(gate) {}

  // From now on the widget, with the widgets inside it, speaks for the control.
  void watch(QWidget& widget, Control& control);
  // Only its right clicks count: the frame around a window.
  void watchFrame(QWidget& widget, Control& control);
  void forget(const Control& control);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Watched {
    Control* control = nullptr;
    bool isFrame = false;
  };
  void watchOne(QWidget& widget, Watched watched);
  void mousePressed(Control& control, Qt::MouseButton button);
  void mouseReleased(const QObject& widget, Watched watched, const QMouseEvent& event);
  void doubleClicked(Control& control);
  void leftReleased(const QObject& widget, Control& control, bool inside);
  bool keyPressed(const QObject& widget, Control& control, const QKeyEvent& event);

  Gate& gate_;
  QHash<const QObject*, Watched> watched_;
  const Control* pressed_ = nullptr;  // only compared
};

}  // namespace tolmer
