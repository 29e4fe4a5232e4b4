#include "textimport/plain_table.h"

#include <bit>
#include <cmath>
#include <random>

namespace tolmer {
namespace {

using Random = std::mt19937;

template <std::size_t count>
std::string one(Random& random, const char* const (&texts)[count]) {
  return texts[random() % count];
}

std::string headingOf(Random& random, int column) {
  static constexpr const char* odd[] = {"",      "1990", "NA",         "\"a,b\"", "Gr\u00F6\u00DFe",
                                        "%rate", "'=x",  "\"q\"\"r\"", "-",       "X 1"};
  return random() % 12 > 0 ? "x" + std::to_string(column) : one(random, odd);
}

std::string cellOf(Random& random, int kind) {
  static constexpr const char* numbers[] = {
      "1", "-2.5", "1.234", "8635.496", "1e5", "0", " 7 ", "+.5", "5.", "-0", "12", "\"3\"", ".25"};
  static constexpr const char* words[] = {"Oslo", "\"a b\"", "Nan tes", "e5", "\u540D", "<b>"};
  static constexpr const char* odd[] = {"12%",       "$5",  "(5)",           "1 234", "\"1,5\"",
                                        "\u22125",   "x",   "1e99",          "1e400", "\"1,234\"",
                                        "1.234.567", "1;2", "16777217.0001", "1e-46", "\"\""};
  static constexpr const char* gaps[] = {"", "NA", ".", "-", " ", "n/a", "#N/A"};
  switch (kind) {
    case 0:
      return one(random, words);
    case 1:
      return one(random, numbers);
    case 2:
      return random() % 5 ? one(random, numbers) : one(random, gaps);
    default:
      return random() % 9 ? one(random, numbers) : one(random, odd);
  }
}

std::string tableOf(Random& random) {
  const int columns = 1 + static_cast<int>(random() % 5);
  std::vector<int> kinds;
  std::string text;
  for (int column = 0; column < columns; ++column) {
    kinds.push_back(static_cast<int>(random() % 24 ? random() % 3 : 3));
    text += (column ? "," : "") + headingOf(random, column);
  }
  for (int rows = static_cast<int>(random() % 6); rows >= 0; --rows) {
    text += random() % 30 ? "\n" : "\r\n \n";
    for (int column = 0; column < columns - (random() % 60 == 0); ++column)
      text += (column ? "," : "") + cellOf(random, kinds[static_cast<std::size_t>(column)]);
  }
  return text + (random() % 2 ? "\n" : "");
}

std::string described(const NamedTable& table) {
  std::string all = std::to_string(table.rows);
  for (const auto& name : table.names) all += "|" + name;
  for (const auto& label : table.labels) all += "/" + label;
  for (const auto& column : table.numbers) {
    all += "\n";
    for (const TextNumber& number : column)
      all += isGap(number) ? " gap"
                           : " " + std::to_string(std::bit_cast<std::uint64_t>(number.written)) +
                                 ":" + std::to_string(std::bit_cast<std::uint32_t>(number.held));
  }
  return all;
}

TEST(PlainTable, ReadsWhatTheImportReadsAlike) {
  Random random(20261122);
  int plain = 0;
  for (int round = 0; round < 20000; ++round) {
    const std::string text = tableOf(random);
    WantedColumns wanted{{}, random() % 2 == 0, random() % 3 ? "" : "x0"};
    if (random() % 2) wanted.numbers = {"x1"};
    std::string taken = text;
    const auto table = PlainTable::take(taken);
    const auto quick = table ? table->named(wanted) : std::nullopt;
    EXPECT_TRUE(table || taken == text);
    if (!quick) continue;
    ++plain;
    ImportTarget target{.observations = 500, .variables = 50};
    target.hints.wanted = wanted;
    const auto whole = TextImport::read(text, target)->named({});
    ASSERT_TRUE(whole) << text << "\n" << whole.error().message();
    ASSERT_EQ(described(*quick), described(*whole)) << text;
  }
  EXPECT_GT(plain, 2000);
}

// Single precision has 24 bits: rounding to double first would fall on the even neighbour.
TEST(PlainTable, NumbersAreRoundedOnce) {
  const std::string text = "a;b\n1,00000005960464477540;1\n2;3\n";
  ImportTarget target{.observations = 500, .variables = 50};
  target.hints.wanted.emplace().others = true;
  const std::string point = "a,b\n1.00000005960464477540,1\n2,3\n";
  for (const auto& table :
       {*TextImport::read(point, target)->named({}), *TextImport::read(text, target)->named({})})
    EXPECT_EQ(table.numbers[0][0].held, std::nextafter(1.0F, 2.0F));
}

}  // namespace
}  // namespace tolmer
