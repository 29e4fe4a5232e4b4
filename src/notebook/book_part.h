// The tables of the book by name, for messages and for finding a row again in a file or a source.
#pragma once

namespace tolmer {

enum class BookPart {
  section,
  page,
  scenario,
  database,
  text,
  heading,
  jump,
  scenarioElement,
  outline,
  bitmap,
  check,
  version,
  pageElement
};

// "section", "page element": how a message calls a row of the table.
constexpr const char* nounOf(BookPart part) {
  switch (part) {
    case BookPart::section:
      return "section";
    case BookPart::page:
      return "page";
    case BookPart::scenario:
      return "scenario";
    case BookPart::database:
      return "database";
    case BookPart::text:
      return "text element";
    case BookPart::heading:
      return "heading element";
    case BookPart::jump:
      return "jump element";
    case BookPart::scenarioElement:
      return "scenario element";
    case BookPart::outline:
      return "outline element";
    case BookPart::bitmap:
      return "bitmap element";
    case BookPart::check:
      return "check element";
    case BookPart::version:
      return "version element";
    case BookPart::pageElement:
      return "page element";
  }
  return "";
}

}  // namespace tolmer
