// A picture as Scalable Vector Graphics 1.1, for the clipboard and for reports.
#pragma once

#include <string>
#include <string_view>

#include "platform/graph/picture.h"

namespace tolmer {

// One <svg> element without an XML declaration, so that it can stand in a page. Title and
// description (plain text) are what a screen reader says.
std::string writeSvg(const Picture& picture, std::string_view title, std::string_view description);

// A length with two decimals, finer than any screen, and without zeros behind them.
std::string svgNumber(double value);

// What stands in an element's tag: name, content, name, content; texts without letters to escape.
std::string svgAttributes(std::string_view name, std::string_view content);
inline std::string svgAttributes(std::string_view name, double content) {
  return svgAttributes(name, svgNumber(content));
}
template <class Content, class... Rest>
std::string svgAttributes(std::string_view name, const Content& content, std::string_view next,
                          const Rest&... rest) {
  return svgAttributes(name, content) + svgAttributes(next, rest...);
}

}  // namespace tolmer
