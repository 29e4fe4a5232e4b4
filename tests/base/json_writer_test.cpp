#include "base/json_writer.h"

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <limits>
#include <random>

namespace tolmer {
namespace {

class JsonText {
 public:
  JsonWriter json{[this](std::string_view piece) { text_ += piece; }};

  const std::string& text() {
    json.finish();
    return text_;
  }

 private:
  std::string text_;
};

TEST(JsonWriter, ObjectsOverLinesAndArraysOnOne) {
  JsonText written;
  JsonWriter& json = written.json;
  json.beginObject();
  json.member("name", "a");
  json.key("list");
  json.beginArray();
  json.value(1);
  json.beginObject();
  json.member("flag", true);
  json.member("none", false);
  json.endObject();
  json.beginArray();
  json.endArray();
  json.endArray();
  json.key("empty");
  json.beginObject();
  json.endObject();
  json.endObject();
  EXPECT_EQ(written.text(),
            "{\n  \"name\": \"a\",\n  \"list\": [1, {\"flag\": true, \"none\": false}, []],\n"
            "  \"empty\": {}\n}\n");
}

TEST(JsonWriter, NumbersGiveTheStoredValueBack) {
  JsonText written;
  JsonWriter& json = written.json;
  json.beginArray();
  json.value(0.1F);
  json.value(0.1);
  json.value(1e30F);
  json.value(-2.5F);
  json.value(-0.0F);
  json.value(std::numeric_limits<float>::denorm_min());
  json.value(std::numeric_limits<float>::quiet_NaN());
  json.value(-std::numeric_limits<double>::infinity());
  json.value(std::numeric_limits<float>::infinity());
  json.value(static_cast<short>(-7));
  json.endArray();
  EXPECT_EQ(written.text(),
            "[0.100000001, 0.10000000000000001, 1.00000002e+30, -2.5, -0, 1.40129846e-45, \"nan\", "
            "\"-inf\", \"inf\", -7]\n");
}

// What std::to_chars writes, bit patterns of all sizes, ties and powers of ten among them.
TEST(JsonWriter, NumbersAreRoundedCorrectly) {
  std::mt19937_64 bits(1702);
  const auto text = [](double number, int digits) {
    std::array<char, 32> buffer;
    return std::string(buffer.data(), std::to_chars(buffer.data(), buffer.data() + buffer.size(),
                                                    number, std::chars_format::general, digits)
                                          .ptr);
  };
  for (int i = 0; i < 100000; ++i) {
    const double any = std::bit_cast<double>(bits() >> 2U);
    const double usual = std::ldexp(static_cast<double>(bits() >> (bits() % 64)), -(i % 80));
    const double power = std::nextafter(std::pow(10, i % 20 - 4), i % 3 - 1);
    for (const double number : {any, usual, power}) {
      JsonText written;
      JsonWriter& json = written.json;
      json.beginArray();
      json.value(number);
      json.value(static_cast<float>(usual));
      json.endArray();
      ASSERT_EQ(written.text(),
                "[" + text(number, 17) + ", " + text(static_cast<float>(usual), 9) + "]\n");
    }
  }
}

TEST(JsonWriter, TextIsEscapedWhereItMustBe) {
  JsonText written;
  JsonWriter& json = written.json;
  json.value(std::string_view("\"\\/\r\n\t\x01 ä β\0", 14));
  EXPECT_EQ(written.text(), "\"\\\"\\\\/\\r\\n\\t\\u0001 ä β\\u0000\"");
  const std::string controls(5000, '\x01');
  JsonText lengthy;
  lengthy.json.value(controls);
  EXPECT_EQ(lengthy.text().size(), 5000 * 6 + 2);
}

}  // namespace
}  // namespace tolmer
