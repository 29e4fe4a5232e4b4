// Bytes as a file of another program; behind a line "=== name" those of a workbook's parts, so that
// no checksum keeps changed ones out; behind "tolimport 1" as what a reader hands over.
#include <cstdint>
#include <cstdlib>
#include <map>
#include <string>

#include "foreign/cut_format.h"
#include "foreign/readers/package.h"
#include "foreign/readers/read_foreign.h"
#include "foreign/readers/xlsx_reader.h"

namespace {

using namespace tolmer;

constexpr std::string_view partMark = "=== ";

class LoosePackage : public Package {
 public:
  explicit LoosePackage(std::string_view bytes) {
    while (bytes.starts_with(partMark)) {
      const auto end = std::min(bytes.find('\n'), bytes.size());
      const std::string name(bytes.substr(partMark.size(), end - std::min(end, partMark.size())));
      bytes.remove_prefix(std::min(end + 1, bytes.size()));
      const auto next = std::min(bytes.find("\n=== "), bytes.size());
      parts_[name] = bytes.substr(0, next);
      bytes.remove_prefix(std::min(next + 1, bytes.size()));
    }
  }
  bool has(std::string_view name) const override { return parts_.contains(std::string(name)); }
  std::optional<Error> read(std::string_view name, const TakePiece& take) override {
    const auto part = parts_.find(std::string(name));
    if (part == parts_.end()) return Error{std::string(name), "this part is missing"};
    take(part->second);
    return std::nullopt;
  }
  std::string firstName() const override { return {}; }

 private:
  std::map<std::string, std::string_view> parts_;
};

Result<CutBook> bookOf(std::string_view bytes) {
  const CutRequest request;
  if (bytes.starts_with("tolimport 1")) return bookFromCutText(bytes);
  if (!bytes.starts_with(partMark)) return readForeign(bytes, request);
  LoosePackage package(bytes);
  return readXlsx(package, request);
}

}  // namespace

// What is handed over comes back as it was.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto book = bookOf({reinterpret_cast<const char*>(data), size});
  if (!book) {
    if (book.error().text.empty()) std::abort();
    return 0;
  }
  const CutTable& table = book->table;
  if (table.fields.size() != table.rows() * table.columns.size()) std::abort();
  const auto back = bookFromCutText(cutText(book));
  if (!back || back->table.rows() != table.rows()) std::abort();
  const auto again = bookFromCutText(cutText(back));
  if (!again || cutText(again) != cutText(back)) std::abort();
  for (std::size_t i = 0; i < table.fields.size(); ++i)
    if (table.text(table.fields[i]).empty() != (table.fields[i].kind == CutKind::empty))
      std::abort();
  return 0;
}
