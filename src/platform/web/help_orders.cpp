#include "platform/web/help_orders.h"

#include <algorithm>

#include "base/file_io.h"
#include "help/topic_page.h"

namespace tolmer {
namespace {

HelpBook bookIn(const std::string& folder) {
  auto book = readHelpBook(folder);
  return book ? std::move(*book) : bookAbout(book.error());
}

// A page of the book, as a link of its contents or of what was found.
std::string linkTo(const HelpBook& book, const HelpPlace& place) {
  const HelpTopic& topic = book.topic(place.topic);
  return topic.opens.empty() ? std::string() : linkUrl({topic.opens.front(), place.entry});
}

}  // namespace

HelpReader& HelpOrders::reader() {
  if (!reader_) reader_ = std::make_unique<HelpReader>(bookIn(folder_));
  return *reader_;
}

void HelpOrders::answer(const HelpRequest& request) {
  if (request.kind == HelpRequest::Kind::quit) {
    if (!reader_) return;
    return nodes_.order([](JsonWriter& json) {
      json.beginObject();
      json.member("do", "help-quit");
      json.endObject();
    });
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
  nodes_.order([this, words](JsonWriter& json) {
    json.beginObject();
    json.member("do", "hits");
    json.member("words", words);
    json.key("hits");
    json.beginArray();
    for (const HelpHit& hit : reader().find(words)) {
      json.beginObject();
      json.member("title", hit.title);
      json.member("link", linkTo(reader().book(), hit.place));
      json.endObject();
    }
    json.endArray();
    json.endObject();
  });
}

void HelpOrders::show() {
  nodes_.order([this](JsonWriter& json) {
    const HelpPlace& place = reader().place();
    json.beginObject();
    json.member("do", "help");
    json.member("title", reader().book().topic(place.topic).title);
    json.member("html", withPictureAddresses(nodes_, reader().html(), {folder_}));
    json.member("anchor", place.entry);
    json.member("back", reader().canGoBack());
    json.member("forward", reader().canGoForward());
    json.member("at", static_cast<long>(place.topic));
    if (!std::exchange(contentsAreKnown_, true)) writeContents(json);
    json.endObject();
  });
}

void HelpOrders::writeContents(JsonWriter& json) {
  json.key("contents");
  json.beginArray();
  const auto& topics = reader().book().topics();
  for (std::size_t i = 0; i < topics.size(); ++i) {
    json.beginObject();
    json.member("title", topics[i].title);
    json.member("level", topics[i].level);
    json.member("link", linkTo(reader().book(), {.topic = i}));
    json.endObject();
  }
  json.endArray();
}

std::string withPictureAddresses(const Nodes& nodes, const std::string& html,
                                 const std::vector<std::string>& folders) {
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
    result += folder == folders.end() ? name : nodes.addressOf(*folder + "/" + name);
    at = end;
  }
}

}  // namespace tolmer
