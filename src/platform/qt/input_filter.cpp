#include "platform/qt/input_filter.h"

#include <QApplication>
#include <QLineEdit>
#include <array>
#include <utility>

#include "platform/image.h"
#include "platform/label.h"
#include "platform/option_button.h"
#include "platform/panel.h"
#include "platform/qt/gate.h"
#include "platform/window.h"

namespace tolmer {
namespace {

constexpr std::array<std::pair<int, int>, 16> namedKeys{{{Qt::Key_Backspace, keys::backspace},
                                                         {Qt::Key_Tab, keys::tab},
                                                         {Qt::Key_Backtab, keys::tab},
                                                         {Qt::Key_Return, keys::enter},
                                                         {Qt::Key_Enter, keys::enter},
                                                         {Qt::Key_Escape, keys::escape},
                                                         {Qt::Key_PageUp, keys::pageUp},
                                                         {Qt::Key_PageDown, keys::pageDown},
                                                         {Qt::Key_End, keys::end},
                                                         {Qt::Key_Home, keys::home},
                                                         {Qt::Key_Left, keys::left},
                                                         {Qt::Key_Up, keys::up},
                                                         {Qt::Key_Right, keys::right},
                                                         {Qt::Key_Down, keys::down},
                                                         {Qt::Key_Delete, keys::deleteKey},
                                                         {Qt::Key_Menu, keys::menu}}};

int keyCode(int key) {
  for (const auto& [toolkit, code] : namedKeys)
    if (toolkit == key) return code;
  if (key >= Qt::Key_F1 && key <= Qt::Key_F12) return keys::f1 + key - Qt::Key_F1;
  // The toolkit's codes of other characters mean other keys here: its point is the Delete key.
  const bool isOwnCode = key == Qt::Key_Space || (key >= Qt::Key_0 && key <= Qt::Key_9) ||
                         (key >= Qt::Key_A && key <= Qt::Key_Z);
  return isOwnCode ? key : 0;
}

// Grid and graph know best where in them the mouse is.
bool raisesItsOwnMouse(const Control& control) {
  return control.kind() == ControlKind::grid || control.kind() == ControlKind::graph;
}

void clickOn(Control& control) {
  switch (control.kind()) {
    case ControlKind::label:
      if (!control.takesFocus()) static_cast<Label&>(control).click();
      return;
    case ControlKind::panel:
      return static_cast<Panel&>(control).click();
    case ControlKind::image:
      return static_cast<Image&>(control).click();
    case ControlKind::window:
      return raise(static_cast<Window&>(control).Click);
    default:
      return;
  }
}

Control* nearestMouseUp(Control& control) {
  for (Control* target = &control; target; target = target->parent())
    if (target->MouseUp) return target;
  return nullptr;
}

}  // namespace

// An override that is accepted keeps the key from menus and letters.
bool keepsOut(const Window& window, QEvent& event) {
  if (window.takesInput()) return false;
  switch (event.type()) {
    case QEvent::ShortcutOverride:
      event.accept();
      return true;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::InputMethod:
    case QEvent::DragEnter:
      return true;
    default:
      return false;
  }
}

KeyPress toKeyPress(const QKeyEvent& event) {
  const auto modifiers = event.modifiers();
  return {keyCode(event.key()), modifiers.testFlag(Qt::ShiftModifier),
          modifiers.testFlag(Qt::ControlModifier), modifiers.testFlag(Qt::AltModifier)};
}

void InputFilter::watch(QWidget& widget, Control& control) {
  watchOne(widget, {&control});
  // A click is told once, by the innermost control.
  widget.setAttribute(Qt::WA_NoMousePropagation);
  for (QWidget* inner : widget.findChildren<QWidget*>()) {
    watchOne(*inner, {&control});
    // The edit line of a number box leaves the wheel to the box, and nothing else.
    inner->setAttribute(Qt::WA_NoMousePropagation, !qobject_cast<QLineEdit*>(inner));
  }
}

void InputFilter::watchFrame(QWidget& widget, Control& control) {
  watchOne(widget, {&control, true});
}

void InputFilter::watchOne(QWidget& widget, Watched watched) {
  watched_.insert(&widget, watched);
  widget.installEventFilter(this);
  if (watched.control->MouseMove) widget.setAttribute(Qt::WA_Hover);
  // A text box would show the toolkit's own menu.
  widget.setContextMenuPolicy(Qt::PreventContextMenu);
}

void InputFilter::forget(const Control& control) {
  watched_.removeIf([&](const auto& entry) { return entry.value().control == &control; });
  if (pressed_ == &control) pressed_ = nullptr;
}

bool InputFilter::eventFilter(QObject* object, QEvent* event) {
  const Watched watched = watched_.value(object);
  if (!watched.control) return false;
  Control& control = *watched.control;
  const Window* window = control.window();
  if (window && keepsOut(*window, *event)) return true;
  switch (event->type()) {
    case QEvent::MouseButtonPress:
      if (!watched.isFrame) mousePressed(control, static_cast<QMouseEvent*>(event)->button());
      return false;
    case QEvent::MouseButtonDblClick:
      if (!watched.isFrame) doubleClicked(control);
      return false;
    case QEvent::MouseButtonRelease:
      mouseReleased(*object, watched, *static_cast<QMouseEvent*>(event));
      return false;
    case QEvent::HoverEnter:
    case QEvent::HoverMove:
      if (control.MouseMove && control.canBeUsed())
        gate_.enter([&control] { raise(control.MouseMove); });
      return false;
    case QEvent::FocusIn:
      if (control.takesFocus()) gate_.enter([&control] { control.setFocus(); });
      return false;
    case QEvent::KeyPress:
      // An ignored key wanders outwards through the parents and must not be told again.
      return object == QApplication::focusWidget() &&
             keyPressed(*object, control, *static_cast<QKeyEvent*>(event));
    default:
      return false;
  }
}

void InputFilter::mousePressed(Control& control, Qt::MouseButton button) {
  pressed_ = nullptr;
  if (!control.canBeUsed() || raisesItsOwnMouse(control)) return;
  if (button == Qt::LeftButton) pressed_ = &control;
  gate_.enter([&] {
    raise(control.MouseDown, button == Qt::RightButton ? MouseButton::right : MouseButton::left);
  });
}

void InputFilter::doubleClicked(Control& control) {
  pressed_ = nullptr;
  if (!control.canBeUsed()) return;
  gate_.enter([&control] {
    if (control.kind() == ControlKind::optionButton)
      static_cast<OptionButton&>(control).doubleClick();
    else if (control.kind() == ControlKind::label)
      static_cast<Label&>(control).doubleClick();
  });
}

void InputFilter::mouseReleased(const QObject& widget, Watched watched, const QMouseEvent& event) {
  if (raisesItsOwnMouse(*watched.control)) return;
  if (event.button() == Qt::RightButton) {
    if (Control* target = nearestMouseUp(*watched.control))
      gate_.enter([target] { raise(target->MouseUp, MouseButton::right); });
  } else if (event.button() == Qt::LeftButton && !watched.isFrame) {
    const bool inside = static_cast<const QWidget&>(widget).rect().contains(event.pos());
    leftReleased(widget, *watched.control, inside);
  }
}

void InputFilter::leftReleased(const QObject& widget, Control& control, bool inside) {
  const bool clicked = inside && pressed_ == &control;
  pressed_ = nullptr;
  if (!control.canBeUsed()) return;
  gate_.enter([&] {
    raise(control.MouseUp, MouseButton::left);
    // The handler may have unloaded the control.
    if (clicked && watched_.value(&widget).control == &control) clickOn(control);
  });
}

bool InputFilter::keyPressed(const QObject& widget, Control& control, const QKeyEvent& event) {
  const KeyPress press = toKeyPress(event);
  bool taken = false;
  gate_.enter([&] {
    Window* window = control.window();
    if (&control != window) raise(control.KeyDown, press, taken);
    const bool stillThere = watched_.value(&widget).control == &control;
    if (!taken && stillThere && window) raise(window->KeyDown, press, taken);
  });
  return taken;
}

}  // namespace tolmer
