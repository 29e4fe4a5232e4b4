// All pages of the help, in the order of their contents.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/error.h"
#include "help/help_topic.h"

namespace tolmer {

// Has at least one page.
class HelpBook {
 public:
  explicit HelpBook(std::vector<HelpTopic> topics) : topics_(std::move(topics)) {}

  // The contents, a page before those that are one level deeper.
  const std::vector<HelpTopic>& topics() const { return topics_; }
  const HelpTopic& topic(std::size_t index) const { return topics_.at(index); }

  // The page that the address opens; the first where several claim it.
  std::optional<std::size_t> find(const HelpAddress& address) const;

  // Pages that were to be read and could not be. In the book each of them says so itself.
  std::vector<Error> faults;

 private:
  std::vector<HelpTopic> topics_;
};

// Reads contents.txt of the folder and the pages that it names. Each line of it is the name of a
// page NAME.txt, two blanks deeper than the page that it belongs under; lines that begin with "#"
// are remarks. An error says what is wrong with the folder or its contents.
Result<HelpBook> readHelpBook(const std::string& folder);

// The same for whoever must show something: a book of one page with the error where there is one.
HelpBook helpBookIn(const std::string& folder);

}  // namespace tolmer
