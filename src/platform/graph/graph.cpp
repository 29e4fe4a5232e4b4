#include "platform/graph/graph.h"

#include <algorithm>

namespace tolmer {
namespace {

constexpr double leastDrag = 4;  // view units: less is the tremble of a click

ViewRect between(const ViewPoint& one, const ViewPoint& other) {
  return {std::min(one.x, other.x), std::min(one.y, other.y), std::abs(one.x - other.x),
          std::abs(one.y - other.y)};
}

bool holds(const CaseMark& mark, int iCase) {
  return std::binary_search(mark.cases.begin(), mark.cases.end(), iCase);
}

}  // namespace

Graph::Graph(Container* parent, std::string name) : Control(parent, std::move(name)) {
  setFont(graphFont(12));
  setBackColour(colours::white);
  setForeColour(colours::black);
  takeKeys();
}

void Graph::show(Plot plot, std::vector<CaseMark> bars) {
  plot_ = std::move(plot);
  bars_ = std::move(bars);
  lit_ = {};
  drag_.reset();
  base_.reset();
  marks_.reset();
  notify(Change::content);
}

const Picture& Graph::base() const {
  if (!base_) base_ = plot_.picture();
  return *base_;
}

const std::vector<CaseMark>& Graph::marks() const {
  if (!marks_) marks_ = caseMarks(plot_.settings, base(), bars_);
  return *marks_;
}

void Graph::light(LitCases lit) {
  const bool moves = lit.current != lit_.current;
  if (!moves && lit.cases == lit_.cases) return;
  lit_ = std::move(lit);
  notify(moves ? Change::content | Change::value : Change::content);
}

std::optional<std::size_t> Graph::currentMark() const {
  const auto& all = marks();
  const auto found = std::find_if(all.begin(), all.end(),
                                  [this](const auto& mark) { return holds(mark, lit_.current); });
  if (found == all.end()) return std::nullopt;
  return static_cast<std::size_t>(found - all.begin());
}

Picture Graph::picture() const {
  Picture shown = lit_.cases.empty() ? base() : withLit(base(), marks(), lit_);
  if (!drag_ || !drag_->isBand) return shown;
  const ViewRect band = between(drag_->from, drag_->to);
  LinePrimitive line{{{band.left, band.bottom},
                      {band.left, band.top()},
                      {band.right(), band.top()},
                      {band.right(), band.bottom},
                      {band.left, band.bottom}},
                     colours::black};
  line.dashed = true;
  shown.add(std::move(line));
  return shown;
}

void Graph::press(ViewPoint at, ClickKeys held) { drag_ = Drag{at, at, held}; }

void Graph::dragTo(ViewPoint at) {
  if (!drag_ || marks().empty()) return;
  const ViewSize size = base().size;
  drag_->to = {std::clamp(at.x, 0.0, size.width), std::clamp(at.y, 0.0, size.height)};
  const ViewRect band = between(drag_->from, drag_->to);
  drag_->isBand = drag_->isBand || band.width > leastDrag || band.height > leastDrag;
  if (drag_->isBand) notify(Change::content);
}

void Graph::release() {
  const auto drag = std::exchange(drag_, std::nullopt);
  if (!drag) return;
  std::vector<int> cases;
  if (drag->isBand) {
    cases = casesWithin(marks(), between(drag->from, drag->to));
    notify(Change::content);
  } else {
    for (const std::size_t mark : marksAt(marks(), drag->from))
      cases.insert(cases.end(), marks()[mark].cases.begin(), marks()[mark].cases.end());
  }
  if (drag->isBand || !cases.empty()) raise(Pick, cases, drag->held);
}

std::string Graph::tipAt(ViewPoint at) const {
  constexpr std::size_t mostLines = 8;
  const std::vector<std::size_t> under = marksAt(marks(), at);
  std::string text;
  for (std::size_t i = 0; i < std::min(under.size(), mostLines); ++i)
    text += (i == 0 ? "" : "\n") + wordsOn(under[i]);
  if (under.size() > mostLines)
    text += "\nand " + std::to_string(under.size() - mostLines) + " more";
  return text;
}

std::string Graph::wordsOn(std::size_t mark) const {
  return describe ? describe(marks()[mark]) : std::string();
}

void Graph::takeKeys() {
  const auto take = [this](int code, void (Graph::*step)(int, bool), int by) {
    for (const bool adds : {false, true})
      takeKey(
          {code, adds ? Held::yes : Held::no, Held::no, Held::no},
          [this, step, by, adds] { (this->*step)(by, adds); }, [this] { return !marks().empty(); });
  };
  constexpr int toTheEnd = 1 << 20;
  take(keys::right, &Graph::stepByPlace, 1);
  take(keys::left, &Graph::stepByPlace, -1);
  take(keys::end, &Graph::stepByPlace, toTheEnd);
  take(keys::home, &Graph::stepByPlace, -toTheEnd);
  take(keys::down, &Graph::stepByNumber, 1);
  take(keys::up, &Graph::stepByNumber, -1);
}

void Graph::stepByPlace(int step, bool adds) {
  const auto last = static_cast<int>(marks().size()) - 1;
  const auto current = currentMark();
  const int from = current ? static_cast<int>(*current) : step == -1 ? last + 1 : -1;
  const int to = std::clamp(from + step, 0, last);
  const std::vector<int> cases = marks()[static_cast<std::size_t>(to)].cases;
  raise(Pick, cases, ClickKeys{.shift = adds});
}

// To the next case by its number that stands here, in whatever mark.
void Graph::stepByNumber(int step, bool adds) {
  std::vector<int> all;
  for (const CaseMark& mark : marks()) all.insert(all.end(), mark.cases.begin(), mark.cases.end());
  std::sort(all.begin(), all.end());
  auto at = std::lower_bound(all.begin(), all.end(), lit_.current + (step > 0 ? 1 : 0));
  if (step < 0 && lit_.current == 0) at = all.end();
  if (step < 0 && at != all.begin()) --at;
  if (at == all.end()) --at;
  const std::vector<int> cases{*at};
  raise(Pick, cases, ClickKeys{.shift = adds});
}

}  // namespace tolmer
