#include "figures/figure_table.h"

#include <array>
#include <string_view>
#include <utility>

#include "report/table_parts.h"

namespace tolmer {
namespace {

// On paper the colours of the screen are too strong for figures on them.
std::string_view printedColour(Colour colour) {
  static constexpr std::array tints = {
      std::pair{colours::cyan, "A9EEF4"}, std::pair{colours::green, "A8EAA8"},
      std::pair{colours::red, "FFB1AB"}, std::pair{colours::yellow, "FFF29B"}};
  for (const auto& [screen, tint] : tints)
    if (colour == screen) return tint;
  return {};
}

std::string escaped(std::string_view text) {
  std::string plain;
  for (const char c : text) {
    if (c == '|' || c == '{') plain += '\\';
    plain += c;
  }
  return plain;
}

// A ground once set holds for all cells that follow, so that each cell sets its own. A line that
// takes it back vanishes whole: the text stands on the next one.
std::string cellText(const TableCell& cell) {
  const std::string_view tint = printedColour(backOf(cell));
  const std::string ground = tint.empty() ? "!}\n" : ":#" + std::string(tint) + "}";
  return "|{set:cellbgcolor" + ground + escaped(cell.text) + "\n";
}

std::string rowText(const TableRow& row) {
  std::string text;
  for (const TableCell& cell : row) text += cellText(cell);
  return text + "\n";
}

std::string columnsText(const TableRow& heads) {
  std::string text;
  for (const TableCell& head : heads)
    text += std::string(text.empty() ? "" : ",") + (head.align == Align::right ? ">" : "<");
  return text;
}

}  // namespace

std::string figureTable(const TableContent& table) {
  const TableParts parts = partsOf(table);
  if (parts.bodies.empty()) return {};
  std::string text = "[%header%autowidth%unbreakable,frame=ends,cols=\"" +
                     columnsText(parts.heads) + "\"]\n|===\n" + rowText(parts.heads);
  for (std::size_t i = 0; i < parts.bodies.size(); ++i) {
    if (i > 0) text += rowText(TableRow(parts.heads.size()));
    for (const TableRow& row : parts.bodies[i]) text += rowText(row);
  }
  if (!parts.key.empty()) {
    TableRow key = parts.key;
    key.resize(parts.heads.size());
    text += rowText(key);
  }
  return text + "|===\n";
}

}  // namespace tolmer
