#include "foreign/readers/statistics_reader.h"

#include <readstat.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <map>
#include <memory>
#include <utility>
#include <vector>

#include "base/data_limits.h"
#include "foreign/readers/date_cells.h"
#include "foreign/readers/encodings.h"
#include "foreign/readers/table_collector.h"

namespace tolmer {
namespace {

// The library reads by these from the bytes in memory.
struct MemoryFile {
  std::string_view bytes;
  std::size_t at = 0;

  static MemoryFile& of(void* context) { return *static_cast<MemoryFile*>(context); }
  static int open(const char*, void*) { return 0; }
  static int close(void*) { return 0; }
  static readstat_off_t seek(readstat_off_t offset, readstat_io_flags_t whence, void* context) {
    MemoryFile& file = of(context);
    const auto size = static_cast<readstat_off_t>(file.bytes.size());
    const auto base = whence == READSTAT_SEEK_SET   ? 0
                      : whence == READSTAT_SEEK_CUR ? static_cast<readstat_off_t>(file.at)
                                                    : size;
    if (offset < -base || offset > size - base) return -1;
    file.at = static_cast<std::size_t>(base + offset);
    return base + offset;
  }
  static ssize_t read(void* buffer, std::size_t length, void* context) {
    MemoryFile& file = of(context);
    if (!buffer) return 0;  // the library found no memory, or wants nothing
    length = std::min(length, file.bytes.size() - file.at);
    std::memcpy(buffer, file.bytes.data() + file.at, length);
    file.at += length;
    return static_cast<ssize_t>(length);
  }
  static readstat_error_t update(long, readstat_progress_handler, void*, void*) {
    return READSTAT_OK;
  }
};

// What numbers of a variable count, if they count time.
struct TimeUnit {
  CutKind kind = CutKind::number;
  double perDay = 1;
  double epoch = 0;  // in days since 1899-12-30

  double days(double count) const { return count / perDay + epoch; }
};

TimeUnit unitOfSav(std::string_view format) {
  const auto isOne = [format](auto... names) { return (format.starts_with(names) || ...); };
  if (isOne("DATE", "ADATE", "EDATE", "SDATE", "JDATE", "QYR", "MOYR", "WKYR", "YMDHMS"))
    return {CutKind::date, secondsOfDay, epochOfSav};
  if (isOne("TIME", "DTIME", "MTIME")) return {CutKind::time, secondsOfDay, 0};
  return {};
}

// Weeks, months, quarters and years are plain counts.
TimeUnit unitOfDta(std::string_view format) {
  if (format.starts_with("%-")) format.remove_prefix(1);
  if (format.starts_with('%') || format.starts_with('-')) format.remove_prefix(1);
  constexpr double thousandths = 1000;
  if (format.starts_with("tc") || format.starts_with("tC"))
    return {CutKind::date, secondsOfDay * thousandths, epochOfDta};
  if (format.starts_with("td") || format.starts_with("d")) return {CutKind::date, 1, epochOfDta};
  return {};
}

// 5.1 in single precision is 5.0999999; nobody typed that.
double shortestOfSingle(float single) {
  std::array<char, 32> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), single).ptr;
  double number = 0;
  std::from_chars(digits.data(), end, number);
  return number;
}

class Reader {
 public:
  Reader(std::string_view bytes, StatisticsFormat format, const CutRequest& request)
      : file_{bytes}, format_(format), collector_(request) {
    collector_.table().namesApart = true;
  }

  Result<CutBook> read() {
    if (file_.bytes.starts_with("<stata_dta>") && !file_.bytes.ends_with("</stata_dta>"))
      return Error{"", "it is cut off"};
    const std::unique_ptr<readstat_parser_t, decltype(&readstat_parser_free)> parser(
        readstat_parser_init(), &readstat_parser_free);
    if (!parser) throw std::bad_alloc();
    setHandlers(parser.get());
    const auto parse = format_ == StatisticsFormat::sav ? readstat_parse_sav : readstat_parse_dta;
    const readstat_error_t status = parse(parser.get(), "", this);
    if (status != READSTAT_OK) return fault(status);
    if (rowsTold_ >= 0 && rows_ < rowsTold_)
      return Error{"", "it is cut off: it tells of " + std::to_string(rowsTold_) +
                           " cases and holds " + std::to_string(rows_)};
    return book();
  }

 private:
  static Reader& of(void* context) { return *static_cast<Reader*>(context); }

  void setHandlers(readstat_parser_t* parser) {
    readstat_set_open_handler(parser, MemoryFile::open);
    readstat_set_close_handler(parser, MemoryFile::close);
    readstat_set_seek_handler(parser, MemoryFile::seek);
    readstat_set_read_handler(parser, MemoryFile::read);
    readstat_set_update_handler(parser, MemoryFile::update);
    readstat_set_io_ctx(parser, &file_);
    // Texts come as they are: the library would stop at, or cut off, what is not in its encoding.
    readstat_set_handler_character_encoding(parser, nullptr);
    readstat_set_metadata_handler(parser, [](readstat_metadata_t* data, void* context) {
      return of(context).takeMetadata(data);
    });
    readstat_set_variable_handler(
        parser, [](int, readstat_variable_t* variable, const char* labels, void* context) {
          return of(context).takeVariable(variable, labels);
        });
    readstat_set_value_label_handler(
        parser, [](const char* set, readstat_value_t value, const char* label, void* context) {
          return of(context).takeLabel(set, value, label);
        });
    readstat_set_value_handler(
        parser, [](int row, readstat_variable_t* variable, readstat_value_t value, void* context) {
          return of(context).takeValue(row, variable, value);
        });
    readstat_set_fweight_handler(parser, [](readstat_variable_t* variable, void* context) {
      of(context).takeWeight(variable);
      return static_cast<int>(READSTAT_HANDLER_OK);
    });
  }

  std::string text(const char* bytes) {
    return bytes ? utf8From(encoding_, bytes, guessed_) : std::string();
  }

  // Before its version 14 Stata names no encoding; what the library says then is a guess.
  int takeMetadata(readstat_metadata_t* data) {
    constexpr int firstInUtf8 = 118;
    rowsTold_ = readstat_get_row_count(data);
    const int version = readstat_get_file_format_version(data);
    if (format_ == StatisticsFormat::dta) {
      encoding_ = version >= firstInUtf8 ? "UTF-8" : "";
      longestSetName_ = version >= firstInUtf8 ? 129 : version >= 110 ? 33 : 9;
    } else if (const char* named = readstat_get_file_encoding(data))
      encoding_ = named;
    collector_.table().title = text(readstat_get_file_label(data));
    return READSTAT_HANDLER_OK;
  }

  int takeVariable(readstat_variable_t* variable, const char* labels) {
    const auto index = static_cast<std::size_t>(readstat_variable_get_index(variable));
    constexpr std::size_t mostVariables = 100'000;
    if (index != units_.size() || index >= mostVariables) return READSTAT_HANDLER_ABORT;
    CutColumn column;
    column.number = static_cast<int>(index) + 1;
    column.name = text(readstat_variable_get_name(variable));
    column.label = text(readstat_variable_get_label(variable));
    collector_.describeColumn(std::move(column));
    const char* format = readstat_variable_get_format(variable);
    const std::string_view shown = format ? format : "";
    units_.push_back(format_ == StatisticsFormat::sav ? unitOfSav(shown) : unitOfDta(shown));
    labelSets_.emplace_back(labels ? std::string(labels, ::strnlen(labels, longestSetName_)) : "");
    return READSTAT_HANDLER_OK;
  }

  void takeWeight(readstat_variable_t* variable) {
    remarks_.push_back("The file weights its cases by \"" +
                       text(readstat_variable_get_name(variable)) +
                       "\"; here every case counts once.");
  }

  int takeLabel(const char* set, readstat_value_t value, const char* label) {
    constexpr std::size_t most = 20'000;
    if (++labels_ > most) return READSTAT_HANDLER_OK;
    labelsOf_[set ? set : ""].push_back({codeText(value), text(label).substr(0, longestCutText)});
    return READSTAT_HANDLER_OK;
  }

  std::string codeText(const readstat_value_t& value) {
    if (readstat_value_type_class(value) == READSTAT_TYPE_CLASS_STRING)
      return text(readstat_string_value(value));
    if (readstat_value_is_tagged_missing(value))
      return std::string(".") + readstat_value_tag(value);
    return shortestDigits(number(value));
  }

  static double number(const readstat_value_t& value) {
    return readstat_value_type(value) == READSTAT_TYPE_FLOAT
               ? shortestOfSingle(readstat_float_value(value))
               : readstat_double_value(value);
  }

  int takeValue(int row, readstat_variable_t* variable, const readstat_value_t& value) {
    if (row + 1 != rows_) {
      rows_ = row + 1;
      collector_.beginRow(rows_);
    }
    const int index = readstat_variable_get_index(variable);
    if (readstat_value_type_class(value) == READSTAT_TYPE_CLASS_STRING)
      putText(index + 1, variable, value);
    else
      putNumber(index + 1, variable, value);
    return READSTAT_HANDLER_OK;
  }

  void putText(int column, readstat_variable_t* variable, const readstat_value_t& value) {
    const std::string content = text(readstat_string_value(value));
    if (content.empty()) return;
    if (readstat_value_is_defined_missing(value, variable))
      collector_.putMissing(column, content);
    else
      collector_.putText(column, CutKind::text, content);
  }

  void putNumber(int column, readstat_variable_t* variable, const readstat_value_t& value) {
    if (readstat_value_is_tagged_missing(value))
      return collector_.putMissing(column, codeText(value));
    const double number = Reader::number(value);
    if (readstat_value_is_system_missing(value) || !std::isfinite(number)) return;
    if (readstat_value_is_defined_missing(value, variable))
      return collector_.putMissing(column, number);
    const TimeUnit& unit = units_[static_cast<std::size_t>(column) - 1];
    const bool isSingle = readstat_value_type(value) == READSTAT_TYPE_FLOAT;
    hasSingles_ = hasSingles_ || isSingle;
    collector_.putNumber(column, unit.kind,
                         unit.kind == CutKind::number ? number : unit.days(number));
  }

  static Error fault(readstat_error_t status) {
    if (status == READSTAT_ERROR_MALLOC)
      return {"", "it is damaged, or needs more memory than a reader may have"};
    if (status == READSTAT_ERROR_UNSUPPORTED_FILE_FORMAT_VERSION)
      return {"", "it is of a version that is not read; save it in another one"};
    return {"", std::string("it is damaged or cut off (") + readstat_error_message(status) + ")"};
  }

  CutBook book() {
    if (guessed_)
      remarks_.push_back(
          "The file does not tell how its texts are encoded; letters beyond A to Z may be wrong.");
    if (hasSingles_)
      remarks_.push_back(
          "Numbers in single precision were read as the shortest decimals that they can be.");
    CutBook book{.format = format_ == StatisticsFormat::sav ? "sav" : "dta",
                 .sheets = {{"", false, rows_ > 0}},
                 .remarks = std::move(remarks_),
                 .table = collector_.take()};
    for (CutColumn& column : book.table.columns) {
      const std::string& set = labelSets_[static_cast<std::size_t>(column.number) - 1];
      if (const auto labels = labelsOf_.find(set); labels != labelsOf_.end())
        column.valueLabels = labels->second;
      else if (!set.empty())
        book.remarks.push_back("The labels for the values of \"" + column.name +
                               "\" are missing in the file.");
    }
    return book;
  }

  MemoryFile file_;
  StatisticsFormat format_;
  TableCollector collector_;
  std::string encoding_;
  bool guessed_ = false;
  bool hasSingles_ = false;
  int rows_ = 0;
  int rowsTold_ = -1;
  std::vector<TimeUnit> units_;         // of the variables
  std::vector<std::string> labelSets_;  // of the variables
  std::size_t longestSetName_ = 256;    // a damaged one has no end of its own
  std::map<std::string, std::vector<ValueLabel>> labelsOf_;
  std::size_t labels_ = 0;
  std::vector<std::string> remarks_;
};

}  // namespace

Result<CutBook> readStatistics(std::string_view bytes, StatisticsFormat format,
                               const CutRequest& request) {
  return Reader(bytes, format, request).read();
}

}  // namespace tolmer
