// What is found in foreign text, what is asked, and what lands in the sheet.
#include "textimport/text_import.h"

#include <gtest/gtest.h>

#include "foreign/import_process.h"
#include "support/tree.h"
#include "textimport/typed_number.h"

namespace tolmer {
namespace {

ImportTarget atCell(int row, int column) { return {TextOrigin::clipboard, row, column, 500, 50}; }
const ImportTarget atFirstCell = atCell(1, 1);
const ImportTarget asFile{.observations = 500, .variables = 50};

std::string doubts(const ImportPreview& preview) {
  const char* names[] = {"sheet",  "separator", "first",          "heading",  "place",
                         "labels", "dummies",   "codes of words", "short",    "decimal",
                         "blanks", "percent",   "currency",       "brackets", "missing",
                         "words",  "dates",     "codes",          "likely"};
  std::string all;
  for (const ImportQuestion& question : preview.questions) {
    all += std::string(all.empty() ? "" : " ") + names[static_cast<int>(question.doubt)];
    if (question.chosen) all += "=" + std::to_string(*question.chosen);
  }
  return all;
}

std::string cellText(const ImportedCell& cell) {
  if (cell.number) return exactText(*cell.number);
  return cell.text.empty() ? "" : "'" + cell.text;
}

// "names|row|row@row,column", cells divided by blanks; or the error.
std::string landed(const std::string& text, const ImportTarget& target,
                   const ImportAnswers& answers = {}) {
  const auto import = TextImport::read(text, target);
  if (!import) return import.error().message();
  const auto table = import->apply(answers);
  if (!table) return table.error().message();
  std::string all;
  for (const std::string& name : table->headings) all += "[" + name + "]";
  for (int row = 0; row <= table->cells.lastRow(); ++row) {
    all += "|";
    for (int column = 0; column <= table->cells.lastColumn(); ++column)
      all += (column ? " " : "") + cellText(table->cells(row, column));
  }
  return all + "@" + std::to_string(table->firstRow) + "," + std::to_string(table->firstColumn);
}

std::string asked(const std::string& text, const ImportTarget& target,
                  const ImportAnswers& answers = {}) {
  const auto preview = TextImport::read(text, target)->preview(answers);
  if (!preview) return preview.error().message();
  return preview->mustChoose.empty() ? doubts(*preview) : preview->mustChoose;
}

struct Sample {
  const char* text;
  const char* asked;  // doubts with what is set beforehand
  ImportAnswers answers;
  const char* landed;
};

TEST(TextImport, pastedBlocksLandAsTheyLook) {
  using enum ImportDoubt;
  const Sample samples[] = {
      // Nothing to ask.
      {"1\t2\n3\t4\n", "", {}, "|1 2|3 4@1,1"},
      {"1\t2\r\n3\t4", "", {}, "|1 2|3 4@1,1"},
      {"1\t\n\t4\n", "", {}, "|1 | 4@1,1"},
      {"-1e-3\t+.5\t0.30000000000000004\n", "", {}, "|-0.001 0.5 0.30000000000000004@1,1"},
      {"\xE2\x88\x92"
       "5\t\xC2\xA0"
       "7\n",
       "",
       {},
       "|-5 7@1,1"},
      {"1,234.5\t2\n", "", {}, "|1234.5 2@1,1"},
      {"\"1\"\t\"2\"\n", "", {}, "|1 2@1,1"},
      // Names above numbers.
      {"a\tb\n1\t2\n", "place=0", {}, "[a][b]|1 2@1,1"},
      {"a\tb\n1\t2\n", "place=0", {{headingPlace, 1}}, "|1 2@1,1"},
      {"a\t5\n1\t2\n", "heading", {{heading, 1}, {words, 0}}, "| 5|1 2@1,1"},
      {"2019\t2020\n1.5\t2\n", "heading", {{heading, 0}}, "[2019][2020]|1.5 2@1,1"},
      {"x\ny\n",
       "heading words",
       {{heading, 1}},
       "An answer is missing: Col 1 holds words (x, y). What is to become of it?"},
      // The decimal mark.
      {"1,5\t2\n1.234,5\t3\n", "decimal=1", {}, "|1.5 2|1234.5 3@1,1"},
      {"1,5\t2\n", "decimal=1", {{decimalMark, 0}, {words, 0}}, "| 2@1,1"},
      {"1,5\t2.5\n", "decimal", {{decimalMark, 0}, {words, 0}}, "| 2.5@1,1"},
      {"1,234\t999\n", "decimal", {{decimalMark, 1}}, "|1.234 999@1,1"},
      {"1,234\t999\n", "decimal", {{decimalMark, 0}}, "|1234 999@1,1"},
      {"1.234\t1,234\n", "decimal", {{decimalMark, 1}}, "|1234 1.234@1,1"},
      {"1.234\t2\n", "decimal=0", {}, "|1.234 2@1,1"},
      {"1.234\t2\n", "decimal=0", {{decimalMark, 1}}, "|1234 2@1,1"},
      // Signs, blanks, missing values, words.
      {"1\n2\n1e400\n", "words", {{words, 0}}, "|1|2|@1,1"},
      {"12 345\t1\n", "blanks", {{blankGroups, 0}}, "|12345 1@1,1"},
      {"12%\t1\n", "percent", {{percent, 1}}, "|0.12 1@1,1"},
      {"\xE2\x82\xAC 12\t-$3.50\n", "currency", {{currency, 0}}, "|12 -3.5@1,1"},
      {"($1,200.5)\t(7%)\n(3\t1\n",
       "percent currency brackets words",
       {{percent, 1}, {currency, 0}, {brackets, 0}, {words, 0}},
       "|-1200.5 -0.07| 1@1,1"},
      {"12.3%\t2019 500\n", "percent words", {{percent, 1}, {words, 0}}, "|0.123 @1,1"},
      {"1\tNA\n.\t#DIV/0!\n", "missing=0", {}, "|1 | @1,1"},
      {"1\tNA\n", "missing=0", {{missing, 1}}, "line 1, column 2: \"NA\" is a missing value."},
      {"1\n2\nthree\n", "words", {{words, 0}}, "|1|2|@1,1"},
      {"1\n2\nthree\n", "words", {{words, 1}}, "line 3, column 1: \"three\" is no number."},
      {"1\n2\n12 34\n", "words", {{words, 1}}, "line 3, column 1: \"12 34\" is no number."},
      {"1\t2\n3\n", "short", {{shortRows, 0}}, "|1 2|3 @1,1"},
      {"1\t2\n3\n", "short", {{shortRows, 1}}, "line 2, column 1: The row is too short."},
      {"2\n=A1+1\n3\n", "words", {{words, 0}}, "|2||3@1,1"},
      // No tab at all.
      {"1;2\n3;4\n", "separator=0", {}, "|1 2|3 4@1,1"},
      {"1;2\n3;4;5\n", "separator", {{separator, 0}, {shortRows, 0}}, "|1 2 |3 4 5@1,1"},
      {"1,5\n2,5\n", "separator", {{separator, 0}}, "|1 5|2 5@1,1"},
      {"1,5\n2,5\n", "separator", {{separator, 1}, {decimalMark, 1}}, "|1.5|2.5@1,1"},
      {"1  2\n 3 4 \n", "separator", {{separator, 0}}, "|1 2|3 4@1,1"},
  };
  for (const Sample& sample : samples) {
    SCOPED_TRACE(sample.text);
    EXPECT_EQ(asked(sample.text, atFirstCell), sample.asked);
    EXPECT_EQ(landed(sample.text, atFirstCell, sample.answers), sample.landed);
  }
}

TEST(TextImport, labelsAndNamesFollowTheCursor) {
  ImportTarget target = atCell(3, 0);
  EXPECT_EQ(landed("Ann\nBob, Jr.\n5\" pipe\n", target), "|'Ann|'Bob, Jr.|'5\" pipe@3,0");
  EXPECT_EQ(landed("\"a\tb\"\t1\n\"say \"\"x\"\"\"\t2\n", target), "|'a b 1|'say \"x\" 2@3,0");
  EXPECT_EQ(landed("NA\t1\n2019\t2\n", target), "|'NA 1|'2019 2@3,0");
  target.row = 0;
  EXPECT_EQ(landed("Who\tAge\nAnn\t31\n", target), "[Who][Age]|'Ann 31@1,0");
  EXPECT_EQ(landed("Ann\t31\nBob\t32\n", target), "|'Ann 31|'Bob 32@1,0");
  EXPECT_EQ(landed("Age\n", atCell(0, 2)), "[Age]@1,2");
}

TEST(TextImport, filesAreCutAsTheirProgramsWroteThem) {
  using enum ImportDoubt;
  const Sample samples[] = {
      {"Town,Price\n\"Ulm, Alb\",1.5\nRom,2\n",
       "labels=0",
       {},
       "[Town][Price]|'Ulm, Alb 1.5|'Rom 2@1,0"},
      {"\xEF\xBB\xBF"
       "a;b\r\n1,5;2\r\n3,25;4\r\n",
       "decimal=1",
       {},
       "[a][b]|1.5 2|3.25 4@1,1"},
      {"a\tb\n1\t2\n\n3\t4\n\t\n", "", {}, "[a][b]|1 2|3 4@1,1"},
      {"a,b,,\n1,2,,\n", "", {}, "[a][b]|1 2@1,1"},
      {"x\n1\n\n3\n\n", "", {}, "[x]|1||3@1,1"},
      {"Label,x\n1,2\n3,4\n", "", {}, "[Label][x]|'1 2|'3 4@1,0"},
      {"x\n1,5\n2,5\n", "decimal=1", {}, "[x]|1.5|2.5@1,1"},
      {"1,5\n2,5\n", "separator", {{separator, 1}}, "|1.5|2.5@1,1"},
      {"a,b\n1,2\n3\n", "separator=0 short", {{shortRows, 0}}, "[a][b]|1 2|3 @1,1"},
      {"Stra\xDF"
       "e,x\nb,1\n",
       "labels=0",
       {},
       "[Stra\xC3\x9F"
       "e][x]|'b 1@1,0"},
      {"a,b\n\"1,2\n",
       "line 2: a double quote is not closed",
       {},
       "line 2: a double quote is not closed"},
      {"", "There are no data in the text.", {}, "There are no data in the text."},
      {"\n\n", "There are no data in the text.", {}, "There are no data in the text."},
  };
  for (const Sample& sample : samples) {
    SCOPED_TRACE(sample.text);
    EXPECT_EQ(asked(sample.text, asFile), sample.asked);
    EXPECT_EQ(landed(sample.text, asFile, sample.answers), sample.landed);
  }
  EXPECT_EQ(landed(std::string("1\0", 2), asFile), "This is no text file.");
}

std::string block(int rows, int columns) {
  std::string text;
  for (int row = 0; row < rows; ++row)
    for (int column = 0; column < columns; ++column)
      text += exactText(1.0 / (3 + row * columns + column)) + (column + 1 < columns ? "\t" : "\n");
  return text;
}

// As R, Python and older programs write tables: a first column that numbers or names the cases has
// an empty heading or none at all, and blanks may divide the fields.
TEST(TextImport, namesStandOverTheirColumnsWhereTheFirstHasNone) {
  using enum ImportDoubt;
  const Sample samples[] = {
      {"\"\",x,y\n1,5,2\n2,6,3\n", "", {}, "[][x][y]|'1 5 2|'2 6 3@1,0"},
      {",1990,2000\n1,1.5,2\n2,1.6,3\n",
       "heading",
       {{heading, 0}},
       "[][1990][2000]|'1 1.5 2|'2 1.6 3@1,0"},
      {",0,1\na,1.5,2\nb,1.6,3\n", "heading", {{heading, 0}}, "[][0][1]|'a 1.5 2|'b 1.6 3@1,0"},
      {"x\ty\n1\t5\t2\n2\t6\t3\n", "first=0", {}, "[][x][y]|'1 5 2|'2 6 3@1,0"},
      {"x\ty\nUlm\t5\t2\nRom\t6\t3\n", "first=0", {}, "[][x][y]|'Ulm 5 2|'Rom 6 3@1,0"},
      {"1940\t1945\nUlm\t5\t2\nRom\t6\t3\n", "first=0", {}, "[][1940][1945]|'Ulm 5 2|'Rom 6 3@1,0"},
      {"x,y\n7,5,\n8,6,3\n", "first", {{firstRow, 1}}, "[x][y][]|7 5 |8 6 3@1,1"},
      {"x,y\n7,5,4\n8,6,3\n", "first", {{firstRow, 2}}, "line 1, column 1: The row is too short."},
      {"x y\n1 5\n2 6\n", "separator", {{separator, 0}}, "[x][y]|1 5|2 6@1,1"},
      {"\"x\" \"y\"\n\"New York\" 5 2\n\"Rom\" 6 3\n",
       "separator",
       {{separator, 0}},
       "[][x][y]|'New York 5 2|'Rom 6 3@1,0"},
  };
  for (const Sample& sample : samples) {
    SCOPED_TRACE(sample.text);
    EXPECT_EQ(asked(sample.text, asFile), sample.asked);
    EXPECT_EQ(landed(sample.text, asFile, sample.answers), sample.landed);
  }
}

TEST(TextImport, whatStandsRoundTheNamesIsLeftOutAndTold) {
  const auto told = [](const std::string& text) {
    std::string all;
    const auto preview = TextImport::read(text, asFile)->preview({});
    for (const std::string& note : preview->notes) all += note + "|";
    return all;
  };
  const std::string table = "[a][b][c]|1 2 3|4 5 6@1,1";
  const std::string above = "Fields are divided by commas.|Lines above the table were left out: ";
  EXPECT_EQ(landed("My study\n\na,b,c\n1,2,3\n4,5,6\n", asFile), table);
  EXPECT_EQ(told("My study\n\na,b,c\n1,2,3\n4,5,6\n"),
            above + "1, the first is \"My study\".|Blank lines were left out: 1.|");
  EXPECT_EQ(landed("# x\n# y,,\n,,\na,b,c\n1,2,3\n4,5,6\n", asFile), table);
  EXPECT_EQ(landed("sep=;\na;b;c\n1;2;3\n4;5;6\n", asFile), table);
  EXPECT_EQ(landed("a,b,c\n(EUR),,%\n1,2,3\n4,5,6\n", asFile), table);
  EXPECT_EQ(told("a,b,c\n(EUR),,%\n1,2,3\n4,5,6\n"),
            "Fields are divided by commas.|"
            "Line 2 has no numbers below the names (\"(EUR)\") and was left out.|");
  // Cases, and numbers, never.
  EXPECT_EQ(landed("Ulm,,\nRom,1,2\nPau,3,4\n", asFile), "|'Ulm  |'Rom 1 2|'Pau 3 4@1,0");
  EXPECT_EQ(asked("a,b,c\nx,NA,1\n1,2,3\n4,5,6\n", asFile), "missing=0 words");
  EXPECT_EQ(asked("7,,\na,b,c\n4,5,6\n4,5,7\n", asFile), "words");
}

TEST(TextImport, whatWouldSurpriseLaterIsTold) {
  const auto notes = [](const char* text, int row, TextOrigin origin = TextOrigin::clipboard) {
    return TextImport::read(text, {origin, row, 0, 500, 50})->preview({})->notes;
  };
  EXPECT_EQ(
      notes("x\ty\tz\n1\tNA\t\n2\t6\t8\n", 1, TextOrigin::file),
      std::vector<std::string>{"Column 2 begins without a value (2 columns in all). Above a "
                               "variable's first value, the analysis takes empty cells as 0."});
  EXPECT_TRUE(notes("x\ty\n1\t5\n2\t\n", 1, TextOrigin::file).empty());
  EXPECT_EQ(notes("1\t5\n2\t6\n", 1),
            std::vector<std::string>{
                "The first column becomes the labels of the cases, though it holds numbers."});
  EXPECT_TRUE(notes("\tx\n1\t5\n2\t6\n", 0).empty());
}

TEST(TextImport, whatHasNoRoomIsRefusedWithTheNumbers) {
  EXPECT_EQ(asked(block(500, 50), asFile), "");
  EXPECT_EQ(asked(block(501, 2), asFile),
            "The text has 501 rows and 2 columns of data; there is room for 500 and 50.");
  EXPECT_EQ(asked(block(2, 51), asFile),
            "The text has 2 rows and 51 columns of data; there is room for 500 and 50.");
  const ImportTarget low = atCell(500, 50);
  EXPECT_EQ(asked("1\n", low), "");
  EXPECT_EQ(asked("1\n2\n", low), "The text has 2 rows of data; there is room for 1.");
  EXPECT_EQ(asked("1\t2\n", low), "The text has 2 columns of data; there is room for 1.");
}

TEST(TextImport, thePreviewShowsWhatWillLandAndTellsWhatWasTakenForGranted) {
  const auto import = TextImport::read("a;b\n1.234;9\n1,5;NA\n3;x\n", asFile);
  auto preview = import->preview({});
  EXPECT_EQ(preview->shown[2], (std::vector<std::string>{"3", "x"}));
  EXPECT_FALSE(preview->isAnswered());
  preview = import->preview({{ImportDoubt::words, 0}, {ImportDoubt::heading, 0}});
  EXPECT_TRUE(preview->isAnswered());
  EXPECT_EQ(preview->shown,
            (std::vector<std::vector<std::string>>{{"1234", "9"}, {"1.5", ""}, {"3", ""}}));
  EXPECT_EQ(preview->notes, std::vector<std::string>{"Fields are divided by semicolons."});
  EXPECT_EQ(preview->questions[0].text, "What is the decimal mark in \"1,5\" (line 3, column 1)?");
}

// A sheet whose fields are told by a letter: n and a number, d and a day, e and an error, m and a
// code, anything else a text; rows and columns from B3 on.
CutBook bookOf(const std::vector<std::vector<std::string>>& rows) {
  CutBook book{.format = "xlsx", .sheets = {{"Data", false, true}}};
  CutTable& table = book.table;
  for (std::size_t column = 0; column < rows[0].size(); ++column)
    table.columns.push_back({.number = static_cast<int>(column) + 2});
  for (const auto& row : rows) {
    table.rowNumbers.push_back(static_cast<int>(table.rowNumbers.size()) + 3);
    for (const std::string& text : row) {
      CutField field;
      const char letter = text.empty() ? ' ' : text[0];
      const auto kind = std::string("-npchbdt-m").find(letter);
      if (letter == '#') {
        field.kind = CutKind::error;
      } else if (kind != std::string::npos && text.size() > 1 && text[1] != '_') {
        field = {readNumber(text.substr(1)).number, noText, static_cast<CutKind>(kind)};
      } else if (!text.empty()) {
        field.kind = CutKind::text;
      }
      if (field.kind == CutKind::text || field.kind == CutKind::error) {
        field.text = static_cast<std::uint32_t>(table.texts.size());
        table.texts.push_back(text[0] == '_' ? text.substr(1) : text);
      }
      table.fields.push_back(field);
    }
  }
  table.rowsInAll = static_cast<int>(rows.size());
  return book;
}

std::string noted(const ImportPreview& preview) {
  std::string all;
  for (const std::string& note : preview.notes) all += note + "\n";
  return all;
}

TEST(CutTable, keepsExactNumbersAndAsksOnlyForWhatIsText) {
  const auto import = TextImport::of(bookOf({{"_Survey 2024", "", "", "", "", ""},
                                             {"_Name", "_X", "_Code", "_Born", "_Share", "_Kind"},
                                             {"_Ann", "n1.234", "_1,5", "d45350", "p0.125", "n1"},
                                             {"_Bob", "n1e-7", "_007", "d45351", "p0.5", "m9"},
                                             {"_Eve", "#N/A", "_2", "d45352", "p1", "n2"}}),
                                     {}, asFile);
  const auto preview = import.preview({});
  ASSERT_TRUE(preview) << preview.error().message();
  EXPECT_EQ(doubts(*preview), "labels=0 dates decimal=1 codes=0 missing=0");
  EXPECT_NE(noted(*preview).find("Survey 2024"), std::string::npos);
  EXPECT_NE(noted(*preview).find("12.5 % as 0.125: \"0.125\" (F5, 3 in all)"), std::string::npos);
  const auto question = std::find_if(
      preview->questions.begin(), preview->questions.end(),
      [](const ImportQuestion& asked) { return asked.doubt == ImportDoubt::missingCodes; });
  EXPECT_NE(question->text.find("\"9\" (G6)"), std::string::npos) << question->text;
  const auto table = import.apply({{ImportDoubt::dates, 0}, {ImportDoubt::missingCodes, 1}});
  ASSERT_TRUE(table) << table.error().message();
  EXPECT_EQ(table->headings[1], "X");
  EXPECT_EQ(table->cells(0, 1).number, 1.234);
  EXPECT_EQ(table->cells(1, 1).number, 1e-7);
  EXPECT_EQ(table->cells(2, 1).number, std::nullopt);
  EXPECT_EQ(table->cells(0, 2).number, 1.5);
  EXPECT_EQ(table->cells(0, 3).number, 45350);
  EXPECT_EQ(table->cells(1, 5).number, 9);
  EXPECT_EQ(table->cells(0, 0).text, "Ann");
}

TEST(CutTable, ofSeveralSheetsIsTheOneThatIsChosen) {
  CutBook first = bookOf({{"_Read me", ""}, {"_then", "_look"}});
  first.sheets = {{"Notes", false, true}, {"Old", true, true}, {"Data", false, true}};
  CutBook data = bookOf({{"_X", "_Y"}, {"n1", "n2"}, {"n3", "n4"}});
  data.sheets = first.sheets;
  data.sheet = 2;
  std::string read;
  const auto import = TextImport::of(
      first,
      [&](const CutRequest& request) -> Result<CutBook> {
        read += request.sheet + ";";
        if (request.sheet == "Data") return data;
        return Error{request.sheet, "it is damaged"};
      },
      asFile);
  EXPECT_EQ(doubts(*import.preview({})), "sheet");
  EXPECT_EQ(import.preview({})->questions[0].choices,
            (std::vector<std::string>{"Notes", "Data", "Old (hidden)"}));
  EXPECT_FALSE(import.apply({}));
  const auto table = import.apply({{ImportDoubt::sheet, 1}});
  ASSERT_TRUE(table) << table.error().message();
  EXPECT_EQ(table->headings, (std::vector<std::string>{"X", "Y"}));
  EXPECT_EQ(import.preview({{ImportDoubt::sheet, 2}}).error().message(), "Old: it is damaged");
  EXPECT_TRUE(import.preview({{ImportDoubt::sheet, 1}}));
  EXPECT_EQ(read, "Data;Old;");
}

// The same cases in six files of four formats.
TEST(CutTable, landsAlikeFromEveryFormat) {
  const auto land = [](const std::string& name, const CutRequest& request) {
    const ImportReader reader{.program = TOLMER_PROGRAM_FOLDER "/tolimport"};
    auto book = importFile(TOLMER_SOURCE_DIR "/fuzz/corpus/foreign_file/" + name, request, reader);
    if (!book) return book.error().message();
    const auto table = TextImport::of(std::move(*book), {}, asFile)
                           .apply({{ImportDoubt::sheet, 1},
                                   {ImportDoubt::heading, 0},
                                   {ImportDoubt::words, 0},
                                   {ImportDoubt::dates, 0}});
    if (!table) return table.error().message();
    std::string all;
    for (int row = 0; row <= table->cells.lastRow(); ++row)
      for (int column = 0; column < 4; ++column)
        all += cellText(table->cells(row, column)) + (column < 3 ? " " : "|");
    return all;
  };
  const std::string cases = "'Oslo 12.5 27.3 45350|'K\u00F8ge, S -0.1 1e-07 45351| 3  45352|";
  for (const char* name : {"haven.sav", "haven.zsav", "haven14.dta", "haven8.dta"})
    EXPECT_EQ(land(name, {}), cases) << name;
  EXPECT_EQ(land("openpyxl.xlsx", {.sheet = "Data"}), cases);
  EXPECT_EQ(land("xlsxwriter.xlsx", {}), cases);
}

}  // namespace
}  // namespace tolmer
