#include "help/help_reader.h"

#include "base/markup_text.h"
#include "help/topic_page.h"

namespace tolmer {
namespace {

constexpr std::size_t longestWay = 200;

std::string noticeFor(const HelpAddress& address) {
  if (address.number == 0) return "There is no help \"" + address.file + "\". Here are all pages.";
  return "The help has no page number " + std::to_string(address.number) +
         ". Choose one from the contents.";
}

}  // namespace

HelpReader::HelpReader(HelpBook book) : book_(std::move(book)), search_(book_) {}

std::string HelpReader::html() const {
  const std::string page = topicHtml(book_.topic(place().topic));
  if (place().notice.empty()) return page;
  return "<p><i>" + markupText(place().notice) + "</i></p>" + page;
}

void HelpReader::open(const HelpAddress& address, std::string_view entry) {
  if (const auto topic = book_.find(address))
    return open({.topic = *topic, .entry = entryAnchor(entry)});
  const auto contents = book_.find({address.file, 0});
  open({.topic = contents.value_or(0), .notice = noticeFor(address)});
}

void HelpReader::open(HelpPlace place) {
  if (place.topic >= book_.topics().size()) return;
  if (opened_ && place == places_[at_]) return;
  if (opened_) {
    places_.resize(at_ + 1);
    if (places_.size() == longestWay) places_.erase(places_.begin());
    places_.push_back(std::move(place));
    at_ = places_.size() - 1;
    return;
  }
  places_[0] = std::move(place);
  opened_ = true;
}

bool HelpReader::follow(std::string_view url) {
  const auto link = linkOfUrl(url);
  if (!link) return false;
  if (const auto topic = book_.find(link->address))
    open({*topic, link->entry, {}});
  else
    open(link->address);
  return true;
}

void HelpReader::back() {
  if (canGoBack()) --at_;
}

void HelpReader::forward() {
  if (canGoForward()) ++at_;
}

}  // namespace tolmer
