#include "platform/qt/graph_view_accessible.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <algorithm>
#include <unordered_map>

#include "platform/qt/accessible_leaf.h"
#include "platform/qt/convert.h"
#include "platform/qt/graph_view.h"

namespace tolmer {
namespace {

// One symbol or bar. It knows its number only, and reads all else from the graph when it is asked.
class AccessibleMark : public AccessibleLeaf<GraphView> {
 public:
  AccessibleMark(GraphView& view, int number) : AccessibleLeaf(view), number_(number) {}

  bool isValid() const override {
    return view_ && !view_->isHidden() &&
           static_cast<std::size_t>(number_) < view_->graph().marks().size();
  }
  QString text(QAccessible::Text what) const override {
    return isValid() && what == QAccessible::Name ? toQt(view_->graph().wordsOn(mark()))
                                                  : QString();
  }
  QRect rect() const override {
    if (!isValid()) return {};
    const QRect place = view_->placeOf(mark());
    return {view_->mapToGlobal(place.topLeft()), place.size()};
  }
  QAccessible::Role role() const override { return QAccessible::ListItem; }
  QAccessible::State state() const override {
    QAccessible::State state;
    if (!isValid()) {
      state.invalid = true;
      return state;
    }
    const Graph& graph = view_->graph();
    state.selectable = state.multiSelectable = state.focusable = true;
    state.selected = std::ranges::any_of(graph.marks()[mark()].cases,
                                         [&graph](int one) { return isLit(graph.lit(), one); });
    state.focused = view_->hasFocus() && graph.currentMark() == mark();
    return state;
  }

 private:
  std::size_t mark() const { return static_cast<std::size_t>(number_); }

  int number_;
};

// Marks are made when they are asked for, and kept: they are known to the outside by their number.
class AccessibleGraph : public QAccessibleWidget {
 public:
  explicit AccessibleGraph(GraphView* view) : QAccessibleWidget(view, QAccessible::Chart) {}
  ~AccessibleGraph() override { forgetMarks(); }

  // A view is hidden when its graph is gone.
  int childCount() const override {
    return view().isHidden() ? 0 : static_cast<int>(view().graph().marks().size());
  }
  QAccessibleInterface* child(int index) const override {
    if (index < 0 || index >= childCount()) return nullptr;
    if (const auto known = marks_.find(index); known != marks_.end())
      return QAccessible::accessibleInterface(known->second);
    auto* mark = new AccessibleMark(view(), index);
    marks_[index] = QAccessible::registerAccessibleInterface(mark);
    return mark;
  }
  int indexOfChild(const QAccessibleInterface* child) const override {
    for (const auto& [index, id] : marks_)
      if (QAccessible::accessibleInterface(id) == child) return index;
    return -1;
  }
  QAccessibleInterface* childAt(int x, int y) const override {
    if (childCount() == 0) return nullptr;
    const auto under =
        marksAt(view().graph().marks(), view().viewPoint(view().mapFromGlobal(QPointF(x, y))));
    return under.empty() ? nullptr : child(static_cast<int>(under.front()));
  }
  QAccessibleInterface* focusChild() const override {
    if (!view().hasFocus() || childCount() == 0) return nullptr;
    const auto mark = view().graph().currentMark();
    return mark ? child(static_cast<int>(*mark)) : nullptr;
  }

 private:
  GraphView& view() const { return *static_cast<GraphView*>(widget()); }
  void forgetMarks() {
    for (const auto& [index, id] : marks_) QAccessible::deleteAccessibleInterface(id);
    marks_.clear();
  }

  mutable std::unordered_map<int, QAccessible::Id> marks_;
};

QAccessibleInterface* makeAccessible(const QString&, QObject* object) {
  auto* view = dynamic_cast<GraphView*>(object);
  return view ? new AccessibleGraph(view) : nullptr;
}

}  // namespace

void installGraphAccessibility() {
  [[maybe_unused]] static const bool installed =
      (QAccessible::installFactory(makeAccessible), true);
}

}  // namespace tolmer
