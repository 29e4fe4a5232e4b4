#include "platform/web/help_orders.h"

#include <algorithm>

#include "base/file_io.h"
#include "base/markup_text.h"
#include "help/topic_page.h"

namespace tolmer {
namespace {

// The pictures themselves in place of their plain names.
std::string withPictures(std::string html, const std::vector<std::string>& folders) {
  constexpr std::string_view before = "src=\"";
  for (auto at = html.find(before); at != std::string::npos; at = html.find(before, at + 1)) {
    const auto begin = at + before.size();
    const std::string name = html.substr(begin, html.find('"', begin) - begin);
    const auto folder = std::ranges::find_if(folders, [&name](const std::string& one) {
      return isPictureName(name) && isRegularFile(one + "/" + name);
    });
    if (folder != folders.end())
      html.replace(begin, name.size(), pictureAddress(*folder + "/" + name));
  }
  return html;
}

// An entry of the list: a page, or a place in it.
std::string optionFor(const HelpBook& book, const HelpPlace& place, const std::string& title,
                      int level = 0) {
  const auto& opens = book.topic(place.topic).opens;
  const std::string words = markupText(title);
  std::string option = "<option title=\"" + words + '"';
  option +=
      opens.empty() ? " disabled>" : " value=\"" + linkUrl({opens.front(), place.entry}) + "\">";
  for (int i = 0; i < level; ++i) option += "\u00a0\u00a0\u00a0";
  return option + words;
}

}  // namespace

HelpReader& HelpOrders::reader() {
  if (!reader_) reader_ = std::make_unique<HelpReader>(helpBookIn(folder_));
  return *reader_;
}

void HelpOrders::answer(const HelpRequest& request) {
  using Kind = HelpRequest::Kind;
  if (request.kind == Kind::quit) return nodes_.order("help-quit", [](JsonWriter&) {});
  words_.clear();
  if (request.kind == Kind::usingHelp)
    reader().openUsing();
  else
    reader().open({request.file, request.kind == Kind::topic ? request.context : 0}, request.entry);
  show();
  nodes_.order("help-asked", "searches", request.kind == Kind::search);
}

void HelpOrders::keep(const KeptPages& pages) {
  kept_ = pages;
  turnTo(pages.shown);
}

void HelpOrders::take(const PageMessage& message) {
  const std::string& link = message.text(0);
  if (message.kind() == "help") return follow(link);
  if (message.kind() == "help-search") {
    words_ = link;
    return list();
  }
  if (link == "back") return turnTo(kept_.shown - 1);
  turnTo(link == "forward" ? kept_.shown + 1 : message.count(0));
}

void HelpOrders::follow(const std::string& link) {
  if (link == "back")
    reader().back();
  else if (link == "forward")
    reader().forward();
  else
    reader().follow(link);
  show();
}

void HelpOrders::show() {
  const HelpPlace& place = reader().place();
  nodes_.order("read", "in", "help", "title", reader().book().topic(place.topic).title + " - Help",
               "html", withPictures(reader().html(), {folder_}), "anchor", place.entry, "back",
               reader().canGoBack(), "forward", reader().canGoForward());
  if (words_.empty()) list();
}

// What is found, or the contents where nothing is searched for.
void HelpOrders::list() {
  const HelpBook& book = reader().book();
  std::string options;
  if (words_.empty())
    for (std::size_t i = 0; i < book.topics().size(); ++i)
      options += optionFor(book, {.topic = i}, book.topic(i).title, book.topic(i).level);
  else
    for (const HelpHit& hit : reader().find(words_))
      options += optionFor(book, hit.place, hit.title);
  if (options.empty()) options = "<option disabled>No page has a word that begins so.";
  nodes_.order("help-list", "name", words_.empty() ? "Contents" : "Pages found", "options", options,
               "at", words_.empty() ? static_cast<long>(reader().place().topic) : 0);
}

void HelpOrders::turnTo(std::size_t page) {
  if (page >= kept_.pages.size()) return;
  kept_.shown = page;
  nodes_.order("read", "in", "kept", "title", kept_.pages[page].title + " - Notebook", "html",
               withPictures(kept_.pages[page].html, kept_.pictureFolders), "anchor", "chosen",
               "back", page > 0, "forward", page + 1 < kept_.pages.size());
}

}  // namespace tolmer
