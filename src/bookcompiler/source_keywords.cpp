#include "bookcompiler/source_keywords.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

#include "fieldfile/field_reader.h"
#include "notebook/book_check.h"

namespace tolmer {
namespace {

// Style words, and at most one value.
struct Modifiers {
  bool bIndent = false;
  bool bold = false;
  bool open = false;
  std::string value;  // a number or a page reference as it was written; empty for none
  Int16 number = 0;   // the value, where it is a whole number

  Int16 emphasis() const { return bold ? EmphasisStyle::bold : EmphasisStyle::plain; }
};

// What a keyword takes.
enum class ModifierValue { none, number, pageReference };

struct PageReference {
  Int16 iSection = 0;  // 0: the same section
  Int16 iPage = 0;
};

// "3.2"; nullopt for anything else.
std::optional<PageReference> pageReferenceFromText(std::string_view text) {
  const auto dot = text.find('.');
  if (dot == std::string_view::npos) return std::nullopt;
  const auto section = integerFromText(text.substr(0, dot));
  const auto page = integerFromText(text.substr(dot + 1));
  if (!section || !page) return std::nullopt;
  return PageReference{*section, *page};
}

// "plain", "picture", "scenario", "database" or the number of a type.
std::optional<Int16> pageTypeFromText(std::string_view text) {
  static constexpr std::array<std::pair<std::string_view, Int16>, 4> names = {
      {{"plain", PageType::plain},
       {"picture", PageType::picture},
       {"scenario", PageType::scenario},
       {"database", PageType::database}}};
  for (const auto& [name, type] : names)
    if (text == name) return type;
  return integerFromText(text);
}

// The member that a style word sets; null for any other word.
bool* styleOf(std::string_view word, std::string_view styles, Modifiers& modifiers) {
  if (styles.find(word) == std::string_view::npos) return nullptr;
  if (word == "indent") return &modifiers.bIndent;
  if (word == "bold") return &modifiers.bold;
  if (word == "open") return &modifiers.open;
  return nullptr;
}

bool isValue(std::string_view word, ModifierValue takes) {
  if (takes == ModifierValue::number) return integerFromText(word).has_value();
  return takes == ModifierValue::pageReference && pageReferenceFromText(word).has_value();
}

// `styles` names the style words that the keyword takes. Complains of every other word.
Modifiers parseModifiers(const SourceEntry& entry, std::string_view styles, ModifierValue takes,
                         Complaints& complaints) {
  Modifiers modifiers;
  for (const std::string& word : entry.modifiers) {
    if (bool* style = styleOf(word, styles, modifiers))
      *style = true;
    else if (isValue(word, takes) && modifiers.value.empty())
      modifiers.value = word;
    else
      complaints.error(entry.line,
                       "\"" + word + "\" has no meaning behind \"" + entry.keyword + "\"");
  }
  modifiers.number = integerFromText(modifiers.value).value_or(Int16{0});
  return modifiers;
}

class SourceKeywords {
 public:
  explicit SourceKeywords(Complaints& complaints) : complaints_(complaints) {}

  void add(const SourceEntry& entry) {
    using Handler = void (SourceKeywords::*)(const SourceEntry&);
    static const std::map<std::string_view, Handler> handlers = {
        {"title", &SourceKeywords::title},
        {"chapter", &SourceKeywords::chapter},
        {"default scenario", &SourceKeywords::defaultScenario},
        {"default database", &SourceKeywords::defaultDatabase},
        {"section", &SourceKeywords::section},
        {"page", &SourceKeywords::page},
        {"heading", &SourceKeywords::heading},
        {"text", &SourceKeywords::text},
        {"jump", &SourceKeywords::jump},
        {"picture", &SourceKeywords::picture},
        {"space", &SourceKeywords::space},
        {"check", &SourceKeywords::check},
        {"version", &SourceKeywords::version},
        {"scenarios", &SourceKeywords::scenarios},
        {"scenario", &SourceKeywords::scenario},
        {"outline", &SourceKeywords::outline},
        {"group", &SourceKeywords::group},
        {"database", &SourceKeywords::database},
        {"entry", &SourceKeywords::entry},
        {"description", &SourceKeywords::description},
        {"parameters", &SourceKeywords::parameters},
        {"short", &SourceKeywords::shortName},
        {"data", &SourceKeywords::data},
        {"labels", &SourceKeywords::labels},
        {"column heading", &SourceKeywords::columnHeading},
    };
    line_ = entry.line;
    const auto handler = handlers.find(entry.keyword);
    if (handler == handlers.end()) return fail("unknown keyword \"" + entry.keyword + "\"");
    (this->*handler->second)(entry);
  }

  SourcedBook finish() {
    finishPage();
    finishScenario();
    line_ = 1;
    if (book().tTitle.empty()) fail("the book has no title");
    if (book().tChapter.empty()) fail("the book has no chapter");
    if (book().uDefaultScenario.tName.empty()) fail("the book has no default scenario");
    for (const BookFault& fault : checkBook(book())) {
      const auto line = result_.lines.find(std::pair(fault.part, fault.row));
      complaints_.error(line == result_.lines.end() ? 1 : line->second,
                        std::string(nounOf(fault.part)) + ": " + fault.text);
    }
    return std::move(result_);
  }

 private:
  Book& book() { return result_.book; }
  void fail(std::string text) { complaints_.error(line_, std::move(text)); }

  // The next row of a table; where it is full, a complaint and a row that nobody keeps.
  template <class Table, class Record>
  Record& addRow(Table& table, BookPart part, Record record, Record& scrap) {
    if (table.isFull()) {
      fail("this would be " + std::string(nounOf(part)) + " " + std::to_string(table.bound + 1) +
           ", a book has at most " + std::to_string(table.bound));
      return scrap = std::move(record);
    }
    table.add(std::move(record));
    result_.lines[std::pair(part, table.count())] = line_;
    return table[table.count()];
  }

  template <class Table, class Record>
  void addElement(Table& table, BookPart part, Int16 kind, Record record) {
    endBlocks();
    if (!wantPage()) return;
    Record scrap;
    addRow(table, part, std::move(record), scrap);
    addPageElement(kind, table.count());
  }

  void addPageElement(Int16 kind, int index) {
    PageElement scrap;
    const int before = book().uPageElement.count();
    addRow(book().uPageElement, BookPart::pageElement, {kind, static_cast<Int16>(index), 0}, scrap);
    if (book().uPageElement.count() > before) ++page_->iNumElements;
  }

  bool wantPage() {
    if (!page_) fail("this stands on no page");
    return page_ != nullptr;
  }

  bool wantText(const SourceEntry& entry) {
    if (entry.text.empty()) fail("a text is missing behind \"" + entry.keyword + ":\"");
    return !entry.text.empty();
  }

  Modifiers modifiers(const SourceEntry& entry, std::string_view styles = "",
                      ModifierValue takes = ModifierValue::none) {
    return parseModifiers(entry, styles, takes, complaints_);
  }

  // An element of no text.
  bool standsAlone(const SourceEntry& entry) {
    if (!entry.text.empty()) fail("no text can stand behind \"" + entry.keyword + ":\"");
    endBlocks();
    return wantPage();
  }

  // --- the book as a whole
  void once(std::string& field, const SourceEntry& entry) {
    endBlocks();
    modifiers(entry);
    if (!field.empty()) fail("a second \"" + entry.keyword + ":\"");
    if (wantText(entry)) field = entry.text;
  }
  void title(const SourceEntry& entry) {
    once(book().tTitle, entry);
    result_.titleLine = entry.line;
  }
  void chapter(const SourceEntry& entry) {
    once(book().tChapter, entry);
    result_.chapterLine = entry.line;
  }

  void defaultScenario(const SourceEntry& entry) {
    once(book().uDefaultScenario.tName, entry);
    startScenario(book().uDefaultScenario, true);
  }

  void defaultDatabase(const SourceEntry& entry) {
    endBlocks();
    modifiers(entry);
    if (++defaultDatabases_ > maxOutlineEntries)
      fail("a book has at most " + std::to_string(maxOutlineEntries) + " default databases");
    const auto slot = static_cast<std::size_t>(std::min(defaultDatabases_, maxOutlineEntries));
    wantText(entry);
    database_ = &book().uDefaultDatabase[slot];
    database_->tName = entry.text;
  }

  // --- sections and pages
  void section(const SourceEntry& entry) {
    finishPage();
    modifiers(entry);
    if (!wantText(entry)) return;
    const Int16 first = static_cast<Int16>(book().uPage.count() + 1);
    section_ = &addRow(book().uSection, BookPart::section, SectionRecord{entry.text, first, 0},
                       scrapSection_);
  }

  void page(const SourceEntry& entry) {
    finishPage();
    modifiers(entry);
    if (!section_) return fail("a page stands in no section");
    const auto type = pageTypeFromText(entry.text);
    if (!type) fail("a page is plain, picture, scenario, database or a number");
    PageRecord record{type.value_or(PageType::plain),
                      static_cast<Int16>(book().uPageElement.count() + 1), 0, 0, 0};
    const int before = book().uPage.count();
    page_ = &addRow(book().uPage, BookPart::page, record, scrapPage_);
    pageLine_ = line_;
    if (book().uPage.count() > before) ++section_->iNumPages;
  }

  void finishPage() {
    endBlocks();
    if (!page_) return;
    const bool isScenario = page_->iPageType == PageType::scenario;
    const bool isDatabase = page_->iPageType == PageType::database;
    if (isScenario && page_->iScenarioElement == 0)
      complaints_.error(pageLine_, "a scenario page needs a list of scenarios");
    if (isDatabase && page_->iOutlineElement == 0)
      complaints_.error(pageLine_, "a database page needs an outline of databases");
    page_ = nullptr;
  }

  // --- elements
  void text(const SourceEntry& entry) {
    const Modifiers m = modifiers(entry, "indent bold");
    if (wantText(entry))
      addElement(book().uText, BookPart::text, ElementKind::text,
                 TextElement{entry.text, m.bIndent, m.emphasis()});
  }

  void heading(const SourceEntry& entry) {
    modifiers(entry);
    if (wantText(entry))
      addElement(book().tHeading, BookPart::heading, ElementKind::heading, entry.text);
  }

  void jump(const SourceEntry& entry) {
    const Modifiers m = modifiers(entry, "indent bold", ModifierValue::pageReference);
    const auto target = pageReferenceFromText(m.value);
    if (!target)
      fail("a jump names section and page, as in \"jump 3.2: Text\"");
    else if (wantText(entry))
      addElement(book().uJump, BookPart::jump, ElementKind::jump,
                 JumpElement{entry.text, m.bIndent, m.emphasis(), target->iSection, target->iPage});
  }

  void picture(const SourceEntry& entry) {
    modifiers(entry);
    if (!wantText(entry)) return;
    result_.pictures.push_back({line_, entry.text});
    addElement(book().tBitmap, BookPart::bitmap, ElementKind::bitmap, entry.text);
  }

  void space(const SourceEntry& entry) {
    modifiers(entry);
    if (standsAlone(entry)) addPageElement(ElementKind::space, 0);
  }

  template <class Table>
  void valueElement(const SourceEntry& entry, Table& table, BookPart part, Int16 kind) {
    const Modifiers m = modifiers(entry, "indent bold", ModifierValue::number);
    if (wantText(entry))
      addElement(table, part, kind, ValueElement{entry.text, m.bIndent, m.emphasis(), m.number});
  }
  void check(const SourceEntry& entry) {
    valueElement(entry, book().uCheck, BookPart::check, ElementKind::check);
  }
  void version(const SourceEntry& entry) {
    valueElement(entry, book().uVersion, BookPart::version, ElementKind::version);
  }

  // --- scenario lists
  void scenarios(const SourceEntry& entry) {
    const Modifiers m = modifiers(entry, "", ModifierValue::number);
    if (!standsAlone(entry)) return;
    if (page_->iPageType != PageType::scenario)
      fail("a list of scenarios belongs on a page of type scenario");
    if (page_->iScenarioElement != 0) fail("a page has one list of scenarios");
    const Int16 first = static_cast<Int16>(book().uScenario.count() + 1);
    addElement(book().uScenarioElement, BookPart::scenarioElement, ElementKind::scenario,
               ScenarioElement{0, first, m.number});
    page_->iScenarioElement = static_cast<Int16>(book().uScenarioElement.count());
    list_ = &book().uScenarioElement[page_->iScenarioElement];
  }

  void scenario(const SourceEntry& entry) {
    modifiers(entry);
    ScenarioElement* const list = list_;
    endBlocks();
    list_ = list;
    Scenario record;
    record.tName = entry.text;
    wantText(entry);
    const bool fits = list_ && list_->iNumScenarios < maxScenariosOnPage;
    if (!list_) fail("a scenario stands in no list of scenarios");
    if (list_ && !fits)
      fail("a page lists at most " + std::to_string(maxScenariosOnPage) + " scenarios");
    const int before = book().uScenario.count();
    Scenario& row = fits ? addRow(book().uScenario, BookPart::scenario, record, scrapScenario_)
                         : scrapScenario_ = record;
    if (book().uScenario.count() > before) ++list_->iNumScenarios;
    startScenario(row, book().uSection.count() == examplesSection);
  }

  void startScenario(Scenario& row, bool needsDependent) {
    scenario_ = &row;
    scenarioLine_ = line_;
    needsDependent_ = needsDependent;
    hasParameters_ = false;
  }

  void finishScenario() {
    if (scenario_ && !hasParameters_)
      complaints_.error(scenarioLine_, "the scenario has no \"parameters:\" line");
    scenario_ = nullptr;
  }

  void parameters(const SourceEntry& entry) {
    modifiers(entry);
    if (!scenario_) return fail("\"parameters:\" belongs to a scenario");
    if (hasParameters_) fail("a second \"parameters:\" of this scenario");
    hasParameters_ = true;
    auto claim = parseParameters(line_, entry.text, needsDependent_, *scenario_, complaints_);
    if (!claim) return;
    claim->scenario = scenario_ == &book().uDefaultScenario ? 0 : book().uScenario.count();
    result_.dataSets.push_back(*std::move(claim));
  }

  // --- outlines
  void outline(const SourceEntry& entry) {
    const Modifiers m = modifiers(entry, "", ModifierValue::number);
    if (!standsAlone(entry)) return;
    if (page_->iPageType != PageType::database)
      fail("an outline belongs on a page of type database");
    if (page_->iOutlineElement != 0) fail("a page has one outline line");
    OutlineElement element;
    element.iNumOutlines = m.value.empty() ? Int16{1} : m.number;
    const Int16 first = static_cast<Int16>(book().uDatabase.count() + 1);
    for (int j = 1; j <= element.iNumOutlines && j <= maxOutlineEntries; ++j)
      element.uEntry[j].iFirstDatabase = first;
    addElement(book().uOutline, BookPart::outline, ElementKind::outline, element);
    page_->iOutlineElement = static_cast<Int16>(book().uOutline.count());
    outline_ = &book().uOutline[page_->iOutlineElement];
  }

  // Groups and entries say in place of their data that they have none.
  void outlineRow(const SourceEntry& entry, const char* noData) {
    const bool isGroup = noData == std::string_view(groupMark);
    const Modifiers m = modifiers(entry, isGroup ? "open" : "", ModifierValue::number);
    OutlineElement* const outline = outline_;
    endBlocks();
    outline_ = outline;
    wantText(entry);
    if (!outline_) fail("\"" + entry.keyword + ":\" stands in no outline");
    Database record;
    record.tName = entry.text;
    record.iLevel = m.value.empty() ? Int16{1} : m.number;
    record.tDataFileName = noData;
    record.bExpanded = {false, m.open, m.open};
    const int before = book().uDatabase.count();
    database_ = outline_ ? &addRow(book().uDatabase, BookPart::database, record, scrapDatabase_)
                         : &(scrapDatabase_ = record);
    databaseHasNoData_ = !record.tDataFileName.empty();
    if (book().uDatabase.count() > before)
      for (OutlineEntry& one : outline_->uEntry)
        if (one.iFirstDatabase != 0) ++one.iNumDatabases;
  }
  void group(const SourceEntry& entry) { outlineRow(entry, groupMark); }
  void entry(const SourceEntry& entry) { outlineRow(entry, entryMark); }
  void database(const SourceEntry& entry) { outlineRow(entry, ""); }

  // --- the lines that belong to a scenario or database
  void description(const SourceEntry& entry) {
    modifiers(entry);
    if (!scenario_ && !database_) return fail("\"description:\" belongs to a scenario or database");
    std::string& described = scenario_ ? scenario_->tDesc : database_->tDesc;
    if (!described.empty()) fail("a second \"description:\"");
    described = entry.text;
  }

  void databaseField(const SourceEntry& entry, std::string Database::*field, bool isFile) {
    modifiers(entry);
    if (!database_) return fail("\"" + entry.keyword + ":\" belongs to a database");
    if (isFile && databaseHasNoData_) return fail("a group or an entry has no files");
    database_->*field = entry.text;
    if (isFile && !entry.text.empty()) result_.courseFiles.push_back({line_, entry.text});
  }
  void shortName(const SourceEntry& entry) { databaseField(entry, &Database::tShortName, false); }
  void data(const SourceEntry& entry) { databaseField(entry, &Database::tDataFileName, true); }
  void labels(const SourceEntry& entry) { databaseField(entry, &Database::tLabelFileName, true); }
  void columnHeading(const SourceEntry& entry) { databaseField(entry, &Database::tHeading, false); }

  // A new element ends the list, and the scenario or database, before it.
  void endBlocks() {
    finishScenario();
    list_ = nullptr;
    outline_ = nullptr;
    database_ = nullptr;
    databaseHasNoData_ = false;
  }

  Complaints& complaints_;
  SourcedBook result_;
  int line_ = 0;

  // What the next lines belong to; null where they belong to nothing. Rows stay where they are
  // until the next row of the same table is added.
  SectionRecord* section_ = nullptr;
  PageRecord* page_ = nullptr;
  ScenarioElement* list_ = nullptr;
  OutlineElement* outline_ = nullptr;
  Scenario* scenario_ = nullptr;
  Database* database_ = nullptr;
  bool databaseHasNoData_ = false;
  bool needsDependent_ = false;
  bool hasParameters_ = false;
  int pageLine_ = 0;
  int scenarioLine_ = 0;
  int defaultDatabases_ = 0;

  SectionRecord scrapSection_;
  PageRecord scrapPage_;
  Scenario scrapScenario_;
  Database scrapDatabase_;
};

}  // namespace

SourcedBook buildBook(const std::vector<SourceEntry>& entries, Complaints& complaints) {
  SourceKeywords builder(complaints);
  for (const SourceEntry& entry : entries) builder.add(entry);
  return builder.finish();
}

}  // namespace tolmer
