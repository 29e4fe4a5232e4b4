#include "support/user.h"

#include <stdexcept>

#include "platform/fields.h"

namespace tolmer::test {
namespace {

[[noreturn]] void fail(const std::string& text) { throw std::runtime_error(text); }

std::string namesIn(Container& container) {
  std::string names;
  for (Control* child : container.children()) {
    names += " " + child->name();
    if (auto* inner = dynamic_cast<Container*>(child)) names += namesIn(*inner);
  }
  return names;
}

// The caption without its "&" marks.
std::string plain(std::string_view caption) {
  std::string text;
  for (char c : caption)
    if (c != '&') text += c;
  return text;
}

MenuItem& entryOf(MenuItem& menu, std::string_view caption) {
  std::string there;
  for (MenuItem* item : menu.items()) {
    if (plain(item->caption()) == caption) return *item;
    there += " \"" + plain(item->caption()) + "\"";
  }
  fail("no menu entry \"" + std::string(caption) + "\", there are:" + there);
}

std::vector<MenuItem*> entriesOf(MenuItem& bar, std::string_view path) {
  std::vector<MenuItem*> entries;
  MenuItem* menu = &bar;
  while (!path.empty()) {
    const auto cut = path.find('/');
    menu = &entryOf(*menu, path.substr(0, cut));
    if (!menu->enabled()) fail("the menu entry \"" + menu->caption() + "\" is disabled");
    entries.push_back(menu);
    path.remove_prefix(cut == std::string_view::npos ? path.size() : cut + 1);
  }
  return entries;
}

}  // namespace

Window& User::window(std::string_view name) {
  std::string there;
  for (Window* window : windowsOnScreen()) {
    if (window->name() == name && window->visible()) return *window;
    if (window->visible()) there += " " + window->name();
  }
  fail("no window " + std::string(name) + " on the screen, there are:" + there);
}

Window& User::usable(std::string_view name) {
  Window& found = window(name);
  if (Window* modal = modalWindow(); modal && modal != &found)
    fail("the window " + std::string(name) + " stands behind the modal " + modal->name());
  if (!found.takesInput()) fail("the window " + std::string(name) + " takes no input now");
  return found;
}

Control& User::find(std::string_view windowName, std::string_view name) {
  Window& container = window(windowName);
  if (name.empty()) return container;
  if (Control* found = container.find(name)) return *found;
  fail("no control " + std::string(name) + " in " + std::string(windowName) +
       ", there are:" + namesIn(container));
}

Control& User::control(std::string_view windowName, std::string_view name) {
  usable(windowName);
  Control& found = find(windowName, name);
  if (!found.canBeUsed())
    fail("the control " + std::string(name) + " in " + std::string(windowName) +
         " is hidden or disabled");
  return found;
}

void User::click(std::string_view window, std::string_view name) { doClick(control(window, name)); }
void User::doubleClick(std::string_view window, std::string_view name) {
  doDoubleClick(control(window, name));
}
void User::rightClick(std::string_view window, std::string_view name) {
  doRightClick(control(window, name));
}
void User::type(std::string_view window, std::string_view name, std::string_view text) {
  doType(control(window, name), std::string(text));
}

void User::choose(std::string_view window, std::string_view name, std::string_view entry) {
  auto& list = dynamic_cast<ComboBox&>(control(window, name));
  std::string there;
  for (int index = 0; index < static_cast<int>(list.items().size()); ++index) {
    const std::string& item = list.items()[static_cast<std::size_t>(index)];
    if (item == entry) return doChoose(list, index);
    there += " \"" + item + "\"";
  }
  fail("no entry \"" + std::string(entry) + "\" in " + std::string(name) + ", there are:" + there);
}

void User::menu(std::string_view windowName, std::string_view path) {
  Window& owner = usable(windowName);
  if (!owner.menuBar()) fail("the window " + std::string(windowName) + " has no menu");
  doMenu(owner, entriesOf(*owner.menuBar(), path));
}

void User::key(std::string_view window, const KeyPress& press) { doKey(usable(window), press); }
void User::close(std::string_view window) { doClose(usable(window)); }
void User::maximise(std::string_view window) { doState(usable(window), WindowState::maximised); }
void User::restore(std::string_view window) { doState(usable(window), WindowState::normal); }

}  // namespace tolmer::test
