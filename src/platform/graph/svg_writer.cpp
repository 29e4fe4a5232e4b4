#include "platform/graph/svg_writer.h"

#include <array>
#include <charconv>

#include "base/markup_text.h"

namespace tolmer {
namespace {

// One name alone, since Qt's own reader takes a list for a name. Where this font is missing,
// systems put Liberation Serif in its place, which has the same widths.
constexpr std::string_view fontFamily = "Times New Roman";

// Share of the full colour inside open circles, translucent so that dense points show.
constexpr double symbolFill = 0.25;

// Two decimals are finer than any screen; no trailing zeros.
std::string number(double value) {
  std::array<char, 64> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                 std::chars_format::fixed, 2)
                       .ptr;
  std::string text(digits.data(), end);
  text.erase(text.find_last_not_of('0') + 1);
  if (text.ends_with('.')) text.pop_back();
  return text == "-0" ? "0" : text;
}

std::string hex(Colour colour) { return hexColour(colour.red, colour.green, colour.blue); }

std::string attribute(std::string_view name, std::string_view value) {
  std::string text = " ";
  text += name;
  text += "=\"";
  text += value;
  text += '"';
  return text;
}

std::string attribute(std::string_view name, double value) {
  return attribute(name, number(value));
}

struct SvgElement {
  const ViewSize& view;

  std::string operator()(const BoxPrimitive& box) const {
    const ViewRect place = screenBox(box, view);
    return "<rect" + attribute("x", place.left) + attribute("y", place.bottom) +
           attribute("width", place.width) + attribute("height", place.height) +
           attribute("fill", hex(box.fill)) + attribute("stroke", hex(box.outline)) + "/>\n";
  }

  std::string operator()(const LinePrimitive& line) const {
    std::string points;
    for (const ViewPoint& point : screenLine(line, view)) {
      if (!points.empty()) points += ' ';
      points += number(point.x) + ',' + number(point.y);
    }
    std::string element = line.isClosed() ? "<polygon" : "<polyline";
    element += attribute("points", points) + attribute("fill", "none") +
               attribute("stroke", hex(line.colour));
    if (line.width != 1) element += attribute("stroke-width", line.width);
    if (line.dashed)
      element += attribute("stroke-dasharray",
                           number(LinePrimitive::dashOn) + ' ' + number(LinePrimitive::dashOff));
    return element + "/>\n";
  }

  // Its look is that of the group around it.
  std::string operator()(const SymbolPrimitive& symbol) const {
    const ViewPoint centre = screenPoint(symbol.centre, view);
    const double radius = symbol.diameter / 2 - (symbol.filled ? 0 : 0.5);
    return "<circle" + attribute("cx", centre.x) + attribute("cy", centre.y) +
           attribute("r", radius) + "/>\n";
  }

  std::string operator()(const TextPrimitive& text) const {
    const ViewPoint anchor = screenAnchor(text, view);
    std::string element = "<text" + attribute("x", anchor.x) + attribute("y", anchor.y) +
                          attribute("font-size", text.pixels);
    if (text.align == Align::centre) element += attribute("text-anchor", "middle");
    if (text.align == Align::right) element += attribute("text-anchor", "end");
    if (text.turned)
      element +=
          attribute("transform", "rotate(-90 " + number(anchor.x) + ' ' + number(anchor.y) + ')');
    return element + '>' + markupText(text.text) + "</text>\n";
  }
};

// A group for symbols that look alike: a scatter plot of 500 points becomes half as long by it.
std::string symbolGroup(const SymbolPrimitive& symbol) {
  std::string element = "<g" + attribute("fill", hex(symbol.colour));
  if (!symbol.filled)
    element += attribute("fill-opacity", symbolFill) + attribute("stroke", hex(symbol.colour));
  return element + ">\n";
}

std::string elementsOf(const Picture& picture) {
  std::string svg;
  const SymbolPrimitive* group = nullptr;  // one of those in the open group
  for (const Primitive& primitive : picture.primitives) {
    const auto* symbol = std::get_if<SymbolPrimitive>(&primitive);
    const bool goesOn =
        group && symbol && symbol->colour == group->colour && symbol->filled == group->filled;
    if (group && !goesOn) svg += "</g>\n";
    if (symbol && !goesOn) svg += symbolGroup(*symbol);
    group = symbol;
    svg += std::visit(SvgElement{picture.size}, primitive);
  }
  return group ? svg + "</g>\n" : svg;
}

std::string opening(const ViewSize& size) {
  const std::string width = number(size.width);
  const std::string height = number(size.height);
  return "<svg" + attribute("xmlns", "http://www.w3.org/2000/svg") + attribute("width", width) +
         attribute("height", height) + attribute("viewBox", "0 0 " + width + ' ' + height) +
         attribute("role", "img") + attribute("font-family", fontFamily) + ">\n";
}

}  // namespace

std::string writeSvg(const Picture& picture, std::string_view title, std::string_view description) {
  std::string svg = opening(picture.size);
  svg += "<title>" + markupText(title) + "</title>\n<desc>" + markupText(description) + "</desc>\n";
  svg += "<rect width=\"100%\" height=\"100%\" fill=\"#ffffff\"/>\n";
  return svg + elementsOf(picture) + "</svg>\n";
}

}  // namespace tolmer
