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

std::string hex(Colour colour) { return hexColour(colour.red, colour.green, colour.blue); }

struct SvgElement {
  const ViewSize& view;

  std::string operator()(const BoxPrimitive& box) const {
    const ViewRect place = screenBox(box, view);
    return "<rect" +
           svgAttributes("x", place.left, "y", place.bottom, "width", place.width, "height",
                         place.height, "fill", hex(box.fill), "stroke", hex(box.outline)) +
           "/>\n";
  }

  std::string operator()(const LinePrimitive& line) const {
    std::string points;
    for (const ViewPoint& point : screenLine(line, view)) {
      if (!points.empty()) points += ' ';
      points += svgNumber(point.x) + ',' + svgNumber(point.y);
    }
    std::string element = line.isClosed() ? "<polygon" : "<polyline";
    element += svgAttributes("points", points, "fill", "none", "stroke", hex(line.colour));
    if (line.width != 1) element += svgAttributes("stroke-width", line.width);
    if (line.dashed)
      element += svgAttributes("stroke-dasharray", svgNumber(LinePrimitive::dashOn) + ' ' +
                                                       svgNumber(LinePrimitive::dashOff));
    return element + "/>\n";
  }

  // Its look is that of the group around it.
  std::string operator()(const SymbolPrimitive& symbol) const {
    const ViewPoint centre = screenPoint(symbol.centre, view);
    const double radius = symbol.diameter / 2 - (symbol.filled ? 0 : 0.5);
    return "<circle" + svgAttributes("cx", centre.x, "cy", centre.y, "r", radius) + "/>\n";
  }

  std::string operator()(const TextPrimitive& text) const {
    const ViewPoint anchor = screenAnchor(text, view);
    std::string element =
        "<text" + svgAttributes("x", anchor.x, "y", anchor.y, "font-size", text.pixels);
    if (text.align == Align::centre) element += svgAttributes("text-anchor", "middle");
    if (text.align == Align::right) element += svgAttributes("text-anchor", "end");
    if (text.turned)
      element += svgAttributes(
          "transform", "rotate(-90 " + svgNumber(anchor.x) + ' ' + svgNumber(anchor.y) + ')');
    return element + '>' + markupText(text.text) + "</text>\n";
  }
};

// A group for symbols that look alike: a scatter plot of 500 points becomes half as long by it.
std::string symbolGroup(const SymbolPrimitive& symbol) {
  std::string element = "<g" + svgAttributes("fill", hex(symbol.colour));
  if (!symbol.filled)
    element += svgAttributes("fill-opacity", symbolFill, "stroke", hex(symbol.colour));
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
  const std::string width = svgNumber(size.width);
  const std::string height = svgNumber(size.height);
  return "<svg" +
         svgAttributes("xmlns", "http://www.w3.org/2000/svg", "width", width, "height", height,
                       "viewBox", "0 0 " + width + ' ' + height, "role", "img", "font-family",
                       fontFamily) +
         ">\n";
}

}  // namespace

std::string svgNumber(double value) {
  std::array<char, 64> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                 std::chars_format::fixed, 2)
                       .ptr;
  std::string text(digits.data(), end);
  text.erase(text.find_last_not_of('0') + 1);
  if (text.ends_with('.')) text.pop_back();
  return text == "-0" ? "0" : text;
}

std::string svgAttributes(std::string_view name, std::string_view content) {
  std::string text = " ";
  text += name;
  text += "=\"";
  text += content;
  text += '"';
  return text;
}

std::string writeSvg(const Picture& picture, std::string_view title, std::string_view description) {
  std::string svg = opening(picture.size);
  svg += "<title>" + markupText(title) + "</title>\n<desc>" + markupText(description) + "</desc>\n";
  svg += "<rect width=\"100%\" height=\"100%\" fill=\"#ffffff\"/>\n";
  return svg + elementsOf(picture) + "</svg>\n";
}

}  // namespace tolmer
