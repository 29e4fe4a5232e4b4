// Bytes as the source of a help page, and as a question for its search.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "base/text_encoding.h"
#include "help/help_search.h"
#include "help/help_topic.h"
#include "help/topic_page.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tolmer;
  const std::string text = utf8FromFile(std::string(reinterpret_cast<const char*>(data), size));
  auto topic = readTopic("page", text);
  if (!topic) return 0;
  const std::string html = topicHtml(*topic);
  // Nothing of the page gets through as a tag of its own.
  for (const char* tag : {"<script", "<style", "<iframe", "http:"})
    if (html.find(tag) != std::string::npos && text.find(tag) == std::string::npos) std::abort();
  if (html.find("<script") != std::string::npos) std::abort();
  for (const HelpLink& link : topicLinks(*topic))
    if (!linkOfUrl(linkUrl(link))) std::abort();
  for (const std::string& name : topicPictures(*topic))
    if (!isPictureName(name) || name.find('/') != std::string::npos) std::abort();
  const std::string query = topic->title;
  const HelpBook book({std::move(*topic)});
  HelpSearch(book).find(query);
  return 0;
}
