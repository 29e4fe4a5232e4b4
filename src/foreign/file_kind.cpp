#include "foreign/file_kind.h"

#include <algorithm>
#include <array>

namespace tolmer {
namespace {

struct Signature {
  std::string_view bytes;
  ForeignKind kind;
};

using namespace std::string_view_literals;

constexpr std::array signatures{
    Signature{"PK\x03\x04"sv, ForeignKind::zip},
    Signature{"PK\x05\x06"sv, ForeignKind::zip},
    Signature{"\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1"sv, ForeignKind::ole},
    Signature{"$FL2"sv, ForeignKind::sav},
    Signature{"$FL3"sv, ForeignKind::sav},
    Signature{"<stata_dta>"sv, ForeignKind::dta},
    Signature{"\x1F\x8B"sv, ForeignKind::gzip},
    Signature{"%PDF"sv, ForeignKind::pdf},
    Signature{"HEADER RECORD*******LIB"sv, ForeignKind::otherStatistics},
    Signature{"\0\0\0\0\0\0\0\0\0\0\0\0\xC2\xEA\x81\x60"sv, ForeignKind::otherStatistics},
    Signature{"RDX"sv, ForeignKind::otherStatistics},
    Signature{"BZh"sv, ForeignKind::otherStatistics},
    Signature{"\xFD"
              "7zXZ"sv,
              ForeignKind::otherStatistics},
    Signature{"\x89PNG"sv, ForeignKind::picture},
    Signature{"\xFF\xD8\xFF"sv, ForeignKind::picture},
    Signature{"GIF8"sv, ForeignKind::picture},
};

// Stata before its version 13: release, byte order, a 1 and a 0.
bool isOldDta(std::string_view bytes) {
  constexpr char oldest = 102;
  constexpr char newest = 115;
  return bytes.size() > 4 && bytes[0] >= oldest && bytes[0] <= newest &&
         (bytes[1] == 1 || bytes[1] == 2) && bytes[2] == 1;
}

std::string inSmallLetters(std::string_view text) {
  std::string small(text);
  for (char& c : small) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  return small;
}

ForeignKind kindOfMarkup(std::string_view text) {
  const std::string small = inSmallLetters(text);
  const auto holds = [&small](std::string_view what) { return small.find(what) != small.npos; };
  if (holds("<gretldata")) return ForeignKind::gdt;
  if (holds("<office:document")) return ForeignKind::fods;
  if (holds("urn:schemas-microsoft-com:office:spreadsheet")) return ForeignKind::excelXml;
  for (const auto mark :
       {"<html"sv, "<table"sv, "<body"sv, "<head"sv, "<meta"sv, "<!doctype html"sv})
    if (holds(mark)) return ForeignKind::html;
  return small.starts_with("<?xml") ? ForeignKind::xml : ForeignKind::text;
}

}  // namespace

ForeignKind kindOfFile(std::string_view bytes) {
  bytes = bytes.substr(0, kindBytes);
  for (const auto& [signature, kind] : signatures)
    if (bytes.starts_with(signature)) return kind;
  if (isOldDta(bytes)) return ForeignKind::dta;
  constexpr std::size_t portableHeader = 500;
  if (bytes.substr(0, portableHeader).find("SPSS PORT FILE") != bytes.npos)
    return ForeignKind::otherStatistics;
  if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF")) return ForeignKind::text;
  std::string_view text = bytes;
  if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
  text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n"), text.size()));
  if (text.starts_with('<')) return kindOfMarkup(text);
  return bytes.find('\0') == bytes.npos ? ForeignKind::text : ForeignKind::other;
}

std::string refusalOf(ForeignKind kind) {
  switch (kind) {
    case ForeignKind::html:
      return "it is a web page, whatever its name says; open it in your spreadsheet program and "
             "save it as xlsx or ods";
    case ForeignKind::pdf:
      return "it is a PDF, which keeps no table as numbers; look for the same data as xlsx or CSV";
    case ForeignKind::xml:
      return "it is an XML file of a kind that is not read";
    case ForeignKind::excelXml:
      return "it is an Excel 2003 XML file; open it in your spreadsheet program and save it as "
             "xlsx or ods";
    case ForeignKind::otherStatistics:
      return "it is a packed file or one of a statistics program whose format is not read; save "
             "the data there as CSV, sav or dta";
    case ForeignKind::picture:
      return "it is a picture";
    case ForeignKind::other:
      return "its content is of no kind that is known here";
    default:
      return {};
  }
}

}  // namespace tolmer
