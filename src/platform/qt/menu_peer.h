// Menu bars and pop-up menus.
#pragma once

#include <QMenuBar>

#include "platform/menu.h"
#include "platform/qt/mirror.h"

namespace tolmer {

// Puts the entries of `bar` into the widget, once.
void fillMenuBar(Mirror& mirror, QMenuBar& widget, MenuItem& bar);

// While it lives, menus open at that place of the screen and not at the mouse: a key asked for
// them.
class PopupPlace {
 public:
  explicit PopupPlace(QPoint place);
  ~PopupPlace();
  PopupPlace(const PopupPlace&) = delete;
  PopupPlace& operator=(const PopupPlace&) = delete;
};

// Opens the menu at the mouse, or in the middle of `window` where the mouse is elsewhere, and
// returns at once; the choice arrives as the entry's Click.
void popUpMenu(Mirror& mirror, MenuItem& menu, const QWidget* window);

}  // namespace tolmer
