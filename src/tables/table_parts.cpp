#include "tables/table_parts.h"
#include "tables/mark_colours.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <numeric>
#include <string_view>
#include <utility>

namespace tolmer {
namespace {

constexpr std::array<std::pair<Colour, std::string_view>, 4> colourNames = {
    {{colours::cyan, "#00FFFF"},
     {colours::green, "#00FF00"},
     {colours::yellow, "#FFFF00"},
     {colours::red, "#FF0000"}}};

bool holdsWords(const std::vector<TableRow>& rows, std::size_t column) {
  return std::any_of(rows.begin(), rows.end(),
                     [column](const TableRow& row) { return row[column].role == CellRole::text; });
}

void alignColumn(TableParts& parts, std::size_t column) {
  auto& rows = parts.bodies.front();
  const Align centred = holdsWords(rows, column) ? Align::left : Align::right;
  for (TableRow& row : rows)
    if (row[column].align == Align::centre) row[column].align = centred;
  parts.heads[column].align = rows.front()[column].align;
}

std::size_t leadColumnsOf(const std::vector<TableRow>& rows, std::size_t columns) {
  const auto names = [&rows](std::size_t column) {
    return std::all_of(rows.begin(), rows.end(), [column](const TableRow& row) {
      return row[column].role == CellRole::heading;
    });
  };
  std::size_t count = 0;
  while (count + 1 < columns && names(count)) ++count;
  return std::max<std::size_t>(count, 1);
}

// A label out of a file may have lines of its own.
void putOnOneLine(TableRow& row) {
  const auto breaks = [](char c) { return c == '\r' || c == '\n' || c == '\t'; };
  for (TableCell& cell : row) std::replace_if(cell.text.begin(), cell.text.end(), breaks, ' ');
}

bool isKey(const TableCell& cell) { return cell.role == CellRole::key; }

void takeRows(TableParts& parts, const TableContent& table) {
  bool isDivided = true;
  for (int i = 2; i <= table.rows(); ++i) {
    const auto row = table.row(i);
    if (table.isFrame(i)) {
      isDivided = true;
    } else if (std::any_of(row.begin(), row.end(), isKey)) {
      std::copy_if(row.begin(), row.end(), std::back_inserter(parts.key), isKey);
    } else {
      if (isDivided) parts.bodies.emplace_back();
      parts.bodies.back().emplace_back(row.begin(), row.end());
      isDivided = false;
    }
  }
}

struct BlockCutter {
  const std::vector<double>& widths;
  std::size_t lead;

  double sum(std::size_t from, std::size_t to) const {
    return std::accumulate(widths.begin() + static_cast<std::ptrdiff_t>(from),
                           widths.begin() + static_cast<std::ptrdiff_t>(to), 0.0);
  }

  double evenRoom(std::size_t count) const {
    return sum(0, lead) + sum(lead, widths.size()) / static_cast<double>(count);
  }

  std::vector<ColumnBlock> cut(double room) const {
    ColumnBlock first(lead);
    std::iota(first.begin(), first.end(), std::size_t{0});
    std::vector<ColumnBlock> blocks = {first};
    double taken = sum(0, lead);
    for (std::size_t column = lead; column < widths.size(); ++column) {
      if (taken + widths[column] > room && blocks.back().size() > lead) {
        blocks.push_back(first);
        taken = sum(0, lead);
      }
      blocks.back().push_back(column);
      taken += widths[column];
    }
    return blocks;
  }
};

}  // namespace

std::string_view TableParts::shownSign(const TableCell& cell) const {
  const bool isExplained = std::any_of(
      key.begin(), key.end(), [&cell](const TableCell& word) { return word.mark == cell.mark; });
  return isExplained ? signOf(cell.mark) : std::string_view();
}

std::string_view backName(const TableCell& cell) {
  if (isFramed(cell)) return "face";
  if (cell.mark == CellMark::none) return "white";
  const Colour back = backOf(cell);
  for (const auto& [colour, name] : colourNames)
    if (colour == back) return name;
  return "white";
}

TableParts partsOf(const TableContent& table) {
  TableParts parts;
  if (table.rows() == 0) return parts;
  const auto heads = table.row(1);
  parts.heads.assign(heads.begin(), heads.end());
  parts.notes = table.notes;
  takeRows(parts, table);
  if (parts.bodies.empty()) return parts;
  putOnOneLine(parts.heads);
  for (auto& body : parts.bodies) std::for_each(body.begin(), body.end(), putOnOneLine);
  for (std::size_t column = 0; column < parts.heads.size(); ++column) alignColumn(parts, column);
  parts.leadColumns = leadColumnsOf(parts.bodies.front(), parts.heads.size());
  return parts;
}

std::vector<ColumnBlock> columnBlocks(const std::vector<double>& widths, std::size_t leadColumns,
                                      double room) {
  const BlockCutter cutter{widths, std::min(leadColumns, widths.size())};
  auto blocks = cutter.cut(room);
  // As many blocks, but of like widths: the narrowest room that needs no more.
  const double least = cutter.evenRoom(blocks.size());
  for (int more = 0; least + more < room; ++more) {
    auto even = cutter.cut(least + more);
    if (even.size() <= blocks.size()) return even;
  }
  return blocks;
}

}  // namespace tolmer
