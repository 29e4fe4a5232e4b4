#include "platform/web/page_line.h"

#include <algorithm>
#include <charconv>

namespace tolmer {
namespace {

template <class Number>
Number numberIn(const std::string& text) {
  Number number{};
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

}  // namespace

PageMessage::PageMessage(std::string_view text) {
  for (;;) {
    const auto end = text.find('\x1f');
    fields_.emplace_back(text.substr(0, end));
    if (end == std::string_view::npos) return;
    text.remove_prefix(end + 1);
  }
}

const std::string& PageMessage::text(std::size_t index) const {
  static const std::string none;
  return index < size() ? fields_[index + 1] : none;
}

int PageMessage::whole(std::size_t index) const { return numberIn<int>(text(index)); }

float PageMessage::number(std::size_t index) const { return numberIn<float>(text(index)); }

std::size_t PageMessage::count(std::size_t index) const {
  return static_cast<std::size_t>(std::max(whole(index), 0));
}

}  // namespace tolmer
