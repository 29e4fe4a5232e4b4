// Recursive descent over the tokens, straight to steps of a stack calculation.
#include <algorithm>
#include <utility>

#include "formula/formula.h"
#include "formula/formula_tokens.h"
#include "formula/rewrite.h"

namespace tolmer {
namespace {

using TokenKind = FormulaToken::Kind;
using StepKind = FormulaStep::Kind;

class Parser {
 public:
  Parser(Formula& formula, std::vector<FormulaToken> tokens)
      : formula_(formula), tokens_(std::move(tokens)) {}

  void run() {
    comparison();
    needValue();
    if (!failed() && peek().kind != TokenKind::end) fail(unexpected());
    if (!failed()) return;
    formula_.steps.clear();
    formula_.areas.clear();
    formula_.texts.clear();
    formula_.randomCalls = 0;
  }

 private:
  using Rule = void (Parser::*)();

  const FormulaToken& peek() const { return tokens_[next_]; }
  char peekSymbol() const { return peek().kind == TokenKind::symbol ? peek().symbol : '\0'; }
  const FormulaToken& take() { return tokens_[next_ + 1 < tokens_.size() ? next_++ : next_]; }
  bool accept(char symbol) {
    if (peekSymbol() != symbol) return false;
    take();
    return true;
  }
  void expectClosing() {
    if (!accept(')'))
      fail(peek().kind == TokenKind::end ? "A bracket is not closed." : unexpected());
  }

  bool failed() const { return formula_.problem.has_value(); }

  // The first problem counts. Nothing but the end follows it, so every loop comes to its end.
  void fail(std::string text, FormulaError error = FormulaError::syntax) {
    failAt(peek().begin, std::move(text), error);
  }
  void failAt(std::size_t place, std::string text, FormulaError error = FormulaError::syntax) {
    if (!failed()) formula_.problem = FormulaProblem{error, place, std::move(text)};
    next_ = tokens_.size() - 1;
  }
  std::string written(const FormulaToken& token) const {
    return "\"" + formula_.text.substr(token.begin, token.end - token.begin) + "\"";
  }
  std::string unexpected() const {
    if (peekSymbol() == ',')
      return "A comma or semicolon stands between arguments only; the decimal mark is a point.";
    if (peekSymbol() == ')') return "There is no opening bracket for this one.";
    if (peek().kind == TokenKind::bad) return peek().problem;
    return "An operator is missing before " + written(peek()) + ".";
  }

  FormulaStep& push(StepKind kind) {
    FormulaStep& step = formula_.steps.emplace_back();
    step.kind = kind;
    if (++operands_ > maxFormulaOperands) fail("The formula has too many values at one time.");
    return step;
  }
  FormulaStep& combine(StepKind kind, int operands) {
    FormulaStep& step = formula_.steps.emplace_back();
    step.kind = kind;
    step.count = operands;
    operands_ += 1 - operands;
    return step;
  }
  int stepCount() const { return static_cast<int>(formula_.steps.size()); }

  // An area that ends the steps so far is the whole of the operand just read. It becomes a single
  // cell, a whole column the one in the formula's own row.
  void needValue() {
    if (failed() || formula_.steps.back().kind != StepKind::area) return;
    if (!toSingleCell(formula_.areas[formula_.steps.back().index])) return;
    formula_.steps.back().kind = StepKind::cell;
  }

  bool toSingleCell(FormulaArea& area) {
    CellRange& cells = area.cells;
    if (area.wholeColumns && cells.first.column == cells.last.column) {
      area.wholeColumns = false;
      area.ownRow = true;
      cells.first.row = cells.last.row = 0;
    }
    if (cells.first == cells.last) return true;
    failAt(area.place, "Several cells stand where one value is needed.", FormulaError::value);
    return false;
  }

  template <class Inside>
  void deeper(Inside inside) {
    if (++nesting_ > maxFormulaNesting) {
      fail("Brackets and signs are nested more than " + std::to_string(maxFormulaNesting) +
           " deep.");
    } else {
      inside();
    }
    --nesting_;
  }

  void binary(Rule operand, char symbol) {
    needValue();
    take();
    (this->*operand)();
    needValue();
    combine(StepKind::binary, 2).symbol = symbol;
  }
  void leftToRight(Rule operand, std::string_view symbols) {
    (this->*operand)();
    while (symbols.find(peekSymbol()) != std::string_view::npos) binary(operand, peekSymbol());
  }

  void comparison() {
    constexpr std::string_view symbols = "=<>lgn";
    sum();
    if (symbols.find(peekSymbol()) == std::string_view::npos) return;
    binary(&Parser::sum, peekSymbol());
    if (symbols.find(peekSymbol()) != std::string_view::npos)
      fail("Comparisons cannot be chained. Join them as in AND(1<B1,B1<5).");
  }
  void sum() { leftToRight(&Parser::product, "+-"); }
  void product() { leftToRight(&Parser::power, "*/"); }
  void power() { leftToRight(&Parser::sign, "^"); }

  void sign() {
    const char symbol = peekSymbol();
    if (symbol != '+' && symbol != '-') return percent();
    take();
    deeper([&] { sign(); });
    needValue();
    if (symbol == '-') combine(StepKind::negate, 1);
  }

  void percent() {
    primary();
    while (peekSymbol() == '%') {
      needValue();
      take();
      combine(StepKind::percent, 1);
    }
  }

  void primary() {
    switch (peek().kind) {
      case TokenKind::number:
        push(StepKind::number).number = take().number;
        return;
      case TokenKind::text:
        push(StepKind::text).index = static_cast<int>(formula_.texts.size());
        formula_.texts.push_back(take().text);
        return;
      case TokenKind::error:
        push(StepKind::error).error = take().error;
        return;
      case TokenKind::area:
      case TokenKind::name:
        return area();
      case TokenKind::function:
        return call();
      case TokenKind::symbol:
        return bracketOrOwnRow();
      case TokenKind::bad:
        return fail(peek().problem, peek().error);
      case TokenKind::end:
        return fail("A value is missing at the end.");
    }
  }

  void bracketOrOwnRow() {
    if (accept('(')) {
      deeper([&] { comparison(); });
      return expectClosing();
    }
    if (peekSymbol() != '@') return fail("A value is missing before " + written(peek()) + ".");
    take();
    if (peek().kind == TokenKind::error) return primary();
    if (peek().kind != TokenKind::area && peek().kind != TokenKind::name)
      return peek().kind == TokenKind::bad ? primary() : fail("A name belongs behind \"@\".");
    area();
    if (!failed()) toSingleCell(formula_.areas.back());
  }

  void area() {
    const FormulaToken& token = take();
    FormulaArea area;
    area.place = token.begin;
    area.wholeColumns = token.kind == TokenKind::name || token.first.digits().empty();
    if (token.kind == TokenKind::name) {
      area.cells = {{1, token.column}, {formula_.size.rows, token.column}};
    } else {
      const auto [top, bottom] = std::minmax(token.first.cell.row, token.last.cell.row);
      const auto [left, right] = std::minmax(token.first.cell.column, token.last.cell.column);
      area.cells = {{top, left}, {bottom, right}};
      if (area.wholeColumns) area.cells = {{1, left}, {formula_.size.rows, right}};
    }
    push(StepKind::area).index = static_cast<int>(formula_.areas.size());
    formula_.areas.push_back(area);
  }

  void call() {
    const FormulaToken& token = take();
    const FunctionForm& form = *token.function;
    take();  // the bracket, which makes a word a function
    deeper([&] {
      if (form.function == FormulaFunction::IF) return callIf(token);
      if (form.function == FormulaFunction::LAG) return callLag(token);
      if (form.function == FormulaFunction::ROW) return callRow(token);
      const int count = arguments(form);
      expectClosing();
      checkCount(token, count);
      if (failed()) return;
      FormulaStep& step = count == 0 ? push(StepKind::call) : combine(StepKind::call, count);
      step.function = form.function;
      if (form.isRandom()) step.index = formula_.randomCalls++;
    });
  }

  int arguments(const FunctionForm& form) {
    if (peekSymbol() == ')') return 0;
    int count = 0;
    do {
      comparison();
      if (!form.takesMany(count)) needValue();
      ++count;
    } while (accept(','));
    return count;
  }

  void checkCount(const FormulaToken& token, int count) {
    const FunctionForm& form = *token.function;
    if (count >= form.fewest && count <= form.most) return;
    std::string wanted = std::to_string(form.fewest);
    if (form.most != form.fewest) wanted += " to " + std::to_string(form.most);
    failAt(token.begin, std::string(form.name) + " takes " + wanted +
                            (wanted == "1" ? " value, not " : " values, not ") +
                            std::to_string(count) + ".");
  }

  void callIf(const FormulaToken& token) {
    comparison();
    needValue();
    const int branch = stepCount();
    combine(StepKind::branch, 2);  // takes the condition from the stack
    if (!accept(',')) {
      if (!failed()) checkCount(token, 1);
      return;
    }
    comparison();
    needValue();
    const int jump = stepCount();
    combine(StepKind::jump, 2);  // the other value takes this one's place
    const int otherwise = stepCount();
    if (accept(',')) {
      comparison();
      needValue();
    } else {
      push(StepKind::number);
    }
    expectClosing();
    if (failed()) return;
    formula_.steps[branch].index = otherwise;
    formula_.steps[branch].count = formula_.steps[jump].index = stepCount();
  }

  // Nothing but a cell, which becomes the last of the areas; or a lost one: then, and after a
  // problem, false.
  bool cellArgument(const FormulaToken& function) {
    const int before = stepCount();
    comparison();
    if (failed()) return false;
    const StepKind kind = formula_.steps.back().kind;
    const bool isError = kind == StepKind::error;
    if (stepCount() != before + 1 || (kind != StepKind::area && !isError))
      failAt(function.begin,
             std::string(function.function->name) + " takes a cell or the name of a variable.");
    return !failed() && !isError && toSingleCell(formula_.areas.back());
  }

  void callLag(const FormulaToken& token) {
    const bool isCell = cellArgument(token);
    const int rows = accept(',') ? lagRows() : 1;
    expectClosing();
    if (!isCell || failed()) return;
    CellRange& cells = formula_.areas.back().cells;
    cells.first.row = cells.last.row -= rows;
  }

  // The number of a row hangs on no cell: ROW(B3) may stand in B3.
  void callRow(const FormulaToken& token) {
    FormulaArea own;
    own.ownRow = true;
    if (peekSymbol() == ')') {
      push(StepKind::area);
    } else {
      if (!cellArgument(token)) return expectClosing();
      own = formula_.areas.back();
      formula_.areas.pop_back();
    }
    expectClosing();
    if (failed()) return;
    FormulaStep& step = formula_.steps.back();
    step.kind = StepKind::row;
    step.number = own.cells.first.row;
    step.index = own.ownRow ? 1 : 0;
  }

  // A plain number, because what a formula depends on must not change with a cell.
  int lagRows() {
    const int direction = accept('-') ? -1 : 1;
    const FormulaToken& token = peek();
    const bool isWhole = token.kind == TokenKind::number && token.number <= formula_.size.rows &&
                         token.number == static_cast<int>(token.number);
    if (!isWhole) {
      fail("LAG goes back by a whole number of rows up to " + std::to_string(formula_.size.rows) +
           ".");
      return 0;
    }
    return direction * static_cast<int>(take().number);
  }

  Formula& formula_;
  std::vector<FormulaToken> tokens_;
  std::size_t next_ = 0;
  int nesting_ = 0;
  int operands_ = 0;  // on the stack behind the last step
};

// Characters of UTF-8 up to a byte, counted from 1.
int characterNumber(std::string_view text, std::size_t place) {
  const auto begins = [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; };
  const std::string_view before = text.substr(0, place);
  return 1 + static_cast<int>(std::count_if(before.begin(), before.end(), begins));
}

Error placedError(std::string_view text, std::size_t place, const std::string& problem) {
  return {"Character " + std::to_string(characterNumber(text, place)), problem};
}

// The place in the typed text of a place in the kept one, which is the same with bytes put in.
std::size_t typedPlace(std::string_view typed, std::string_view kept, std::size_t place) {
  std::size_t at = 0;
  for (const char c : kept.substr(0, place))
    if (at < typed.size() && typed[at] == c) ++at;
  return at;
}

// X1:X3 reads as three variables, but these would be cells, and empty ones at that.
std::optional<FormulaProblem> rangeOfNames(const Formula& formula, const SheetNames& names,
                                           const MeansNoCell& meansNoCell) {
  const auto isVariable = [&](const WrittenAddress& end) {
    return names.lookUp(end.text).found != SheetNames::Found::none && meansNoCell(end.cell);
  };
  for (const FormulaToken& token : formulaTokens(formula.text, 1, names)) {
    if (token.kind != TokenKind::area || !token.isRange || token.first.cell == token.last.cell ||
        !isVariable(token.first) || !isVariable(token.last))
      continue;
    const std::string first(token.first.text), last(token.last.text);
    return FormulaProblem{FormulaError::value, token.begin,
                          first + ":" + last +
                              " are empty cells. Write the variables one by one, " +
                              "as in SUM(@[" + first + "],@[" + last + "])."};
  }
  return std::nullopt;
}

}  // namespace

Formula compileFormula(std::string_view text, const SheetNames& names, std::uint64_t seed) {
  Formula formula;
  formula.text = text;
  formula.seed = seed;
  formula.size = names.size();
  if (text.starts_with('=')) {
    Parser(formula, formulaTokens(formula.text, 1, names)).run();
  } else {
    formula.problem = {FormulaError::syntax, 0, "A formula begins with \"=\"."};
  }
  return formula;
}

Result<Formula> parseFormula(std::string_view typed, const SheetNames& names, std::uint64_t seed,
                             const MeansNoCell& meansNoCell) {
  if (typed.size() > maxTypedFormula)
    return placedError(typed, maxTypedFormula,
                       "The formula is longer than " + std::to_string(maxTypedFormula) + " bytes.");
  std::string text(typed);
  if (text.starts_with('+') || text.starts_with('-')) text.insert(0, "=");
  if (meansNoCell) text = withNamesBracketed(text, names, meansNoCell);
  Formula formula = compileFormula(text, names, seed);
  if (!formula.problem && meansNoCell) formula.problem = rangeOfNames(formula, names, meansNoCell);
  if (formula.problem)
    return placedError(typed, typedPlace(typed, text, formula.problem->place),
                       formula.problem->text);
  return formula;
}

}  // namespace tolmer
