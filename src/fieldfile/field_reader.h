// Sequential input of delimited fields and of whole lines.
//
// Fields end at a comma or a line end (CR, LF or CR LF); blanks around them do not count.
//   text     in double quotes, without escapes (it may then hold commas, blanks and line ends), or
//            bare up to the next comma or line end
//   number   decimal text with an optional sign and exponent; a blank ends it too; empty means 0
//   boolean  #TRUE#, #FALSE# in any case, or a number of which 0 means false
// Nothing in the file tells a field's kind: the caller asks for the kind that must come next.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/error.h"

namespace tolmer {

// A number as it stands in a text.
struct TextNumber {
  double written = 0;  // rounded once to double
  float held = 0;      // rounded once to single; a value below the smallest one is 0
};

// Where a field begins; both numbers count from 1.
struct FieldPlace {
  int line = 1;
  int field = 1;
};

// The signs that divide fields and decimals. Behind a tab a blank is the only blank, and where
// blanks divide, many count as one.
struct FieldMarks {
  char separator = ',';  // or ';', a tab, a blank
  char decimal = '.';    // or ','
  bool operator==(const FieldMarks&) const = default;
};

class FieldReader {
 public:
  // The whole file, its name in course or host spelling. UTF-8, or Windows-1252 where it is not.
  static Result<FieldReader> open(const std::string& fileName);

  // Reads `bytes`; `fileName` is what errors name.
  FieldReader(std::string fileName, std::string bytes, FieldMarks marks = {});

  // Each takes the next field, or leaves the reader where it was and returns an error that names
  // file, line and field. At the end of the file there is no next field.
  Result<std::string> readText();
  Result<std::int16_t> readInteger();  // a whole number within 16 signed bits
  Result<TextNumber> readNumber();     // one too large for a single is an error
  Result<float> readSingle();          // what is held of it
  Result<bool> readBoolean();

  // The rest of the present line as it stands, without its line end.
  Result<std::string> readLine();

  // True where the next field is there and holds nothing: as a number it would be 0.
  bool nextIsEmpty();

  // True when only blanks and line ends are left.
  bool onlyBlanksLeft() const;

  // All of it, as UTF-8.
  std::string_view text() const { return text_; }

  // Where the next field begins.
  FieldPlace place() const { return place_; }

  // What is wrong with the field at `place`.
  Error errorAt(FieldPlace place, std::string_view text) const;

 private:
  Error errorHere(std::string_view text) const { return errorAt(place_, text); }
  Error errorFound(std::string_view expected, std::string_view found) const;
  bool atEnd() const { return at_ >= text_.size(); }
  void skipBlanks();
  void skipLineEnd();
  void finishField(std::size_t end);
  std::size_t bareEnd() const;
  Result<std::string> readQuoted();
  Result<std::string_view> numberAhead(std::string_view expected);
  std::optional<TextNumber> numberOf(std::string_view digits) const;

  std::string fileName_;
  std::string text_;
  FieldMarks marks_;
  std::string blanks_;
  std::string fieldEnds_;
  std::string numberEnds_;
  std::size_t at_ = 0;
  FieldPlace place_;
};

// A whole number with an optional sign, within 16 signed bits; nullopt for anything else.
std::optional<std::int16_t> integerFromText(std::string_view text);

// Digits with an optional sign, point and exponent ("-1.5e3", "+.5"). A value above the largest
// single, "inf", "nan" and anything else is nullopt.
std::optional<TextNumber> textNumberOf(std::string_view text);
// What is held of a number that was rounded to double already; its text serves where rounding twice
// could be told.
TextNumber textNumberOf(double number, std::string_view text);
// What is held of it.
std::optional<float> singleFromText(std::string_view text);

}  // namespace tolmer
