// A graph on the screen.
#pragma once

#include <QWidget>
#include <functional>

#include "platform/graph/graph.h"

class QHelpEvent;
class QPainter;

namespace tolmer {

// Shows the graph's picture and hands the mouse to its events. The graph must outlive it.
class GraphView : public QWidget {
 public:
  explicit GraphView(Graph& graph, QWidget* parent = nullptr);

  // After the graph has told that it changed.
  void refresh(Change what);

  // All calls into the model go through this function, which may hold back what they throw.
  std::function<void(const std::function<void()>&)> enter = [](const std::function<void()>& work) {
    work();
  };

  QSize sizeHint() const override { return {480, 280}; }

  const Graph& graph() const { return graph_; }
  // Where the mark of that index stands, in logical pixels.
  QRect placeOf(std::size_t mark) const;
  // The place in view units.
  ViewPoint viewPoint(QPointF place) const;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void showTip(const QHelpEvent& event);
  void tellFocusedMark();

  Graph& graph_;
  bool focusByKey_ = false;  // the focus came by the keyboard: it has to be seen
};

enum class PictureUse { screen, document };

// Draws the list on a painter whose unit is the logical pixel.
void paintPicture(QPainter& painter, const Picture& picture, PictureUse use = PictureUse::screen);

}  // namespace tolmer
