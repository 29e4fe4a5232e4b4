// HTML as a row of tags and texts, as browsers put it on the clipboard. Nothing is refused: what is
// no tag is text.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tolmer {

struct HtmlToken {
  enum class Kind { text, start, end };
  Kind kind = Kind::text;
  std::string name{};           // of the tag, in small letters
  std::string_view attributes;  // as they are written; of a text its characters

  // The value of an attribute, without its quotes; nothing where it is not there.
  std::optional<std::string_view> attribute(std::string_view name) const;
  // A style or an attribute keeps it from being seen.
  bool isHidden() const;
};

class HtmlTokens {
 public:
  explicit HtmlTokens(std::string_view html) : rest_(html) {}

  // Without comments and declarations; nothing at the end.
  std::optional<HtmlToken> next();
  // Goes on behind the end of the element that has just begun; stays where it has none.
  bool skip(const HtmlToken& element);

 private:
  std::optional<HtmlToken> tag();

  std::string_view rest_;
};

// With the characters that references stand for; a blank that breaks no line is a blank.
std::string htmlText(std::string_view written);

}  // namespace tolmer
