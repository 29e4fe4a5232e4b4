// Bytes as copied HTML: its table is one that a paste reads, with as many fields in each row.
#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "textimport/html_table.h"
#include "textimport/text_table.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tolmer;
  const auto table = tableOfHtml({reinterpret_cast<const char*>(data), size});
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
