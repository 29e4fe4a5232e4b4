#include "platform/web/printed_html.h"

#include <array>
#include <charconv>
#include <variant>

#include "base/markup_text.h"
#include "platform/graph/svg_writer.h"
#include "platform/web/nodes.h"

namespace tolmer {
namespace {

// Hundredths of a point are finer than any printer's dots.
std::string length(double points) {
  std::array<char, 32> text{};
  const auto end =
      std::to_chars(text.data(), text.data() + text.size(), points, std::chars_format::fixed, 2);
  return {text.data(), end.ptr};
}

std::string attribute(const char* name, const std::string& value) {
  return std::string(" ") + name + "=\"" + value + '"';
}

struct MarkWriter {
  std::string& html;

  void operator()(const PrintedBox& box) const {
    html += "<rect" + attribute("x", length(box.left)) + attribute("y", length(box.top)) +
            attribute("width", length(box.width)) + attribute("height", length(box.height)) +
            attribute("fill", hexColour(box.fill)) + "/>";
  }
  void operator()(const PrintedText& text) const {
    constexpr std::array anchors{"start", "middle", "end"};
    const bool isSerif = text.font.family == FontFamily::serif;
    html += "<text" + attribute("x", length(text.x)) + attribute("y", length(text.baseLine)) +
            attribute("font-size", length(text.font.pixels)) +
            attribute("font-family", isSerif ? "Liberation Serif" : "Noto Sans") +
            (text.font.bold ? attribute("font-weight", "bold") : std::string()) +
            attribute("fill", hexColour(text.colour)) +
            attribute("text-anchor", anchors.at(static_cast<std::size_t>(text.align))) + '>' +
            markupText(text.text) + "</text>";
  }
  void operator()(const PrintedPicture& picture) const {
    const double scale = picture.width / picture.picture->size.width;
    html += "<g" +
            attribute("transform", "translate(" + length(picture.left) + ' ' + length(picture.top) +
                                       ") scale(" + std::to_string(scale) + ')') +
            '>' + writeSvg(*picture.picture, {}, {}) + "</g>";
  }
};

}  // namespace

std::string printedHtml(const PrintedPages& pages) {
  std::string html = "<!DOCTYPE html><html lang=\"en\"><head><meta charset=\"utf-8\"><title>" +
                     markupText(pages.title) +
                     "</title><link rel=\"stylesheet\" href=\"print.css\"></head><body>";
  for (const PrintedPage& page : pages.pages) {
    const std::string width = length(pages.widthOf(page));
    const std::string height = length(pages.heightOf(page));
    html += std::string("<svg xmlns=\"http://www.w3.org/2000/svg\"") +
            attribute("class", page.isAcross ? "page across" : "page") +
            attribute("width", width + "pt") + attribute("height", height + "pt") +
            attribute("viewBox", "0 0 " + width + ' ' + height) + '>';
    for (const PrintedMark& mark : page.marks) std::visit(MarkWriter{html}, mark);
    html += "</svg>";
  }
  return html + "</body></html>";
}

}  // namespace tolmer
