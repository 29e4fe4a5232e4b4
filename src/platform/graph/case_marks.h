// What in the picture of a graph stands for cases: what of it lies under a pointer, and how it
// looks while its cases are selected.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <vector>

#include "platform/graph/graph_settings.h"
#include "platform/graph/picture.h"

namespace tolmer {

// A symbol, or the bar of a class.
struct CaseMark {
  ViewRect place;
  std::vector<int> cases;  // rising, from 1; at least one
  bool isBar = false;
  Colour colour = paletteColour(palette::brightBlue);
};

// The symbols of a picture that belong to a case, and the bars that are drawn and hold one, all
// from left to right, those above one another from below.
std::vector<CaseMark> caseMarks(const GraphSettings& settings, const Picture& picture,
                                std::vector<CaseMark> bars);

// Indices of those under the pointer: the nearest symbol within reach of a hand, with all that hide
// behind it, else the bar.
std::vector<std::size_t> marksAt(std::span<const CaseMark> marks, ViewPoint at);
// Of symbols with their centre inside and of bars that are touched; rising, each once.
std::vector<int> casesWithin(std::span<const CaseMark> marks, const ViewRect& area);

struct LitCases {
  std::vector<int> cases{};  // rising, from 1
  int current = 0;           // the one that keys go on from; 0 for none
  // What stands beside the symbol of a case.
  std::function<std::string(int)> nameOf{};
};

bool isLit(const LitCases& lit, int iCase);

// Those symbols filled and named, where the names have room and are not too many to be read; of a
// bar the share of its cases darker, from below.
Picture withLit(const Picture& picture, std::span<const CaseMark> marks, const LitCases& lit);

}  // namespace tolmer
