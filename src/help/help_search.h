// Finding pages by the beginnings of words.
#pragma once

#include <string_view>
#include <vector>

#include "help/help_book.h"

namespace tolmer {

struct HelpHit {
  HelpPlace place;
  std::string title;  // of the page, or "Glossary: VIF" for an entry of it
};

// Pages and entries in which each word of the query begins some word, the best first: those that
// have all of them in their title, then in title and keywords or in an entry's term, then anywhere
// in their text; within these in the order of the contents. Case does not count. Nothing is found
// without a word.
class HelpSearch {
 public:
  explicit HelpSearch(const HelpBook& book);
  std::vector<HelpHit> find(std::string_view query) const;

 private:
  struct Target {
    HelpHit hit;
    std::vector<std::string> title{};     // words, here and below
    std::vector<std::string> keywords{};  // with those of the title
    std::vector<std::string> text{};      // with all of them; sorted, each once
    bool isEntry = false;
  };
  static int rankOf(const Target& target, const std::vector<std::string>& query);

  std::vector<Target> targets_;
};

}  // namespace tolmer
