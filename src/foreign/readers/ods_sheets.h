// The cells of an OpenDocument spreadsheet's content.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "foreign/readers/table_collector.h"
#include "foreign/readers/xml_parser.h"

namespace tolmer {

class OdsSheetsSink : public XmlSink {
 public:
  explicit OdsSheetsSink(const CutRequest& request) : request_(request) {}

  void start(std::string_view name, const XmlAttributes& attributes) override;
  void end(std::string_view name) override;
  void text(std::string_view text) override;

  // After the whole document.
  Result<CutBook> take();

 private:
  struct Cell {
    std::string type;  // "float", "percentage", "currency", "date", "time", "boolean", "string"
    std::string value;
    bool isError = false;
    bool hasFormula = false;
    bool hasStringValue = false;
    int columns = 1;  // in a row that hold the same
  };
  // A sheet that may be the one that is wanted; only one is kept.
  struct Collected {
    std::size_t sheet;
    std::unique_ptr<TableCollector> collector;
    std::string unsolved;
  };

  void startStyle(std::string_view name, const XmlAttributes& attributes);
  void startSheet(const XmlAttributes& attributes);
  void endSheet();
  void startRow(const XmlAttributes& attributes);
  void endRow();
  void startCell(const XmlAttributes& attributes);
  void endCell();
  void startText(std::string_view name, const XmlAttributes& attributes);
  void putRow();
  void put(const Cell& cell, int column);
  void putNumber(const Cell& cell, int column);
  bool isWanted(const SheetInfo& sheet) const;
  bool isBetter(const SheetInfo& sheet) const;
  std::string place(int column) const { return spreadsheetPlace(row_, column); }

  const CutRequest& request_;
  std::vector<SheetInfo> sheets_;
  std::optional<Collected> best_;
  std::map<std::string, bool, std::less<>> hiddenStyles_;
  std::string style_;  // that is being told

  std::optional<Collected> current_;
  int row_ = 0;         // the last one whose cells have been put
  int rowRepeats_ = 1;  // of the row that is being told
  bool rowHidden_ = false;
  int column_ = 0;                              // the last one told of the row
  std::vector<std::pair<int, Cell>> rowCells_;  // with content, by their columns
  std::int64_t cellsPut_ = 0;

  bool inCell_ = false;
  Cell cell_;
  std::string cellText_;
  bool inParagraph_ = false;
  bool firstParagraph_ = true;
  int ignored_ = 0;  // elements within what is no cell's own text: notes, shapes, other tables
};

}  // namespace tolmer
