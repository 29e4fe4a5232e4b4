// A reader of the help: what is open, and the way back and forward.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "help/help_book.h"
#include "help/help_search.h"

namespace tolmer {

class HelpReader {
 public:
  explicit HelpReader(HelpBook book);
  HelpReader(const HelpReader&) = delete;
  HelpReader& operator=(const HelpReader&) = delete;

  const HelpBook& book() const { return book_; }
  const HelpPlace& place() const { return places_[at_]; }
  // The page with its notice, as HTML of the kind of topicHtml.
  std::string html() const;

  // An address without a page leads to the contents of its file, or of the system, with a notice.
  // `entry` is one of the page's, in its own words; empty for the beginning.
  void open(const HelpAddress& address, std::string_view entry = {});
  void openContents(const std::string& file) { open({file, 0}); }
  void openUsing() { open({"tolmod", 2}); }
  void open(HelpPlace place);
  // A link of a page. False for anything that is none.
  bool follow(std::string_view url);

  bool canGoBack() const { return at_ > 0; }
  bool canGoForward() const { return at_ + 1 < places_.size(); }
  // Nothing where there is no way.
  void back();
  void forward();

  std::vector<HelpHit> find(std::string_view query) const { return search_.find(query); }

 private:
  HelpBook book_;
  HelpSearch search_;
  std::vector<HelpPlace> places_{1};
  std::size_t at_ = 0;
  bool opened_ = false;  // what stands before the first opening is nothing to go back to
};

}  // namespace tolmer
