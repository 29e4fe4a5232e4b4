#include "foreign/readers/gdt_reader.h"

#include <algorithm>
#include <charconv>
#include <string>
#include <utility>

#include "base/data_limits.h"
#include "base/trimmed.h"
#include "foreign/readers/table_collector.h"
#include "foreign/readers/xml_parser.h"
#include "textimport/typed_number.h"

namespace tolmer {
namespace {

constexpr std::string_view blanks = " \t\r\n";

// "North" "South \"x\"": texts in quotation marks.
std::vector<std::string> quotedTexts(std::string_view list) {
  std::vector<std::string> texts;
  bool inside = false;
  for (std::size_t i = 0; i < list.size(); ++i) {
    if (inside && list[i] == '\\' && i + 1 < list.size())
      texts.back() += list[++i];
    else if (list[i] == '"' && std::exchange(inside, !inside) == false)
      texts.emplace_back();
    else if (inside)
      texts.back() += list[i];
  }
  return texts;
}

class GdtSink : public XmlSink {
 public:
  explicit GdtSink(const CutRequest& request) : collector_(request) {
    collector_.table().namesApart = true;
  }

  void start(std::string_view name, const XmlAttributes& attributes) override {
    takesText_ = name == "obs" || name == "valstrings";
    if (takesText_ || name == "description") content_.clear();
    takesText_ = takesText_ || name == "description";
    if (name == "variable")
      startVariable(attributes);
    else if (name == "observations")
      startCases(attributes);
    else if (name == "obs")
      startCase(attributes);
    else if (name == "valstrings")
      owner_ = attributes["owner"];
    else if (name == "gretldata")
      startData(attributes);
  }

  void text(std::string_view text) override {
    constexpr std::size_t most = std::size_t{4} << 20;
    if (!takesText_) return;
    content_ += text;
    if (content_.size() > most) stop({"", "a text in it is too long"});
  }

  void end(std::string_view name) override {
    takesText_ = false;
    if (name == "obs")
      endCase();
    else if (name == "valstrings")
      labels_.push_back({owner_, quotedTexts(content_)});
    else if (name == "description")
      collector_.table().title = std::string(trimmed(content_, blanks)).substr(0, longestCutText);
  }

  Result<CutBook> take() {
    if (variables_.empty()) return Error{"", "there are no variables in it"};
    if (casesTold_ > 0 && cases_ != casesTold_)
      return Error{"", "it is damaged: it tells of " + std::to_string(casesTold_) +
                           " cases and holds " + std::to_string(cases_)};
    CutBook book{.format = "gdt", .sheets = {{"", false, cases_ > 0}}};
    book.table = collector_.take();
    for (CutColumn& column : book.table.columns)
      for (const auto& [owner, texts] : labels_)
        if (owner == column.name)
          for (std::size_t i = 0; i < texts.size(); ++i)
            column.valueLabels.push_back({std::to_string(i + 1), texts[i]});
    return book;
  }

 private:
  void startData(const XmlAttributes& attributes) {
    if (!attributes["binary"].empty())
      stop({"", "its numbers lie in another file; save it in gretl as one gdt file"});
  }

  void startVariable(const XmlAttributes& attributes) {
    variables_.emplace_back(attributes["name"]);
    labelsOfVariables_.emplace_back(attributes["label"]);
  }

  static int countOf(std::string_view text) {
    int count = 0;
    std::from_chars(text.data(), text.data() + text.size(), count);
    return count;
  }

  // The labels of the cases, if there are any, become the first column.
  void startCases(const XmlAttributes& attributes) {
    constexpr std::size_t mostVariables = 100'000;
    if (variables_.size() > mostVariables) return stop({"", "it has too many variables"});
    casesTold_ = countOf(attributes["count"]);
    hasLabels_ = attributes["labels"] == "true";
    int number = 0;
    if (hasLabels_) collector_.describeColumn({.number = ++number, .name = "Label"});
    for (std::size_t i = 0; i < variables_.size(); ++i)
      collector_.describeColumn(
          {.number = ++number, .name = variables_[i], .label = labelsOfVariables_[i]});
  }

  void startCase(const XmlAttributes& attributes) {
    collector_.beginRow(++cases_);
    if (const auto label = attributes["label"]; hasLabels_ && !label.empty())
      collector_.putText(1, CutKind::text, label);
  }

  void endCase() {
    int column = hasLabels_ ? 1 : 0;
    const int last = column + static_cast<int>(variables_.size());
    std::string_view rest = trimmed(content_, blanks);
    for (; !rest.empty(); rest = trimmed(rest, blanks)) {
      const auto length = std::min(rest.find_first_of(blanks), rest.size());
      if (++column > last || !putValue(column, rest.substr(0, length))) return damaged(column);
      rest.remove_prefix(length);
    }
    if (column != last) damaged(column + 1);
  }

  bool putValue(int column, std::string_view value) {
    if (value == "NA") return true;
    const auto read = readNumber(value);
    if (read.kind != NumberReading::Kind::number) return false;
    collector_.putNumber(column, CutKind::number, read.number);
    return true;
  }

  void damaged(int column) {
    stop({"case " + std::to_string(cases_) + ", value " +
              std::to_string(column - (hasLabels_ ? 1 : 0)),
          "it is no number, or there are more or fewer of them than variables"});
  }

  TableCollector collector_;
  std::vector<std::string> variables_;
  std::vector<std::string> labelsOfVariables_;
  std::vector<std::pair<std::string, std::vector<std::string>>> labels_;
  std::string owner_;  // the variable whose labels are being told
  std::string content_;
  bool takesText_ = false;
  bool hasLabels_ = false;
  int cases_ = 0;
  int casesTold_ = 0;
};

}  // namespace

Result<CutBook> readGdt(std::string_view document, const CutRequest& request) {
  GdtSink sink(request);
  if (auto error = parseXml(document, sink)) return *error;
  return sink.take();
}

}  // namespace tolmer
