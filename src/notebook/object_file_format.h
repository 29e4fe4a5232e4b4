// The order of the fields in a notebook object file, told once for its reader and its writer.
//
// `io` is called with each field in turn (a string, a 16-bit integer or a boolean). Besides:
//   io.table(rows, part, fields)  a count, then `fields(io, row)` for each row
//   io.count(field, bound, noun)  a count within a record, from 1 to `bound`
//   io.endRecord()                behind each record that stands in no table
// `book` and its rows are const for a writer.
#pragma once

#include "notebook/book.h"
#include "notebook/book_part.h"

namespace tolmer::object_file_format {

void scenarioFields(auto& io, auto& scenario) {
  io(scenario.tName);
  io(scenario.tDesc);
  for (int i = 1; i <= maxParameter; ++i) io(scenario.tParameter[static_cast<std::size_t>(i)]);
}

void databaseFields(auto& io, auto& database) {
  io(database.tName);
  io(database.tShortName);
  io(database.iLevel);
  io(database.tDesc);
  io(database.tDataFileName);
  io(database.tLabelFileName);
  io(database.tHeading);
  io(database.bExpanded[1]);
  io(database.bExpanded[2]);
}

void defaultDatabaseFields(auto& io, auto& database) {
  io(database.tName);
  io(database.tShortName);
  io(database.tDesc);
  io(database.tDataFileName);
  io(database.tLabelFileName);
  io(database.tHeading);
}

void outlineFields(auto& io, auto& outline) {
  io.count(outline.iNumOutlines, maxOutlineEntries, "outline");
  io(outline.iUnused1);
  io(outline.iUnused2);
  for (int j = 1; j <= outline.iNumOutlines; ++j) {
    auto& entry = outline.uEntry[static_cast<std::size_t>(j)];
    io(entry.iControlIndex);
    io(entry.iSelectedItem);
    io(entry.iUnused);
    io(entry.iFirstDatabase);
    io(entry.iNumDatabases);
  }
}

void valueFields(auto& io, auto& element) {
  io(element.tCaption);
  io(element.bIndent);
  io(element.iEmphasisStyle);
  io(element.iValue);
}

void pagesAndSections(auto& io, auto& book) {
  io.table(book.uSection, BookPart::section, [](auto& out, auto& row) {
    out(row.tName);
    out(row.iFirstPage);
    out(row.iNumPages);
  });
  io.table(book.uPage, BookPart::page, [](auto& out, auto& row) {
    out(row.iPageType);
    out(row.iFirstElement);
    out(row.iNumElements);
    out(row.iScenarioElement);
    out(row.iOutlineElement);
  });
}

void scenariosAndDatabases(auto& io, auto& book) {
  io.table(book.uScenario, BookPart::scenario,
           [](auto& out, auto& row) { scenarioFields(out, row); });
  scenarioFields(io, book.uDefaultScenario);
  io.endRecord();
  io.table(book.uDatabase, BookPart::database,
           [](auto& out, auto& row) { databaseFields(out, row); });
  for (std::size_t i = 1; i <= maxOutlineEntries; ++i) {
    defaultDatabaseFields(io, book.uDefaultDatabase[i]);
    io.endRecord();
  }
}

void elements(auto& io, auto& book) {
  io.table(book.uText, BookPart::text, [](auto& out, auto& row) {
    out(row.tText);
    out(row.bIndent);
    out(row.iEmphasisStyle);
  });
  io.table(book.tHeading, BookPart::heading, [](auto& out, auto& row) { out(row); });
  io.table(book.uJump, BookPart::jump, [](auto& out, auto& row) {
    out(row.tText);
    out(row.bIndent);
    out(row.iEmphasisStyle);
    out(row.iSection);
    out(row.iPage);
  });
  io.table(book.uScenarioElement, BookPart::scenarioElement, [](auto& out, auto& row) {
    out(row.iNumScenarios);
    out(row.iFirstScenario);
    out(row.iSelected);
  });
  io.table(book.uOutline, BookPart::outline, [](auto& out, auto& row) { outlineFields(out, row); });
  io.table(book.tBitmap, BookPart::bitmap, [](auto& out, auto& row) { out(row); });
  io.table(book.uCheck, BookPart::check, [](auto& out, auto& row) { valueFields(out, row); });
  io.table(book.uVersion, BookPart::version, [](auto& out, auto& row) { valueFields(out, row); });
  io.table(book.uPageElement, BookPart::pageElement, [](auto& out, auto& row) {
    out(row.iKind);
    out(row.iIndex);
    out(row.iUnused);
  });
}

void wholeBook(auto& io, auto& book) {
  io(book.tTitle);
  io.endRecord();
  io(book.tChapter);
  io.endRecord();
  pagesAndSections(io, book);
  scenariosAndDatabases(io, book);
  elements(io, book);
}

}  // namespace tolmer::object_file_format
