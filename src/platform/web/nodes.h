// The mirror in a page: what there is on the screen has a number, and what changes is collected
// until the page is to hear of it.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "base/json_writer.h"
#include "platform/control.h"
#include "platform/menu.h"

namespace tolmer {

class Nodes;
class ToldGrid;
class Window;

// Follows one window or control. The page hears of it when it is first visible.
class NodePeer : public Peer {
 public:
  NodePeer(Nodes& nodes, Control& control);
  ~NodePeer() override;
  NodePeer(const NodePeer&) = delete;
  NodePeer& operator=(const NodePeer&) = delete;

  void changed(Change what) override;
  int id() const { return id_; }
  Control& control() const { return control_; }
  bool isTold() const { return told_; }

  // 0 for a control that has none.
  static int idOf(const Control* control);

  // As the page has it.
  std::string style;
  std::optional<std::string> html;
  std::optional<std::string> value;
  std::shared_ptr<ToldGrid> grid;  // null for other controls
  int inFront = 0;                 // of a window: the larger, the later it came to the front
  bool marksAll = false;

 private:
  friend class Nodes;
  bool canBeTold() const;

  Nodes& nodes_;
  Control& control_;
  int id_;
  Change dirty_{};
  bool told_ = false;
};

// Follows one entry of a menu.
class EntryPeer : public Peer {
 public:
  EntryPeer(Nodes& nodes, MenuItem& item);
  ~EntryPeer() override;
  EntryPeer(const EntryPeer&) = delete;
  EntryPeer& operator=(const EntryPeer&) = delete;
  void changed(Change) override;
  int id() const { return id_; }
  MenuItem& item() const { return item_; }

 private:
  Nodes& nodes_;
  MenuItem& item_;
  int id_;
};

class Nodes {
 public:
  // Follows the window and all that stands in it.
  void follow(Window& window);
  // Null for a number that is no control's, or no menu entry's, any more.
  Control* control(int id) const;
  MenuItem* entry(int id) const;
  // All windows that are followed and visible, in the order of their first showing.
  std::vector<Window*> shownWindows() const;
  // Everything of all windows is to be told again, as after a change of the screen.
  void touchAll(Change what);

  // An order that goes out behind the nodes of the next batch, of members that are written then.
  void order(const char* what, std::function<void(JsonWriter&)> members);
  // Of plain members: name, content, name, content.
  template <class Content, class... Rest>
  void order(const char* what, const char* name, Content content, Rest... rest) {
    order(what, [=](JsonWriter& json) { json.members(name, content, rest...); });
  }
  // Told of each control that goes.
  std::function<void(const Control&)> whenGone;
  // All orders, as elements of the array that is open.
  void write(JsonWriter& json);

 private:
  friend class NodePeer;
  friend class EntryPeer;
  void touch(NodePeer& node, Change what);
  void tell(JsonWriter& json, NodePeer& node);
  void touchFirst(const Control& control);
  void touchInside(const Container& container, Change what);
  void writeMenu(JsonWriter& json, Window& window);

  std::map<int, NodePeer*> nodes_;
  std::map<int, EntryPeer*> entries_;
  std::set<int> touched_;
  std::set<int> touchedEntries_;
  std::vector<int> gone_;
  std::vector<std::function<void(JsonWriter&)>> later_;
  std::set<int> hasMenu_;  // windows whose menu bar the page knows
  int last_ = 0;
};

// An object that says what the page is to do, with members that `members` writes.
template <class Members>
void writeOrder(JsonWriter& json, std::string_view what, Members members) {
  json.beginObject();
  json.member("do", what);
  members();
  json.endObject();
}

// What the page is to hear of a control of whatever kind: members of the object that is open. At
// the first time `what` is Change::all.
void writeNode(JsonWriter& json, NodePeer& node, Change what);
// A control that is neither window nor grid. The value is what the user may set, as the page has
// it: a text, a number, a place in a list; of a graph what is to be read out.
struct ControlHtml {
  std::string html;
  std::string value;
};
ControlHtml htmlOf(const Control& control);
// With its marked letter underlined.
std::string captionHtml(std::string_view caption);
// Of the label that names the control, in the page; empty where none does.
std::string labelId(const Control& control);
// The member "entries" of the object that is open.
void writeEntries(JsonWriter& json, Nodes& nodes, const MenuItem& menu);

// Of a control and all containers around it.
bool isEnabledWithin(const Control& control);
float magnificationOf(const Control& control);
// What shows the picture of a file in the page: all of it, as an address. Empty where there is
// none.
std::string pictureAddress(const std::string& file);
// As the page has it, colours of the theme, too.
std::string hexColour(Colour colour);

}  // namespace tolmer
