#include "tables/table_content.h"

#include <algorithm>
#include <array>

#include "base/text_encoding.h"

namespace tolmer {
namespace {

struct MarkLook {
  Colour back;
  std::string_view tint;
  const char* meaning;
  std::string_view sign;
  std::string_view spoken;
};

constexpr std::string_view cyanTint = "#A9EEF4";
constexpr std::string_view greenTint = "#A8EAA8";
constexpr std::string_view yellowTint = "#FFF29B";
constexpr std::string_view redTint = "#FFB1AB";

// In the order of CellMark.
constexpr std::array looks = {
    MarkLook{colours::white, "", "", "", ""},
    MarkLook{colours::buttonFace, "", "", "", ""},
    MarkLook{colours::cyan, cyanTint, "p < .01", "**", "p below .01"},
    MarkLook{colours::green, greenTint, "p < .05", "*", "p below .05"},
    MarkLook{colours::red, redTint, "VIF > 10", "!", "VIF above 10"},
    MarkLook{colours::yellow, yellowTint, "Outlier", "+", "outlier"},
    MarkLook{colours::cyan, cyanTint, "", "", "beyond 2 standard errors"},
    MarkLook{colours::yellow, yellowTint, "", "", "beyond 3 standard errors"},
    MarkLook{colours::red, redTint, "", "", "beyond 4 standard errors"}};

const MarkLook& lookOf(CellMark mark) { return looks[static_cast<std::size_t>(mark)]; }

}  // namespace

Colour backOf(const TableCell& cell) {
  return isFramed(cell) ? colours::buttonFace : lookOf(cell.mark).back;
}

std::string_view tintOf(const TableCell& cell) { return lookOf(cell.mark).tint; }

std::string_view signOf(CellMark mark) { return lookOf(mark).sign; }

std::string_view spokenMark(CellMark mark) { return lookOf(mark).spoken; }

void TableContent::probability(int row, int col, std::string text, CellMark mark) {
  const bool isZero = text == "0.000";
  figure(row, col, std::move(text), Align::right, mark);
  if (isZero && notes.empty()) notes.emplace_back("A P of 0.000 is below 0.0005.");
}

void TableContent::frame(int row) {
  for (int col = 1; col <= cols_; ++col) at(row, col).role = CellRole::frame;
}

bool TableContent::isFrame(int row) const {
  const auto cells = this->row(row);
  return std::all_of(cells.begin(), cells.end(),
                     [](const TableCell& cell) { return cell.role == CellRole::frame; });
}

void TableContent::frameRowsBelow() {
  for (int row = rows() - rowsBelow + 1; row <= rows(); ++row) frame(row);
}

bool TableContent::has(CellMark mark) const {
  return std::any_of(cells_.begin(), cells_.end(),
                     [mark](const TableCell& cell) { return cell.mark == mark; });
}

void TableContent::key(int col, CellMark mark, Align align) {
  if (has(mark)) at(rows() - 1, col) = {lookOf(mark).meaning, CellRole::key, mark, align};
}

void TableContent::shortName(int row, int col, const std::string& tName, Align align) {
  constexpr std::size_t longest = 10;
  const std::size_t length = utf8Prefix(tName, longest);
  heading(row, col, tName.substr(0, length), align);
  if (length < tName.size()) wholeNames.push_back({row, col, tName});
}

}  // namespace tolmer
