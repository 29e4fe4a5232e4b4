#include "platform/curtain.h"

#include <cmath>
#include <string_view>

#include "platform/text_metrics.h"

namespace tolmer {
namespace {

constexpr Colour ground = Colour::rgb(38, 62, 92);
constexpr Colour words = Colour::rgb(52, 78, 110);
constexpr std::string_view familyName = "Z e l m a r";
constexpr std::string_view betweenNames = "   ";

// Both stand in the middle, so what is too much is cut off alike on both sides. Every line is the
// same and ends in no blank: a blank would push its line off the middle, or not, by where it
// stands.
std::string lineAcross(const Font& font, Twips width) {
  const std::string repeated = std::string(betweenNames).append(familyName);
  const double repetitions = std::ceil(width / twipsPerPixel / textWidth(font, repeated));
  std::string line(familyName);
  for (int i = 0; i < static_cast<int>(repetitions); ++i) line += repeated;
  return line;
}

std::string pattern(const Font& font, Size room) {
  const std::string line = lineAcross(font, room.width);
  const double lines = std::ceil(room.height / twipsPerPixel / lineHeight(font));
  std::string text = line;
  for (int i = 1; i < static_cast<int>(lines); ++i) text.append("\n").append(line);
  return text;
}

}  // namespace

Curtain::Curtain(Container* parent, std::string name) : Panel(parent, std::move(name)) {
  setFont({FontFamily::serif, 24, true});
  setBackColour(ground);
  setForeColour(words);
  setAccessibleName("Zelmar");  // the pattern read aloud would not end
}

void Curtain::fill(Size room) {
  setPlace({0, 0, room.width, room.height});
  setCaption(pattern(font(), room));
}

}  // namespace tolmer
