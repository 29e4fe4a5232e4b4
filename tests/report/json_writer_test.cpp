#include "report/json_writer.h"

#include <limits>

namespace tolmer {
namespace {

TEST(JsonWriter, ObjectsOverLinesAndArraysOnOne) {
  JsonWriter json;
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
  EXPECT_EQ(json.text(),
            "{\n  \"name\": \"a\",\n  \"list\": [1, {\"flag\": true, \"none\": false}, []],\n"
            "  \"empty\": {}\n}\n");
}

TEST(JsonWriter, NumbersGiveTheStoredValueBack) {
  JsonWriter json;
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
  EXPECT_EQ(json.text(),
            "[0.100000001, 0.10000000000000001, 1.00000002e+30, -2.5, -0, 1.40129846e-45, \"nan\", "
            "\"-inf\", \"inf\", -7]\n");
}

TEST(JsonWriter, TextIsEscapedWhereItMustBe) {
  JsonWriter json;
  json.value(std::string_view("\"\\/\r\n\t\x01 ä β\0", 14));
  EXPECT_EQ(json.text(), "\"\\\"\\\\/\\r\\n\\t\\u0001 ä β\\u0000\"");
}

}  // namespace
}  // namespace tolmer
