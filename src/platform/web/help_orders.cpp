#include "platform/web/help_orders.h"

#include <algorithm>

#include "base/file_io.h"
#include "help/topic_page.h"

namespace tolmer {
namespace {

// A page of the book, as a link of its contents or of what was found.
std::string linkTo(const HelpBook& book, const HelpPlace& place) {
  const HelpTopic& topic = book.topic(place.topic);
  return topic.opens.empty() ? std::string() : linkUrl({topic.opens.front(), place.entry});
}

}  // namespace

HelpReader& HelpOrders::reader() {
  if (!reader_) reader_ = std::make_unique<HelpReader>(helpBookIn(folder_));
  return *reader_;
}

void HelpOrders::answer(const HelpRequest& request) {
  if (request.kind == HelpRequest::Kind::quit) {
    if (!reader_) return;
    return nodes_.order("help-quit", [](JsonWriter&) {});
  }
  open(request);
  show();
  if (request.kind == HelpRequest::Kind::search) find({});
}

void HelpOrders::open(const HelpRequest& request) {
  using Kind = HelpRequest::Kind;
  if (request.kind == Kind::topic)
    return reader().open({request.file, request.context}, request.entry);
  if (request.kind == Kind::usingHelp) return reader().openUsing();
  reader().openContents(request.file);
}

void HelpOrders::take(const PageMessage& message) {
  const std::string& kind = message.kind();
  if (kind == "help-search") return find(message.text(0));
  if (kind == "help") reader().follow(message.text(0));
  if (kind == "help-back") reader().back();
  if (kind == "help-forward") reader().forward();
  if (kind == "help-contents") reader().openContents("tolmod");
  if (kind == "help-using") reader().openUsing();
  show();
}

void HelpOrders::find(const std::string& words) {
  nodes_.order("hits", [this, words](JsonWriter& json) {
    json.member("words", words);
    json.list("hits", reader().find(words), [&](const HelpHit& hit) {
      json.beginObject();
      json.members("title", hit.title, "link", linkTo(reader().book(), hit.place));
      json.endObject();
    });
  });
}

void HelpOrders::show() {
  nodes_.order("help", [this](JsonWriter& json) {
    const HelpPlace& place = reader().place();
    json.members("title", reader().book().topic(place.topic).title, "html",
                 withPictures(reader().html(), {folder_}), "anchor", place.entry, "back",
                 reader().canGoBack(), "forward", reader().canGoForward(), "at",
                 static_cast<long>(place.topic));
    if (!std::exchange(contentsAreKnown_, true)) writeContents(json);
  });
}

void HelpOrders::writeContents(JsonWriter& json) {
  const auto& topics = reader().book().topics();
  json.list("contents", topics, [&](const HelpTopic& topic) {
    const auto at = static_cast<std::size_t>(&topic - topics.data());
    json.beginObject();
    json.members("title", topic.title, "level", topic.level, "link",
                 linkTo(reader().book(), {.topic = at}));
    json.endObject();
  });
}

std::string withPictures(const std::string& html, const std::vector<std::string>& folders) {
  constexpr std::string_view before = "src=\"";
  std::string result;
  std::size_t at = 0;
  for (;;) {
    const auto begin = html.find(before, at);
    const auto end = begin == std::string::npos ? begin : html.find('"', begin + before.size());
    if (end == std::string::npos) return result + html.substr(at);
    const std::string name = html.substr(begin + before.size(), end - begin - before.size());
    const auto folder = std::ranges::find_if(folders, [&](const std::string& one) {
      return isPictureName(name) && isRegularFile(one + "/" + name);
    });
    result += html.substr(at, begin + before.size() - at);
    result += folder == folders.end() ? name : pictureAddress(*folder + "/" + name);
    at = end;
  }
}

}  // namespace tolmer
