// The cells of one worksheet part.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "foreign/readers/table_collector.h"
#include "foreign/readers/xml_parser.h"

namespace tolmer {

// What cells of a workbook are shown as.
struct XlsxStyles {
  std::vector<CutKind> kinds;  // by the number of a cell's style
  bool from1904 = false;       // days count from 1904-01-01
};

class XlsxSheetSink : public XmlSink {
 public:
  XlsxSheetSink(const XlsxStyles& styles, TableCollector& collector)
      : styles_(styles), collector_(collector) {}

  void start(std::string_view name, const XmlAttributes& attributes) override;
  void end(std::string_view name) override;
  void text(std::string_view text) override;

  // "C2", a formula whose result is not stored; empty where there is none.
  const std::string& unsolved() const { return unsolved_; }

 private:
  void startRow(const XmlAttributes& attributes);
  void startCell(const XmlAttributes& attributes);
  void endCell();
  void putNumber();
  CutKind kind() const;
  void damaged(std::string_view what);
  std::string place() const { return spreadsheetPlace(row_, column_); }

  const XlsxStyles& styles_;
  TableCollector& collector_;
  int row_ = 0;
  int column_ = 0;
  std::string type_;  // of the cell: "s", "str", "b", ...
  std::size_t style_ = 0;
  std::string value_;  // what v holds, or the text that stands in the cell itself
  bool takesText_ = false;
  bool inPhonetic_ = false;
  bool hasFormula_ = false;
  std::string unsolved_;
};

// Escapes of single characters within texts, as "_x000A_".
std::string withoutXlsxEscapes(std::string text);

}  // namespace tolmer
