#include "help/help_search.h"

#include <algorithm>
#include <utility>

#include "help/help_text.h"
#include "help/topic_page.h"

namespace tolmer {
namespace {

using Words = std::vector<std::string>;

constexpr int notFound = 3;

void sortOut(Words& words) {
  std::ranges::sort(words);
  words.erase(std::unique(words.begin(), words.end()), words.end());
}

void add(Words& words, const Words& more) { words.insert(words.end(), more.begin(), more.end()); }

// In sorted words the first that is not before `beginning` has it, if any has.
bool hasEach(const Words& words, const Words& beginnings) {
  return std::ranges::all_of(beginnings, [&words](const std::string& beginning) {
    const auto word = std::ranges::lower_bound(words, beginning);
    return word != words.end() && word->starts_with(beginning);
  });
}

}  // namespace

HelpSearch::HelpSearch(const HelpBook& book) {
  for (std::size_t i = 0; i < book.topics().size(); ++i) {
    const HelpTopic& topic = book.topic(i);
    Target page{.hit = {{.topic = i}, topic.title}, .title = wordsOf(topic.title)};
    page.keywords = page.title;
    for (const std::string& keyword : topic.keywords) add(page.keywords, wordsOf(keyword));
    page.text = page.keywords;
    add(page.text, wordsOf(topicPlainText(topic)));
    for (Words* words : {&page.title, &page.keywords, &page.text}) sortOut(*words);
    targets_.push_back(std::move(page));
    for (const TopicEntry& entry : topicEntries(topic)) {
      Target target{.hit = {{i, entry.anchor, {}}, topic.title + ": " + entry.term},
                    .keywords = wordsOf(entry.term),
                    .isEntry = true};
      sortOut(target.keywords);
      targets_.push_back(std::move(target));
    }
  }
}

int HelpSearch::rankOf(const Target& target, const Words& query) {
  if (!target.isEntry && hasEach(target.title, query)) return 0;
  if (hasEach(target.keywords, query)) return 1;
  return hasEach(target.text, query) ? 2 : notFound;
}

std::vector<HelpHit> HelpSearch::find(std::string_view query) const {
  const Words words = wordsOf(query);
  if (words.empty()) return {};
  std::vector<std::pair<int, const Target*>> found;
  for (const Target& target : targets_)
    if (const int rank = rankOf(target, words); rank < notFound) found.emplace_back(rank, &target);
  // A page whose entries were found is not named once more for the same words in its text.
  const auto isRepeated = [&found](const auto& hit) {
    return hit.first == 2 && std::ranges::any_of(found, [&hit](const auto& other) {
             return other.second->isEntry && other.first < 2 &&
                    other.second->hit.place.topic == hit.second->hit.place.topic;
           });
  };
  std::vector<HelpHit> hits;
  for (int rank = 0; rank < notFound; ++rank)
    for (const auto& hit : found)
      if (hit.first == rank && !isRepeated(hit)) hits.push_back(hit.second->hit);
  return hits;
}

}  // namespace tolmer
