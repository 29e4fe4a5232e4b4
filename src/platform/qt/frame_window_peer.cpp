#include <QApplication>
#include <QBoxLayout>
#include <QGuiApplication>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QPainter>
#include <QScreen>

#include "platform/qt/convert.h"
#include "platform/qt/menu_peer.h"
#include "platform/qt/theme.h"
#include "platform/qt/window_peer.h"
#include "platform/tab_order.h"

namespace tolmer {

namespace {

// By itself it takes Ctrl+Tab from the whole program for a way around of its own.
class Area : public QMdiArea {
 public:
  using QMdiArea::QMdiArea;

 protected:
  bool eventFilter(QObject* object, QEvent* event) override {
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
    return !isKey && QMdiArea::eventFilter(object, event);
  }
};

class Foot : public QWidget {
 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.fillRect(rect(), theme::face);
    painter.fillRect(0, 0, width(), 1, theme::line);
  }
};

}  // namespace

MainWidget::MainWidget() : area_(new Area), foot_(new Foot) {
  setContextMenuPolicy(Qt::NoContextMenu);
  area_->setFrameShape(QFrame::NoFrame);
  area_->setBackground(QColor(theme::ground));
  // Otherwise activating another child would maximise it in the place of a maximised one.
  area_->setOption(QMdiArea::DontMaximizeSubWindowOnActivation);
  auto* ground = new QWidget(this);
  auto* rows = new QVBoxLayout(ground);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(0);
  rows->addWidget(area_, 1);
  rows->addWidget(foot_);
  foot_->setFixedHeight(0);
  setCentralWidget(ground);
}

namespace {

class FrameWindowPeer : public WindowPeer {
 public:
  FrameWindowPeer(Mirror& mirror, FrameWindow& frame)
      : WindowPeer(mirror, frame, nullptr), frame_(frame), areaHook_([this](QEvent& event) {
          if (event.type() == QEvent::Resize) reportInner();
          return false;
        }) {}

  void bringUp() override {
    if (!frame_.visible() || !main_) return;
    mirror_.windows.shown(frame_, *main_);
    main_->raise();
    main_->activateWindow();
    mirror_.gate.enter([this] { frame_.reportState(stateOf(*main_)); });
    reportInner();
    for (Window* child : frame_.childWindows())
      if (child->visible() && !child->peer()) presentWindow(mirror_, *child);
  }

 private:
  QWidget* create(QWidget*) override {
    main_ = new MainWidget;
    main_->area().viewport()->installEventFilter(&areaHook_);
    on(&main_->area(), &QMdiArea::subWindowActivated,
       [this](QMdiSubWindow* active) { reportActive(active); });
    return main_;
  }

  QWidget* childrenGround() override { return &main_->foot(); }

  void showAnew() override {
    WindowPeer::showAnew();
    for (Window* child : frame_.childWindows())
      if (child->peer()) static_cast<ControlPeer*>(child->peer())->showAnew();
    reportInner();
  }

  void update(Change what) override {
    if (has(what, Change::items) && frame_.menuBar())
      fillMenuBar(mirror_, *main_->menuBar(), *frame_.menuBar());
    WindowPeer::update(what);
    if (has(what, Change::focus) && !frame_.focus()) followActive();
  }

  // The window opens maximised whatever its model says: a main window of any other size would cut
  // its quadrants.
  void show(bool visible) override {
    if (!visible) {
      main_->hide();
      mirror_.windows.hidden(frame_);
      return;
    }
    mirror_.windows.shown(frame_, *main_);
    if (main_->isVisible()) return;
    main_->winId();
    guardInput();
    // For the time until a window manager has really maximised it.
    main_->setGeometry(QGuiApplication::primaryScreen()->availableGeometry());
    main_->showMaximized();
  }

  void place() override {
    main_->foot().setFixedHeight(toPixel(frame_.footHeight(), scale()));
    if (!main_->isVisible() || stateOf(*main_) == frame_.state()) return;
    main_->setWindowState(wantedState());
  }

  // A minimised window keeps in mind whether it is to come back maximised.
  Qt::WindowStates wantedState() const {
    switch (frame_.state()) {
      case WindowState::minimised:
        return main_->windowState() | Qt::WindowMinimized;
      case WindowState::maximised:
        return Qt::WindowMaximized;
      case WindowState::normal:
        break;
    }
    return Qt::WindowNoState;
  }

  bool seen(QEvent& event) override {
    if (event.type() == QEvent::WindowStateChange)
      tell([this] { frame_.reportState(stateOf(*main_)); });
    // The toolkit may have led the focus out of the active child meanwhile, as it does where what
    // has it is disabled.
    if (event.type() == QEvent::WindowActivate && !frame_.focus()) followActive();
    return WindowPeer::seen(event);
  }

  static WindowState stateOf(const QWidget& widget) {
    if (widget.isMinimized()) return WindowState::minimised;
    return widget.isMaximized() ? WindowState::maximised : WindowState::normal;
  }

  void reportInner() {
    if (!main_->isVisible() || main_->isMinimized()) return;
    const QSize inner = main_->area().viewport()->size();
    mirror_.gate.enter([this, inner] { frame_.reportInnerSize(toTwips(inner, scale())); });
  }

  // None is active while another window of the program is: no news for the model.
  void reportActive(const QMdiSubWindow* active) {
    for (Window* child : frame_.childWindows())
      if (active && widgetOf(*child) == active) return tell([child] { child->reportActivated(); });
  }

  void followActive() {
    const Window* active = frame_.activeChild();
    auto* sub = active ? qobject_cast<QMdiSubWindow*>(widgetOf(*active)) : nullptr;
    if (!sub) return;
    if (main_->area().activeSubWindow() != sub) main_->area().setActiveSubWindow(sub);
    if (!sub->isAncestorOf(main_->focusWidget())) focusFirst(*active);
  }

  // A child that never had the focus gives it to the first control that the Tab key reaches.
  static void focusFirst(const Window& child) {
    for (const Control* stop : tabStops(child))
      if (QWidget* widget = widgetOf(*stop); widget && isTabStop(*stop) && stop->canBeUsed())
        return widget->setFocus(Qt::TabFocusReason);
  }

  FrameWindow& frame_;
  EventHook areaHook_;
  MainWidget* main_ = nullptr;
};

}  // namespace

std::unique_ptr<WindowPeer> makeFrameWindowPeer(Mirror& mirror, FrameWindow& frame) {
  return std::make_unique<FrameWindowPeer>(mirror, frame);
}

}  // namespace tolmer
