#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMouseEvent>
#include <QScrollArea>

#include "platform/qt/convert.h"
#include "platform/qt/window_peer.h"

namespace tolmer {
namespace {

constexpr Qt::WindowFlags childFlags = Qt::SubWindow | Qt::CustomizeWindowHint |
                                       Qt::WindowTitleHint | Qt::WindowMaximizeButtonHint |
                                       Qt::WindowMinMaxButtonsHint;

// A window inside the frame. Its place is the program's: the user can maximise and restore it, but
// not drag, resize or close it.
class ChildPeer : public WindowPeer {
 public:
  ChildPeer(Mirror& mirror, Window& child, QWidget* frameWidget)
      : WindowPeer(mirror, child, frameWidget), main_(static_cast<MainWidget*>(frameWidget)) {}

  void bringUp() override {
    if (window().visible() && sub_) main_->area().setActiveSubWindow(sub_);
  }

 private:
  QWidget* create(QWidget*) override {
    sub_ = new QMdiSubWindow;
    sub_->setWidget(makeInside());
    main_->area().addSubWindow(sub_, childFlags & ~Qt::WindowMinimizeButtonHint);
    // It would open on a right click, which belongs to the display's menu.
    sub_->setSystemMenu(nullptr);
    on(sub_, &QMdiSubWindow::windowStateChanged, [this] { reportState(); });
    return sub_;
  }

  // What its layout needs more room for than there is scrolls.
  QWidget* makeInside() {
    if (window().leastInner() == Size{}) return makeGround(sub_);
    auto* scroller = new QScrollArea(sub_);
    scroller->setFrameShape(QFrame::NoFrame);
    scroller->setFocusPolicy(Qt::NoFocus);
    scroller->setWidgetResizable(true);
    scroller->setWidget(makeGround(scroller));
    childrenGround()->installEventFilter(&groundHook_);
    return scroller;
  }

  void watch() override {
    WindowPeer::watch();
    mirror_.input.watchFrame(*sub_, window());
  }

  void place() override {
    if (window().leastInner() != Size{})
      childrenGround()->setMinimumSize(toPixels(window().leastInner(), scale()));
    const bool maximised = window().state() == WindowState::maximised;
    if (!sub_->isVisible()) {
      sub_->setGeometry(toPixels(window().place(), scale()));
      return;
    }
    if (maximised != sub_->isMaximized()) maximised ? sub_->showMaximized() : sub_->showNormal();
    hold();
  }

  void show(bool visible) override {
    if (!visible) {
      // The toolkit then activates a child of its choice, which is no wish of the user's.
      const Gate::Shut shut(mirror_.gate);
      sub_->hide();
      mirror_.windows.hidden(window());
    } else if (window().state() == WindowState::maximised) {
      sub_->showMaximized();
    } else {
      sub_->showNormal();
      hold();
    }
  }

  bool seen(QEvent& event) override {
    switch (event.type()) {
      case QEvent::MouseMove:
        return static_cast<QMouseEvent&>(event).buttons().testFlag(Qt::LeftButton);
      case QEvent::Move:
      case QEvent::Resize:
        hold();
        break;
      default:
        break;
    }
    return WindowPeer::seen(event);
  }

  // Whatever moved it, it goes back. A fixed size would not do: it forbids maximising.
  void hold() {
    const QRect wanted = toPixels(window().place(), scale());
    const bool fixed = window().state() == WindowState::normal && !sub_->isMaximized();
    if (fixed && !sub_->isMinimized() && sub_->geometry() != wanted) sub_->setGeometry(wanted);
  }

  // Less than the model knows where a scroll bar takes some of it.
  void reportInner() {
    const QSize now = childrenGround()->size();
    if (now == toPixels(Size{window().innerWidth(), window().innerHeight()}, scale())) return;
    tell([this, now] { window().reportInnerSize(toTwips(now, scale())); });
  }

  void reportState() {
    const WindowState state = sub_->isMaximized() ? WindowState::maximised : WindowState::normal;
    tell([this, state] { window().reportState(state); });
  }

  EventHook groundHook_{[this](QEvent& event) {
    if (event.type() == QEvent::Resize && sub_->isVisible()) reportInner();
    return false;
  }};
  MainWidget* main_;
  QMdiSubWindow* sub_ = nullptr;
};

}  // namespace

std::unique_ptr<WindowPeer> makeChildPeer(Mirror& mirror, Window& child, QWidget* frameWidget) {
  return std::make_unique<ChildPeer>(mirror, child, frameWidget);
}

}  // namespace tolmer
