#include <QDialog>
#include <QGuiApplication>
#include <QMenuBar>
#include <QScreen>
#include <QScrollArea>
#include <QWindow>

#include "platform/qt/convert.h"
#include "platform/qt/menu_peer.h"
#include "platform/qt/window_peer.h"

namespace tolmer {
namespace {

// What a window manager's title bar and borders take; only where a window nearly fills the screen
// does it matter.
constexpr int titleBarAllowance = 40;

QRect screenPlace() { return QGuiApplication::primaryScreen()->availableGeometry(); }

Qt::WindowFlags flagsOf(const Window& window) {
  if (window.style() == WindowStyle::bare) return Qt::Dialog | Qt::FramelessWindowHint;
  const Qt::WindowFlags flags = Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                                Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
  return window.sizable() ? flags | Qt::WindowMaximizeButtonHint : flags;
}

// A window of its own: dialog, or bare without title bar. A menu bar stands above what the model
// counts as the window's inside.
class DialogPeer : public WindowPeer {
 public:
  DialogPeer(Mirror& mirror, Window& window) : WindowPeer(mirror, window, nullptr) {}

  void bringUp() override {
    if (!window().visible() || !widget()) return;
    if (!dialog_->windowHandle()->transientParent() && mirror_.windows.top() != dialog_) {
      dialog_->hide();
      show(true);
    }
    mirror_.windows.shown(window(), *widget());
    dialog_->raise();
    dialog_->activateWindow();
  }

 private:
  QWidget* create(QWidget*) override {
    dialog_ = new QDialog(nullptr, flagsOf(window()));
    makeGround(dialog_);
    addMenuBar();
    return dialog_;
  }

  void addMenuBar() {
    if (menuBar_ || !window().menuBar()) return;
    menuBar_ = new QMenuBar(dialog_);
    fillMenuBar(mirror_, *menuBar_, *window().menuBar());
  }

  int menuHeight() const { return menuBar_ ? menuBar_->sizeHint().height() : 0; }

  void update(Change what) override {
    if (has(what, Change::items) && !menuBar_ && window().menuBar()) {
      addMenuBar();
      menuBar_->show();
      place();
    }
    WindowPeer::update(what);
  }

  void place() override {
    const QRect wanted = toPixels(window().place());
    const QSize room = screenPlace().size() - bars();
    const QSize shown = wanted.size().boundedTo(room);
    standOnScroller(shown != wanted.size(), shown);
    const QSize outer = shown + QSize(0, menuHeight());
    if (!window().sizable())
      dialog_->setFixedSize(outer);
    else if (window().state() != WindowState::maximised)
      dialog_->resize(outer);
    childrenGround()->resize(wanted.size());
    standBelowMenu();
    // Nothing reaches beyond the right or lower edge of the screen.
    const QPoint corner(std::min(wanted.x(), room.width() - shown.width()),
                        std::min(wanted.y(), room.height() - shown.height()));
    dialog_->move(screenPlace().topLeft() + corner);
    if (window().sizable()) followState();
  }

  QSize bars() const {
    return window().style() == WindowStyle::bare ? QSize(0, 0)
                                                 : QSize(0, titleBarAllowance + menuHeight());
  }

  void standBelowMenu() {
    if (!menuBar_) return;
    menuBar_->setGeometry(0, 0, dialog_->width(), menuHeight());
    (scroller_ ? static_cast<QWidget*>(scroller_) : childrenGround())->move(0, menuHeight());
  }

  // Where the screen is too small for the window, what is beyond its edge must be reachable.
  void standOnScroller(bool needed, QSize shown) {
    if (scroller_) scroller_->resize(shown);
    if (!needed || scroller_) return;
    scroller_ = new QScrollArea(dialog_);
    scroller_->setFrameShape(QFrame::NoFrame);
    scroller_->setFocusPolicy(Qt::NoFocus);
    scroller_->setWidget(childrenGround());
    scroller_->setGeometry(QRect({0, 0}, shown));
  }

  void followState() {
    const bool wanted = window().state() == WindowState::maximised;
    if (wanted == dialog_->isMaximized()) return;
    dialog_->setWindowState(wanted ? Qt::WindowMaximized : Qt::WindowNoState);
  }

  void show(bool visible) override {
    if (!visible) {
      dialog_->hide();
      mirror_.windows.hidden(window());
      return;
    }
    dialog_->setWindowModality(window().isModal() ? Qt::ApplicationModal : Qt::NonModal);
    dialog_->winId();
    guardInput();
    QWidget* below = mirror_.windows.top();
    if (below && below != dialog_)
      dialog_->windowHandle()->setTransientParent(below->windowHandle());
    mirror_.windows.shown(window(), *dialog_);
    dialog_->show();
  }

  bool seen(QEvent& event) override {
    switch (event.type()) {
      case QEvent::Resize:
        standBelowMenu();
        resized();
        break;
      case QEvent::Move:
        moved();
        break;
      case QEvent::WindowStateChange:
        tell([this] {
          window().reportState(dialog_->isMaximized() ? WindowState::maximised
                                                      : WindowState::normal);
        });
        break;
      default:
        break;
    }
    return WindowPeer::seen(event);
  }

  // Only what differs by a pixel is news: a model's own size is seldom a whole number of them.
  void resized() {
    if (!window().sizable() || scroller_) return;
    const QSize now = dialog_->size() - QSize(0, menuHeight());
    childrenGround()->resize(now);
    if (now == toPixels(Size{window().innerWidth(), window().innerHeight()})) return;
    tell([this, now] { window().reportInnerSize({toTwips(now.width()), toTwips(now.height())}); });
  }

  void moved() {
    const QPoint now = dialog_->pos() - screenPlace().topLeft();
    if (now == toPixels(window().place()).topLeft() || dialog_->isMaximized()) return;
    tell([this, now] { window().reportPosition(toTwips(now.x()), toTwips(now.y())); });
  }

  QDialog* dialog_ = nullptr;
  QScrollArea* scroller_ = nullptr;
  QMenuBar* menuBar_ = nullptr;
};

}  // namespace

std::unique_ptr<WindowPeer> makeDialogPeer(Mirror& mirror, Window& window) {
  return std::make_unique<DialogPeer>(mirror, window);
}

}  // namespace tolmer
