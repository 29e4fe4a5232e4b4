#include "report/import_options.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "report/options.h"

namespace tolmer {
namespace {

using Problem = std::optional<std::string>;

// An option whose words are the question's choices, in their order; what stops the import is none.
struct AnswerOption {
  ImportDoubt doubt;
  std::string_view name;
  std::array<std::string_view, 3> words;
};

constexpr std::array answerOptions = {
    AnswerOption{ImportDoubt::firstRow, "--names-over", {"second", "first"}},
    AnswerOption{ImportDoubt::shortRows, "--short-rows", {"empty"}},
    AnswerOption{ImportDoubt::blankGroups, "--groups", {"number", "empty"}},
    AnswerOption{ImportDoubt::percent, "--percent", {"as-written", "divided", "empty"}},
    AnswerOption{ImportDoubt::currency, "--currency", {"number", "empty"}},
    AnswerOption{ImportDoubt::brackets, "--brackets", {"negative", "empty"}},
    AnswerOption{ImportDoubt::words, "--words", {"empty"}},
    AnswerOption{ImportDoubt::dates, "--dates", {"number", "empty"}},
    AnswerOption{ImportDoubt::missingCodes, "--codes", {"empty", "number"}}};

struct NamedMark {
  std::string_view word;
  char mark;
};
constexpr std::array separators = {NamedMark{"comma", ','}, NamedMark{"semicolon", ';'},
                                   NamedMark{"tab", '\t'}, NamedMark{"blank", ' '},
                                   NamedMark{"none", noSeparator}};
constexpr std::array decimalMarks = {NamedMark{"point", '.'}, NamedMark{"comma", ','}};

// "a, b or c"
template <class Words>
std::string listed(const Words& words) {
  std::string text;
  for (auto word = words.begin(); word != words.end() && !word->empty(); ++word) {
    const bool isLast = word + 1 == words.end() || (word + 1)->empty();
    text += (text.empty() ? "" : isLast ? " or " : ", ") + std::string(*word);
  }
  return text;
}

template <class Marks>
std::string listedMarks(const Marks& marks) {
  std::vector<std::string_view> words;
  for (const NamedMark& one : marks) words.push_back(one.word);
  return listed(words);
}

std::string wrongWord(std::string_view name, const std::string& words, const std::string& value) {
  return std::string(name) + " is " + words + ", not \"" + value + "\"";
}

template <class Marks>
Problem takeMark(const Marks& marks, std::string_view name, const std::string& value,
                 std::optional<char>& mark) {
  const auto found = std::find_if(marks.begin(), marks.end(), [&](const NamedMark& one) {
    return value == one.word || value == std::string(1, one.mark);
  });
  if (found == marks.end()) return wrongWord(name, listedMarks(marks), value);
  mark = found->mark;
  return std::nullopt;
}

Problem takeHeaderRow(ImportHints& hints, const std::string& value) {
  int row = -1;
  const auto read = std::from_chars(value.data(), value.data() + value.size(), row);
  if (read.ec != std::errc() || read.ptr != value.data() + value.size() || row < 0)
    return "--header-row takes a number from 0, not \"" + value + "\"";
  hints.headingRow = row;
  return std::nullopt;
}

Problem takeMissing(ImportHints& hints, const std::string& value) {
  for (std::string& mark : fieldsOfList(value)) {
    if (mark.empty()) return "--missing has an empty mark in \"" + value + "\"";
    hints.missing.push_back(std::move(mark));
  }
  return std::nullopt;
}

Problem takeAnswer(ImportAnswers& answers, const AnswerOption& option, const std::string& value) {
  const auto word = std::find(option.words.begin(), option.words.end(), value);
  if (value.empty() || word == option.words.end())
    return wrongWord(option.name, listed(option.words), value);
  answers[option.doubt] = static_cast<int>(word - option.words.begin());
  return std::nullopt;
}

std::string helpFor(const ImportQuestion& question) {
  switch (question.doubt) {
    case ImportDoubt::sheet:
      return "--sheet and its name: " + listed(question.choices);
    case ImportDoubt::separator:
      return "--separator " + listedMarks(separators);
    case ImportDoubt::heading:
      return "--header-row with its number, 0 where no row has names";
    case ImportDoubt::decimalMark:
      return "--decimal " + listedMarks(decimalMarks);
    default:
      break;
  }
  for (const AnswerOption& option : answerOptions)
    if (option.doubt == question.doubt)
      return std::string(option.name) + " " + listed(option.words);
  return {};
}

}  // namespace

std::vector<std::string_view> importOptionNames() {
  std::vector<std::string_view> names{"--sheet", "--separator", "--decimal", "--header-row",
                                      "--missing"};
  for (const AnswerOption& option : answerOptions) names.push_back(option.name);
  return names;
}

std::optional<std::string> takeImportOption(ImportOptions& options, std::string_view name,
                                            const std::string& value) {
  options.isUsed = true;
  if (name == "--separator") return takeMark(separators, name, value, options.hints.separator);
  if (name == "--decimal") return takeMark(decimalMarks, name, value, options.hints.decimalMark);
  if (name == "--header-row") return takeHeaderRow(options.hints, value);
  if (name == "--missing") return takeMissing(options.hints, value);
  if (name == "--sheet") {
    options.sheet = value;
    return value.empty() ? Problem("an option's value is empty") : std::nullopt;
  }
  for (const AnswerOption& option : answerOptions)
    if (option.name == name) return takeAnswer(options.answers, option, value);
  return std::nullopt;
}

std::string askedByOption(const ImportQuestion& question) {
  return question.text + " Say it with " + helpFor(question) + ".";
}

}  // namespace tolmer
