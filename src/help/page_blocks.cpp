#include "help/page_blocks.h"

#include <algorithm>
#include <optional>

#include "help/help_text.h"
#include "help/topic_page.h"

namespace tolmer {
namespace {

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
  switch (text.front()) {
    case '*':
      return boldAt(text);
    case '[':
      return linkAt(text);
    case '{':
      return groundAt(text);
    default:
      return std::nullopt;
  }
}

}  // namespace

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
