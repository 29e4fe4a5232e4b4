// Foreign files through the program that reads them: what comes back, and what a reader that fails
// costs.
#include "foreign/import_process.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "base/file_io.h"
#include "support/tree.h"

namespace tolmer {
namespace {

namespace fs = std::filesystem;

const std::string samples = TOLMER_SOURCE_DIR "/fuzz/corpus/foreign_file/";
const ImportReader reader{.program = TOLMER_PROGRAM_FOLDER "/tolimport"};

std::string shown(const CutTable& table) {
  std::string all;
  for (const CutColumn& column : table.columns) all += column.name.empty() ? "" : column.name + "|";
  for (std::size_t row = 0; row < table.rows(); ++row) {
    all += (all.empty() ? "" : "\n") + std::to_string(table.rowNumbers[row]) + ":";
    for (std::size_t column = 0; column < table.columns.size(); ++column)
      all += " " + table.text(table.field(row, column)) + "|";
  }
  return all;
}

// The table, or the sentence in its place, without the folder.
std::string read(const std::string& name, const CutRequest& request = {},
                 const ImportReader& by = reader) {
  const auto book = importFile(samples + name, request, by);
  if (book) return shown(book->table);
  const std::string message = book.error().message();
  return message.substr(std::min(message.size(), samples.size()));
}

TEST(ImportedFile, holdsTheSameInEveryFormat) {
  const std::string names = "town|size|price|sold|kind|";
  const std::string cases =
      "\n1: Oslo| 12.5| 27.3| 2024-02-28| 1|"
      "\n2: K\u00F8ge, S| -0.1| 1e-07| 2024-02-29| 2|"
      "\n3: | 3| | 2024-03-01| 9|";
  EXPECT_EQ(read("haven.sav"), names + cases);
  EXPECT_EQ(read("haven.zsav"), names + cases);
  std::string tagged = names + cases;
  tagged.replace(tagged.size() - 2, 1, ".a");
  EXPECT_EQ(read("haven14.dta"), tagged);
  EXPECT_EQ(read("haven8.dta"), tagged);
  EXPECT_EQ(read("openpyxl.xlsx", {.sheet = "Data", .columns = {1, 2, 3, 4, 5}}),
            "1: town| size| price| sold| kind|"
            "\n2: Oslo| 12.5| 27.3| 2024-02-28| 1|"
            "\n3: K\u00F8ge, S| -0.1| 1e-07| 2024-02-29| 2|"
            "\n4: | 3| | 2024-03-01| 9|");
  EXPECT_EQ(read("flat.fods"),
            "3: town  name\nbelow| share| |"
            "\n4: 2024-02-28 12:00:00| 0.125| 0.125|"
            "\n5: 1.5208333333333333| 1234.5| 1|\n6: 1.5208333333333333| 1234.5| 1|"
            "\n7: #DIV/0!| | |");
}

TEST(ImportedFile, tellsWhatItsFieldsAreAndWhere) {
  const auto book = importFile(samples + "openpyxl.xlsx", {.sheet = "2"}, reader);
  ASSERT_TRUE(book) << book.error().message();
  ASSERT_EQ(book->sheets.size(), 3U);
  EXPECT_TRUE(book->sheets[2].hidden);
  const CutTable& table = book->table;
  EXPECT_EQ(table.field(1, 2).kind, CutKind::percent);
  EXPECT_EQ(table.field(2, 1).kind, CutKind::currency);
  EXPECT_EQ(table.field(1, 5).kind, CutKind::boolean);
  EXPECT_EQ(table.field(2, 5).kind, CutKind::error);
  EXPECT_EQ(table.place(3, 5), "F3");
  const auto sav = importFile(samples + "haven.sav", {}, reader);
  ASSERT_TRUE(sav) << sav.error().message();
  const CutColumn& kind = sav->table.columns[4];
  EXPECT_EQ(kind.label, "Kind of house");
  ASSERT_EQ(kind.valueLabels.size(), 3U);
  EXPECT_EQ(kind.valueLabels[1].value + "=" + kind.valueLabels[1].label, "2=old");
  EXPECT_EQ(kind.missingCodes.at(0).code, "9");
  EXPECT_EQ(importFile(samples + "haven8.dta", {}, reader)->table.title, "Sold houses");
}

TEST(ImportedFile, givesOnlyTheRowsAndColumnsThatAreAskedFor) {
  const auto book = importFile(samples + "haven.sav",
                               {.head = 0, .rows = 2, .every = 2, .columns = {2, 5}}, reader);
  ASSERT_TRUE(book) << book.error().message();
  EXPECT_EQ(shown(book->table), "size|kind|\n1: 12.5| 1|\n3: 3| 9|");
  EXPECT_EQ(book->table.rowsInAll, 3);
  EXPECT_EQ(book->table.columns[0].count(CutKind::number), 3);
}

TEST(ImportedFile, ofAnotherKindIsNamed) {
  const auto named = [](const std::string& bytes) {
    return importBytes("f", bytes, {}, reader).error().message();
  };
  const std::string ole("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1", 8);
  EXPECT_NE(named(ole + std::string("W\0o\0r\0k\0b\0o\0o\0k\0", 16)).find("old Excel"),
            std::string::npos);
  EXPECT_NE(named("%PDF-1.7 ...").find("PDF"), std::string::npos);
  EXPECT_NE(named("<html><table>").find("web page"), std::string::npos);
  EXPECT_NE(named("PK\x03\x04").find("damaged"), std::string::npos);
  EXPECT_EQ(read("openpyxl.xlsx", {.sheet = "Dates"}),
            "openpyxl.xlsx: there is no sheet \"Dates\"; the sheets are \"Notes\", \"Data\", "
            "\"hidden\"");
}

// Every tenth byte changed, and every length up to the whole: a checksum keeps each of them out.
TEST(DamagedWorkbook, givesTheSameTableOrNone) {
  const auto bytes = readWholeFile(samples + "gnumeric.xlsx");
  ASSERT_TRUE(bytes);
  const std::string whole = read("gnumeric.xlsx");
  int refused = 0;
  for (std::size_t at = 0; at < bytes->size(); at += 97) {
    std::string damaged = *bytes;
    damaged[at] = static_cast<char>(damaged[at] ^ (1 << (at % 8)));
    const auto book = importBytes("f", damaged, {}, reader);
    if (book)
      EXPECT_EQ(shown(book->table), whole) << at;
    else
      ++refused;
    EXPECT_FALSE(importBytes("f", bytes->substr(0, at), {}, reader)) << at;
  }
  EXPECT_GT(refused, 5);
}

class FailingReader : public testing::Test {
 protected:
  ~FailingReader() override { fs::remove_all(folder_); }

  // What a reader costs that does this.
  std::string told(const std::string& script) {
    const fs::path program = folder_ / "reader";
    std::ofstream(program) << "#!/bin/sh\n" << script << "\n";
    fs::permissions(program, fs::perms::owner_all);
    return read("haven.sav", {}, {program.string(), std::chrono::milliseconds(500)});
  }

  fs::path folder_ = [] {
    std::string name = (fs::temp_directory_path() / "readerXXXXXX").string();
    return fs::path(::mkdtemp(name.data()));
  }();
};

TEST_F(FailingReader, costsASentence) {
  const std::string table =
      "echo 'tolimport 1'; printf "
      "'book\\tsav\\t0\\nsheet\\t\\t0\\t1\\ntable\\t\\t1\\t0\\t0\\t0\\t0\\n'";
  EXPECT_EQ(told(table + "; echo end"), "");
  EXPECT_NE(told(table).find("no whole table"), std::string::npos);
  EXPECT_NE(told(table + "; echo end; echo more").find("no whole table"), std::string::npos);
  EXPECT_NE(told(table + "; echo end; exit 1").find("gave up"), std::string::npos);
  EXPECT_NE(told(table + "; echo end; kill -SEGV $$").find("gave up"), std::string::npos);
  EXPECT_NE(told("while :; do :; done").find("takes too long"), std::string::npos);
  EXPECT_NE(told("while :; do echo row; done").find("haven.sav: "), std::string::npos);
  EXPECT_NE(read("haven.sav", {}, {folder_ / "none"}).find("tolimport, which reads such files, is"),
            std::string::npos);
}

}  // namespace
}  // namespace tolmer
