// Plain data of the help: a page, and what it can be asked for by.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/error.h"

namespace tolmer {

// What opens a page: a number in one of the system's help files, or that file as a whole.
struct HelpAddress {
  std::string file;  // "tolmod", "notebook", "dataedit"
  long number = 0;   // 0: where the file's contents begin

  bool operator==(const HelpAddress&) const = default;
};

struct HelpTopic {
  std::string name{};  // of its file, without folder and ending
  std::string title{};
  std::vector<HelpAddress> opens{};
  std::vector<std::string> keywords{};
  std::string body{};  // markup, see topic_page.h
  int level = 0;       // depth in the contents, 0 at the top
};

// Where a reader stands: a page, and an entry of it that is to be in sight.
struct HelpPlace {
  std::size_t topic = 0;
  std::string entry{};   // as entryAnchor makes it; empty for the beginning
  std::string notice{};  // a line above the page: what was asked for and is not there

  bool operator==(const HelpPlace&) const = default;
};

// The source of one help page: lines "key: value", a blank line, the body.
//
//   title: Estimated Coefficients
//   opens: tolmod 231, dataedit
//   keywords: t, confidence limits
//
//   Body in the markup of topic_page.h.

// The page in `text` (UTF-8), named `name`. An error names that page and the line.
Result<HelpTopic> readTopic(const std::string& name, std::string_view text);

// A name of lower-case letters, digits and hyphens, at most 40 of them: such a name never leaves
// the folder of the help.
bool isTopicName(std::string_view name);

// "tolmod 231" or "tolmod"; nullopt for anything else.
std::optional<HelpAddress> parseHelpAddress(std::string_view text);

}  // namespace tolmer
