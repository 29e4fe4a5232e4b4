#include "report/options.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <functional>
#include <map>
#include <optional>
#include <string_view>

#include "base/program_version.h"
#include "base/trimmed.h"

namespace tolmer {
namespace {

using Problem = std::optional<std::string>;

struct NamedFormat {
  std::string_view name;
  ReportFormat format;
  std::array<std::string_view, 2> endings;  // of files
};

constexpr std::array formats = {
    NamedFormat{"text", ReportFormat::text, {".txt", ".text"}},
    NamedFormat{"json", ReportFormat::json, {".json", ".JSON"}},
    NamedFormat{"html", ReportFormat::html, {".html", ".htm"}},
    NamedFormat{"markdown", ReportFormat::markdown, {".md", ".markdown"}},
    NamedFormat{"r", ReportFormat::r, {".R", ".r"}},
};

// Takes what stands in quotes from the front of a list; empty where its first field is bare.
std::string takeQuoted(std::string_view& list) {
  std::string field;
  const auto quote = list.find_first_not_of(" \t");
  if (quote == list.npos || list[quote] != '"') return field;
  list.remove_prefix(quote + 1);
  for (; !list.empty(); list.remove_prefix(1)) {
    if (list.front() == '"') {
      list.remove_prefix(1);
      if (!list.starts_with('"')) break;
    }
    field += list.front();
  }
  return std::string(trimmed(field));
}

Problem takeFormat(ReportOptions& options, const std::string& value) {
  const auto* named = std::find_if(formats.begin(), formats.end(),
                                   [&](const NamedFormat& one) { return one.name == value; });
  if (named == formats.end())
    return "--format is text, json, html, markdown or r, not \"" + value + "\"";
  options.request.format = named->format;
  options.formatIsGiven = true;
  return std::nullopt;
}

// What a file is called says what it holds.
void takeFormatOfFile(ReportOptions& options) {
  for (const NamedFormat& one : formats)
    for (const std::string_view ending : one.endings)
      if (options.outputFile.ends_with(ending)) options.request.format = one.format;
}

Problem takeSections(ReportOptions& options, const std::string& value) {
  if (!options.request.parts) options.request.parts.emplace();
  auto& parts = *options.request.parts;
  for (const std::string& word : fieldsOfList(value)) {
    if (word == "all") {
      const auto all = allParts();
      parts.insert(parts.end(), all.begin(), all.end());
    } else if (const auto part = partCalled(word)) {
      parts.push_back(*part);
    } else {
      std::string words;
      for (const ReportPart one : allParts()) words += std::string(wordOf(one)) + ", ";
      return "--sections has no \"" + word + "\"; there are " + words +
             "all of these, and influence and predictions";
    }
  }
  return std::nullopt;
}

Problem takePaper(ReportOptions& options, const std::string& value) {
  if (value != "a4" && value != "letter") return "--paper is a4 or letter, not \"" + value + "\"";
  options.request.paper = value == "a4" ? Paper::a4 : Paper::letter;
  return std::nullopt;
}

Problem takeLists(ReportOptions& options, const std::string& value) {
  if (value != "whole" && value != "short" && value != "none")
    return "--lists is whole, short or none, not \"" + value + "\"";
  options.request.caseLists = value == "whole"   ? CaseLists::whole
                              : value == "short" ? CaseLists::shortened
                                                 : CaseLists::none;
  return std::nullopt;
}

// Any text, also an empty one.
auto takeText(std::string ReportRequest::*member) {
  return [member](ReportOptions& options, const std::string& value) -> Problem {
    options.request.*member = value;
    return std::nullopt;
  };
}

auto takeCount(const std::string& name, int ReportOptions::*member) {
  return [name, member](ReportOptions& options, const std::string& value) -> Problem {
    const char* end = value.data() + value.size();
    const auto read = std::from_chars(value.data(), end, options.*member);
    if (read.ec == std::errc() && read.ptr == end && options.*member >= 1) return std::nullopt;
    return name + " takes a number from 1, not \"" + value + "\"";
  };
}

auto takeNames(const std::string& option, std::vector<std::string> ReportOptions::*member) {
  return [option, member](ReportOptions& options, const std::string& value) -> Problem {
    for (std::string& name : fieldsOfList(value)) {
      if (name.empty()) return option + " has an empty name in \"" + value + "\"";
      (options.*member).push_back(std::move(name));
    }
    return std::nullopt;
  };
}

Problem takeReference(ReportOptions& options, const std::string& value) {
  const auto equals = value.find('=');
  const std::string name(trimmed(std::string_view(value).substr(0, equals)));
  if (equals == value.npos || name.empty())
    return "--reference takes a column and a category, as in Region=South, not \"" + value + "\"";
  options.references[name] = trimmed(std::string_view(value).substr(equals + 1));
  if (std::find(options.dummies.begin(), options.dummies.end(), name) == options.dummies.end())
    options.dummies.push_back(name);
  return std::nullopt;
}

Problem takePlot(ReportOptions& options, const std::string& value) {
  const auto equals = value.find('=');
  if (equals == value.npos)
    return "--plot takes a number and two axes, as in 2=Size:Residuals, not \"" + value + "\"";
  const std::string number = value.substr(0, equals);
  if (number != "1" && number != "2" && number != "3")
    return "--plot has scatter plots 1 to 3, not \"" + number + "\"";
  std::vector<std::string> axes = fieldsOfList(std::string_view(value).substr(equals + 1), ':');
  if (axes.size() != 2 || axes[0].empty() || axes[1].empty())
    return "--plot takes two axes with a colon between them, X:Y, not \"" +
           value.substr(equals + 1) + "\"; a name with a colon stands in double quotes";
  options.plots.push_back({number[0] - '0', std::move(axes[0]), std::move(axes[1])});
  return std::nullopt;
}

// A text that must not be empty: a name, a folder.
auto takeInto(std::string ReportOptions::*member) {
  return [member](ReportOptions& options, const std::string& value) -> Problem {
    if (value.empty()) return "an option's value is empty";
    options.*member = value;
    return std::nullopt;
  };
}

using Take = std::function<Problem(ReportOptions&, const std::string&)>;

Take takeImport(std::string_view name) {
  return [name](ReportOptions& options, const std::string& value) {
    return takeImportOption(options.import, name, value);
  };
}

const std::map<std::string_view, Take>& optionsWithValue() {
  static const std::map<std::string_view, Take> table = [] {
    std::map<std::string_view, Take> options = {
        {"--y", takeInto(&ReportOptions::y)},
        {"--x", takeNames("--x", &ReportOptions::x)},
        {"--columns", takeNames("--columns", &ReportOptions::columns)},
        {"--dummies", takeNames("--dummies", &ReportOptions::dummies)},
        {"--reference", takeReference},
        {"--where", takeInto(&ReportOptions::where)},
        {"--first", takeCount("--first", &ReportOptions::first)},
        {"--every", takeCount("--every", &ReportOptions::every)},
        {"--labels", takeInto(&ReportOptions::labels)},
        {"--plot", takePlot},
        {"--format", takeFormat},
        {"-o", takeInto(&ReportOptions::outputFile)},
        {"--output", takeInto(&ReportOptions::outputFile)},
        {"--sections", takeSections},
        {"--lists", takeLists},
        {"--title", takeText(&ReportRequest::title)},
        {"--author", takeText(&ReportRequest::author)},
        {"--remarks", takeText(&ReportRequest::remarks)},
        {"--paper", takePaper},
        {"--predict", takeInto(&ReportOptions::predict)},
        {"--example", takeCount("--example", &ReportOptions::example)},
        {"--program-folder", takeInto(&ReportOptions::programFolder)}};
    for (const std::string_view name : importOptionNames()) options.emplace(name, takeImport(name));
    return options;
  }();
  return table;
}

bool takeFlag(ReportOptions& options, std::string_view word) {
  if (word == "--no-intercept")
    options.intercept = false;
  else if (word == "--default")
    options.defaultExample = true;
  else if (word == "--list")
    options.list = true;
  else
    return false;
  return true;
}

// One source of data, and what belongs to it.
Problem contradiction(const ReportOptions& options) {
  const int sources = (options.file.empty() ? 0 : 1) + (options.example > 0 ? 1 : 0) +
                      (options.defaultExample ? 1 : 0);
  if (sources == 0) return "name a file, or take --example N or --default";
  if (sources > 1) return "a file, --example and --default exclude one another";
  if (options.file.empty() && !options.labels.empty())
    return "--labels goes with a file; the course's data sets have their own";
  if (options.file.empty() &&
      (options.import.isUsed || !options.columns.empty() || options.first > 0 ||
       options.every > 1 || !options.dummies.empty() || !options.where.empty()))
    return "how a table is read can only be said of a file";
  return std::nullopt;
}

Problem contradictionInList(const ReportOptions& options) {
  if (!options.list) return std::nullopt;
  if (options.file.empty()) return "--list goes with a file";
  const ReportFormat format = options.request.format;
  if (format == ReportFormat::text || format == ReportFormat::json) return std::nullopt;
  return "--list writes text or json";
}

// What belongs to the table of new cases.
Problem contradictionInPredict(const ReportOptions& options) {
  const auto& parts = options.request.parts;
  const bool isSection =
      parts && std::find(parts->begin(), parts->end(), predictionsPart()) != parts->end();
  if (options.predict.empty() && isSection) return "the section predictions wants --predict FILE";
  if (!options.predict.empty() && options.request.format == ReportFormat::r)
    return "--predict is not for a script for R, which holds the fit to predict by";
  return std::nullopt;
}

class Words {
 public:
  explicit Words(const std::vector<std::string>& words) : words_(words) {}

  Problem parse(ReportOptions& options) {
    for (; at_ < words_.size(); ++at_)
      if (auto problem = takeWord(options, words_[at_])) return problem;
    return std::nullopt;
  }

 private:
  Problem takeWord(ReportOptions& options, const std::string& word) {
    if (onlyFiles_ || word == "-" || !word.starts_with('-')) return takeFile(options, word);
    if (word == "--") {
      onlyFiles_ = true;
      return std::nullopt;
    }
    if (takeFlag(options, word)) return std::nullopt;
    const auto equals = word.find('=');
    const auto option = optionsWithValue().find(std::string_view(word).substr(0, equals));
    if (option == optionsWithValue().end()) return "there is no option " + word;
    if (equals != std::string::npos) return option->second(options, word.substr(equals + 1));
    if (++at_ == words_.size()) return word + " wants a value";
    return option->second(options, words_[at_]);
  }

  static Problem takeFile(ReportOptions& options, const std::string& word) {
    if (word.empty()) return "the file's name is empty";
    if (!options.file.empty()) return "one file only, not also \"" + word + "\"";
    options.file = word;
    return std::nullopt;
  }

  const std::vector<std::string>& words_;
  std::size_t at_ = 0;
  bool onlyFiles_ = false;
};

}  // namespace

std::vector<std::string> fieldsOfList(std::string_view list, char separator) {
  std::vector<std::string> fields;
  for (bool more = true; more;) {
    std::string field = takeQuoted(list);
    const auto end = std::min(list.find(separator), list.size());
    field += trimmed(list.substr(0, end));
    more = end < list.size();
    list.remove_prefix(more ? end + 1 : end);
    fields.push_back(std::move(field));
  }
  return fields;
}

Result<ReportOptions> parseOptions(const std::vector<std::string>& words) {
  ReportOptions options;
  if (auto answer = answerAboutProgram(words, "tolreport", reportUsage)) {
    options.answer = std::move(*answer);
    return options;
  }
  if (auto problem = Words(words).parse(options)) return Error{"", *problem};
  if (auto problem = contradiction(options)) return Error{"", *problem};
  if (!options.formatIsGiven) takeFormatOfFile(options);
  if (auto problem = contradictionInList(options)) return Error{"", *problem};
  if (auto problem = contradictionInPredict(options)) return Error{"", *problem};
  return options;
}

const char* const reportUsage =
    R"(Usage: tolreport FILE --y NAME [--x NAME,NAME...] [options]
       tolreport FILE --list
       tolreport --example N [options]
       tolreport --default [options]

Fits a multiple regression and reports it.

FILE is a table with names in its first row: text (CSV and its like, of 16 MB at
most), xlsx, ods, sav, dta, gdt, or the data editor's own .zmm; - is standard
input. Cases with a gap in a variable of the model are left out, and the report
tells them.
  --list               list sheets and variables, with kind, number of values, how
                       many of them differ, and label; as text, or --format json
  --labels COLUMN      column with the names of the cases
  --columns NAME,...   read these columns only
  --first N            the first N cases only
  --every K            every K-th case only, from the first
  --where CONDITION    of these the cases that meet it only, as in
                       "Age >= 18 and Region = North", with = <> < <= > >=
  --dummies NAME,...   columns of words or codes that become dummy variables, one
                       for each category but the first, named "Region: South"
  --reference NAME=CATEGORY
                       such a column, and the category that has no variable
How it is read, where that is in doubt; an error then names the option:
  --sheet NAME         sheet of a workbook, or its number
  --header-row N       line or row with the names; 0 where there are none
  --separator WORD     comma, semicolon, tab, blank or none
  --decimal WORD       point or comma
  --missing LIST       what stands for a missing value, beside NA, ., - and such
  --codes WORD         empty or number: codes that a file calls missing
  --words, --short-rows empty
                       leave such cells, or what rows lack, empty
  --dates, --groups, --currency WORD
                       number or empty: dates, 12 345, and $5
  --percent WORD       as-written, divided (12% is 0.12) or empty
  --brackets WORD      negative or empty: (5)
  --names-over WORD    first or second column, where one name is lacking
Instead of a file:
  --example N          the N-th example of the course, from 1
  --default            the course's default example
  --program-folder DIR where the course's notebook lies, if not beside this program
For both:
  --y NAME             dependent variable; an example has one of its own
  --x NAME,NAME...     independent variables; without it all other numeric columns.
                       A name with a comma stands in double quotes. Columns
                       that --x leaves out may have gaps.
  --no-intercept       a model without an intercept
  --plot N=X:Y         axes of scatter plot N, 1 to 3: variables of the model,
                       Fitted, on X also Entry (the order of the cases), on Y
                       also Residuals. A name with a colon stands in double
                       quotes. Without it: 1=Fitted:Residuals,
                       2=(dependent):Fitted, 3=(first independent):(dependent).
  --predict FILE       predicts the cases of this table, of which columns named as
                       the independent variables are taken, with 95% limits;
                       words may stand where --dummies found words
  --format FORMAT      text, json, html, markdown, or r, a script for R. Without
                       it the ending of -o's file decides, else it is text.
  -o FILE              write the report to this file, which is overwritten, and
                       not to standard output
  --sections LIST      what stands in it, in this order: equation, interpretation,
                       anova, coefficients, statistics, correlations, residuals,
                       data, histogram, standardized, normality, vif, plot1, plot2,
                       plot3, or all of these; also influence (leverage and the
                       like of each case) and, with --predict, predictions. A
                       script for R is always whole.
  --lists LENGTH       lists of cases: whole, short (the first 20 cases and all
                       that are marked) or none
  --title TEXT, --author TEXT, --remarks TEXT
                       what stands at its head; remarks may have lines
  --paper PAPER        a4 or letter: the paper on which a page is printed
  --version            the version
  --help               this text

A date in the report is today's, or that of SOURCE_DATE_EPOCH. Exit status: 0 done, 1 something is wrong with
the data, 2 something is wrong with the command line.
)";

}  // namespace tolmer
