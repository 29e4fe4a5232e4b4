#include "formula/formula_tokens.h"

#include <algorithm>
#include <charconv>
#include <optional>

namespace tolmer {
namespace {

using Kind = FormulaToken::Kind;

bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }
bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }
bool startsWord(char c) {
  return isLetter(c) || c == '_' || c == '$' || static_cast<unsigned char>(c) >= 0x80;
}
bool isInWord(char c) { return startsWord(c) || isDigit(c) || c == '.'; }

std::string quoted(std::string_view text) { return "\"" + std::string(text) + "\""; }

// "B7", "$B$7", or for a whole column "B", "$B"; not checked against the sheet's size.
std::optional<WrittenAddress> readAddress(std::string_view word, bool wholeColumn) {
  WrittenAddress address;
  address.text = word;
  address.fixedColumn = !word.empty() && word[0] == '$';
  word.remove_prefix(address.fixedColumn ? 1 : 0);
  const auto letters =
      static_cast<std::size_t>(std::find_if_not(word.begin(), word.end(), isLetter) - word.begin());
  const std::optional<int> column = columnOfLetters(word.substr(0, letters));
  if (!column) return std::nullopt;
  address.cell.column = *column;
  word.remove_prefix(letters);
  if (wholeColumn) return word.empty() ? std::optional(address) : std::nullopt;
  address.fixedRow = !word.empty() && word[0] == '$';
  word.remove_prefix(address.fixedRow ? 1 : 0);
  if (word.empty() || !isDigit(word[0])) return std::nullopt;
  const auto read = std::from_chars(word.data(), word.data() + word.size(), address.cell.row);
  if (read.ec != std::errc{} || read.ptr != word.data() + word.size()) return std::nullopt;
  return address;
}

class Tokenizer {
 public:
  Tokenizer(std::string_view text, std::size_t start, const SheetNames& names)
      : text_(text), place_(start), names_(names) {}

  std::vector<FormulaToken> run() {
    tokens_.reserve(16);
    do {
      place_ = pastBlanks(place_);
      token_ = FormulaToken{};
      token_.begin = place_;
      next();
      token_.end = place_;
      tokens_.push_back(std::move(token_));
    } while (tokens_.back().kind != Kind::end);
    return std::move(tokens_);
  }

 private:
  char at(std::size_t place) const { return place < text_.size() ? text_[place] : '\0'; }
  std::size_t pastBlanks(std::size_t place) const {
    while (isBlank(at(place))) ++place;
    return place;
  }
  std::size_t pastWord(std::size_t place) const {
    while (isInWord(at(place))) ++place;
    return place;
  }

  void next() {
    const char c = at(place_);
    if (place_ >= text_.size()) return;
    if (isDigit(c) || (c == '.' && isDigit(at(place_ + 1)))) return number();
    if (startsWord(c)) return word();
    if (c == '[') return bracketed();
    if (c == '#') return errorLiteral();
    if (c == '"') return quotation();
    symbol();
  }

  void bad(FormulaError error, std::string problem) {
    token_.kind = Kind::bad;
    token_.error = error;
    token_.problem = std::move(problem);
  }

  void number() {
    std::size_t end = place_;
    while (isDigit(at(end))) ++end;
    if (at(end) == '.') ++end;
    while (isDigit(at(end))) ++end;
    if (at(end) == 'e' || at(end) == 'E') {
      const std::size_t sign = at(end + 1) == '+' || at(end + 1) == '-' ? 1 : 0;
      if (isDigit(at(end + 1 + sign)))
        for (end += 1 + sign; isDigit(at(end));) ++end;
    }
    token_.kind = Kind::number;
    const auto read = std::from_chars(text_.data() + place_, text_.data() + end, token_.number);
    const std::string_view digits = text_.substr(place_, end - place_);
    place_ = end;
    if (read.ec != std::errc{})
      bad(FormulaError::number,
          "The number " + std::string(digits) + " is too large or too small.");
  }

  void symbol() {
    const char c = text_[place_++];
    token_.kind = Kind::symbol;
    token_.symbol = c == ';' ? ',' : c;
    const char following = at(place_);
    if ((c == '<' || c == '>') && (following == '=' || (c == '<' && following == '>'))) {
      token_.symbol = following == '>' ? 'n' : c == '<' ? 'l' : 'g';
      ++place_;
    }
    if (std::string_view("+-*/^%(),;@=<>").find(c) == std::string_view::npos)
      bad(FormulaError::syntax, "The character " + quoted({&c, 1}) + " has no meaning here.");
  }

  void quotation() {
    token_.kind = Kind::text;
    for (std::size_t place = place_ + 1; place < text_.size(); ++place) {
      if (text_[place] == '"' && at(place + 1) != '"') {
        place_ = place + 1;
        return;
      }
      if (text_[place] == '"') ++place;
      token_.text += text_[place];
    }
    place_ = text_.size();
    bad(FormulaError::syntax, "The quotation mark is not closed.");
  }

  void errorLiteral() {
    for (std::size_t i = 1; i < formulaErrorTexts.size(); ++i) {
      if (!text_.substr(place_).starts_with(formulaErrorTexts[i])) continue;
      token_.kind = Kind::error;
      token_.error = static_cast<FormulaError>(i);
      place_ += formulaErrorTexts[i].size();
      return;
    }
    ++place_;
    bad(FormulaError::syntax, "The character \"#\" has no meaning here.");
  }

  void bracketed() {
    std::string name;
    for (std::size_t place = place_ + 1; place < text_.size(); ++place) {
      if (text_[place] == ']' && at(place + 1) != ']') {
        place_ = place + 1;
        return named(name);
      }
      if (text_[place] == ']') ++place;
      name += text_[place];
    }
    place_ = text_.size();
    bad(FormulaError::syntax, "The bracket \"[\" is not closed.");
  }

  void named(std::string_view name) {
    const SheetNames::Lookup lookup = names_.lookUp(name);
    token_.kind = Kind::name;
    token_.column = lookup.column;
    if (lookup.found == SheetNames::Found::none)
      bad(FormulaError::name, "There is no variable called " + quoted(name) + ".");
    if (lookup.found == SheetNames::Found::several)
      bad(FormulaError::name, "More than one variable is called " + quoted(name) + ".");
  }

  void word() {
    const std::size_t end = pastWord(place_);
    const std::string_view word = text_.substr(place_, end - place_);
    place_ = end;
    const char following = at(pastBlanks(end));
    if (following == '(') return function(word);
    if (following == ':') return range(word);
    single(word);
  }

  void function(std::string_view word) {
    token_.kind = Kind::function;
    token_.function = findFunction(word);
    if (token_.function) return;
    const bool isLogarithm = foldedName(word) == "log";
    bad(FormulaError::name, "There is no function " + quoted(word) + "." +
                                (isLogarithm ? " The logarithms are LN and LOG10." : ""));
  }

  void range(std::string_view word) {
    const std::size_t start = pastBlanks(pastBlanks(place_) + 1);
    const std::size_t end = pastWord(start);
    const std::string_view other = text_.substr(std::min(start, text_.size()), end - start);
    place_ = end > start ? end : pastBlanks(place_) + 1;
    const auto cell = readAddress(word, false), lastCell = readAddress(other, false);
    const auto column = readAddress(word, true), lastColumn = readAddress(other, true);
    if (cell && lastCell) return area(*cell, *lastCell, true);
    if (column && lastColumn) return area(*column, *lastColumn, true);
    bad(FormulaError::syntax, "A range joins two cells or two columns, as in B1:B20 or B:B.");
  }

  bool isInSheet(WrittenAddress address) const {
    if (address.cell.row == 0 && address.digits().empty()) address.cell.row = 1;
    return names_.size().holds(address.cell);
  }

  void area(const WrittenAddress& first, const WrittenAddress& last, bool isRange) {
    token_.kind = Kind::area;
    token_.first = first;
    token_.last = last;
    token_.isRange = isRange;
    const WrittenAddress& outside = isInSheet(first) ? last : first;
    if (!isInSheet(outside))
      bad(FormulaError::reference,
          quoted(outside.text) + " lies outside the sheet, which goes from A1 to " +
              columnLetters(names_.size().variables) + std::to_string(names_.size().rows) + ".");
  }

  void single(std::string_view word) {
    const std::optional<WrittenAddress> address = readAddress(word, false);
    const bool isName = names_.lookUp(word).found != SheetNames::Found::none;
    if (isName && address && isInSheet(*address)) return bothMeanings(word, *address);
    if (isName) return named(word);
    if (address) return area(*address, *address, false);
    if (findFunction(word))
      return bad(FormulaError::syntax, quoted(word) + " needs its values in brackets.");
    named(word);
    if (const std::string folded = foldedName(word); folded == "true" || folded == "false")
      token_.problem += " Write 1 for true and 0 for false.";
    if (readAddress(word, true))
      token_.problem +=
          " A whole column is written as " + std::string(word) + ":" + std::string(word) + ".";
  }

  void bothMeanings(std::string_view word, const WrittenAddress& address) {
    const std::string text(word);
    token_.isNameAndCell = true;
    token_.first = address;
    bad(FormulaError::name, quoted(word) + " is a variable and a cell. Write [" + text +
                                "] for the variable or " + text + ":" + text + " for the cell.");
  }

  std::string_view text_;
  std::size_t place_;
  const SheetNames& names_;
  FormulaToken token_;
  std::vector<FormulaToken> tokens_;
};

// Whether a name can stand without brackets, as far as its characters go.
bool isPlainName(std::string_view name) {
  return !name.empty() && startsWord(name[0]) && std::all_of(name.begin(), name.end(), isInWord) &&
         name.find('$') == std::string_view::npos;
}

}  // namespace

std::string_view WrittenAddress::letters() const {
  const std::size_t begin = fixedColumn ? 1 : 0;
  std::size_t end = begin;
  while (end < text.size() && isLetter(text[end])) ++end;
  return text.substr(begin, end - begin);
}

std::string_view WrittenAddress::digits() const {
  return text.substr(std::min(text.size(), text.find_first_of("0123456789")));
}

std::vector<FormulaToken> formulaTokens(std::string_view text, std::size_t start,
                                        const SheetNames& names) {
  return Tokenizer(text, start, names).run();
}

std::string bracketedName(std::string_view name) {
  std::string text = "[";
  for (const char c : name) {
    text += c;
    if (c == ']') text += c;
  }
  return text + "]";
}

std::string clearName(const std::string& name, const SheetNames& names) {
  if (!isPlainName(name)) return bracketedName(name);
  const FormulaToken alone = formulaTokens(name, 0, names).front();
  const bool isClear = alone.kind == FormulaToken::Kind::name && alone.end == name.size();
  return isClear ? name : bracketedName(name);
}

}  // namespace tolmer
