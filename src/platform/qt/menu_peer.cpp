#include "platform/qt/menu_peer.h"

#include <QAction>
#include <QCursor>
#include <QMenu>
#include <QPointer>
#include <optional>

#include "platform/qt/convert.h"
#include "platform/qt/input_filter.h"

namespace tolmer {
namespace {

QKeySequence keySequence(const KeyPress& key) {
  if (key.code == 0) return {};
  Qt::KeyboardModifiers held;
  held.setFlag(Qt::ShiftModifier, key.shift);
  held.setFlag(Qt::ControlModifier, key.control);
  held.setFlag(Qt::AltModifier, key.alt);
  return QKeyCombination(held, toolkitKey(key.code));
}

// Follows one entry.
class EntryPeer : public Peer {
 public:
  EntryPeer(Mirror& mirror, MenuItem& item, QAction* action)
      : mirror_(mirror), item_(item), action_(action) {
    QObject::connect(action, &QAction::triggered, &connections_, [this] { chosen(); });
    if (QMenu* menu = action->menu())
      QObject::connect(menu, &QMenu::aboutToShow, &connections_,
                       [this] { mirror_.gate.enter([&item = item_] { item.click(); }); });
    changed(Change::all);
  }
  ~EntryPeer() override {
    if (action_) action_->deleteLater();
  }
  EntryPeer(const EntryPeer&) = delete;
  EntryPeer& operator=(const EntryPeer&) = delete;

  void changed(Change) override {
    if (!action_) return;
    action_->setShortcut(keySequence(item_.shortcut()));
    action_->setEnabled(item_.enabled());
    action_->setCheckable(item_.checkable() || item_.checked());
    action_->setChecked(item_.checked());
  }

 private:
  void chosen() {
    if (action_->menu()) return;
    changed(Change::value);  // the tick is the program's to set
    mirror_.gate.enter([&item = item_] { item.click(); });
  }

  Mirror& mirror_;
  MenuItem& item_;
  QPointer<QAction> action_;
  QObject connections_;
};

// Owns a pop-up menu.
class PopupPeer : public Peer {
 public:
  explicit PopupPeer(QMenu* menu) : menu_(menu) {}
  ~PopupPeer() override {
    if (menu_) menu_->deleteLater();
  }
  PopupPeer(const PopupPeer&) = delete;
  PopupPeer& operator=(const PopupPeer&) = delete;
  void changed(Change) override {}
  QMenu* menu() const { return menu_; }

 private:
  QPointer<QMenu> menu_;
};

void fillMenu(Mirror& mirror, QMenu& widget, const MenuItem& menu);

QAction* makeAction(Mirror& mirror, QWidget& parent, const MenuItem& item) {
  auto* action = new QAction(toQt(item.caption()), &parent);
  if (!item.items().empty()) {
    auto* menu = new QMenu(&parent);
    fillMenu(mirror, *menu, item);
    action->setMenu(menu);
  }
  return action;
}

void fillMenu(Mirror& mirror, QMenu& widget, const MenuItem& menu) {
  for (MenuItem* item : menu.items()) {
    if (item->isSeparator()) {
      widget.addSeparator();
      continue;
    }
    QAction* action = makeAction(mirror, widget, *item);
    widget.addAction(action);
    item->setPeer(std::make_unique<EntryPeer>(mirror, *item, action));
  }
}

std::optional<QPoint> popupPlace;

}  // namespace

PopupPlace::PopupPlace(QPoint place) { popupPlace = place; }
PopupPlace::~PopupPlace() { popupPlace.reset(); }

void fillMenuBar(Mirror& mirror, QMenuBar& widget, MenuItem& bar) {
  if (!widget.actions().isEmpty()) return;
  for (MenuItem* item : bar.items()) {
    QAction* action = makeAction(mirror, widget, *item);
    widget.addAction(action);
    item->setPeer(std::make_unique<EntryPeer>(mirror, *item, action));
  }
}

void popUpMenu(Mirror& mirror, MenuItem& menu, const QWidget* window) {
  if (!menu.peer()) {
    auto peer = std::make_unique<PopupPeer>(new QMenu);
    fillMenu(mirror, *peer->menu(), menu);
    menu.setPeer(std::move(peer));
  }
  QPoint place = popupPlace.value_or(QCursor::pos());
  if (!popupPlace && window && !window->rect().contains(window->mapFromGlobal(place)))
    place = window->mapToGlobal(window->rect().center());
  static_cast<PopupPeer*>(menu.peer())->menu()->popup(place);
}

}  // namespace tolmer
