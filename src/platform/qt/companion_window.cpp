#include "platform/qt/companion_window.h"

#include <QAccessibleWidget>
#include <QApplication>
#include <QMessageBox>
#include <QTimer>
#include <QWindow>

namespace tolmer {

namespace {

// Only of this type does a window manager hear what it is to stand above.
constexpr Qt::WindowFlags flags = Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                                  Qt::WindowSystemMenuHint | Qt::WindowMaximizeButtonHint |
                                  Qt::WindowCloseButtonHint;

bool covers(const QWidget& below, const QWidget& window) {
  return below.isModal() && below.windowFlags().testFlag(Qt::FramelessWindowHint) &&
         below.geometry().contains(window.geometry());
}

// By itself a plain widget is no window to a screen reader.
QAccessibleInterface* dialogOf(const QString&, QObject* object) {
  auto* window = dynamic_cast<CompanionWindow*>(object);
  return window ? new QAccessibleWidget(window, QAccessible::Dialog) : nullptr;
}

}  // namespace

CompanionWindow::CompanionWindow(std::function<QWidget*()> top)
    : QWidget(nullptr, flags), top_(std::move(top)), hook_([this](QEvent& event) {
        if (event.type() == QEvent::Hide) settleLater();
        return false;
      }) {
  [[maybe_unused]] static const bool isInstalled = (QAccessible::installFactory(dialogOf), true);
}

void CompanionWindow::bringUp(bool takesFocus) {
  QWidget* modal = QApplication::activeModalWidget();
  QWidget* below = modal ? modal : top_();
  setAttribute(Qt::WA_ShowWithoutActivating, !takesFocus);
  if (!isVisible() || !above_ || below != above_) showAbove(below);
  raise();
  if (takesFocus) activateWindow();
}

bool CompanionWindow::event(QEvent* event) {
  if (event->type() == QEvent::WindowBlocked) settleLater();
  return QWidget::event(event);
}

// Not within the event: whoever hides a window may be about to show the next one.
void CompanionWindow::settleLater() {
  QTimer::singleShot(0, this, [this] { settle(); });
}

void CompanionWindow::settle() {
  QWidget* modal = QApplication::activeModalWidget();
  if (!isVisible() || qobject_cast<QMessageBox*>(modal)) return;
  if (above_ && above_->isVisible()) return belongTo(modal ? modal : above_.data());
  setAttribute(Qt::WA_ShowWithoutActivating);
  showAbove(modal ? modal : top_());
}

// The window manager takes notice of the order only as a window comes to the screen.
void CompanionWindow::showAbove(QWidget* window) {
  const QPoint place = pos();
  if (isVisible()) {
    hide();
    move(place);
  }
  above_ = window;
  belongTo(window);
  show();
}

void CompanionWindow::belongTo(QWidget* window) {
  for (QWidget* old : {above_.data(), modal_.data()})
    if (old) old->removeEventFilter(&hook_);
  modal_ = window;
  for (QWidget* widget : {above_.data(), modal_.data()})
    if (widget) widget->installEventFilter(&hook_);
  winId();
  windowHandle()->setTransientParent(window ? window->window()->windowHandle() : nullptr);
  stepAside(window && covers(*window, *this));
}

void CompanionWindow::stepAside(bool aside) {
  if (aside == usualPlace_.has_value()) return;
  const QPoint place = aside ? QPoint(4, pos().y()) : *usualPlace_;
  usualPlace_ = aside ? std::optional(pos()) : std::nullopt;
  windowHandle()->setFlag(Qt::WindowStaysOnTopHint, aside);
  move(place);
}

}  // namespace tolmer
