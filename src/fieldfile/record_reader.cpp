#include "fieldfile/record_reader.h"

namespace tolmer {
namespace {

Error errorAtLine(const std::string& fileName, int line, std::string_view text) {
  return {fileName + ":" + std::to_string(line), std::string(text)};
}

}  // namespace

Result<FieldRecord> RecordReader::next() {
  FieldRecord record{line_, {}};
  record.fields.reserve(lastFields_);  // most records have as many as the one before
  for (bool more = true; more;) {
    if (record.fields.size() == mostFields)
      return errorAtLine(fileName_, record.line,
                         "more than " + std::to_string(mostFields) + " fields");
    auto field = opensQuotedField() ? quotedField() : Result<FieldSpan>(bareField());
    if (!field) return field.error();
    record.fields.push_back(*field);
    more = !atEnd() && text_[at_] == separator_;
    if (more) ++at_;
  }
  skipLineEnd();
  lastFields_ = record.fields.size();
  return record;
}

bool RecordReader::opensQuotedField() const {
  if (here() != '"') return false;
  if (strayQuotes_ == StrayQuotes::refused) return true;
  std::size_t close = text_.find('"', at_ + 1);
  while (close != std::string::npos && close + 1 < text_.size() && text_[close + 1] == '"')
    close = text_.find('"', close + 2);
  return close != std::string::npos && (close + 1 == text_.size() || endsField(text_[close + 1]));
}

FieldSpan RecordReader::bareField() {
  const std::size_t begin = at_;
  const std::string_view text = text_;
  std::size_t at = at_;
  while (at < text.size() && !endsField(text[at])) ++at;
  at_ = at;
  return {begin, at - begin};
}

// The unquoted text is shorter than the quoted one, so it is put over it.
Result<FieldSpan> RecordReader::quotedField() {
  const int firstLine = line_;
  const std::size_t begin = ++at_;
  std::size_t end = begin;
  for (;; ++at_) {
    if (atEnd()) return errorAtLine(fileName_, firstLine, "a double quote is not closed");
    if (text_[at_] == '"') {
      ++at_;
      if (here() != '"') break;
    }
    if (here() == '\n') ++line_;
    text_[end++] = text_[at_];
  }
  if (!endsField(here()))
    return errorAtLine(fileName_, line_, "text follows a closing double quote");
  return FieldSpan{begin, end - begin};
}

void RecordReader::skipLineEnd() {
  if (atEnd()) return;
  at_ += std::string_view(text_).substr(at_).starts_with("\r\n") ? 2 : 1;
  ++line_;
}

}  // namespace tolmer
