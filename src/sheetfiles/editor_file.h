// The data editor's own files.
//
// UTF-8 text, a line for each row of the sheet that holds anything, its number first, then its
// cells, divided by tabs. Rows count as the editor's grid counts them with its trailer: 1 headings,
// 2..M+1 cases (M observations), M+52 decimals, M+53 the type code, M+54 the title.
//
//   ZMDATA 1 500 50                  version, observations, variables
//   1<tab>"Label<tab>"Income         a text behind a quotation mark
//   2<tab>"Ann<tab>1.5<tab>          a number: the shortest digits that give it back; an empty cell
//   3<tab>"Bob<tab>=2.5=B1+1         a formula: its result, then its source
//   3<tab>"Bob<tab>=0.3#77=RAND()    with the seed of its random numbers
//   source<tab>"survey.sav (SPSS)    where the data are from
//   label 2<tab>"Years of school     what variable 2 means
//   from<tab>"/home/ann/a.zmm        only in work written aside: the file it was opened from
//   crc 0123ABCD                     CRC-32 of all bytes before this line, carriage returns left
//   out
//
// Lines with source and labels make it version 2; without them it is version 1.
// Tab, line feed, carriage return and backslash in a text are \t \n \r \\. Where the file would
// pass the limit, numbers of more than 12 characters are written as "~" and 11 characters of base
// 64 of their bits, and a formula that is the one above it with its row numbers one higher as "^",
// for example "^2.5". The reader takes both forms at any time.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "base/error.h"
#include "sheet/sheet_content.h"

namespace tolmer {

// "ZM50" for 50 variables.
std::string editorFileTypeCode(int variables);

struct EditorFileContent {
  SheetContent sheet;
  std::string from;  // the file that work written aside belongs to; empty in a student's file
};

// The bytes of a file, of any length; packed where the readable form passes the limit. Cells hold
// nothing beside what their kind asks for.
std::string editorFileBytes(const SheetContent& sheet, std::string_view from = {});

// A file that is damaged, cut off, of a newer version or of another size or type is refused with
// the reason.
Result<EditorFileContent> editorFileContent(std::string_view bytes,
                                            int observations = editorObservations,
                                            int variables = editorVariables);

// The bytes for a student's file of that name. A sheet that would pass the limit, so that it could
// not be loaded again, is refused.
Result<std::string> editorFileToSave(const std::string& fileName, const SheetContent& sheet);

// File names are the host's, as the user chose them: a backslash is a letter like any other. A file
// over the limit is refused without reading it.
Result<SheetContent> loadEditorFile(const std::string& fileName,
                                    int observations = editorObservations,
                                    int variables = editorVariables);

}  // namespace tolmer
