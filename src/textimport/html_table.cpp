#include "textimport/html_table.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <set>
#include <utility>

#include "base/tabbed_text.h"
#include "base/trimmed.h"
#include "textimport/html_tokens.h"

namespace tolmer {
namespace {

// Far more than a sheet takes; a span of a million columns is no table.
constexpr int mostSpan = 1000;
constexpr std::size_t mostColumns = 5000;
constexpr std::size_t mostCells = 200'000;
constexpr std::size_t mostBytes = std::size_t{8} << 20;

bool isDigit(char c) { return c >= '0' && c <= '9'; }

struct Cell {
  std::string text;
  int columns = 1;
  int rows = 1;
  bool isHead = false;
};

struct Row {
  std::vector<Cell> cells;
  bool isInHead = false;
};

struct Table {
  std::vector<Row> rows;
  std::string title;
  int hidden = 0;  // elements
  int marks = 0;   // raised ones that were left out
  std::string firstMark;
};

bool isAnyOf(std::string_view name, std::initializer_list<std::string_view> names) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

std::string onOneLine(std::string_view text) {
  std::string line;
  for (const char c : text) {
    const bool isBlank = std::string_view(" \t\r\n\f").find(c) != std::string_view::npos;
    if (!isBlank)
      line += c;
    else if (!line.empty() && line.back() != ' ')
      line += ' ';
  }
  if (line.ends_with(' ')) line.pop_back();
  return line;
}

// Tables may stand in cells of others, which then are there for the look of a page.
class TableReader {
 public:
  explicit TableReader(std::string_view html) : tokens_(html) {}

  std::vector<Table> read() {
    while (const auto token = tokens_.next()) {
      if (token->kind == HtmlToken::Kind::text)
        take(htmlText(token->attributes));
      else
        token->kind == HtmlToken::Kind::start ? start(*token) : end(token->name);
    }
    while (!open_.empty()) closeTable();
    return std::move(done_);
  }
  // Outside of all tables.
  bool hasOtherText() const { return !onOneLine(around_).empty(); }

 private:
  struct Open {
    Table table;
    bool inRow = false;
    bool inCell = false;
    bool inHead = false;
    bool inTitle = false;
    bool inRaised = false;
    bool raisedLinks = false;
    std::string raised{};
  };

  void start(const HtmlToken& token) {
    const std::string& name = token.name;
    if (isAnyOf(name, {"script", "style", "template", "title"}) && skip(token)) return;
    if (token.isHidden() && skip(token)) {
      if (!open_.empty() && isAnyOf(name, {"tr", "td", "th"})) ++open_.back().table.hidden;
      return;
    }
    if (name == "table") {
      open_.emplace_back();
    } else if (!open_.empty()) {
      startInTable(token);
    }
  }

  bool skip(const HtmlToken& token) {
    if (endless_.contains(token.name)) return false;
    if (tokens_.skip(token)) return true;
    endless_.insert(token.name);
    return false;
  }

  void startInTable(const HtmlToken& token) {
    Open& open = open_.back();
    const std::string& name = token.name;
    if (name == "sup" && open.inTitle && skip(token)) return;
    if (isAnyOf(name, {"thead", "tbody", "tfoot"})) {
      closeRow();
      open.inHead = name == "thead";
    } else if (name == "tr") {
      openRow();
    } else if (name == "td" || name == "th") {
      openCell(token);
    } else if (name == "caption") {
      open.inTitle = true;
    } else if (isAnyOf(name, {"br", "p", "div", "li"})) {
      take(" ");
    } else if (name == "sup" && open.inCell) {
      open.inRaised = true;
    } else if (name == "a" && open.inRaised) {
      open.raisedLinks = true;
    }
  }

  void end(const std::string& name) {
    if (open_.empty()) return;
    if (name == "table")
      closeTable();
    else if (name == "sup")
      closeRaised();
    else if (name == "td" || name == "th")
      closeCell();
    else if (isAnyOf(name, {"tr", "thead", "tbody", "tfoot"})) {
      closeRow();
      if (name != "tr") open_.back().inHead = false;
    } else if (name == "caption")
      open_.back().inTitle = false;
    else if (isAnyOf(name, {"p", "div", "li"}))
      take(" ");
  }

  void take(std::string_view text) {
    if (open_.empty()) {
      around_ += text;
      return;
    }
    Open& open = open_.back();
    if (open.inTitle)
      open.table.title += text;
    else if (open.inRaised)
      open.raised += text;
    else if (open.inCell)
      cell().text += text;
  }

  // A footnote's mark is not part of its number; a power is, and makes a word of it.
  void closeRaised() {
    Open& open = open_.back();
    if (!std::exchange(open.inRaised, false)) return;
    const std::string raised = onOneLine(std::exchange(open.raised, {}));
    const bool links = std::exchange(open.raisedLinks, false);
    if (raised.empty()) return;
    const bool isPower = !links && raised.front() != '[' &&
                         std::any_of(raised.begin(), raised.end(), isDigit) &&
                         !trimmed(cell().text).empty();
    if (isPower) {
      cell().text += '^' + raised;
    } else if (isAnyOf(raised, {"st", "nd", "rd", "th"})) {
      cell().text += raised;
    } else if (open.table.marks++ == 0) {
      open.table.firstMark = raised;
    }
  }

  static int span(const HtmlToken& token, std::string_view name) {
    const auto written = token.attribute(name).value_or("1");
    int number = 1;
    std::from_chars(written.data(), written.data() + written.size(), number);
    return std::clamp(number, 1, mostSpan);
  }

  Cell& cell() { return open_.back().table.rows.back().cells.back(); }

  void openRow() {
    closeRow();
    open_.back().table.rows.push_back({{}, open_.back().inHead});
    open_.back().inRow = true;
  }
  void openCell(const HtmlToken& token) {
    closeCell();
    Open& open = open_.back();
    if (!open.inRow) openRow();
    open.inTitle = false;
    open.table.rows.back().cells.push_back(
        {{}, span(token, "colspan"), span(token, "rowspan"), token.name == "th"});
    open.inCell = true;
  }
  void closeCell() {
    closeRaised();
    Open& open = open_.back();
    if (std::exchange(open.inCell, false)) cell().text = onOneLine(cell().text);
  }
  void closeRow() {
    closeCell();
    open_.back().inRow = false;
  }
  void closeTable() {
    closeRow();
    done_.push_back(std::move(open_.back().table));
    open_.pop_back();
  }

  HtmlTokens tokens_;
  std::set<std::string> endless_;  // elements whose end is not there: looked for once
  std::string around_;
  std::vector<Open> open_;
  std::vector<Table> done_;
};

struct GridCell {
  std::string text{};
  bool isFirst = false;  // of those that its cell spans, from left to right
};

// Each cell where it is seen.
class Grid {
 public:
  explicit Grid(const Table& table) {
    std::vector<std::pair<int, GridCell>> below;  // by column: what goes on, for so many rows
    for (const Row& row : table.rows) {
      auto& line = lines_.emplace_back();
      const auto goOn = [&] {
        while (line.size() < below.size() && below[line.size()].first > 0) {
          --below[line.size()].first;
          line.push_back(below[line.size()].second);
        }
      };
      for (const Cell& cell : row.cells) {
        if (line.size() > mostColumns) break;
        goOn();
        for (int i = 0; i < cell.columns; ++i) {
          const std::size_t at = line.size();
          line.push_back({cell.text, i == 0});
          if (below.size() <= at) below.resize(at + 1);
          below[at] = {cell.rows - 1, line.back()};
        }
      }
      goOn();
      columns_ = std::max(columns_, line.size());
      cells_ += line.size();
      if (cells_ > mostCells) break;
    }
    for (auto& line : lines_) line.resize(columns_);
  }

  std::size_t columns() const { return columns_; }
  std::size_t rows() const { return lines_.size(); }
  const std::vector<GridCell>& line(std::size_t row) const { return lines_[row]; }
  bool isBlank(std::size_t row) const {
    return std::all_of(lines_[row].begin(), lines_[row].end(),
                       [](const GridCell& cell) { return cell.text.empty(); });
  }
  std::size_t usedColumns() const {
    std::size_t used = 0;
    for (std::size_t column = 0; column < columns_; ++column)
      used += std::any_of(lines_.begin(), lines_.end(),
                          [column](const auto& line) { return !line[column].text.empty(); });
    return used;
  }

 private:
  std::vector<std::vector<GridCell>> lines_;
  std::size_t columns_ = 0;
  std::size_t cells_ = 0;
};

std::size_t contentOf(const Table& table) {
  std::size_t content = 0;
  for (const Row& row : table.rows)
    content += static_cast<std::size_t>(std::count_if(
        row.cells.begin(), row.cells.end(), [](const Cell& cell) { return !cell.text.empty(); }));
  return content;
}

class TableText {
 public:
  TableText(const Table& table, std::size_t tables, bool hasOtherText)
      : table_(table), grid_(table) {
    result_.title = onOneLine(table.title);
    std::size_t row = takeNames();
    for (; row < grid_.rows(); ++row) {
      if (grid_.isBlank(row)) continue;
      if (isBanner(row))
        leaveOut(row);
      else
        addLine(row);
    }
    tell(tables, hasOtherText);
  }

  std::optional<HtmlTable> take() {
    if (grid_.usedColumns() < 2 || result_.text.empty()) return std::nullopt;
    return std::move(result_);
  }

 private:
  // One cell over all columns.
  bool isBanner(std::size_t row) const {
    const auto& cells = table_.rows[row].cells;
    return grid_.columns() > 1 && cells.size() == 1 &&
           static_cast<std::size_t>(cells.front().columns) >= grid_.columns();
  }
  bool isOfNames(std::size_t row) const {
    const Row& written = table_.rows[row];
    return written.isInHead ||
           (!written.cells.empty() && std::all_of(written.cells.begin(), written.cells.end(),
                                                  [](const Cell& cell) { return cell.isHead; }));
  }

  // The row behind the names. Two rows of them are read from above: "Income 2020".
  std::size_t takeNames() {
    std::vector<std::size_t> heads;
    std::size_t row = 0;
    for (; row < grid_.rows(); ++row) {
      if (grid_.isBlank(row)) continue;
      if (result_.title.empty() && heads.empty() && isBanner(row))
        result_.title = grid_.line(row).front().text;
      else if (isOfNames(row) && !isBanner(row))
        heads.push_back(row);
      else
        break;
    }
    if (heads.size() == 1) addLine(heads.front());
    if (heads.size() < 2) return row;
    for (std::size_t column = 0; column < grid_.columns(); ++column) {
      std::string name;
      std::string last;
      for (const std::size_t head : heads) {
        const std::string& part = grid_.line(head)[column].text;
        if (part.empty() || part == last) continue;
        name += (name.empty() ? "" : " ") + part;
        last = part;
      }
      result_.text += tabbedCell(name) + (column + 1 < grid_.columns() ? '\t' : '\n');
    }
    return row;
  }

  void addLine(std::size_t row) {
    for (std::size_t column = 0; column < grid_.columns(); ++column) {
      const GridCell& cell = grid_.line(row)[column];
      result_.text += tabbedCell(cell.isFirst ? cell.text : "");
      result_.text += column + 1 < grid_.columns() ? '\t' : '\n';
    }
  }

  void leaveOut(std::size_t row) {
    if (banners_++ == 0) firstBanner_ = grid_.line(row).front().text;
  }

  void tell(std::size_t tables, bool hasOtherText) {
    const auto note = [this](int count, const std::string& what, const std::string& first) {
      if (count == 0) return;
      result_.notes.push_back(what + std::to_string(count) +
                              (first.empty() ? "." : ", first \"" + first + "\"."));
    };
    if (tables > 1)
      result_.notes.push_back("Of " + std::to_string(tables) +
                              " tables that were copied the largest was taken.");
    if (hasOtherText) result_.notes.push_back("The table was taken, and not the text around it.");
    note(banners_, "Rows of one cell over all columns were left out: ", firstBanner_);
    note(table_.marks, "Raised marks, as of footnotes, were left out: ", table_.firstMark);
    note(table_.hidden, "Rows and cells that the page hides were left out: ", {});
  }

  const Table& table_;
  Grid grid_;
  HtmlTable result_;
  int banners_ = 0;
  std::string firstBanner_;
};

// Its plain text is made with care, blank cells and all.
bool isOfSpreadsheet(std::string_view html) {
  constexpr std::array marks{"schemas-microsoft-com:office:excel", "google-sheets-html-origin",
                             "sdnum="};
  return std::any_of(marks.begin(), marks.end(),
                     [html](const char* mark) { return html.find(mark) != html.npos; });
}

}  // namespace

std::optional<HtmlTable> tableOfHtml(std::string_view html) {
  if (html.size() > mostBytes || isOfSpreadsheet(html)) return std::nullopt;
  TableReader reader(html);
  const auto tables = reader.read();
  const auto isReal = [](const Table& table) { return contentOf(table) > 1; };
  const auto count = std::count_if(tables.begin(), tables.end(), isReal);
  const auto largest =
      std::max_element(tables.begin(), tables.end(),
                       [](const Table& a, const Table& b) { return contentOf(a) < contentOf(b); });
  if (count == 0) return std::nullopt;
  return TableText(*largest, static_cast<std::size_t>(count), reader.hasOtherText()).take();
}

}  // namespace tolmer
