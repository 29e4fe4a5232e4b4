#include "platform/graph/case_marks.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <tuple>
#include <utility>

#include "platform/graph/layout.h"

namespace tolmer {
namespace {

constexpr double reach = 5;        // view units around a symbol that still mean it
constexpr double samePlace = 1;    // centres that close look like one symbol
constexpr double ring = 1.5;       // width of the dark ring around a lit symbol
constexpr double fromSymbol = 3;   // to its name
constexpr double litShare = 0.65;  // of the full colour in a bar, which has far less by itself
constexpr std::size_t mostNames = 40;
constexpr double widestName = 0.3;  // in parts of the picture's width
constexpr double usualPixels = 12;

ViewPoint centreOf(const ViewRect& place) {
  return {place.left + place.width / 2, place.bottom + place.height / 2};
}

double distance(const ViewPoint& one, const ViewPoint& other) {
  const double x = one.x - other.x, y = one.y - other.y;
  return std::sqrt(x * x + y * y);
}

bool contains(const ViewRect& area, const ViewPoint& point) {
  return area.left <= point.x && point.x <= area.right() && area.bottom <= point.y &&
         point.y <= area.top();
}

bool touch(const ViewRect& one, const ViewRect& other) {
  return one.left <= other.right() && other.left <= one.right() && one.bottom <= other.top() &&
         other.bottom <= one.top();
}

int litCount(const CaseMark& mark, const LitCases& lit) {
  return static_cast<int>(std::count_if(mark.cases.begin(), mark.cases.end(),
                                        [&lit](int one) { return isLit(lit, one); }));
}

// A bar stands behind the curve that is drawn over all of them.
void addBarShares(Picture& picture, std::span<const CaseMark> marks, const LitCases& lit) {
  std::vector<Primitive> shares;
  for (const CaseMark& mark : marks) {
    const int count = mark.isBar ? litCount(mark, lit) : 0;
    if (count == 0) continue;
    ViewRect share = mark.place;
    share.height = std::max(2.0, share.height * count / static_cast<double>(mark.cases.size()));
    shares.emplace_back(BoxPrimitive{share, tint(mark.colour, litShare), mark.colour});
  }
  auto& all = picture.primitives;
  const auto isBox = [](const Primitive& one) { return std::holds_alternative<BoxPrimitive>(one); };
  const auto behind = std::find_if(all.rbegin(), all.rend(), isBox).base();
  all.insert(behind, shares.begin(), shares.end());
}

void addSymbol(Picture& picture, const CaseMark& mark) {
  const ViewPoint centre = centreOf(mark.place);
  picture.add(SymbolPrimitive{centre, mark.place.width + 2 * ring, colours::black, true});
  picture.add(SymbolPrimitive{centre, mark.place.width, mark.colour, true});
}

double textPixels(const Picture& picture) {
  for (const Primitive& one : picture.primitives)
    if (const auto* text = std::get_if<TextPrimitive>(&one)) return text->pixels;
  return usualPixels;
}

// At the right of the symbol, at its left, above it and below.
std::array<TextPrimitive, 4> placesOfName(const CaseMark& mark, const std::string& name,
                                          double pixels) {
  const ViewPoint centre = centreOf(mark.place);
  const double beside = mark.place.width / 2 + fromSymbol;
  const double level = centredBaseline(centre.y, pixels);
  return {TextPrimitive{{centre.x + beside, level}, name, pixels, Align::left},
          TextPrimitive{{centre.x - beside, level}, name, pixels, Align::right},
          TextPrimitive{{centre.x, centre.y + beside}, name, pixels, Align::centre},
          TextPrimitive{{centre.x, centre.y - beside - 0.7 * pixels}, name, pixels, Align::centre}};
}

// Where it covers the fewest symbols.
void addName(Picture& picture, const CaseMark& mark, std::span<const CaseMark> marks,
             const std::string& name) {
  const double pixels = textPixels(picture);
  auto places = placesOfName(mark, fitText(name, pixels, widestName * picture.size.width), pixels);
  const auto covered = [&marks](const TextPrimitive& text) {
    const ViewRect bounds = textBounds(text);
    return std::count_if(marks.begin(), marks.end(),
                         [&bounds](const CaseMark& one) { return touch(bounds, one.place); });
  };
  std::stable_sort(places.begin(), places.end(), [&](const auto& one, const auto& other) {
    return covered(one) < covered(other);
  });
  const std::size_t before = picture.primitives.size();
  for (const TextPrimitive& place : places) {
    picture.addText(place);
    if (picture.primitives.size() > before) return;
  }
}

}  // namespace

bool isLit(const LitCases& lit, int iCase) {
  return std::binary_search(lit.cases.begin(), lit.cases.end(), iCase);
}

std::vector<CaseMark> caseMarks(const GraphSettings& settings, const Picture& picture,
                                std::vector<CaseMark> bars) {
  std::vector<CaseMark> marks;
  for (CaseMark& bar : bars)
    if (bar.place.height > 0 && !bar.cases.empty()) marks.push_back(std::move(bar));
  for (const Primitive& one : picture.primitives) {
    const auto* symbol = std::get_if<SymbolPrimitive>(&one);
    if (!symbol || symbol->point == 0) continue;
    const int iCase = settings.points[static_cast<std::size_t>(symbol->point) - 1].iCase;
    const double radius = symbol->diameter / 2;
    if (iCase > 0)
      marks.push_back({{symbol->centre.x - radius, symbol->centre.y - radius, symbol->diameter,
                        symbol->diameter},
                       {iCase},
                       false,
                       symbol->colour});
  }
  std::stable_sort(marks.begin(), marks.end(), [](const CaseMark& one, const CaseMark& other) {
    return std::tuple(one.place.left, one.place.bottom) <
           std::tuple(other.place.left, other.place.bottom);
  });
  return marks;
}

std::vector<std::size_t> marksAt(std::span<const CaseMark> marks, ViewPoint at) {
  const CaseMark* nearest = nullptr;
  for (const CaseMark& mark : marks) {
    const ViewPoint centre = centreOf(mark.place);
    if (!mark.isBar && distance(centre, at) <= mark.place.width / 2 + reach &&
        (!nearest || distance(centre, at) < distance(centreOf(nearest->place), at)))
      nearest = &mark;
  }
  std::vector<std::size_t> found;
  for (std::size_t i = 0; i < marks.size(); ++i) {
    const CaseMark& mark = marks[i];
    const bool isMeant = mark.isBar ? !nearest && contains(mark.place, at)
                                    : nearest && distance(centreOf(mark.place),
                                                          centreOf(nearest->place)) < samePlace;
    if (isMeant) found.push_back(i);
  }
  return found;
}

std::vector<int> casesWithin(std::span<const CaseMark> marks, const ViewRect& area) {
  std::vector<int> cases;
  for (const CaseMark& mark : marks)
    if (mark.isBar ? touch(area, mark.place) : contains(area, centreOf(mark.place)))
      cases.insert(cases.end(), mark.cases.begin(), mark.cases.end());
  std::sort(cases.begin(), cases.end());
  cases.erase(std::unique(cases.begin(), cases.end()), cases.end());
  return cases;
}

Picture withLit(const Picture& picture, std::span<const CaseMark> marks, const LitCases& lit) {
  Picture result = picture;
  if (lit.cases.empty()) return result;
  addBarShares(result, marks, lit);
  const auto isLitSymbol = [&lit](const CaseMark& mark) {
    return !mark.isBar && isLit(lit, mark.cases.front());
  };
  for (const CaseMark& mark : marks)
    if (isLitSymbol(mark)) addSymbol(result, mark);
  if (!lit.nameOf || lit.cases.size() > mostNames) return result;
  for (const CaseMark& mark : marks)
    if (isLitSymbol(mark)) addName(result, mark, marks, lit.nameOf(mark.cases.front()));
  return result;
}

}  // namespace tolmer
