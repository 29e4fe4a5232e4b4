// What a file is by its content, whatever its name says.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tolmer {

enum class ForeignKind {
  text,
  zip,   // a workbook, or another package
  ole,   // old Office files, and locked new ones
  sav,   // SPSS, also packed
  dta,   // Stata
  gzip,  // packed: of gretl, or of R
  gdt,   // gretl
  fods,  // OpenDocument in one file
  html,
  pdf,
  xml,
  excelXml,  // Excel 2003
  otherStatistics,
  picture,
  other
};

// So much of a file's beginning tells it.
inline constexpr std::size_t kindBytes = 4096;

ForeignKind kindOfFile(std::string_view beginning);

// "it is a PDF; ..."; for kinds that no reader reads. Empty for the others.
std::string refusalOf(ForeignKind kind);

}  // namespace tolmer
