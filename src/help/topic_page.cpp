#include "help/topic_page.h"

#include <algorithm>

#include "base/markup_text.h"
#include "help/help_text.h"

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
  if (span.kind == PageSpan::Kind::bold) return element("b", words);
  if (span.kind == PageSpan::Kind::link)
    return "<a href=\"" + markupText(linkUrl(*parseHelpLink(span.target))) + "\">" + words + "</a>";
  if (span.kind == PageSpan::Kind::ground)
    return "<span style=\"background-color:" + std::string(groundColour(span.target)) +
           ";color:#000000\">&nbsp;" + words + "&nbsp;</span>";
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
  if (block.kind == PageBlock::Kind::heading) return element("h3", textHtml(block.text));
  if (block.kind == PageBlock::Kind::entry)
    return "<h4><a name=\"" + entryAnchor(block.text) + "\"></a>" + textHtml(block.text) + "</h4>";
  if (block.kind == PageBlock::Kind::list) return listHtml(block);
  if (block.kind == PageBlock::Kind::table) return tableHtml(block);
  if (block.kind == PageBlock::Kind::picture)
    return "<p><img src=\"" + block.file + "\" alt=\"" + markupText(block.text) + "\"></p>";
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

using Kind = PageBlock::Kind;

void append(std::string& text, std::string_view line) {
  if (!text.empty()) text += ' ';
  text += line;
}

// So far a span may reach; without a limit a page of opening brackets alone would take for ever.
constexpr std::size_t longestSpan = 400;

// The part before the next `close`, where there is one and it is not empty.
std::optional<std::string_view> before(char close, std::string_view text) {
  const std::size_t end = text.substr(0, longestSpan).find(close);
  if (end == std::string_view::npos || end == 0) return std::nullopt;
  return text.substr(0, end);
}

std::optional<PageBlock> pictureOf(std::string_view line) {
  if (!line.starts_with("![") || !line.ends_with(')')) return std::nullopt;
  const std::size_t middle = line.find("](");
  if (middle == std::string_view::npos) return std::nullopt;
  const std::string_view file = line.substr(middle + 2, line.size() - middle - 3);
  if (!isPictureName(file)) return std::nullopt;
  return PageBlock{Kind::picture, std::string(line.substr(2, middle - 2)), std::string(file), {}};
}

std::vector<std::string> cellsOf(std::string_view line) {
  line.remove_prefix(1);
  if (line.ends_with('|')) line.remove_suffix(1);
  std::vector<std::string> cells;
  for (const std::string_view cell : splitAt(line, '|')) cells.emplace_back(cell);
  return cells;
}

class BlockReader {
 public:
  std::vector<PageBlock> read(std::string_view body) {
    for (const std::string_view line : linesOf(body)) take(line, trimmedLine(line));
    return std::move(blocks_);
  }

 private:
  void take(std::string_view raw, std::string_view line) {
    if (line.empty()) {
      open_ = false;
    } else if (line.starts_with("# ")) {
      single(Kind::heading, line);
    } else if (line.starts_with("= ")) {
      single(Kind::entry, line);
    } else if (const auto picture = pictureOf(line)) {
      blocks_.push_back(*picture);
      open_ = false;
    } else if (line.starts_with('|')) {
      block(Kind::table).rows.push_back(cellsOf(line));
    } else if (line.starts_with("- ")) {
      block(Kind::list).rows.push_back({std::string(trimmedLine(line.substr(2)))});
    } else if (isOpen(Kind::list) && raw.starts_with(' ')) {
      append(blocks_.back().rows.back().front(), line);
    } else {
      append(block(Kind::paragraph).text, line);
    }
  }

  bool isOpen(Kind kind) const { return open_ && blocks_.back().kind == kind; }

  void single(Kind kind, std::string_view line) {
    blocks_.push_back({kind, std::string(trimmedLine(line.substr(2))), {}, {}});
    open_ = false;
  }

  PageBlock& block(Kind kind) {
    if (!isOpen(kind)) blocks_.push_back({kind, {}, {}, {}});
    open_ = true;
    return blocks_.back();
  }

  std::vector<PageBlock> blocks_;
  bool open_ = false;
};

struct Found {
  PageSpan span;
  std::size_t length = 0;
};

std::optional<Found> boldAt(std::string_view text) {
  const auto inner = before('*', text.substr(1));
  if (!inner || inner->front() == ' ' || inner->back() == ' ') return std::nullopt;
  return Found{{PageSpan::Kind::bold, std::string(*inner), {}}, inner->size() + 2};
}

std::optional<Found> linkAt(std::string_view text) {
  const auto words = before(']', text.substr(1));
  if (!words) return std::nullopt;
  const std::string_view rest = text.substr(words->size() + 2);
  if (!rest.starts_with('(')) return std::nullopt;
  const auto target = before(')', rest.substr(1));
  if (!target || !parseHelpLink(*target)) return std::nullopt;
  return Found{{PageSpan::Kind::link, std::string(*words), std::string(*target)},
               words->size() + target->size() + 4};
}

std::optional<Found> groundAt(std::string_view text) {
  constexpr std::string_view colours[] = {"cyan", "green", "yellow", "red"};
  const auto inner = before('}', text.substr(1));
  if (!inner) return std::nullopt;
  const std::size_t blank = inner->find(' ');
  const std::string_view colour = inner->substr(0, blank);
  if (blank == std::string_view::npos || std::ranges::find(colours, colour) == std::end(colours))
    return std::nullopt;
  return Found{
      {PageSpan::Kind::ground, std::string(trimmedLine(inner->substr(blank))), std::string(colour)},
      inner->size() + 2};
}

std::optional<Found> spanAt(std::string_view text) {
  if (text.front() == '*') return boldAt(text);
  if (text.front() == '[') return linkAt(text);
  if (text.front() == '{') return groundAt(text);
  return std::nullopt;
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

std::vector<PageBlock> pageBlocks(std::string_view body) { return BlockReader().read(body); }

std::vector<PageSpan> pageSpans(std::string_view text) {
  std::vector<PageSpan> spans;
  const auto plain = [&spans](char c) {
    if (spans.empty() || spans.back().kind != PageSpan::Kind::plain) spans.emplace_back();
    spans.back().text += c;
  };
  while (!text.empty()) {
    const auto found = spanAt(text);
    if (found)
      spans.push_back(found->span);
    else
      plain(text.front());
    text.remove_prefix(found ? found->length : 1);
  }
  return spans;
}

std::string plainText(std::string_view text) {
  std::string plain;
  for (const PageSpan& span : pageSpans(text)) plain += span.text;
  return plain;
}

}  // namespace tolmer
