// Bytes as a notebook's object file; what is read must write and read again as the same.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "notebook/object_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tolmer;
  FieldReader fields("x.nbo", std::string(reinterpret_cast<const char*>(data), size));
  const auto book = readBook(fields);
  if (!book) return 0;
  FieldReader written("y.nbo", objectFileText(*book));
  const auto again = readBook(written);
  // An unquoted text may hold a quote behind its first sign, which no writer can say.
  const bool canBeSaid = fields.text().find('"') == std::string_view::npos;
  if (canBeSaid && (!again || !(*again == *book))) std::abort();
  return 0;
}
