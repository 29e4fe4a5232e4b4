#include "platform/labels.h"

#include <cmath>

#include "platform/text_metrics.h"

namespace tolmer {

Twips Label::captionWidth() const {
  return pixels(static_cast<float>(std::ceil(textWidth(font(), caption()))) + 4);
}

Twips Label::captionHeight(Twips width) const {
  const double inside = width / twipsPerPixel;
  return pixels(static_cast<float>(std::ceil(wrappedHeight(font(), caption(), inside))) + 2);
}

std::string inLines(const Label& label, const std::string& text) {
  if (!label.wordWrap()) return text;
  std::string lines;
  for (const std::string& line : wrapText(label.font(), text, label.width() / twipsPerPixel))
    lines += line + '\n';
  return lines.substr(0, lines.size() - 1);
}

}  // namespace tolmer
