// Plain data of the help: a page, and what it can be asked for by.
#pragma once

#include <string>
#include <vector>

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

}  // namespace tolmer
