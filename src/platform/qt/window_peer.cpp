#include "platform/qt/window_peer.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollArea>
#include <QWindow>

#include "platform/qt/convert.h"
#include "platform/qt/input_filter.h"

namespace tolmer {
namespace {

class GroundWidget : public QWidget {
 public:
  GroundWidget(QWidget* parent, const Window& window) : QWidget(parent), window_(window) {}

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter(this).fillRect(rect(), toQt(window_.backColour()));
  }

 private:
  const Window& window_;
};

// Where it stands on something that is scrolled: all of it, not only where the cursor is.
void bringIntoView(QWidget& widget) {
  constexpr int around = 8;
  for (QWidget* above = widget.parentWidget(); above; above = above->parentWidget())
    if (auto* area = qobject_cast<QScrollArea*>(above)) {
      const QPoint middle = widget.mapTo(area->widget(), widget.rect().center());
      area->ensureVisible(middle.x(), middle.y(), widget.width() / 2 + around,
                          widget.height() / 2 + around);
    }
}

}  // namespace

WindowPeer::WindowPeer(Mirror& mirror, Window& window, QWidget* ground)
    : ContainerPeer(mirror, window, ground),
      window_(window),
      hook_([this](QEvent& event) { return seen(event); }),
      inputHook_([this](QEvent& event) { return keepsOut(window_, event); }) {}

WindowPeer::~WindowPeer() { mirror_.windows.hidden(window_); }

QWidget* WindowPeer::makeGround(QWidget* parent) {
  ground_ = new GroundWidget(parent, window_);
  return ground_;
}

void WindowPeer::watch() {
  ContainerPeer::watch();
  widget()->installEventFilter(&hook_);
}

// A press that came as far as a widget would have moved the focus.
void WindowPeer::guardInput() { widget()->windowHandle()->installEventFilter(&inputHook_); }

void WindowPeer::update(Change what) {
  if (has(what, Change::text)) widget()->setWindowTitle(toQt(window_.caption()));
  if (has(what, Change::updates)) mirror_.windows.allowPainting(window_, *widget());
  if (has(what, Change::look) && ground_) ground_->update();
  ContainerPeer::update(what);
  if (has(what, Change::focus)) followFocus();
}

void WindowPeer::followFocus() {
  const Control* focus = window_.focus();
  QWidget* widget = focus ? widgetOf(*focus) : nullptr;
  if (widget && !widget->hasFocus())
    widget->setFocus(window_.focusMoves() ? Qt::TabFocusReason : Qt::OtherFocusReason);
  if (widget) bringIntoView(*widget);
}

bool WindowPeer::seen(QEvent& event) {
  if (event.type() == QEvent::Close) {
    event.ignore();
    mirror_.gate.enter([this] { window_.requestClose(); });
    return true;
  }
  if (event.type() != QEvent::KeyPress) return false;
  const KeyPress key = toKeyPress(static_cast<QKeyEvent&>(event));
  bool taken = true;  // also by what throws: the toolkit's own dialog would go at Escape
  mirror_.gate.enter([&] { taken = window_.pressKey(key); });
  return taken;
}

std::unique_ptr<WindowPeer> makeWindowPeer(Mirror& mirror, Window& window) {
  switch (window.style()) {
    case WindowStyle::dialog:
    case WindowStyle::bare:
      return makeDialogPeer(mirror, window);
    case WindowStyle::frame:
      return makeFrameWindowPeer(mirror, static_cast<FrameWindow&>(window));
    case WindowStyle::child:
      break;
  }
  QWidget* frameWidget = window.frame() ? ControlPeer::widgetOf(*window.frame()) : nullptr;
  return frameWidget ? makeChildPeer(mirror, window, frameWidget) : nullptr;
}

void presentWindow(Mirror& mirror, Window& window) {
  if (!window.peer()) {
    auto peer = makeWindowPeer(mirror, window);
    if (!peer) return;
    window.setPeer(std::move(peer));
    window.peer()->changed(Change::all);
  }
  static_cast<WindowPeer*>(window.peer())->bringUp();
}

}  // namespace tolmer
