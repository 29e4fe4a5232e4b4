// Records of separated values, as RFC 4180 describes them, cut out of a whole text.
//
// A field may stand in double quotes and then hold separators, line ends and doubled quotes. Lines
// end in CR LF, LF or CR.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/error.h"

namespace tolmer {

// A part of the text; offsets stay true when the text is moved, views would not. A file has no more
// than 64 MB, and a table millions of these.
struct FieldSpan {
  FieldSpan(std::size_t from, std::size_t size)
      : begin(static_cast<std::uint32_t>(from)), length(static_cast<std::uint32_t>(size)) {}
  std::uint32_t begin;
  std::uint32_t length;
  std::string_view in(std::string_view text) const { return text.substr(begin, length); }
};

struct FieldRecord {
  int line = 1;  // where it begins, from 1
  std::vector<FieldSpan> fields;
};

class RecordReader {
 public:
  // What a double quote means at the front of a field that does not go on as a quoted field must.
  enum class StrayQuotes {
    refused,  // an error: the file is damaged
    kept      // a letter like any other, as in 5" pipe
  };

  // Quoted fields are unquoted within `text`, which must outlive the reader. `fileName` is what
  // errors name.
  RecordReader(std::string fileName, std::string& text, char separator = ',',
               StrayQuotes strayQuotes = StrayQuotes::refused)
      : fileName_(std::move(fileName)),
        text_(text),
        separator_(separator),
        strayQuotes_(strayQuotes) {}

  // Columns are counted with 16 signed bits, and the labels have one more.
  static constexpr std::size_t mostFields = 32768;

  bool atEnd() const { return at_ >= text_.size(); }
  // A record of more fields is an error, found without reading on.
  Result<FieldRecord> next();

 private:
  char here() const { return atEnd() ? '\n' : text_[at_]; }
  bool endsField(char c) const { return c == separator_ || c == '\n' || c == '\r'; }
  bool opensQuotedField() const;
  FieldSpan bareField();
  Result<FieldSpan> quotedField();
  void skipLineEnd();

  std::string fileName_;
  std::string& text_;
  char separator_;
  StrayQuotes strayQuotes_;
  std::size_t at_ = 0;
  std::size_t lastFields_ = 0;  // of the record before
  int line_ = 1;
};

}  // namespace tolmer
