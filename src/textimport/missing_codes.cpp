#include "textimport/missing_codes.h"

#include <algorithm>
#include <array>
#include <map>
#include <string>

#include "base/trimmed.h"
#include "textimport/import_guesses.h"

namespace tolmer {
namespace {

constexpr std::array<std::string_view, 21> marks{
    "na",   "n/a",     "#n/a",    "n.a.",         "nan",          ".",      "..",
    "-",    "--",      "---",     "\xE2\x80\x93", "\xE2\x80\x94", "*",      "?",
    "null", "missing", "#div/0!", "#value!",      "#ref!",        "#name?", "#num!"};

// Surveys write -9 or 999 for "no answer", which as a number would spoil every fit.
constexpr std::array codes = {-9.0, -99.0, -999.0, -9999.0, 99.0, 999.0, 9999.0};

}  // namespace

bool isMissingMark(std::string_view field) {
  field = trimmed(field);
  constexpr std::size_t longest = 8;
  if (field.empty() || field.size() > longest || (field.front() >= '0' && field.front() <= '9'))
    return false;
  std::string lower;
  for (const char c : field) lower += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  return std::find(marks.begin(), marks.end(), lower) != marks.end();
}

void ImportFindings::findLikelyCodes() {
  if (target_.hints.wanted || target_.origin != TextOrigin::file || !decimalMark_) return;
  struct Range {
    double least = 0;
    double greatest = 0;
    std::map<double, Sighting> codes{};
  };
  std::map<int, Range> ranges;
  eachValue([&](int row, int column, const FieldLook& seenField) {
    if (seenField.missing || seenField.kind == CutKind::date) return;
    const auto number =
        seenField.isExact ? exact(row, column) : fieldNumber(field(row, column), *decimalMark_);
    if (!number) return;
    Range& range = ranges[column];
    if (std::find(codes.begin(), codes.end(), *number) != codes.end())
      return range.codes[*number].add(row, column);
    range.least = std::min(range.least, *number);
    range.greatest = std::max(range.greatest, *number);
  });
  Sighting first;
  for (const auto& [column, range] : ranges) {
    if (range.codes.size() != 1 || (range.least == 0 && range.greatest == 0)) continue;
    const auto& [code, seen] = *range.codes.begin();
    const bool isApart = code < 0 ? range.least >= 0 : range.greatest < code / 5;
    if (!isApart || seen.count < 2) continue;
    likelyCodes_[column] = code;
    if (first.count == 0) first = seen;
  }
  if (likelyCodes_.empty()) return;
  const std::string others =
      likelyCodes_.size() > 1 ? " Other columns have such numbers, too." : "";
  ask(ImportDoubt::likelyCodes,
      seenAt(first) + " stands apart from all other numbers of " + variable(first.column).name +
          "." + others + " Is it a code for a missing value?",
      {"Yes, empty cells", "No, a number"}, std::nullopt);
}

bool ImportFindings::isLikelyCode(int row, int column) const {
  const auto code = likelyCodes_.find(column);
  if (code == likelyCodes_.end()) return false;
  return (look(row, column).isExact
              ? exact(row, column)
              : fieldNumber(field(row, column), *decimalMark_)) == code->second;
}

}  // namespace tolmer
