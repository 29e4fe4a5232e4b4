#include "platform/web/nodes.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/file_io.h"
#include "base/markup_text.h"
#include "platform/fields.h"
#include "platform/text_metrics.h"
#include "platform/web/grid_orders.h"
#include "platform/web/page_line.h"
#include "platform/window.h"

namespace tolmer {
namespace {

void writeEntryState(JsonWriter& json, int id, const MenuItem& item) {
  json.members("id", id, "enabled", item.enabled(), "checked", item.checked(), "checkable",
               item.checkable() || item.checked());
}

}  // namespace

NodePeer::NodePeer(Nodes& nodes, Control& control)
    : nodes_(nodes), control_(control), id_(++nodes.last_) {
  nodes_.nodes_.emplace(id_, this);
}

NodePeer::~NodePeer() {
  nodes_.nodes_.erase(id_);
  nodes_.touched_.erase(id_);
  nodes_.hasMenu_.erase(id_);
  if (told_) nodes_.gone_.push_back(id_);
  if (nodes_.whenGone) nodes_.whenGone(control_);
}

int NodePeer::idOf(const Control* control) {
  const Peer* peer = control ? control->peer() : nullptr;
  return peer ? static_cast<const NodePeer*>(peer)->id() : 0;
}

void NodePeer::changed(Change what) {
  if (has(what, Change::children))
    if (auto* container = dynamic_cast<Container*>(&control_))
      for (Control* child : container->children()) {
        if (child->peer()) continue;
        child->setPeer(std::make_unique<NodePeer>(nodes_, *child));
        child->peer()->changed(Change::all);
      }
  if (has(what, Change::enabled) && told_)
    if (auto* container = dynamic_cast<const Container*>(&control_))
      nodes_.touchInside(*container, Change::enabled);
  if (what == Change::focus && control_.kind() == ControlKind::textBox) marksAll = true;
  if (what == Change::focus && control_.kind() == ControlKind::numberBox) marksAll = true;
  if (what == Change::value && control_.kind() == ControlKind::textBox)
    nodes_.order("scroll", "id", id_, "key", static_cast<TextBox&>(control_).lastScrollKey());
  if (grid) grid->follow(what);
  nodes_.touch(*this, what);
}

bool NodePeer::canBeTold() const {
  if (!control_.visible()) return false;
  const auto* window = dynamic_cast<const Window*>(&control_);
  const Control* around = window ? window->frame() : control_.parent();
  const Peer* peer = around ? around->peer() : nullptr;
  return !around || (peer && static_cast<const NodePeer*>(peer)->isTold());
}

EntryPeer::EntryPeer(Nodes& nodes, MenuItem& item)
    : nodes_(nodes), item_(item), id_(++nodes.last_) {
  nodes_.entries_.emplace(id_, this);
}

EntryPeer::~EntryPeer() {
  nodes_.entries_.erase(id_);
  nodes_.touchedEntries_.erase(id_);
}

void EntryPeer::changed(Change) { nodes_.touchedEntries_.insert(id_); }

void Nodes::follow(Window& window) {
  if (window.peer()) return;
  window.setPeer(std::make_unique<NodePeer>(*this, window));
  window.peer()->changed(Change::all);
}

Control* Nodes::control(int id) const {
  const auto found = nodes_.find(id);
  return found == nodes_.end() ? nullptr : &found->second->control();
}

MenuItem* Nodes::entry(int id) const {
  const auto found = entries_.find(id);
  return found == entries_.end() ? nullptr : &found->second->item();
}

std::vector<Window*> Nodes::shownWindows() const {
  std::vector<Window*> windows;
  for (const auto& [id, node] : nodes_)
    if (node->control().kind() == ControlKind::window && node->control().visible())
      windows.push_back(static_cast<Window*>(&node->control()));
  return windows;
}

void Nodes::touchAll(Change what) {
  for (const auto& [id, node] : nodes_)
    if (node->isTold()) touch(*node, what);
}

void Nodes::touch(NodePeer& node, Change what) {
  node.dirty_ = node.dirty_ | what;
  touched_.insert(node.id());
}

void Nodes::touchInside(const Container& container, Change what) {
  for (const Control* child : container.children()) {
    if (!child->peer()) continue;
    touch(static_cast<NodePeer&>(*child->peer()), what);
    if (const auto* inner = dynamic_cast<const Container*>(child)) touchInside(*inner, what);
  }
}

void Nodes::order(const char* what, std::function<void(JsonWriter&)> members) {
  later_.push_back([what, members = std::move(members)](JsonWriter& json) {
    writeOrder(json, what, [&] { members(json); });
  });
}

void Nodes::write(JsonWriter& json) {
  for (const int id : std::exchange(gone_, {}))
    writeOrder(json, "gone", [&] { json.member("id", id); });
  // A container that is told for the first time touches what stands in it, which has higher
  // numbers.
  for (auto at = touched_.begin(); at != touched_.end(); at = touched_.upper_bound(*at))
    tell(json, *nodes_.at(*at));
  touched_.clear();
  for (const int id : std::exchange(touchedEntries_, {})) {
    const MenuItem& item = entries_.at(id)->item();
    writeOrder(json, "entry", [&] { writeEntryState(json, id, item); });
  }
  for (const auto& write : std::exchange(later_, {})) write(json);
}

void Nodes::tell(JsonWriter& json, NodePeer& node) {
  const bool isFirst = !node.told_;
  if (isFirst && !node.canBeTold()) return;
  const Change what = isFirst ? Change::all : std::exchange(node.dirty_, {});
  if (!has(what, ~(Change::updates | Change::children))) return;
  node.told_ = true;
  writeOrder(json, "node", [&] {
    json.member("id", node.id());
    writeNode(json, node, what);
  });
  node.dirty_ = {};
  if (isFirst) touchFirst(node.control());
  if (node.control().kind() == ControlKind::window && has(what, Change::items))
    writeMenu(json, static_cast<Window&>(node.control()));
}

// What waited for it to be told.
void Nodes::touchFirst(const Control& control) {
  if (const auto* container = dynamic_cast<const Container*>(&control)) touchInside(*container, {});
  const auto* frame = dynamic_cast<const FrameWindow*>(&control);
  if (!frame) return;
  for (const Window* child : frame->childWindows())
    if (child->peer()) touch(static_cast<NodePeer&>(*child->peer()), {});
}

void Nodes::writeMenu(JsonWriter& json, Window& window) {
  const int id = NodePeer::idOf(&window);
  if (!window.menuBar() || !hasMenu_.insert(id).second) return;
  writeOrder(json, "menu", [&] {
    json.member("window", id);
    writeEntries(json, *this, *window.menuBar());
  });
}

namespace {

std::string nameOfKey(int code) {
  constexpr std::array<std::pair<int, const char*>, 8> names{{{keys::backspace, "Backspace"},
                                                              {keys::deleteKey, "Del"},
                                                              {keys::enter, "Return"},
                                                              {keys::escape, "Esc"},
                                                              {keys::pageUp, "PgUp"},
                                                              {keys::pageDown, "PgDown"},
                                                              {keys::plus, "+"},
                                                              {keys::minus, "-"}}};
  for (const auto& [named, name] : names)
    if (named == code) return name;
  if (code >= keys::f1 && code < keys::f1 + 12) return "F" + std::to_string(code - keys::f1 + 1);
  return {static_cast<char>(code)};
}

std::string nameOf(const KeyPress& key) {
  if (key.code == 0) return {};
  std::string name;
  if (key.control) name += "Ctrl+";
  if (key.alt) name += "Alt+";
  if (key.shift) name += "Shift+";
  return name + nameOfKey(key.code);
}

bool isPaste(const MenuItem& item) {
  return withoutMnemonic(item.caption()) == "Paste" ||
         item.shortcut() == KeyPress{'V', false, true, false};
}

void writeEntry(JsonWriter& json, Nodes& nodes, MenuItem& item) {
  if (!item.peer()) item.setPeer(std::make_unique<EntryPeer>(nodes, item));
  const int id = item.isSeparator() ? 0 : static_cast<EntryPeer*>(item.peer())->id();
  json.beginObject();
  writeEntryState(json, id, item);
  json.members("caption", captionHtml(item.caption()), "key", nameOf(item.shortcut()), "pastes",
               isPaste(item));
  if (!item.items().empty()) writeEntries(json, nodes, item);
  json.endObject();
}

}  // namespace

void writeEntries(JsonWriter& json, Nodes& nodes, const MenuItem& menu) {
  json.list("entries", menu.items(), [&](MenuItem* item) { writeEntry(json, nodes, *item); });
}

bool isEnabledWithin(const Control& control) {
  for (const Control* one = &control; one; one = one->parent())
    if (!one->enabled()) return false;
  return true;
}

float magnificationOf(const Control& control) {
  const Window* window = control.window();
  return window ? window->magnification() : 1;
}

std::string pictureAddress(const std::string& file) {
  const auto svg = readWholeFile(file);
  if (!svg) return {};
  constexpr std::string_view digits = "0123456789ABCDEF";
  constexpr std::string_view signs = "%#\"&<>\r\n\t";  // those of an address or of HTML
  std::string address = "data:image/svg+xml,";
  for (const char letter : *svg)
    if (signs.find(letter) == signs.npos)
      address += letter;
    else
      address += {'%', digits[letter / 16], digits[letter % 16]};
  return address;
}

// The program's own look: the same on every system.
std::string hexColour(Colour colour) {
  if (colour.kind == Colour::Kind::buttonFace) return "#f3f4f6";
  if (colour.kind == Colour::Kind::window) return "#ffffff";
  if (colour.kind != Colour::Kind::rgb) return "#1f242b";
  return hexColour(colour.red, colour.green, colour.blue);
}

}  // namespace tolmer
