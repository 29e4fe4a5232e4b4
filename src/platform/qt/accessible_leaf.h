// A part of a view that a screen reader meets as a thing of its own: a cell, a symbol, a bar.
#pragma once

#include <QAccessible>
#include <QPointer>
#include <QWindow>

namespace tolmer {

// It has no parts and no object of its own, and outlives its view.
template <class View>
class AccessibleLeaf : public QAccessibleInterface {
 public:
  explicit AccessibleLeaf(View& view) : view_(&view) {}

  QObject* object() const override { return nullptr; }
  QWindow* window() const override {
    const QAccessibleInterface* above = parent();
    return above ? above->window() : nullptr;
  }
  QAccessibleInterface* parent() const override {
    return view_ ? QAccessible::queryAccessibleInterface(view_) : nullptr;
  }
  QAccessibleInterface* child(int) const override { return nullptr; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }
  void setText(QAccessible::Text, const QString&) override {}

 protected:
  QPointer<View> view_;
};

}  // namespace tolmer
