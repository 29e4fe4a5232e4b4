// Bytes as copied HTML: its table is one that a paste reads, with as many fields in each row.
#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "base/text_encoding.h"
#include "textimport/html_table.h"
#include "textimport/text_table.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tolmer;
  const std::string html = utf8FromFile({reinterpret_cast<const char*>(data), size});
  const auto table = tableOfHtml(html);
  if (!table) return 0;
  auto text = foreignText(table->text);
  if (!text) return 0;  // a zero byte
  const auto cut = textTable(std::move(*text), '\t', TextOrigin::clipboard);
  if (!cut || cut->columns() < 2 || cut->shortRows > 0) std::abort();
  const bool isOneLine = std::ranges::all_of(table->notes, [](const std::string& note) {
    return !note.empty() && note.find('\n') == note.npos;
  });
  if (!isOneLine) std::abort();
  return 0;
}
