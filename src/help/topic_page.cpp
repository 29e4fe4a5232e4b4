#include "help/topic_page.h"

#include <algorithm>

#include "base/markup_text.h"
#include "help/help_text.h"
#include "help/page_blocks.h"
#include "help/topic_reader.h"

namespace tolmer {
namespace {

constexpr std::string_view urlScheme = "help:";
constexpr std::string_view usualFile = "tolmod";

std::string_view groundColour(std::string_view name) {
  if (name == "cyan") return "#00FFFF";
  if (name == "green") return "#00FF00";
  if (name == "yellow") return "#FFFF00";
  return "#FF0000";
}

std::string element(std::string_view name, std::string_view content) {
  std::string html("<");
  html.append(name).append(">").append(content).append("</").append(name).append(">");
  return html;
}

// A ground needs blanks around its words that neither break nor vanish.
std::string spanHtml(const PageSpan& span) {
  const std::string words = markupText(span.text);
  switch (span.kind) {
    case PageSpan::Kind::bold:
      return element("b", words);
    case PageSpan::Kind::link:
      return "<a href=\"" + markupText(linkUrl(*parseHelpLink(span.target))) + "\">" + words +
             "</a>";
    case PageSpan::Kind::ground:
      return "<span style=\"background-color:" + std::string(groundColour(span.target)) +
             ";color:#000000\">&nbsp;" + words + "&nbsp;</span>";
    case PageSpan::Kind::plain:
      break;
  }
  return words;
}

std::string textHtml(std::string_view text) {
  std::string html;
  for (const PageSpan& span : pageSpans(text)) html += spanHtml(span);
  return html;
}

std::string tableHtml(const PageBlock& block) {
  std::string html;
  std::string_view cellName = "th";
  for (const auto& row : block.rows) {
    std::string cells;
    for (const std::string& cell : row) cells += element(cellName, textHtml(cell));
    html += element("tr", cells);
    cellName = "td";
  }
  return element("table", html);
}

std::string listHtml(const PageBlock& block) {
  std::string items;
  for (const auto& row : block.rows) items += element("li", textHtml(row.front()));
  return element("ul", items);
}

std::string blockHtml(const PageBlock& block) {
  switch (block.kind) {
    case PageBlock::Kind::heading:
      return element("h3", textHtml(block.text));
    case PageBlock::Kind::entry:
      return "<h4><a name=\"" + entryAnchor(block.text) + "\"></a>" + textHtml(block.text) +
             "</h4>";
    case PageBlock::Kind::list:
      return listHtml(block);
    case PageBlock::Kind::table:
      return tableHtml(block);
    case PageBlock::Kind::picture:
      return "<p><img src=\"" + block.file + "\" alt=\"" + markupText(block.text) + "\"></p>";
    case PageBlock::Kind::paragraph:
      break;
  }
  return element("p", textHtml(block.text));
}

// Every text of a block that may hold spans.
std::vector<std::string_view> textsOf(const PageBlock& block) {
  std::vector<std::string_view> texts{block.text};
  for (const auto& row : block.rows) texts.insert(texts.end(), row.begin(), row.end());
  return texts;
}

bool isPictureNamePart(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' ||
         c == '_';
}

}  // namespace

std::optional<HelpLink> parseHelpLink(std::string_view text) {
  const std::size_t hash = text.find('#');
  HelpLink link;
  if (hash != std::string_view::npos) link.entry = entryAnchor(text.substr(hash + 1));
  const std::string_view target = trimmedLine(text.substr(0, hash));
  const bool numberAlone = !target.empty() && target.front() >= '0' && target.front() <= '9';
  const auto address = parseHelpAddress(
      numberAlone ? std::string(usualFile) + " " + std::string(target) : std::string(target));
  if (!address) return std::nullopt;
  link.address = *address;
  return link;
}

std::string linkUrl(const HelpLink& link) {
  std::string url = std::string(urlScheme) + link.address.file;
  if (link.address.number > 0) url += "/" + std::to_string(link.address.number);
  if (!link.entry.empty()) url += "#" + link.entry;
  return url;
}

std::optional<HelpLink> linkOfUrl(std::string_view url) {
  if (!url.starts_with(urlScheme)) return std::nullopt;
  std::string target(url.substr(urlScheme.size()));
  std::ranges::replace(target, '/', ' ');
  return parseHelpLink(target);
}

std::string topicHtml(const HelpTopic& topic) {
  std::string html = element("h2", markupText(topic.title));
  for (const PageBlock& block : pageBlocks(topic.body)) html += blockHtml(block);
  return html;
}

std::string topicPlainText(const HelpTopic& topic) {
  std::string text;
  for (const PageBlock& block : pageBlocks(topic.body))
    for (const std::string_view part : textsOf(block)) text += plainText(part) + "\n";
  return text;
}

std::vector<TopicEntry> topicEntries(const HelpTopic& topic) {
  std::vector<TopicEntry> entries;
  for (const PageBlock& block : pageBlocks(topic.body))
    if (block.kind == PageBlock::Kind::entry)
      entries.push_back({plainText(block.text), entryAnchor(block.text)});
  return entries;
}

std::string entryAnchor(std::string_view term) {
  std::string anchor;
  for (const std::string& word : wordsOf(term.substr(0, term.find(','))))
    anchor += (anchor.empty() ? "" : "-") + word;
  // Beyond ASCII an address would need an encoding of its own.
  std::erase_if(anchor, [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
  return anchor;
}

std::vector<HelpLink> topicLinks(const HelpTopic& topic) {
  std::vector<HelpLink> links;
  for (const PageBlock& block : pageBlocks(topic.body))
    for (const std::string_view text : textsOf(block))
      for (const PageSpan& span : pageSpans(text))
        if (span.kind == PageSpan::Kind::link) links.push_back(*parseHelpLink(span.target));
  return links;
}

std::vector<std::string> topicPictures(const HelpTopic& topic) {
  std::vector<std::string> files;
  for (const PageBlock& block : pageBlocks(topic.body))
    if (block.kind == PageBlock::Kind::picture) files.push_back(block.file);
  return files;
}

bool isPictureName(std::string_view name) {
  constexpr std::size_t ending = 4;
  if (name.size() <= ending || name.size() > 80) return false;
  const std::string_view end = name.substr(name.size() - ending);
  return (end == ".svg" || end == ".png") &&
         std::ranges::all_of(name.substr(0, name.size() - ending), isPictureNamePart);
}

}  // namespace tolmer
