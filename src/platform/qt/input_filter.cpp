#include "platform/qt/input_filter.h"

#include <QApplication>
#include <QLineEdit>
#include <algorithm>
#include <array>
#include <utility>

#include "platform/desktop.h"
#include "platform/qt/gate.h"
#include "platform/window.h"

namespace tolmer {
namespace {

constexpr std::array<std::pair<int, int>, 18> namedKeys{{{Qt::Key_Backspace, keys::backspace},
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
                                                         {Qt::Key_Menu, keys::menu},
                                                         {Qt::Key_Plus, keys::plus},
                                                         {Qt::Key_Minus, keys::minus}}};

int keyCode(int key) {
  for (const auto& [toolkit, code] : namedKeys)
    if (toolkit == key) return code;
  if (key == Qt::Key_Equal) return keys::plus;  // on the same key, where that needs Shift
  if (key >= Qt::Key_F1 && key <= Qt::Key_F12) return keys::f1 + key - Qt::Key_F1;
  // The toolkit's codes of other characters mean other keys here: its point is the Delete key.
  const bool isOwnCode = key == Qt::Key_Space || (key >= Qt::Key_0 && key <= Qt::Key_9) ||
                         (key >= Qt::Key_A && key <= Qt::Key_Z);
  return isOwnCode ? key : 0;
}

}  // namespace

// An override that is accepted keeps the key from menus and letters.
bool keepsOut(const Window& window, QEvent& event) {
  if (window.takesInput()) return false;
  constexpr std::array input{QEvent::MouseButtonPress,
                             QEvent::MouseButtonRelease,
                             QEvent::MouseButtonDblClick,
                             QEvent::MouseMove,
                             QEvent::Wheel,
                             QEvent::KeyPress,
                             QEvent::KeyRelease,
                             QEvent::InputMethod,
                             QEvent::DragEnter};
  if (event.type() == QEvent::ShortcutOverride) event.accept();
  return event.type() == QEvent::ShortcutOverride ||
         std::ranges::find(input, event.type()) != input.end();
}

KeyPress toKeyPress(const QKeyEvent& event) {
  const auto modifiers = event.modifiers();
  return {keyCode(event.key()), modifiers.testFlag(Qt::ShiftModifier),
          modifiers.testFlag(Qt::ControlModifier), modifiers.testFlag(Qt::AltModifier)};
}

Qt::Key toolkitKey(int code) {
  for (const auto& [toolkit, named] : namedKeys)
    if (named == code) return static_cast<Qt::Key>(toolkit);
  const bool isFunctionKey = code >= keys::f1 && code < keys::f1 + 12;
  return static_cast<Qt::Key>(isFunctionKey ? Qt::Key_F1 + code - keys::f1 : code);
}

namespace {

// Before the window's own controls: a box for a file's name lets no key go on to its window.
class DesktopKeys : public QObject {
 public:
  DesktopKeys(QWidget& window, const Desktop& desktop, Gate& gate)
      : QObject(&window), window_(window), desktop_(desktop), gate_(gate) {
    qApp->installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::KeyPress || !watched->isWidgetType() ||
        static_cast<QWidget*>(watched)->window() != &window_)
      return false;
    const TakenKey* key = takenKey(desktop_, toKeyPress(*static_cast<QKeyEvent*>(event)));
    if (key) gate_.enter(key->work);
    return key != nullptr;
  }

 private:
  const QWidget& window_;
  const Desktop& desktop_;
  Gate& gate_;
};

}  // namespace

void takeDesktopKeys(QWidget& window, const Desktop& desktop, Gate& gate) {
  new DesktopKeys(window, desktop, gate);
}

std::optional<MouseButton> modelButton(const QMouseEvent& event) {
  if (event.button() == Qt::RightButton) return MouseButton::right;
  if (event.button() == Qt::LeftButton) return MouseButton::left;
  return std::nullopt;
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
  mouse_.forget(control);
}

bool InputFilter::eventFilter(QObject* object, QEvent* event) {
  const Watched watched = watched_.value(object);
  if (!watched.control) return false;
  Control& control = *watched.control;
  const Window* window = control.window();
  if (window && keepsOut(*window, *event)) return true;
  switch (event->type()) {
    case QEvent::MouseButtonPress:
      if (const auto button = modelButton(*static_cast<QMouseEvent*>(event));
          button && !watched.isFrame)
        gate_.enter([&] { mouse_.press(control, *button); });
      return false;
    case QEvent::MouseButtonDblClick:
      if (!watched.isFrame) gate_.enter([&] { mouse_.doubleClick(control); });
      return false;
    case QEvent::MouseButtonRelease:
      mouseReleased(*object, watched, *static_cast<QMouseEvent*>(event));
      return false;
    case QEvent::Wheel:
      return wheelTurned(control, *static_cast<QWheelEvent*>(event));
    case QEvent::HoverEnter:
    case QEvent::HoverMove:
      gate_.enter([&] { mouse_.move(control); });
      return false;
    case QEvent::FocusIn:
      if (control.takesFocus()) gate_.enter([&control] { control.setFocus(); });
      return false;
    case QEvent::ShortcutOverride: {
      // A letter that a window takes goes before the menu's.
      const KeyPress key = toKeyPress(*static_cast<QKeyEvent*>(event));
      if (!key.alt || !takenKey(control, key)) return false;
      event->accept();
      return true;
    }
    case QEvent::KeyPress:
      // An ignored key wanders outwards through the parents and must not be told again.
      return (object == QApplication::focusWidget() ||
              !watched_.contains(QApplication::focusWidget())) &&
             keyPressed(control, toKeyPress(*static_cast<QKeyEvent*>(event)));
    default:
      return false;
  }
}

// A notch of the wheel is 120 units and as many lines as the desktop says.
bool InputFilter::wheelTurned(Control& control, const QWheelEvent& event) {
  const float notches = -static_cast<float>(event.angleDelta().y()) / 120;
  bool turned = false;
  gate_.enter([&] {
    turned = turnWheel(control, notches * static_cast<float>(QApplication::wheelScrollLines()));
  });
  return turned;
}

bool InputFilter::keyPressed(Control& control, const KeyPress& key) {
  bool taken = false;
  gate_.enter([&] {
    const TakenKey* found = takenKey(control, key);
    taken = found != nullptr;
    if (found) raise(found->work);
  });
  return taken;
}

void InputFilter::mouseReleased(const QObject& widget, Watched watched, const QMouseEvent& event) {
  const auto button = modelButton(event);
  if (!button || (watched.isFrame && *button == MouseButton::left)) return;
  const bool inside = static_cast<const QWidget&>(widget).rect().contains(event.pos());
  gate_.enter([&] { mouse_.release(*watched.control, *button, inside); });
}

}  // namespace tolmer
