// Mouse, keyboard and focus of all widgets, told to the models in one place.
#pragma once

#include <QHash>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QObject>
#include <QWidget>
#include <optional>

#include "platform/user_input.h"

namespace tolmer {

class Gate;

// The key as event procedures name it; 0 for one that they do not know. And back.
KeyPress toKeyPress(const QKeyEvent& event);
Qt::Key toolkitKey(int code);
// None for a button that means nothing to models.
std::optional<MouseButton> modelButton(const QMouseEvent& event);

// Whether it is input to a window that takes none.
bool keepsOut(const Window& window, QEvent& event);

// Has a window that mirrors no model take the keys that mean the same in every window.
void takeDesktopKeys(QWidget& window, const Desktop& desktop, Gate& gate);

// Hands on to the models what the mouse does, the keys that are taken, and where the focus goes.
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
  bool wheelTurned(Control& control, const QWheelEvent& event);
  bool keyPressed(Control& control, const KeyPress& key);
  void mouseReleased(const QObject& widget, Watched watched, const QMouseEvent& event);

  Gate& gate_;
  QHash<const QObject*, Watched> watched_;
  MouseRoute mouse_;
};

}  // namespace tolmer
