// Bytes as a notebook's source: refused with complaints, or compiled into a book that can be read.
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "bookcompiler/book_compiler.h"
#include "notebook/object_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tolmer;
  static const CourseFolders folders{TOLMER_COURSE, TOLMER_COURSE "/art"};
  const std::string_view source(reinterpret_cast<const char*>(data), size);
  const CompiledBook compiled = compileBook(source, folders);
  if (compiled.hasErrors) {
    if (compiled.complaints.empty() || !compiled.objectText.empty()) std::abort();
    return 0;
  }
  FieldReader fields("x.nbo", compiled.objectText);
  if (!readBook(fields)) std::abort();
  return 0;
}
