// The content of the notebook as plain data. It is course material: written by the book compiler,
// read once at start-up, and changed at run time only where the student selects.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace tolmer {

// Rows from 1 to a fixed bound, row 0 empty.
template <class Record, int maxRows>
class BookTable {
 public:
  static constexpr int bound = maxRows;

  int count() const { return static_cast<int>(rows_.size()) - 1; }
  bool isFull() const { return count() == bound; }

  // Row `index`, 0 to count(). Any other index is a fault of the caller: std::out_of_range.
  Record& operator[](int index) { return rows_.at(index); }
  const Record& operator[](int index) const { return rows_.at(index); }

  // The next row, or the same table where it is full: ask isFull first.
  void add(Record record) {
    if (!isFull()) rows_.push_back(std::move(record));
  }

  // Rows 1 to `count`, emptied; `count` is cut to 0..bound.
  void resize(int count) {
    const int kept = count < 0 ? 0 : count > bound ? bound : count;
    rows_.assign(static_cast<std::size_t>(kept) + 1, Record{});
  }

  bool operator==(const BookTable&) const = default;

 private:
  std::vector<Record> rows_ = std::vector<Record>(1);
};

enum class BookPart {
  section,
  page,
  scenario,
  database,
  text,
  heading,
  jump,
  scenarioElement,
  outline,
  bitmap,
  check,
  version,
  pageElement
};

// "section", "page element": how a message calls a row of the table.
constexpr const char* nounOf(BookPart part) {
  constexpr std::array nouns{"section",         "page",
                             "scenario",        "database",
                             "text element",    "heading element",
                             "jump element",    "scenario element",
                             "outline element", "bitmap element",
                             "check element",   "version element",
                             "page element"};
  return nouns.at(static_cast<std::size_t>(part));
}

using Int16 = std::int16_t;

inline constexpr int maxParameter = 170;       // of a scenario; element 0 stays empty
inline constexpr int maxOutlineEntries = 2;    // outlines side by side in one element
inline constexpr int maxGroupsToExpand = 20;   // open groups of one outline
inline constexpr int maxScenariosOnPage = 4;   // options of a scenario list
inline constexpr int highestVersion = 99;      // that a student can enter
inline constexpr int chapterNumberLength = 7;  // characters of the chapter's first caption

// Values of PageRecord::iPageType; every other one is an ordinary page.
struct PageType {
  static constexpr Int16 plain = 1;
  static constexpr Int16 picture = 5;   // can be confirmed only while it shows a picture
  static constexpr Int16 scenario = 7;  // has a list of scenarios
  static constexpr Int16 database = 8;  // has outlines of databases
};

// Values of PageElement::iKind; an unknown one shows nothing.
struct ElementKind {
  static constexpr Int16 text = 1;
  static constexpr Int16 heading = 2;
  static constexpr Int16 jump = 3;
  static constexpr Int16 scenario = 4;
  static constexpr Int16 outline = 5;
  static constexpr Int16 bitmap = 6;
  static constexpr Int16 space = 7;  // has no element of its own
  static constexpr Int16 check = 8;
  static constexpr Int16 version = 9;
};

// Values of iEmphasisStyle; every other one leaves the font as it stands.
struct EmphasisStyle {
  static constexpr Int16 plain = 0;
  static constexpr Int16 bold = 1;
};

// The data file name that marks a row of an outline as a heading row and no database.
inline constexpr const char* groupMark = "group";

struct SectionRecord {
  std::string tName;
  Int16 iFirstPage = 0;
  Int16 iNumPages = 0;
  bool operator==(const SectionRecord&) const = default;
};

struct PageRecord {
  Int16 iPageType = 0;
  Int16 iFirstElement = 0;
  Int16 iNumElements = 0;
  Int16 iScenarioElement = 0;  // 0: the page has none
  Int16 iOutlineElement = 0;   // 0: the page has none
  bool operator==(const PageRecord&) const = default;
};

struct Scenario {
  std::string tName;
  std::string tDesc;
  std::array<std::string, maxParameter + 1> tParameter;
  bool operator==(const Scenario&) const = default;
};

struct Database {
  std::string tName;
  std::string tShortName;
  Int16 iLevel = 0;  // indent in the outline
  std::string tDesc;
  std::string tDataFileName;  // groupMark for a heading row
  std::string tLabelFileName;
  std::string tHeading;
  std::array<bool, maxOutlineEntries + 1> bExpanded{};  // (1..2) a group is open at first
  bool operator==(const Database&) const = default;
};

struct TextElement {
  std::string tText;
  bool bIndent = false;
  Int16 iEmphasisStyle = 0;
  bool operator==(const TextElement&) const = default;
};

struct JumpElement {
  std::string tText;
  bool bIndent = false;
  Int16 iEmphasisStyle = 0;
  Int16 iSection = 0;  // 0: the section the jump stands in
  Int16 iPage = 0;
  bool operator==(const JumpElement&) const = default;
};

struct ScenarioElement {
  Int16 iNumScenarios = 0;
  Int16 iFirstScenario = 0;
  Int16 iSelected = 0;  // option index from 0
  bool operator==(const ScenarioElement&) const = default;
};

struct OutlineEntry {
  Int16 iControlIndex = 0;  // given when the window is built
  Int16 iSelectedItem = 0;  // list index from 0
  Int16 iUnused = 0;
  Int16 iFirstDatabase = 0;
  Int16 iNumDatabases = 0;
  bool operator==(const OutlineEntry&) const = default;
};

// The entries share one list of items, made from entry 1's databases.
struct OutlineElement {
  Int16 iNumOutlines = 0;
  Int16 iUnused1 = 0;
  Int16 iUnused2 = 0;
  std::array<OutlineEntry, maxOutlineEntries + 1> uEntry;  // (1..iNumOutlines)
  bool operator==(const OutlineElement&) const = default;
};

// A caption with a number that the student sets: a box's state (0 clear, 1 ticked, 2 grey) or a
// version number.
struct ValueElement {
  std::string tCaption;
  bool bIndent = false;
  Int16 iEmphasisStyle = 0;
  Int16 iValue = 0;
  bool operator==(const ValueElement&) const = default;
};

struct PageElement {
  Int16 iKind = 0;
  Int16 iIndex = 0;  // row of the kind's table
  Int16 iUnused = 0;
  bool operator==(const PageElement&) const = default;
};

struct Book {
  std::string tTitle;    // heading of the cover page
  std::string tChapter;  // two captions: the first chapterNumberLength characters, and the rest
  BookTable<SectionRecord, 8> uSection;
  BookTable<PageRecord, 30> uPage;
  BookTable<Scenario, 50> uScenario;
  Scenario uDefaultScenario;
  BookTable<Database, 200> uDatabase;
  std::array<Database, maxOutlineEntries + 1> uDefaultDatabase;  // (1..2), the six strings only
  BookTable<TextElement, 200> uText;
  BookTable<std::string, 30> tHeading;
  BookTable<JumpElement, 40> uJump;
  BookTable<ScenarioElement, 20> uScenarioElement;
  BookTable<OutlineElement, 8> uOutline;
  BookTable<std::string, 8> tBitmap;
  BookTable<ValueElement, 20> uCheck;
  BookTable<ValueElement, 20> uVersion;
  BookTable<PageElement, 450> uPageElement;
  bool operator==(const Book&) const = default;
};

}  // namespace tolmer
