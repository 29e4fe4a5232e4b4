// The numbers that the course's texts quote, compared with what the program's displays show.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/error.h"
#include "figures/course_model.h"

namespace tolmer {

// A line of course/claims.txt, whose head tells what the fields mean.
struct Claim {
  std::string where;  // in the list, for messages
  CourseModel model;
  std::string display;
  std::string row;
  std::string column;
  std::string passage;  // without the braces, as plainText
  std::size_t begin;    // of the number in the passage
  std::string number;
  std::string file;  // below course/

  // Not compared with a display.
  bool isGiven() const { return display == "given"; }
};

Result<std::vector<Claim>> readClaims(const std::string& listFile);

// A text without what only its look needs: marks of AsciiDoc vanish, bars are semicolons, all
// blanks and line ends between two words are one blank.
std::string plainText(std::string_view text);

// Whether a cell shows that number, to as many digits as the number has.
bool agrees(std::string_view number, std::string_view shown);

// What is wrong with a claim, if anything.
std::optional<std::string> faultOf(const Claim& claim, const AnalysedModel& model);

}  // namespace tolmer
