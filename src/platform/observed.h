// How a model tells its one observer, the mirror on the screen, that it has changed.
#pragma once

#include <functional>
#include <memory>
#include <utility>

namespace tolmer {

// What changed; bits, since one change can be of several kinds.
enum class Change : unsigned {
  text = 1U << 0,      // caption, text, title
  place = 1U << 1,     // left, top, width, height, window state
  enabled = 1U << 2,   // enabled, read-only
  visible = 1U << 3,   //
  value = 1U << 4,     // value, selection, active tab
  items = 1U << 5,     // list entries, tabs, outline items, menu entries
  look = 1U << 6,      // colours, font, alignment, picture
  tip = 1U << 7,       // tool tip, accessible name and description
  focus = 1U << 8,     // focus, default and cancel button
  children = 1U << 9,  // controls were added
  updates = 1U << 10,  // drawing was locked or unlocked
  content = 1U << 11,  // cells of a grid, primitives of a graph
  all = ~0U
};
constexpr Change operator|(Change a, Change b) {
  return static_cast<Change>(static_cast<unsigned>(a) | static_cast<unsigned>(b));
}
constexpr Change operator~(Change set) { return static_cast<Change>(~static_cast<unsigned>(set)); }
constexpr bool has(Change set, Change bit) {
  return (static_cast<unsigned>(set) & static_cast<unsigned>(bit)) != 0;
}

class Peer {
 public:
  virtual ~Peer() = default;
  // The first call after the peer was set, with Change::all, is the builder's business.
  virtual void changed(Change what) = 0;
};

// Holds the peer, which goes with the model.
class Observed {
 public:
  Observed() = default;
  Observed(const Observed&) = delete;
  Observed& operator=(const Observed&) = delete;
  virtual ~Observed() = default;

  Peer* peer() const { return peer_.get(); }
  void setPeer(std::unique_ptr<Peer> peer) { peer_ = std::move(peer); }

 protected:
  void notify(Change what) {
    if (peer_) peer_->changed(what);
  }
  // Sets a field and tells the peer; a value that is there already changes nothing.
  template <class Value>
  bool assign(Value& field, Value value, Change what) {
    if (field == value) return false;
    field = std::move(value);
    notify(what);
    return true;
  }

 private:
  std::unique_ptr<Peer> peer_;
};

template <class... Arguments>
using Event = std::function<void(Arguments...)>;

// Raises an event. The handler may destroy its own control, and with it the std::function: so a
// copy is called, and callers touch no member after this.
template <class... Declared, class... Given>
void raise(const std::function<void(Declared...)>& event, Given&&... arguments) {
  if (!event) return;
  const auto handler = event;
  handler(std::forward<Given>(arguments)...);
}

}  // namespace tolmer
