// The markup of help pages, and HTML made of it.
//
//   # Heading             - item of a list          | cell | cell |   (the first row is the head)
//   = Term                an entry: links and search lead straight to it
//   ![words](name.svg)    a picture of the help's folder, on a line of its own
//
// Other lines are paragraphs; a blank line ends each block, and an item goes on in lines that begin
// with blanks. Inside: *bold*, [words](231) or [words](tolmod 231#term) as a link, and
// {cyan words} on a ground of cyan, green, yellow or red, the colours of the tables. Everything
// else stands for itself, so that a page can show any text and load nothing from elsewhere.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "help/help_topic.h"

namespace tolmer {

// A link inside the help.
struct HelpLink {
  HelpAddress address;
  std::string entry;
};

// "231", "tolmod 231", "231#term": a number alone is one of "tolmod". nullopt for anything else.
std::optional<HelpLink> parseHelpLink(std::string_view text);
// What stands for it in a page, as "help:tolmod/231#term", and back.
std::string linkUrl(const HelpLink& link);
std::optional<HelpLink> linkOfUrl(std::string_view url);

// The body with its title as HTML: h2 (the title; h1 is drawn twice as large as the text), h3, h4
// (an entry), p, ul, li, table, b, a, img and span, nothing else.
std::string topicHtml(const HelpTopic& topic);

// What a reader of the body sees, as one text; links and pictures by their words.
std::string topicPlainText(const HelpTopic& topic);

struct TopicEntry {
  std::string term;
  std::string anchor;
};
std::vector<TopicEntry> topicEntries(const HelpTopic& topic);
// Words of the term, up to a comma, with hyphens: "vif" of "VIF, variance inflation factor".
std::string entryAnchor(std::string_view term);

std::vector<HelpLink> topicLinks(const HelpTopic& topic);
// File names without folder; only letters, digits, hyphens, underscores and the ending .svg or
// .png.
std::vector<std::string> topicPictures(const HelpTopic& topic);
bool isPictureName(std::string_view name);

struct PageBlock {
  enum class Kind { heading, entry, paragraph, list, table, picture };
  Kind kind = Kind::paragraph;
  std::string text;                            // a picture's words
  std::string file;                            // of a picture
  std::vector<std::vector<std::string>> rows;  // of a table; an item is a row of one cell
};

struct PageSpan {
  enum class Kind { plain, bold, link, ground };
  Kind kind = Kind::plain;
  std::string text;
  std::string target;  // of a link; the colour's name of a ground
};

std::vector<PageBlock> pageBlocks(std::string_view body);
std::vector<PageSpan> pageSpans(std::string_view text);

// Where the markup of a span could not be made out it stays in the text, so nothing is ever lost.
std::string plainText(std::string_view text);

}  // namespace tolmer
