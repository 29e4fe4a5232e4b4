#include "foreign/import_process.h"

#include <utility>

#include "base/data_limits.h"
#include "base/paths.h"
#include "foreign/cut_format.h"
#include "foreign/cut_request.h"
#include "foreign/file_kind.h"
#include "system/child_output.h"

namespace tolmer {
namespace {

constexpr std::size_t mostTableBytes = 32 * mebibyte;  // in the form in which it comes back

const char* const brokenReader =
    "its reader gave up: the file is damaged, or made in a way that is not understood; open it in "
    "the program it comes from and save it again, or as CSV";
const char* const slowReader = "reading it takes too long; save the part that you need as CSV";

Error withFile(const std::string& name, const Error& error) {
  return {error.where.empty() ? name : name + ", " + error.where, error.text};
}

Result<std::string> textOfReader(const host::ChildInput& input, const CutRequest& request,
                                 const ImportReader& reader) {
  host::ChildOutput output =
      host::outputOf(reader.program, wordsOf(request), input, {reader.patience, mostTableBytes});
  switch (output.end) {
    case host::ChildEnd::well:
      return std::move(output.text);
    case host::ChildEnd::missing:
      return Error{"",
                   "the program tolimport, which reads such files, is missing; save the data as "
                   "CSV instead"};
    case host::ChildEnd::notStarted:
      return Error{"", "the program tolimport does not start: " + output.error.message()};
    case host::ChildEnd::tooLate:
      return Error{"", slowReader};
    default:
      return Error{"", brokenReader};
  }
}

Result<CutBook> importFrom(const host::ChildInput& input, const std::string& name,
                           const CutRequest& request, const ImportReader& reader) {
  if (const std::string refusal = refusalOf(kindOfFile(input.beginning(kindBytes)));
      !refusal.empty())
    return Error{name, refusal};
  const auto text = textOfReader(input, request, reader);
  if (!text) return withFile(name, text.error());
  auto book = bookFromCutText(*text);
  if (!book) return withFile(name, book.error());
  return book;
}

}  // namespace

std::string importProgram() { return programPart("tolimport"); }

bool isForeign(std::string_view bytes) {
  const ForeignKind kind = kindOfFile(bytes);
  return kind != ForeignKind::text && kind != ForeignKind::other;
}

// Only a regular file has its kind at hand and does not keep anybody waiting.
bool isForeignFile(const std::string& hostFileName) {
  const auto file = host::ChildInput::ofFile(hostFileName);
  return file.isRegular() && isForeign(file.beginning(kindBytes));
}

Result<CutBook> importFile(const std::string& hostFileName, const CutRequest& request,
                           const ImportReader& reader) {
  const auto file = host::ChildInput::ofFile(hostFileName);
  if (file.error()) return Error{hostFileName, file.error().message()};
  if (!file.isRegular()) return Error{hostFileName, "it is no regular file"};
  if (file.size() > mostForeignFileBytes)
    return Error{hostFileName,
                 "it is larger than " + std::to_string(mostForeignFileBytes / mebibyte) + " MiB"};
  return importFrom(file, hostFileName, request, reader);
}

Result<CutBook> importBytes(const std::string& name, std::string_view bytes,
                            const CutRequest& request, const ImportReader& reader) {
  const auto file = host::ChildInput::ofBytes(bytes);
  if (file.error()) return Error{name, file.error().message()};
  return importFrom(file, name, request, reader);
}

}  // namespace tolmer
