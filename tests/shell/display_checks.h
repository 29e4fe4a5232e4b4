// What must hold of the quadrants at every moment.
#pragma once

#include <map>
#include <string>
#include <tuple>
#include <variant>

#include "platform/grid/sheet.h"
#include "shell/shell_parts.h"

namespace tolmer::test {

// Fails the test where a display stands twice, in no quadrant or not in its place, where a
// maximised window is not the one in use, where a menu entry disagrees with iDisplayState, or where
// the panel's controls do not fit the plots on the screen.
void expectSoundQuadrants(ShellParts& parts);

// Fails the test where a shown display lights other cases than the selected ones, which exist.
void expectSelectedCasesLit(ShellParts& parts);

// Fails the test where a shown display differs from one that is drawn anew from the state. What was
// drawn anew is kept until the next fit, for a while.
class FreshDisplays {
 public:
  void expectShown(ShellParts& parts);

  struct Drawn {
    std::string caption;
    std::variant<std::string, Sheet> content;
  };

 private:
  using Key = std::tuple<int, int, Int16, Int16, Twips, Twips>;  // display, axes, inner size
  std::map<Key, Drawn> drawn_;
  int fits_ = 0;
  int looks_ = 0;
};

// Fails the test where an array has not the bounds of the analysed data and model, or where a datum
// is not finite.
void expectSoundRecord(const AnalysisState& state);

}  // namespace tolmer::test
