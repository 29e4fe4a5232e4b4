#include "platform/qt/grid_view_painter.h"

#include <QFontMetricsF>
#include <QGlyphRun>
#include <QPainter>
#include <QRawFont>
#include <QScrollBar>
#include <algorithm>
#include <cmath>
#include <string>

#include "platform/grid/grid_fit.h"
#include "platform/qt/convert.h"
#include "platform/qt/grid_view.h"
#include "platform/qt/theme.h"

namespace tolmer {
namespace {

// Lighter than the lines around controls: cells are told apart by their alignment first.
constexpr QColor lineColour{0xE2, 0xE5, 0xEA};
constexpr double selectionStrength = 0.22;
constexpr int tagMargin = 4;
constexpr double cornerMark = 7;

QColor mixed(QColor ground, QColor over, double share) {
  const auto mix = [share](int below, int above) {
    return static_cast<int>(below + (above - below) * share + 0.5);
  };
  return {mix(ground.red(), over.red()), mix(ground.green(), over.green()),
          mix(ground.blue(), over.blue())};
}

struct CellFont {
  explicit CellFont(const QFont& font)
      : font(font), metrics(font), glyphs(QRawFont::fromFont(font)) {}
  QFont font;
  QFontMetricsF metrics;
  QRawFont glyphs;
};

CellFont cellFont(const GridView& view, bool heading) {
  QFont font = toQt(view.grid().font(), view.scale());
  if (heading) font.setWeight(QFont::DemiBold);
  return CellFont(font);
}

bool isAscii(const std::string& text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return c >= ' ' && c <= '~'; });
}

struct MeasuredRun {
  QGlyphRun run;
  double length;
};

MeasuredRun glyphRun(const QRawFont& font, const QString& text) {
  const QList<quint32> glyphs = font.glyphIndexesForString(text);
  QList<QPointF> positions = font.advancesForGlyphIndexes(glyphs, QRawFont::KernedAdvances);
  double length = 0;
  for (QPointF& position : positions) {
    const double advance = position.x();
    position = {length, 0};
    length += advance;
  }
  QGlyphRun run;
  run.setRawFont(font);
  run.setGlyphIndexes(glyphs);
  run.setPositions(positions);
  return {run, length};
}

// From the first to the last row or column that shows between two pixels of the viewport.
struct Range {
  int first;
  int last;
};

Range rangeBetween(const GridAxis& axis, bool frozen, int scrolled, int from, int to) {
  const int lowest = frozen ? 0 : axis.frozen() + 1;
  const int highest = frozen ? axis.frozen() : axis.count();
  const int shift = frozen ? 0 : scrolled;
  return {std::clamp(axis.at(from + shift), lowest, highest + 1),
          std::clamp(axis.at(to + shift), lowest - 1, highest)};
}

class CellPainter {
 public:
  CellPainter(QPainter& painter, const GridView& view)
      : painter_(painter),
        view_(view),
        grid_(view.grid()),
        body_(cellFont(view, false)),
        heading_(cellFont(view, true)),
        sideMargin_(toPixel(Grid::sideMargin, view.scale())) {}

  void paint(CellPosition cell) {
    const QRect place = view_.cellRect(cell);
    if (place.isEmpty()) return;
    const Cell& content = grid_.sheet().at(cell.row, cell.col);
    const bool isFace = content.style.back == colours::buttonFace;
    // What frames the table is one area, without lines of its own.
    const int line = isFace && !content.style.heading ? 1 : 0;
    painter_.fillRect(place.adjusted(0, 0, line, line), ground(cell, content));
    if (isFace && content.style.heading) paintHeadingLine(place, cell.row <= 1);
    const QRect room = cell.row == 1 ? paintTag(place, cell.col, content) : place;
    if (!content.text.empty()) paintText(room, content, grid_.isLit(cell.row));
    if (!grid_.remarkOn(cell).empty()) paintCornerMark(place);
  }

 private:
  QColor ground(CellPosition cell, const Cell& content) const {
    const QColor own = toQt(content.style.back);
    const bool isMarked =
        !grid_.selection().blocks().empty() || grid_.selectionMode() == SelectionMode::rows;
    if (!isMarked || !grid_.selection().covers(cell)) return own;
    return mixed(own, theme::accent, selectionStrength);
  }

  // Between headings and what they head.
  void paintHeadingLine(const QRect& place, bool isUpper) {
    if (isUpper)
      painter_.fillRect(place.left(), place.bottom() + 1, place.width() + 1, 1, theme::line);
    else
      painter_.fillRect(place.right() + 1, place.top(), 1, place.height() + 1, theme::line);
  }

  // A small letter opposite the text; the room that it leaves.
  QRect paintTag(QRect place, int col, const Cell& content) {
    const EditGrid* grid = view_.editGrid();
    const auto index = static_cast<std::size_t>(col);
    if (!grid || col == 0 || index >= grid->columnTags().size()) return place;
    const QString tag = toQt(grid->columnTags()[index]);
    const bool isLeft = content.style.align == Align::right;
    const int width = static_cast<int>(std::ceil(heading_.metrics.horizontalAdvance(tag)));
    painter_.setFont(heading_.font);
    painter_.setPen(theme::accent);
    const int left = isLeft ? place.left() + tagMargin : place.right() + 1 - tagMargin - width;
    painter_.drawText(QPointF(left, baseLine(place, heading_)), tag);
    return isLeft ? place.adjusted(width, 0, 0, 0) : place.adjusted(0, 0, -width, 0);
  }

  void paintCornerMark(const QRect& place) {
    const QPointF corner = QRectF(place).topRight();
    painter_.setRenderHint(QPainter::Antialiasing);
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(theme::accent);
    painter_.drawPolygon(
        QPolygonF{corner - QPointF(cornerMark, 0), corner, corner + QPointF(0, cornerMark)});
    painter_.setRenderHint(QPainter::Antialiasing, false);
  }

  static double baseLine(const QRect& place, const CellFont& font) {
    const double middle = place.top() + place.height() / 2.0;
    return std::floor(middle + (font.metrics.ascent() - font.metrics.descent()) / 2);
  }

  // Where columns were measured before their row was lit, it may have no room for bold figures.
  void paintText(const QRect& place, const Cell& content, bool isLit) {
    const double room = place.width() - 2 * sideMargin_;
    const bool isBold = content.isBold() ||
                        (isLit && heading_.metrics.horizontalAdvance(toQt(content.text)) <= room);
    const CellFont& font = isBold ? heading_ : body_;
    painter_.setPen(toQt(content.style.fore));
    // Most cells are figures: their glyphs straight from the font are drawn three times as fast as
    // text that is shaped.
    if (font.glyphs.isValid() && isAscii(content.text)) {
      const auto [run, length] = glyphRun(font.glyphs, toQt(content.text));
      if (length <= room)
        return painter_.drawGlyphRun({textStart(place, content, length), baseLine(place, font)},
                                     run);
    }
    const QString text = shortened(content, font, room);
    const double length = std::min(font.metrics.horizontalAdvance(text), room);
    painter_.setFont(font.font);
    painter_.drawText(QPointF(textStart(place, content, length), baseLine(place, font)), text);
  }

  static QString shortened(const Cell& content, const CellFont& font, double room) {
    const std::string marks = shownForFigure(content, room, font.metrics.horizontalAdvance('#'));
    if (!marks.empty()) return toQt(marks);
    return font.metrics.elidedText(toQt(content.text), Qt::ElideRight, room);
  }

  double textStart(const QRect& place, const Cell& content, double length) const {
    const double room = place.width() - 2 * sideMargin_;
    const Align align = content.style.align;
    const double before = align == Align::left     ? 0
                          : align == Align::centre ? (room - length) / 2
                                                   : room - length;
    return place.left() + sideMargin_ + before;
  }

  QPainter& painter_;
  const GridView& view_;
  const Grid& grid_;
  CellFont body_;
  CellFont heading_;
  int sideMargin_;
};

// The active cell, or its row, framed on its lines.
void paintFrame(QPainter& painter, const GridView& view) {
  const Grid& grid = view.grid();
  if (grid.selectionMode() == SelectionMode::none || grid.maxRows() == 0 || grid.maxCols() == 0)
    return;
  QRect place = view.activePlace();
  QRect room = view.viewport()->rect();
  if (grid.selectionMode() == SelectionMode::rows) {
    place.setLeft(0);
    place.setRight(view.cellRect({1, grid.maxCols()}).right());
  } else if (grid.activeCell().col > view.colAxis().frozen()) {
    room.setLeft(view.colAxis().frozenEnd() - 1);
  }
  // What scrolls goes below what is frozen.
  if (grid.activeCell().row > view.rowAxis().frozen()) room.setTop(view.rowAxis().frozenEnd() - 1);
  painter.setClipRect(room);
  painter.setPen(
      QPen(view.holdsFocus() ? theme::accent : theme::strongLine, view.holdsFocus() ? 2 : 1));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(view.holdsFocus() ? QRectF(place)
                                     : QRectF(place).adjusted(-0.5, -0.5, 0.5, 0.5));
}

// Each run of lit rows has one frame, which goes below what is frozen.
void paintLitRows(QPainter& painter, const GridView& view) {
  const Grid& grid = view.grid();
  if (grid.litRows().empty() || grid.maxCols() == 0) return;
  painter.setClipRect(view.viewport()->rect().adjusted(0, view.rowAxis().frozenEnd() - 1, 0, 0));
  painter.setPen(QPen(theme::accent, 2));
  painter.setBrush(Qt::NoBrush);
  const int right = view.cellRect({1, grid.maxCols()}).right();
  for (std::size_t i = 0; i < grid.litRows().size();) {
    const int first = grid.litRows()[i];
    int last = first;
    while (++i < grid.litRows().size() && grid.litRows()[i] == last + 1) ++last;
    QRect place = view.cellRect({first, 1}).united(view.cellRect({last, 1}));
    place.setLeft(1);
    place.setRight(std::min(right, view.viewport()->width() - 2));
    painter.drawRect(QRectF(place));
  }
}

// What is pointed at or will be filled. It is clipped with the part of the grid that its last cell
// scrolls in.
void paintDrawnBlock(QPainter& painter, const GridView& view, const CellBlock& block) {
  painter.setClipRect(view.partOf({block.row2, block.col2}).adjusted(-1, -1, 0, 0));
  painter.setPen(QPen(theme::accent, 2, Qt::DashLine));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(QRectF(view.placeOf(block)).adjusted(1.5, 1.5, -2.5, -2.5));
}

void paintFillCorner(QPainter& painter, const GridView& view) {
  const QRect corner = view.fillCorner();
  if (corner.isEmpty() || !view.holdsFocus()) return;
  painter.setClipping(false);
  painter.fillRect(corner, Qt::white);
  painter.fillRect(corner.adjusted(1, 1, -1, -1), theme::accent);
}

// One of the four parts that scroll alike: corner, upper strip, left strip, body.
struct Part {
  bool upper;
  bool left;
  QRect place;
};

void paintPart(QPainter& painter, CellPainter& cells, const GridView& view, const Part& part,
               QPoint scrolled) {
  const Range rows =
      rangeBetween(view.rowAxis(), part.upper, scrolled.y(), part.place.top(), part.place.bottom());
  const Range cols =
      rangeBetween(view.colAxis(), part.left, scrolled.x(), part.place.left(), part.place.right());
  painter.save();
  painter.setClipRect(part.place);
  for (int row = rows.first; row <= rows.last; ++row)
    for (int col = cols.first; col <= cols.last; ++col) cells.paint({row, col});
  painter.restore();
}

}  // namespace

void paintGrid(QPainter& painter, const GridView& view, const QRect& area) {
  const Grid& grid = view.grid();
  const QPoint scrolled(view.horizontalScrollBar()->value(), view.verticalScrollBar()->value());
  const int left = view.colAxis().frozenEnd();
  const int top = view.rowAxis().frozenEnd();
  const QRect content(0, 0, view.colAxis().total() - scrolled.x(),
                      view.rowAxis().total() - scrolled.y());
  painter.fillRect(area, toQt(grid.backColour()));
  painter.fillRect(area & content, lineColour);
  CellPainter cells(painter, view);
  for (const bool upper : {true, false})
    for (const bool leftPart : {true, false}) {
      const QRect strip =
          QRect(QPoint(leftPart ? 0 : left, upper ? 0 : top),
                QPoint(leftPart ? left - 1 : area.right(), upper ? top - 1 : area.bottom()));
      const Part part{upper, leftPart, strip & area};
      if (!part.place.isEmpty()) paintPart(painter, cells, view, part, scrolled);
    }
  paintLitRows(painter, view);
  paintFrame(painter, view);
  if (const EditGrid* edited = view.editGrid()) {
    for (const auto& block : {edited->pointed(), edited->fillTarget()})
      if (block) paintDrawnBlock(painter, view, *block);
    paintFillCorner(painter, view);
  }
}

}  // namespace tolmer
