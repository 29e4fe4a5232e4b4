#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QMenuBar>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>
#include <QWindow>

#include "platform/dialog_fit.h"
#include "platform/qt/convert.h"
#include "platform/qt/menu_peer.h"
#include "platform/qt/theme.h"
#include "platform/qt/window_peer.h"

namespace tolmer {
namespace {

QRect screenPlace() { return QGuiApplication::primaryScreen()->availableGeometry(); }

Qt::WindowFlags flagsOf(const Window& window) {
  if (window.style() == WindowStyle::bare) return Qt::Dialog | Qt::FramelessWindowHint;
  const Qt::WindowFlags flags = Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                                Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
  return window.sizable() ? flags | Qt::WindowMaximizeButtonHint : flags;
}

// What of a dialog's inside scrolls where the screen has no room for all of it, and what stays in
// view below that. Both grounds have the window's own places.
class ScrolledInside {
 public:
  ScrolledInside(QWidget& dialog, QWidget& body)
      : scroller_(new QScrollArea(&dialog)),
        strip_(new QWidget(&dialog)),
        foot_(new QWidget(strip_)) {
    scroller_->setFrameShape(QFrame::NoFrame);
    scroller_->setFocusPolicy(Qt::NoFocus);
    scroller_->setWidget(&body);
    for (QWidget* one : {&body, static_cast<QWidget*>(scroller_), strip_}) one->show();
  }

  QWidget* foot() { return foot_; }
  QScrollBar& bar() const { return *scroller_->verticalScrollBar(); }

  // The whole has that size and stands in `room`; from `footTop` on it stays in view, moved to the
  // left by `footShift`.
  void place(QSize whole, const QRect& room, int footTop, int footShift) {
    const int footHeight = whole.height() - footTop;
    scroller_->setGeometry(room.adjusted(0, 0, 0, -footHeight));
    scroller_->widget()->resize(whole.width(), footTop);
    strip_->setGeometry(room.left(), room.bottom() + 1 - footHeight, room.width(), footHeight);
    foot_->setGeometry(-footShift, -footTop, std::max(whole.width(), room.width()), whole.height());
  }

 private:
  QScrollArea* scroller_;
  QWidget* strip_;
  QWidget* foot_;
};

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
    magnification_ = window().magnification();
    theme::setMagnification(*dialog_, magnification_);
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
    if (magnification_ == window().magnification()) return;
    magnification_ = window().magnification();
    theme::setMagnification(*dialog_, magnification_);
    QEvent event(QEvent::StyleChange);  // as if the style had other measures
    for (QWidget* one : dialog_->findChildren<QWidget*>()) QCoreApplication::sendEvent(one, &event);
    showAnew();
  }

  // A window that the user may resize takes the room that there is; another one keeps its size.
  void place() override {
    // A new zoom's font comes to the bar by itself only after this.
    if (menuBar_) menuBar_->setFont(QApplication::font());
    const QSize room = screenPlace().size() - bars();
    if (window().sizable()) {
      const QSize wanted = toPixels(askedSize(), scale());
      const QSize least = toPixels(window().leastInner(), scale());
      // An upright bar shall not ask for another one.
      const int withBar = wanted.boundedTo(room).height() < least.height()
                              ? least.width() + toPixel(bar(), scale())
                              : 0;
      const QSize shown = wanted.expandedTo({withBar, 0}).boundedTo(room);
      if (window().state() != WindowState::maximised) dialog_->resize(shown + menu());
      if (shown != wholeSize()) report(shown);
      cutTo_ = ownSize();
    } else {
      const DialogFit fit = fitDialog(window(), ownSize(), toTwips(room, scale()), bar());
      dialog_->setFixedSize(toPixels(fit.shown, scale()).boundedTo(room) + menu());
    }
    arrange();
    // Nothing reaches beyond the right or lower edge of the screen.
    const QSize shown = dialog_->size() - menu();
    const QPoint wanted = corner();
    dialog_->move(screenPlace().topLeft() +
                  QPoint(std::min(wanted.x(), room.width() - shown.width()),
                         std::min(wanted.y(), room.height() - shown.height())));
    if (window().sizable()) followState();
  }

  // Wherever it stands: by the edges of its place it could be a pixel more than the dialog has.
  QSize wholeSize() const { return toPixels(ownSize(), scale()); }

  Size ownSize() const { return {window().width(), window().height()}; }

  // As the program or the user made it: it comes back when the screen or the zoom has room again.
  Size askedSize() {
    if (ownSize() != cutTo_) asked_ = ownSize();
    return asked_;
  }

  // On the screen, where no window is magnified.
  QPoint corner() const {
    return {toPixel(window().left(), theme::zoom()), toPixel(window().top(), theme::zoom())};
  }

  Twips bar() const {
    return toTwips(QApplication::style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, dialog_),
                   scale());
  }

  QSize menu() const { return {0, menuHeight()}; }

  QSize bars() const {
    return window().style() == WindowStyle::bare ? QSize(0, 0)
                                                 : QSize(0, theme::titleBarAllowance) + menu();
  }

  // The inside as it is laid out, in the room that the dialog has for it.
  void arrange() {
    const QRect room(QPoint(0, menuHeight()), dialog_->size() - menu());
    const QSize whole = window().sizable()
                            ? room.size().expandedTo(toPixels(window().leastInner(), scale()))
                            : wholeSize();
    if (menuBar_) menuBar_->setGeometry(0, 0, dialog_->width(), menuHeight());
    const bool hasRoom = whole.width() <= room.width() && whole.height() <= room.height();
    if (hasRoom && !inside_) return childrenGround()->setGeometry(room);
    if (!inside_) inside_ = std::make_unique<ScrolledInside>(*dialog_, *childrenGround());
    const DialogFit fit =
        fitDialog(window(), toTwips(whole, scale()), toTwips(room.size(), scale()), bar());
    footTop_ = fit.footTop;
    if (hasRoom)
      inside_->place(room.size(), room, room.height(), 0);
    else
      inside_->place(whole, room, std::min(toPixel(footTop_, scale()), whole.height()),
                     toPixel(fit.footShift, scale()));
    for (Control* child : window().children())
      if (child->peer()) static_cast<ControlPeer*>(child->peer())->moveTo(groundOf(*child));
    orderTabStops(window());
  }

  QWidget* groundOf(const Control& child) override {
    return inside_ && child.top() >= footTop_ ? inside_->foot() : childrenGround();
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
        resized();
        arrange();
        break;
      case QEvent::Move:
        moved();
        break;
      case QEvent::KeyPress:
        if (WindowPeer::seen(event)) return true;
        return scrolled(static_cast<QKeyEvent&>(event).key());
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

  // By keys that nothing in the window had a use for.
  bool scrolled(int key) {
    const bool isPage = key == Qt::Key_PageUp || key == Qt::Key_PageDown;
    if (!inside_ || !isPage) return false;
    inside_->bar().triggerAction(key == Qt::Key_PageUp ? QScrollBar::SliderPageStepSub
                                                       : QScrollBar::SliderPageStepAdd);
    return true;
  }

  // Only what differs by a pixel is news: a model's own size is seldom a whole number of them, and
  // may be more than there is room for.
  void resized() {
    if (!window().sizable()) return;
    const QSize now = dialog_->size() - menu();
    const QSize least = toPixels(window().leastInner(), scale());
    if (now.expandedTo(least) ==
        toPixels(Size{window().innerWidth(), window().innerHeight()}, scale()))
      return;
    tell([this, now] { window().reportInnerSize(toTwips(now, scale())); });
  }

  // Also while the model's wish is being followed, for which the screen has no room.
  void report(QSize inside) {
    mirror_.gate.enter([this, inside] { window().reportInnerSize(toTwips(inside, scale())); });
  }

  void moved() {
    const QPoint now = dialog_->pos() - screenPlace().topLeft();
    if (now == corner() || dialog_->isMaximized()) return;
    tell([this, now] {
      window().reportPosition(toTwips(now.x(), theme::zoom()), toTwips(now.y(), theme::zoom()));
    });
  }

  QDialog* dialog_ = nullptr;
  QMenuBar* menuBar_ = nullptr;
  std::unique_ptr<ScrolledInside> inside_;
  Twips footTop_ = 0;
  Size asked_, cutTo_;
  float magnification_ = 1;
};

}  // namespace

std::unique_ptr<WindowPeer> makeDialogPeer(Mirror& mirror, Window& window) {
  return std::make_unique<DialogPeer>(mirror, window);
}

}  // namespace tolmer
