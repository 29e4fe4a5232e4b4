#include "foreign/readers/xlsx_reader.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <utility>

#include "base/data_limits.h"
#include "foreign/readers/cell_formats.h"
#include "foreign/readers/sheet_choice.h"
#include "foreign/readers/table_collector.h"
#include "foreign/readers/xlsx_sheet.h"

namespace tolmer {
namespace {

struct Relationship {
  std::string id;
  std::string type;    // the last word of its name, as "worksheet"
  std::string target;  // the name of the part
};

std::string_view lastWord(std::string_view type) { return type.substr(type.rfind('/') + 1); }

std::string folderOf(std::string_view part) {
  return std::string(part.substr(0, part.rfind('/') + 1));
}

// A target is told from the folder of the part that names it, or with a leading slash from the top.
std::string resolved(std::string_view folder, std::string_view target) {
  std::string slashed(target);
  std::replace(slashed.begin(), slashed.end(), '\\', '/');
  if (slashed.starts_with('/')) return slashed.substr(1);
  std::string base(folder);
  std::string_view rest = slashed;
  while (rest.starts_with("../") || rest.starts_with("./")) {
    const bool up = rest.starts_with("../");
    rest.remove_prefix(up ? 3 : 2);
    if (up && !base.empty()) base = folderOf(std::string_view(base).substr(0, base.size() - 1));
  }
  return base + std::string(rest);
}

class RelationshipSink : public XmlSink {
 public:
  explicit RelationshipSink(std::string folder) : folder_(std::move(folder)) {}
  void start(std::string_view name, const XmlAttributes& attributes) override {
    if (name == "Relationship")
      found.push_back({std::string(attributes["Id"]), std::string(lastWord(attributes["Type"])),
                       resolved(folder_, attributes["Target"])});
  }
  void end(std::string_view) override {}
  void text(std::string_view) override {}
  std::vector<Relationship> found;

 private:
  std::string folder_;
};

// The part's own list of others; empty where it has none.
Result<std::vector<Relationship>> relationshipsOf(Package& package, std::string_view part) {
  const std::string folder = folderOf(part);
  const std::string list = folder + "_rels/" + std::string(part.substr(folder.size())) + ".rels";
  RelationshipSink sink(folder);
  if (package.has(list))
    if (auto error = package.readXml(list, sink)) return *error;
  return std::move(sink.found);
}

class WorkbookSink : public XmlSink {
 public:
  struct Sheet {
    SheetInfo info;
    std::string id;
  };
  void start(std::string_view name, const XmlAttributes& attributes) override {
    if (name == "sheet") {
      const std::string_view state = attributes["state"];
      sheets.push_back({{std::string(attributes["name"]), !state.empty() && state != "visible"},
                        std::string(attributes["id"])});
    } else if (name == "workbookPr") {
      const std::string_view from1904 = attributes["date1904"];
      isFrom1904 = from1904 == "1" || from1904 == "true";
    }
  }
  void end(std::string_view) override {}
  void text(std::string_view) override {}
  std::vector<Sheet> sheets;
  bool isFrom1904 = false;
};

int numberOf(std::string_view text) {
  int number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

class StyleSink : public XmlSink {
 public:
  explicit StyleSink(XlsxStyles& styles) : styles_(styles) {}
  void start(std::string_view name, const XmlAttributes& attributes) override {
    if (name == "numFmt")
      own_[numberOf(attributes["numFmtId"])] = kindOfFormat(attributes["formatCode"]);
    else if (name == "cellXfs")
      inCells_ = true;
    else if (name == "xf" && inCells_)
      styles_.kinds.push_back(kindOf(numberOf(attributes["numFmtId"])));
  }
  void end(std::string_view name) override {
    if (name == "cellXfs") inCells_ = false;
  }
  void text(std::string_view) override {}

 private:
  CutKind kindOf(int format) const {
    const auto own = own_.find(format);
    return own == own_.end() ? kindOfBuiltInFormat(format) : own->second;
  }

  XlsxStyles& styles_;
  std::map<int, CutKind> own_;
  bool inCells_ = false;
};

// Of the texts that all sheets share, those that the kept cells wait for.
class SharedTextSink : public XmlSink {
 public:
  explicit SharedTextSink(TableCollector& collector)
      : collector_(collector), waiting_(collector.laterTexts()) {
    std::sort(waiting_.begin(), waiting_.end(),
              [](const auto& a, const auto& b) { return a.number < b.number; });
  }

  void start(std::string_view name, const XmlAttributes&) override {
    takesText_ = name == "t" && !inPhonetic_ && isWaitedFor();
    if (name == "si") text_.clear();
    if (name == "rPh") inPhonetic_ = true;
  }
  void text(std::string_view text) override {
    constexpr std::size_t most = 4 * longestCutText;
    if (takesText_ && text_.size() < most) text_ += text;
  }
  void end(std::string_view name) override {
    takesText_ = false;
    if (name == "rPh") inPhonetic_ = false;
    if (name == "si") tell();
  }

  bool allTold() const { return told_ == waiting_.size(); }

 private:
  bool isWaitedFor() const { return !allTold() && waiting_[told_].number == number_; }

  void tell() {
    const std::string plain = isWaitedFor() ? withoutXlsxEscapes(text_) : std::string();
    for (; isWaitedFor(); ++told_) collector_.tellText(waiting_[told_], plain);
    ++number_;
  }

  TableCollector& collector_;
  std::vector<TableCollector::LaterText> waiting_;  // by the numbers of their texts
  std::size_t told_ = 0;
  std::uint32_t number_ = 0;
  std::string text_;
  bool takesText_ = false;
  bool inPhonetic_ = false;
};

// Looks no further than the first cell with content.
class FirstCellSink : public XmlSink {
 public:
  void start(std::string_view name, const XmlAttributes&) override {
    if (name == "v" || name == "is" || name == "f") {
      found = true;
      enough();
    }
  }
  void end(std::string_view) override {}
  void text(std::string_view) override {}
  bool found = false;
};

class Workbook {
 public:
  Workbook(Package& package, const CutRequest& request) : package_(package), request_(request) {}

  Result<CutBook> read() {
    book_.format = "xlsx";
    if (auto error = readWorkbook()) return *error;
    const auto sheet = chosenSheet(book_.sheets, request_.sheet);
    if (!sheet) return sheet.error();
    book_.sheet = *sheet;
    if (auto error = readSheet(parts_[*sheet])) return *error;
    return std::move(book_);
  }

 private:
  using Fault = std::optional<Error>;

  Fault readWorkbook() {
    const std::string main = mainPart(package_);
    if (main.empty()) return Error{"", "it is no workbook, or a damaged one"};
    WorkbookSink workbook;
    if (auto error = package_.readXml(main, workbook)) return error;
    styles_.from1904 = workbook.isFrom1904;
    const auto parts = relationshipsOf(package_, main);
    if (!parts) return parts.error();
    for (const Relationship& part : *parts) {
      if (part.type == "sharedStrings") sharedTexts_ = part.target;
      if (part.type != "styles") continue;  // without them dates would be numbers
      StyleSink sink(styles_);
      if (auto error = package_.readXml(part.target, sink)) return error;
    }
    for (WorkbookSink::Sheet& sheet : workbook.sheets)
      if (auto error = listSheet(sheet, *parts)) return error;
    return std::nullopt;
  }

  // Charts have sheets of their own, without cells.
  Fault listSheet(WorkbookSink::Sheet& sheet, const std::vector<Relationship>& parts) {
    const auto part = std::find_if(parts.begin(), parts.end(), [&sheet](const Relationship& other) {
      return other.id == sheet.id;
    });
    if (part == parts.end() || part->type != "worksheet") return std::nullopt;
    FirstCellSink cells;
    if (auto error = package_.readXml(part->target, cells)) return error;
    sheet.info.hasCells = cells.found;
    book_.sheets.push_back(std::move(sheet.info));
    parts_.push_back(part->target);
    return std::nullopt;
  }

  Fault readSheet(const std::string& part) {
    TableCollector collector(request_);
    XlsxSheetSink sink(styles_, collector);
    if (auto error = package_.readXml(part, sink)) return error;
    if (!sink.unsolved().empty())
      return Error{"cell " + sink.unsolved(),
                   "the result of its formula is not stored; open the file in your spreadsheet "
                   "program and save it once"};
    if (!collector.hasCells()) return Error{"", "the sheet has no cells with content"};
    if (auto error = readSharedTexts(collector)) return error;
    book_.table = collector.take();
    return std::nullopt;
  }

  Fault readSharedTexts(TableCollector& collector) {
    if (collector.laterTexts().empty()) return std::nullopt;
    SharedTextSink sink(collector);
    if (package_.has(sharedTexts_))
      if (auto error = package_.readXml(sharedTexts_, sink)) return error;
    if (sink.allTold()) return std::nullopt;
    return Error{"", "it is damaged: texts that its cells refer to are missing"};
  }

  Package& package_;
  const CutRequest& request_;
  XlsxStyles styles_;
  std::string sharedTexts_;
  std::vector<std::string> parts_;  // of the sheets
  CutBook book_;
};

}  // namespace

std::string mainPart(Package& package) {
  const auto parts = relationshipsOf(package, "");
  if (!parts) return {};
  for (const Relationship& part : *parts)
    if (part.type == "officeDocument" && package.has(part.target)) return part.target;
  return {};
}

Result<CutBook> readXlsx(Package& package, const CutRequest& request) {
  return Workbook(package, request).read();
}

}  // namespace tolmer
