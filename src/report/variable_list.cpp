#include "report/variable_list.h"

#include <algorithm>
#include <array>
#include <vector>

#include "base/json_writer.h"
#include "base/sentence_parts.h"
#include "base/text_encoding.h"
#include "report/text_layout.h"
#include "textimport/text_table.h"

namespace tolmer {
namespace {

constexpr std::size_t columns = 5;
using Line = std::array<std::string, columns>;
constexpr std::array<Align, columns> aligned = {Align::left, Align::left, Align::right,
                                                Align::right, Align::left};

// What the codes stand for says more than a label alone.
std::string meaningOf(const ImportVariable& variable) {
  std::vector<ValueLabel> codes;
  if (variable.isCoded)
    for (const auto& [value, name] : variable.categories) codes.push_back({value, name});
  return meaningOf(variable.label, codes);
}

Line lineOf(const ImportVariable& variable) {
  const bool isFull = variable.different >= mostDifferent;
  return {onOneLine(variable.name), kindWord(variable), std::to_string(variable.values),
          isFull ? ">" + std::to_string(mostDifferent - 1) : std::to_string(variable.different),
          onOneLine(meaningOf(variable))};
}

std::string sheetsText(const ListedTable& table) {
  std::string text;
  for (const SheetInfo& sheet : table.sheets)
    text += (text.empty() ? "Sheets: " : ", ") + onOneLine(sheet.name) +
            (sheet.hidden ? " (hidden)" : "") + (sheet.name == table.sheet ? " (this one)" : "");
  return text + "\n";
}

}  // namespace

std::string variableListText(const ListedTable& table) {
  std::vector<Line> lines{{"Name", "Kind", "Values", "Different", "Label"}};
  for (const ImportVariable& variable : table.variables) lines.push_back(lineOf(variable));
  std::array<std::size_t, columns> widths{};
  for (const Line& line : lines)
    for (std::size_t at = 0; at < columns; ++at)
      widths[at] = std::max(widths[at], terminalWidth(line[at]));
  std::string text = onOneLine(table.name) + ": " +
                     counted(static_cast<int>(table.variables.size()), "variable") + ", " +
                     counted(table.cases, "case") + "\n";
  if (!table.title.empty()) text += onOneLine(table.title) + "\n";
  if (!table.sheet.empty()) text += sheetsText(table);
  text += "\n";
  for (const Line& line : lines) {
    std::string row;
    for (std::size_t at = 0; at < columns; ++at)
      row += (at > 0 ? "  " : "") + padded(line[at], widths[at], aligned[at]);
    text += row.substr(0, row.find_last_not_of(' ') + 1) + "\n";
  }
  return text;
}

std::string variableListJson(const ListedTable& table) {
  std::string text;
  JsonWriter json([&text](std::string_view piece) { text += piece; });
  json.beginObject();
  json.member("file", table.name);
  json.member("title", table.title);
  json.member("sheet", table.sheet);
  json.key("sheets");
  json.beginArray();
  for (const SheetInfo& sheet : table.sheets)
    if (!table.sheet.empty()) json.value(sheet.name);
  json.endArray();
  json.member("cases", table.cases);
  json.key("variables");
  json.beginArray();
  for (const ImportVariable& variable : table.variables) {
    json.beginObject();
    json.member("name", variable.name);
    json.member("kind", kindWord(variable));
    json.member("values", variable.values);
    json.key("different");
    variable.different < mostDifferent ? json.value(variable.different) : json.null();
    json.member("label", variable.label);
    json.key("categories");
    json.beginArray();
    for (const auto& [value, name] : variable.categories) {
      json.beginObject();
      json.member("value", value);
      json.member("name", name);
      json.endObject();
    }
    json.endArray();
    json.endObject();
  }
  json.endArray();
  json.endObject();
  json.finish();
  return text;
}

}  // namespace tolmer
