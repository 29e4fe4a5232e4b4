#include "figures/side_by_side.h"

#include <cstddef>

namespace tolmer {
namespace {

constexpr std::size_t columns = 2;
constexpr double gap = 10;

struct Shift {
  double x;
  double y;

  void operator()(ViewPoint& point) const {
    point.x += x;
    point.y += y;
  }
  void operator()(BoxPrimitive& box) const {
    box.place.left += x;
    box.place.bottom += y;
  }
  void operator()(LinePrimitive& line) const {
    for (ViewPoint& point : line.points) (*this)(point);
  }
  void operator()(SymbolPrimitive& symbol) const { (*this)(symbol.centre); }
  void operator()(TextPrimitive& text) const { (*this)(text.anchor); }
};

// Sentences of two pictures do not run into one another.
void append(std::string& text, const std::string& more) {
  if (!text.empty()) text += ' ';
  text += more;
}

}  // namespace

DescribedPicture sideBySide(const std::vector<DescribedPicture>& parts) {
  DescribedPicture whole;
  if (parts.empty()) return whole;
  const ViewSize cell = parts.front().picture.size;
  const std::size_t rows = (parts.size() + columns - 1) / columns;
  whole.picture.size = {columns * cell.width + gap,
                        static_cast<double>(rows) * (cell.height + gap) - gap};
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const Shift shift{static_cast<double>(i % columns) * (cell.width + gap),
                      static_cast<double>(rows - 1 - i / columns) * (cell.height + gap)};
    for (Primitive primitive : parts[i].picture.primitives) {
      std::visit(shift, primitive);
      whole.picture.primitives.push_back(std::move(primitive));
    }
    append(whole.title, parts[i].title);
    append(whole.description, parts[i].description);
  }
  return whole;
}

}  // namespace tolmer
