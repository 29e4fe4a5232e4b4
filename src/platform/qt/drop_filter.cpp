#include "platform/qt/drop_filter.h"

#include <QApplication>
#include <QMimeData>
#include <QTimer>
#include <QUrl>
#include <algorithm>
#include <array>

#include "platform/qt/control_peer.h"
#include "platform/user_input.h"
#include "platform/window.h"

namespace tolmer {
namespace {

DroppedItems itemsOf(const QMimeData& dropped) {
  DroppedItems items;
  for (const QUrl& url : dropped.urls())
    if (url.isLocalFile())
      items.files.push_back(url.toLocalFile().toStdString());
    else
      items.addresses.push_back(url.toString().toStdString());
  return items;
}

bool isDrag(QEvent::Type type) {
  constexpr std::array drags{QEvent::DragEnter, QEvent::DragMove, QEvent::Drop};
  return std::ranges::find(drags, type) != drags.end();
}

}  // namespace

DropFilter::DropFilter(Mirror& mirror) : mirror_(mirror) { qApp->installEventFilter(this); }

Window* DropFilter::taker() const {
  Window* modal = mirror_.windows.modalWindow();
  const QWidget* asking = QApplication::activeModalWidget();
  if (asking && (!modal || asking != ControlPeer::widgetOf(*modal))) return nullptr;
  return takerOfDrops(modal, mirror_.windows.windows());
}

bool DropFilter::eventFilter(QObject* watched, QEvent* event) {
  if (!isDrag(event->type()) || !watched->isWindowType()) return false;
  auto& drop = static_cast<QDropEvent&>(*event);
  if (!drop.mimeData()->hasUrls()) return false;
  if (!mirror_.gate.isOpen() || !taker()) {
    drop.ignore();
    return true;
  }
  drop.setDropAction(Qt::CopyAction);
  drop.accept();
  if (event->type() == QEvent::Drop) tellLater(*drop.mimeData());
  return true;
}

// The program that the files come from waits for the end of the event.
void DropFilter::tellLater(const QMimeData& dropped) {
  QTimer::singleShot(0, this, [this, items = itemsOf(dropped)] { tell(items); });
}

void DropFilter::tell(const DroppedItems& items) {
  Window* to = taker();
  if (!to) return;
  if (QWidget* top = mirror_.windows.top()) top->activateWindow();
  mirror_.gate.enter([&] { raise(to->Dropped, items); });
}

}  // namespace tolmer
