// Whether shown numbers are right: each against the second fit's number in the digits that stand
// there.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "secondfit/second_fit.h"

namespace tolmer {

// A cell and what belongs into it. Rows and columns from 1.
struct ShownCell {
  std::string_view display;
  int row = 0;
  int column = 0;
  std::string_view text;
  Figure second;
};

enum class Doubt {
  none,       // confirmed
  differs,    // the second fit gives other digits
  uncertain,  // the second fit cannot tell the last shown digit: its error may reach half a unit
};

struct Unconfirmed {
  std::string display;
  int row = 0;
  int column = 0;
  std::string shown;
  std::string better;  // the second fit's number in the same digits; "NA" where it has none
  Doubt doubt = Doubt::differs;
};

struct Health {
  double condition = 0;                    // of the scaled model matrix, as in SecondFit
  int checked = 0;                         // cells that hold a number
  std::vector<Unconfirmed> unconfirmed{};  // in the order of the cells
};

// The judgement of one text: confirmed where the second number, rounded half away from zero to the
// shown digits, differs by at most one unit of the last one, and a shown zero where it rounds to
// zero. Grouping commas and E notation are numbers; nothing for any other text ("---", "NA",
// asterisks, words, an empty cell).
std::optional<Doubt> doubtOf(std::string_view text, const Figure& second);

// Whether every number within the second one's error confirms the text; also where it is no number.
bool surelyConfirmed(std::string_view text, const Figure& second);

// Judges one more cell; one without a number is left out.
void checkCell(Health& health, const ShownCell& cell);

}  // namespace tolmer
