#include "foreign/readers/read_foreign.h"

#include <algorithm>
#include <string>

#include "foreign/file_kind.h"
#include "foreign/readers/gdt_reader.h"
#include "foreign/readers/ods_reader.h"
#include "foreign/readers/statistics_reader.h"
#include "foreign/readers/xlsx_reader.h"

namespace tolmer {
namespace {

bool holds(std::string_view bytes, std::string_view what) {
  return std::search(bytes.begin(), bytes.end(), what.begin(), what.end()) != bytes.end();
}

std::string inUtf16(std::string_view text) {
  std::string wide;
  for (const char c : text) (wide += c) += '\0';
  return wide;
}

// The names of the streams in such a file tell old documents from locked new ones.
Error refusalOfOle(std::string_view bytes) {
  if (holds(bytes, inUtf16("EncryptedPackage")))
    return {"", "it is locked with a password; save it without one"};
  if (holds(bytes, inUtf16("Workbook")) || holds(bytes, inUtf16("Book")))
    return {"",
            "it is an old Excel file (xls); open it in your spreadsheet program and save it as "
            "xlsx or ods"};
  return {"", "it is a file of an old Office program, and no workbook"};
}

Error refusalOfPackage(const Package& package, const std::string& main) {
  if (main.starts_with("word/")) return {"", "it is a Word document; copy its table and paste it"};
  if (main.starts_with("ppt/")) return {"", "it is a presentation"};
  if (main.ends_with(".bin"))
    return {"", "it is a binary workbook (xlsb); save it as xlsx in your spreadsheet program"};
  if (package.has("Index/Document.iwa") || package.has("Index.zip"))
    return {"", "it is a file of Apple's; export it there as xlsx or CSV"};
  if (package.has("data.bin")) return {"", "it is a gdtb file; save it in gretl as gdt"};
  return {"", "it is a zip archive (with \"" + package.firstName() +
                  "\"); unpack it and open the file that is in it"};
}

std::string mediaType(Package& package) {
  std::string type;
  constexpr std::size_t most = 200;
  if (package.has("mimetype"))
    package.read("mimetype", [&type](std::string_view piece) {
      type += piece.substr(0, most);
      return type.size() < most;
    });
  return type;
}

Result<CutBook> readPackage(std::string_view bytes, const CutRequest& request) {
  auto package = ZipFile::open(bytes);
  if (!package) return package.error();
  const std::string type = mediaType(*package);
  const std::string openDocument = "application/vnd.oasis.opendocument.";
  if (type.starts_with(openDocument + "spreadsheet")) return readOds(*package, request);
  if (type.starts_with(openDocument))
    return Error{"", "it is no spreadsheet but another kind of OpenDocument (" +
                         type.substr(openDocument.size()) + ")"};
  const std::string main = mainPart(*package);
  if (main.ends_with("workbook.xml") || main.starts_with("xl/")) {
    if (!main.ends_with(".bin")) return readXlsx(*package, request);
  }
  return refusalOfPackage(*package, main);
}

Result<CutBook> readPacked(std::string_view bytes, const CutRequest& request) {
  std::string content;
  constexpr std::size_t most = std::size_t{128} << 20;
  const auto fault = readGzip(bytes, [&content](std::string_view piece) {
    content += piece;
    const bool isGdt = content.size() < kindBytes || kindOfFile(content) == ForeignKind::gdt;
    return content.size() < most && isGdt;
  });
  if (fault) return *fault;
  if (content.size() >= most) return Error{"", "it is too large for a data set"};
  if (kindOfFile(content) == ForeignKind::gdt) return readGdt(content, request);
  return Error{"", refusalOf(ForeignKind::otherStatistics)};
}

}  // namespace

Result<CutBook> readForeign(std::string_view bytes, const CutRequest& request) {
  const ForeignKind kind = kindOfFile(bytes);
  switch (kind) {
    case ForeignKind::zip:
      return readPackage(bytes, request);
    case ForeignKind::ole:
      return refusalOfOle(bytes);
    case ForeignKind::sav:
      return readStatistics(bytes, StatisticsFormat::sav, request);
    case ForeignKind::dta:
      return readStatistics(bytes, StatisticsFormat::dta, request);
    case ForeignKind::gzip:
      return readPacked(bytes, request);
    case ForeignKind::gdt:
      return readGdt(bytes, request);
    case ForeignKind::fods:
      return readFods(bytes, request);
    case ForeignKind::text:
      return Error{"", bytes.empty() ? "it is empty" : "it is a plain text"};
    default:
      return Error{"", refusalOf(kind)};
  }
}

}  // namespace tolmer
