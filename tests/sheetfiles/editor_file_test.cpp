// The editor's own files: exact, checked, whole.
#include "sheetfiles/editor_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <bit>
#include <filesystem>
#include <limits>
#include <random>

#include "base/data_limits.h"
#include "base/file_io.h"
#include "sheetfiles/text_export.h"
#include "support/temp_folder.h"
#include "textimport/text_import.h"
#include "textimport/typed_number.h"

namespace tolmer {
namespace {

namespace fs = std::filesystem;
using Random = std::mt19937_64;

DataCell number(double value) { return {.kind = DataCell::Kind::number, .number = value}; }
DataCell text(std::string words) {
  return {.kind = DataCell::Kind::text, .text = std::move(words)};
}
DataCell formula(std::string source, double result, std::uint32_t seed = 0) {
  return {
      .kind = DataCell::Kind::formula, .seed = seed, .number = result, .text = std::move(source)};
}

std::optional<Error> saveEditorFile(const std::string& name, const SheetContent& sheet) {
  const auto bytes = editorFileToSave(name, sheet);
  return bytes ? writeFileAtomically(name, *bytes) : bytes.error();
}

double anyFinite(Random& random) {
  for (;;)
    if (const auto value = std::bit_cast<double>(random()); std::isfinite(value)) return value;
}

std::string anyText(Random& random) {
  constexpr std::string_view letters = "ab\t\n\r\\\"'=~^# 1\xC3\xA9\x01\x7F";
  std::string words;
  for (std::size_t i = random() % 12; i > 0; --i) words += letters[random() % letters.size()];
  return words;
}

DataCell anyCell(Random& random) {
  switch (random() % 8) {
    case 0:
      return {};
    case 1:
      return text(anyText(random));
    case 2:
      return formula("=" + anyText(random), anyFinite(random), random() % 2 ? 7 : 0);
    case 3:
      return number(static_cast<double>(random() % 1000) / 100);
    default:
      return number(anyFinite(random));
  }
}

SheetContent anySheet(Random& random, int rows, int columns) {
  SheetContent sheet(editorObservations, editorVariables);
  for (int row = 0; row <= rows; ++row)
    for (int column = 0; column <= columns; ++column) sheet.cells(row, column) = anyCell(random);
  for (int i = 1; i <= editorVariables; ++i)
    sheet.decimals[static_cast<std::size_t>(i)] = static_cast<Int16>(random() % 15);
  sheet.title = anyText(random);
  if (random() % 2) sheet.source = sheet.labels[7] = anyText(random);
  return sheet;
}

// All cells filled; `cell(row, column)` gives the values.
template <class Make>
SheetContent fullSheet(Make cell) {
  SheetContent sheet(editorObservations, editorVariables);
  for (int row = 1; row <= editorObservations; ++row) {
    sheet.cells(row, 0) = text("a label of some length " + std::to_string(row));
    for (int column = 1; column <= editorVariables; ++column)
      sheet.cells(row, column) = cell(row, column);
  }
  return sheet;
}

// With the right check sum, so that the fault is found by reading.
std::string withCheck(std::string lines) {
  const std::string whole = editorFileBytes(SheetContent(500, 50));
  return lines + whole.substr(whole.size() - 13, 4) + checksumText(lines) + "\n";
}

class EditorFile : public testing::Test {
 protected:
  test::TempFolder folder;
  std::string name = folder.file("a.zmm");
};

TEST_F(EditorFile, anySheetComesBackToTheLastBit) {
  Random random(6);
  for (int i = 0; i < 60; ++i) {
    const SheetContent sheet = anySheet(random, i * 8, i % 51);
    const auto back = editorFileContent(editorFileBytes(sheet, i % 2 ? "from/a\tb" : ""));
    ASSERT_TRUE(back) << back.error().message();
    EXPECT_EQ(back->sheet, sheet);
    EXPECT_EQ(back->from, i % 2 ? "from/a\tb" : "");
  }
  SheetContent sheet(editorObservations, editorVariables);
  sheet.cells(1, 1) = number(-0.0);
  sheet.cells(1, 2) = formula("=1/0", std::numeric_limits<double>::quiet_NaN());
  const auto back = editorFileContent(editorFileBytes(sheet));
  EXPECT_TRUE(std::signbit(back->sheet.cells(1, 1).number));
  EXPECT_TRUE(std::isnan(back->sheet.cells(1, 2).number));
}

TEST_F(EditorFile, whatCanBeSavedCanBeLoadedAtTheLimits) {
  Random random(7);
  const SheetContent sheets[] = {
      fullSheet([&](int, int) { return number(anyFinite(random)); }),
      fullSheet([&](int, int) { return number(static_cast<double>(random() >> 11) * 0x1p-53); }),
      fullSheet([](int row, int column) {
        return formula("=SUM(B" + std::to_string(row) + ":D$1)*LN(C" + std::to_string(row) + ")",
                       1.0 / (row + column));
      }),
  };
  for (const SheetContent& sheet : sheets) {
    const auto failed = saveEditorFile(name, sheet);
    ASSERT_FALSE(failed) << failed->message();
    EXPECT_LE(fs::file_size(name), maxEditorFileBytes);
    const auto back = loadEditorFile(name);
    ASSERT_TRUE(back) << back.error().message();
    EXPECT_EQ(*back, sheet);
  }
  const auto refused = saveEditorFile(
      name, fullSheet([](int row, int column) {
        return formula("=A1+" + std::string(30, 'B') + std::to_string(row * column), row);
      }));
  ASSERT_TRUE(refused);
  EXPECT_TRUE(refused->text.ends_with("and a file may have no more than 500000")) << refused->text;
  EXPECT_EQ(*loadEditorFile(name), sheets[2]);
}

TEST_F(EditorFile, theBytesAreTheLogicalTable) {
  SheetContent sheet(editorObservations, editorVariables);
  sheet.cells(0, 0) = text("Label");
  sheet.cells(0, 2) = text("Income");
  sheet.cells(500, 1) = number(1.5);
  sheet.title = "My data";
  std::string decimals;
  for (int i = 0; i < 50; ++i) decimals += "\t3";
  EXPECT_EQ(editorFileBytes(sheet),
            withCheck("ZMDATA 1 500 50\n1\t\"Label\t\t\"Income\n501\t\t1.5\n552\t" + decimals +
                      "\n553\t\"ZM50\n554\t\"My data\n"));
  sheet.source = "a.sav";
  sheet.labels[2] = "Income\tper year";
  EXPECT_EQ(editorFileBytes(sheet),
            withCheck("ZMDATA 2 500 50\n1\t\"Label\t\t\"Income\n501\t\t1.5\n552\t" + decimals +
                      "\n553\t\"ZM50\n554\t\"My data\nsource\t\"a.sav\n"
                      "label 2\t\"Income\\tper year\n"));
}

TEST_F(EditorFile, changedLineEndsDoNoHarmAndAnyOtherDamageIsFound) {
  Random random(8);
  const SheetContent sheet = anySheet(random, 10, 5);
  const std::string bytes = editorFileBytes(sheet);
  std::string windows;
  for (const char c : bytes) windows += c == '\n' ? std::string("\r\n") : std::string(1, c);
  EXPECT_EQ(editorFileContent(windows)->sheet, sheet);
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    for (int bit = 0; bit < 8; ++bit) {
      std::string flipped = bytes;
      flipped[i] = static_cast<char>(flipped[i] ^ (1 << bit));
      const auto read = editorFileContent(flipped);
      ASSERT_TRUE(!read || read->sheet == sheet) << "byte " << i << " bit " << bit;
    }
    ASSERT_FALSE(editorFileContent(bytes.substr(0, i))) << i;
  }
}

TEST_F(EditorFile, wrongFilesAreRefusedWithTheReason) {
  const std::string good = editorFileBytes(SheetContent(500, 50));
  std::string newer = good;
  newer.replace(7, 1, "3");
  std::string decimals;
  for (int i = 0; i < 50; ++i) decimals += "\t3";
  const std::string head = "ZMDATA 1 500 50\n";
  const std::string tail = "552\t" + decimals + "\n553\t\"ZM50\n554\t\"\n";
  const std::pair<std::string, std::string> table[] = {
      {"a,b\n1,2\n", "is no file of the data editor"},
      {newer, "was written by a newer version of the program"},
      {editorFileBytes(SheetContent(500, 2)), "is of another size: 500 2"},
      {good + "\n", "is damaged or cut off: its last line is missing"},
      {withCheck(head + "552\t" + decimals + "\n553\t\"ZM2\n"),
       "holds data of type \"ZM2\", not \"ZM50\""},
      {withCheck(head), "holds data of type \"\", not \"ZM50\""},
      {withCheck(head + "2\t\"a\n1\t\"b\n" + tail), "is damaged or cut off: row \"1\""},
      {withCheck(head + "502\t\"a\n" + tail), "is damaged or cut off: row \"502\""},
      {withCheck(head + "2" + std::string(52, '\t') + "1\n" + tail),
       "is damaged or cut off: row \"2\""},
  };
  for (const auto& [bytes, reason] : table) {
    const auto read = editorFileContent(bytes);
    ASSERT_FALSE(read) << reason;
    EXPECT_EQ(read.error().message(), reason);
  }
  for (const char* cell : {"x", "inf", "nan", "1e999", "1 ", "+1", "~AAAAAAAAAA", "~AAAAAAAAAAQ",
                           "=", "=1", "=x=A1", "=1#=A1", "^1", "\"\\", "\"\\x"})
    EXPECT_FALSE(editorFileContent(withCheck(head + "2\t" + cell + "\n" + tail))) << cell;
  ASSERT_FALSE(writeFileAtomically(name, std::string(500001, 'x')));
  EXPECT_EQ(loadEditorFile(name).error().text, "has 500001 bytes, more than 500000");
  EXPECT_FALSE(loadEditorFile(folder.path()));
  EXPECT_FALSE(loadEditorFile(folder.file("none")));
}

TEST_F(EditorFile, aSaveFollowsALinkAndKeepsTheMode) {
  const SheetContent sheet(editorObservations, editorVariables);
  ASSERT_FALSE(saveEditorFile(name, sheet));
  ASSERT_EQ(::chmod(name.c_str(), 0604), 0);
  const std::string link = folder.file("link.zmm");
  fs::create_symlink("a.zmm", link);
  SheetContent other = sheet;
  other.title = "other";
  ASSERT_FALSE(saveEditorFile(link, other));
  EXPECT_TRUE(fs::is_symlink(link));
  EXPECT_EQ(*loadEditorFile(name), other);
  struct stat about {};
  ASSERT_EQ(::stat(name.c_str(), &about), 0);
  EXPECT_EQ(about.st_mode & 0777, 0604u);
  EXPECT_FALSE(isReadOnly(link));
  ASSERT_EQ(::chmod(name.c_str(), 0444), 0);
  EXPECT_TRUE(isReadOnly(link));
  EXPECT_FALSE(isReadOnly(folder.file("none")));
}

TEST_F(EditorFile, aSaveLeavesAFileAloneWhoseNameDiffersInCase) {
  SheetContent sheet(editorObservations, editorVariables);
  ASSERT_FALSE(saveEditorFile(name, sheet));
  ASSERT_EQ(::chmod(name.c_str(), 0444), 0);
  const SheetContent kept = sheet;
  sheet.title = "other";
  EXPECT_FALSE(isReadOnly(folder.file("A.zmm")));
  ASSERT_FALSE(saveEditorFile(folder.file("A.zmm"), sheet));
  EXPECT_EQ(*loadEditorFile(name), kept);
  EXPECT_EQ(*loadEditorFile(folder.file("A.zmm")), sheet);
  ASSERT_FALSE(writeFileAtomically(folder.file("a.CSV"), sheetText(sheet, ',')));
  ASSERT_FALSE(writeFileAtomically(folder.file("a.csv"), sheetText(sheet, ',')));
  EXPECT_TRUE(fs::exists(folder.file("a.CSV")) && fs::exists(folder.file("a.csv")));
}

TEST_F(EditorFile, textDataGoOutAndComeBackExactly) {
  Random random(10);
  SheetContent sheet(editorObservations, editorVariables);
  const char* labels[] = {"Ulm, Alb", "say \"x\"", "5\" pipe", "a;b", "\xC3\xA9t\xC3\xA9"};
  for (int column = 1; column <= 4; ++column)
    sheet.cells(0, column) = text("name " + std::to_string(column));
  sheet.cells(0, 0) = text("Town");
  for (int row = 1; row <= 40; ++row) {
    sheet.cells(row, 0) = text(labels[row % 5]);
    for (int column = 1; column <= 4; ++column)
      if (random() % 10) sheet.cells(row, column) = number(anyFinite(random));
  }
  for (const char separator : {',', '\t'}) {
    ASSERT_FALSE(writeFileAtomically(name, sheetText(sheet, separator)));
    const auto table =
        TextImport::read(*readWholeFile(name), {.observations = 500, .variables = 50})
            ->apply({{ImportDoubt::labels, 0}});
    ASSERT_TRUE(table) << table.error().message();
    EXPECT_EQ(table->headings,
              (std::vector<std::string>{"Town", "name 1", "name 2", "name 3", "name 4"}));
    for (int row = 1; row <= 40; ++row)
      for (int column = 0; column <= 4; ++column) {
        const DataCell& saved = sheet.cells(row, column);
        const ImportedCell& back = table->cells(row - 1, column);
        EXPECT_EQ(back.number.has_value(), saved.kind == DataCell::Kind::number);
        EXPECT_EQ(back.number.value_or(0), saved.number);
        EXPECT_EQ(back.text, saved.text);
      }
  }
}

}  // namespace
}  // namespace tolmer
