// What the user does with mouse and keyboard, as the models see it.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace tolmer {

enum class MouseButton { left, right };

// Key codes as event procedures name them; letters and digits are their own, other characters have
// none.
namespace keys {
inline constexpr int backspace = 8;
inline constexpr int tab = 9;
inline constexpr int enter = 13;
inline constexpr int escape = 27;
inline constexpr int space = 32;
inline constexpr int pageUp = 33;
inline constexpr int pageDown = 34;
inline constexpr int end = 35;
inline constexpr int home = 36;
inline constexpr int left = 37;
inline constexpr int up = 38;
inline constexpr int right = 39;
inline constexpr int down = 40;
inline constexpr int deleteKey = 46;
inline constexpr int menu = 93;   // opens the right-click menu
inline constexpr int plus = 187;  // also where it needs Shift
inline constexpr int minus = 189;
inline constexpr int f1 = 112;
inline constexpr int f2 = 113;
inline constexpr int f6 = 117;
inline constexpr int f10 = 121;
}  // namespace keys

// The keys held during a click.
struct ClickKeys {
  bool shift = false;
  bool control = false;
};

struct KeyPress {
  int code = 0;
  bool shift = false;
  bool control = false;
  bool alt = false;
  friend bool operator==(const KeyPress&, const KeyPress&) = default;
};

// Must a modifier be held with a key?
enum class Held { any, no, yes };

// A key as it is declared beforehand.
struct KeyChord {
  int code = 0;
  Held shift = Held::any;
  Held control = Held::any;
  Held alt = Held::any;

  constexpr bool fits(const KeyPress& key) const {
    const auto agree = [](Held wanted, bool held) {
      return wanted == Held::any || (wanted == Held::yes) == held;
    };
    return code == key.code && agree(shift, key.shift) && agree(control, key.control) &&
           agree(alt, key.alt);
  }
};

// A key that a control, a window or the desktop takes before anything else is done with it.
struct TakenKey {
  KeyChord key;
  std::function<void()> work;
  std::function<bool()> when;  // empty: always
};

// What the user let fall on a window.
struct DroppedItems {
  std::vector<std::string> files;      // whole names in UTF-8; folders, too
  std::vector<std::string> addresses;  // what lies elsewhere, as on the web
};

}  // namespace tolmer
