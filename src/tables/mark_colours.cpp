#include "tables/mark_colours.h"

#include <array>
#include <cstddef>

#include "engine/statistical_limits.h"

namespace tolmer {
namespace {

struct MarkLook {
  Colour back;
  std::string_view tint;
  std::string_view meaning;
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

static_assert(strictLevel == 0.01F && usualLevel == 0.05F && highVIF == 10,
              "the words above tell the limits");

const MarkLook& lookOf(CellMark mark) { return looks[static_cast<std::size_t>(mark)]; }

}  // namespace

Colour backOf(const TableCell& cell) {
  return isFramed(cell) ? colours::buttonFace : lookOf(cell.mark).back;
}

std::string_view tintOf(const TableCell& cell) { return lookOf(cell.mark).tint; }

std::string_view signOf(CellMark mark) { return lookOf(mark).sign; }

std::string_view spokenMark(CellMark mark) { return lookOf(mark).spoken; }

std::string_view meaningOf(CellMark mark) { return lookOf(mark).meaning; }

}  // namespace tolmer
