#include "report/table_parts.h"

#include <algorithm>
#include <numeric>
#include <string_view>

namespace tolmer {
namespace {

bool isEmpty(const DisplayRow& row) {
  return std::all_of(row.begin(), row.end(),
                     [](const DisplayCell& cell) { return cell.text.empty(); });
}

// Only texts on colours.
bool isKey(const DisplayRow& row) {
  return std::all_of(row.begin(), row.end(),
                     [](const DisplayCell& cell) { return cell.text.empty() || cell.isMarked(); });
}

bool isFigure(std::string_view text) {
  return text == "NA" || text == "---" || text.find_first_not_of("0123456789+-.,E") == text.npos;
}

bool holdsFigures(const std::vector<DisplayRow>& rows, std::size_t column) {
  return std::all_of(rows.begin(), rows.end(),
                     [column](const DisplayRow& row) { return isFigure(row[column].text); });
}

void alignColumn(TableParts& parts, std::size_t column) {
  auto& rows = parts.bodies.front();
  const Align centred = holdsFigures(rows, column) ? Align::right : Align::left;
  for (DisplayRow& row : rows)
    if (row[column].align == Align::centre) row[column].align = centred;
  parts.heads[column].align = rows.front()[column].align;
}

std::size_t leadColumnsOf(const std::vector<DisplayRow>& rows, std::size_t columns) {
  const auto names = [&rows](std::size_t column) {
    return std::all_of(rows.begin(), rows.end(),
                       [column](const DisplayRow& row) { return row[column].isHeading(); });
  };
  std::size_t count = 0;
  while (count + 1 < columns && names(count)) ++count;
  return std::max<std::size_t>(count, 1);
}

// A label out of a file may have lines of its own.
void putOnOneLine(DisplayRow& row) {
  const auto breaks = [](char c) { return c == '\r' || c == '\n' || c == '\t'; };
  for (DisplayCell& cell : row) std::replace_if(cell.text.begin(), cell.text.end(), breaks, ' ');
}

void takeRows(TableParts& parts, const DisplayTable& table) {
  bool isDivided = true;
  for (std::size_t i = 1; i < table.rows.size(); ++i) {
    const DisplayRow& row = table.rows[i];
    if (isEmpty(row)) {
      isDivided = true;
    } else if (isKey(row)) {
      std::copy_if(row.begin(), row.end(), std::back_inserter(parts.key),
                   [](const DisplayCell& cell) { return !cell.text.empty(); });
    } else {
      if (isDivided) parts.bodies.emplace_back();
      parts.bodies.back().push_back(row);
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

bool TableParts::explains(const DisplayCell& cell) const {
  return cell.isMarked() && std::any_of(key.begin(), key.end(), [&cell](const DisplayCell& word) {
           return word.back == cell.back;
         });
}

TableParts partsOf(const DisplayTable& table) {
  TableParts parts;
  if (table.rows.empty()) return parts;
  parts.heads = table.rows.front();
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
