#include "platform/web/printed_html.h"

#include <array>
#include <variant>

#include "base/markup_text.h"
#include "platform/graph/svg_writer.h"
#include "platform/web/nodes.h"

namespace tolmer {
namespace {

struct SvgMark {
  std::string operator()(const PrintedBox& box) const {
    return "<rect" +
           svgAttributes("x", box.left, "y", box.top, "width", box.width, "height", box.height,
                         "fill", hexColour(box.fill)) +
           "/>";
  }
  std::string operator()(const PrintedText& text) const {
    constexpr std::array anchors{"start", "middle", "end"};
    const bool isSerif = text.font.family == FontFamily::serif;
    return "<text" +
           svgAttributes("x", text.x, "y", text.baseLine, "font-size", text.font.pixels,
                         "font-family", isSerif ? "Liberation Serif" : "Noto Sans", "font-weight",
                         text.font.bold ? "bold" : "normal", "fill", hexColour(text.colour),
                         "text-anchor", anchors.at(static_cast<std::size_t>(text.align))) +
           '>' + markupText(text.text) + "</text>";
  }
  std::string operator()(const PrintedPicture& picture) const {
    const double scale = picture.width / picture.picture->size.width;
    return "<g" +
           svgAttributes("transform", "translate(" + svgNumber(picture.left) + ' ' +
                                          svgNumber(picture.top) + ") scale(" +
                                          std::to_string(scale) + ')') +
           '>' + writeSvg(*picture.picture, {}, {}) + "</g>";
  }
};

}  // namespace

std::string printedHtml(const PrintedPages& pages) {
  std::string html;
  for (const PrintedPage& page : pages.pages) {
    const std::string width = svgNumber(pages.widthOf(page));
    const std::string height = svgNumber(pages.heightOf(page));
    html += "<svg" +
            svgAttributes("class", page.isAcross ? "sheet across" : "sheet", "width", width + "pt",
                          "height", height + "pt", "viewBox", "0 0 " + width + ' ' + height) +
            '>';
    for (const PrintedMark& mark : page.marks) html += std::visit(SvgMark{}, mark);
    html += "</svg>";
  }
  return html;
}

}  // namespace tolmer
