// Paints the cells of a grid.
#pragma once

#include <QRect>

class QPainter;

namespace tolmer {

class GridView;

// The part of the view in `area`: all visible cells with lines, selection and focus, and the ground
// beside them.
void paintGrid(QPainter& painter, const GridView& view, const QRect& area);

}  // namespace tolmer
