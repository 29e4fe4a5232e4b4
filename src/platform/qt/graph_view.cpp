#include "platform/qt/graph_view.h"

#include <QAccessible>
#include <QFocusEvent>
#include <QFont>
#include <QFontMetricsF>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QPolygonF>
#include <QTimer>
#include <QToolTip>

#include "platform/graph/picture.h"
#include "platform/qt/convert.h"
#include "platform/qt/graph_view_accessible.h"
#include "platform/qt/input_filter.h"
#include "platform/qt/theme.h"

namespace tolmer {
namespace {

// Share of the full colour inside open circles, translucent so that dense points show.
constexpr float symbolFill = 0.25F;

QColor screenColour(Colour colour) { return {colour.red, colour.green, colour.blue}; }

// Without kerning and hinting the widths are those of the tables that the layout was made with.
QFont screenFont(double pixels) {
  QFont font;
  font.setFamilies({"Liberation Serif", "Times New Roman", "Times"});
  font.setStyleHint(QFont::Serif);
  font.setPixelSize(static_cast<int>(pixels));
  font.setKerning(false);
  font.setHintingPreference(QFont::PreferNoHinting);
  return font;
}

QPen linePen(const LinePrimitive& line) {
  QPen pen(screenColour(line.colour), line.width, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin);
  // Dash lengths count in widths of the pen.
  if (line.dashed)
    pen.setDashPattern({LinePrimitive::dashOn / line.width, LinePrimitive::dashOff / line.width});
  return pen;
}

// Qt unites the outline of a whole antialiased polyline before it fills it, unless the pen is one
// device pixel wide: a zigzag through 500 residuals at 1920 x 1000 took 1.1 s at scale factor 2,
// segment by segment 5 ms (at factor 1, 1.5 and 1.1 ms). Single lines have a quick way of their own
// as long as their caps are square or flat; square ones fill the joints. Dashes must run on, and
// joints show in wide curves, whose shallow bends are quick as a whole (1.4 ms): these stay in one.
bool isDrawnBySegments(const LinePrimitive& line) {
  return line.points.size() > 2 && !line.isClosed() && !line.dashed && line.width <= 1;
}

void drawSegments(QPainter& painter, const QPolygonF& points) {
  QPen pen = painter.pen();
  pen.setCapStyle(Qt::SquareCap);
  painter.setPen(pen);
  for (qsizetype i = 1; i < points.size(); ++i) painter.drawLine(points[i - 1], points[i]);
}

struct PrimitivePainter {
  QPainter& painter;
  const ViewSize& view;
  PictureUse use;

  void operator()(const BoxPrimitive& box) const {
    const ViewRect place = screenBox(box, view);
    painter.setPen(QPen(screenColour(box.outline), 1, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    painter.setBrush(screenColour(box.fill));
    painter.drawRect(QRectF(place.left, place.bottom, place.width, place.height));
  }

  void operator()(const LinePrimitive& line) const {
    QPolygonF points;
    for (const ViewPoint& point : screenLine(line, view)) points << QPointF(point.x, point.y);
    painter.setPen(linePen(line));
    painter.setBrush(Qt::NoBrush);
    if (line.isClosed())
      painter.drawPolygon(points);
    else if (isDrawnBySegments(line))
      drawSegments(painter, points);
    else
      painter.drawPolyline(points);
  }

  void operator()(const SymbolPrimitive& symbol) const {
    const ViewPoint centre = screenPoint(symbol.centre, view);
    const double radius = symbol.diameter / 2 - (symbol.filled ? 0 : 0.5);
    QColor fill = screenColour(symbol.colour);
    if (!symbol.filled) fill.setAlphaF(symbolFill);
    painter.setPen(symbol.filled ? QPen(Qt::NoPen) : QPen(screenColour(symbol.colour), 1));
    painter.setBrush(fill);
    painter.drawEllipse(QPointF(centre.x, centre.y), radius, radius);
  }

  void operator()(const TextPrimitive& text) const {
    const ViewPoint anchor = screenAnchor(text, view);
    const QString letters = QString::fromStdString(text.text);
    QFont font = screenFont(text.pixels);
    if (use == PictureUse::document) theme::keepLettersApart(font);
    const double length = QFontMetricsF(font).horizontalAdvance(letters);
    const double before = text.align == Align::left     ? 0
                          : text.align == Align::centre ? length / 2
                                                        : length;
    painter.save();
    painter.setFont(font);
    painter.setPen(Qt::black);
    painter.translate(anchor.x, anchor.y);
    if (text.turned) painter.rotate(-90);
    painter.drawText(QPointF(-before, 0), letters);
    painter.restore();
  }
};

}  // namespace

GraphView::GraphView(Graph& graph, QWidget* parent) : QWidget(parent), graph_(graph) {
  installGraphAccessibility();
  setAttribute(Qt::WA_OpaquePaintEvent);
  setFocusPolicy(Qt::StrongFocus);
  refresh(Change::all);
}

void GraphView::refresh(Change what) {
  if (has(what, Change::tip)) {
    setAccessibleName(QString::fromStdString(graph_.accessibleName()));
    setAccessibleDescription(QString::fromStdString(graph_.accessibleDescription()));
    setToolTip(QString::fromStdString(graph_.tip()));
  }
  if (has(what, Change::content | Change::look)) update();
  if (has(what, Change::value)) tellFocusedMark();
}

ViewPoint GraphView::viewPoint(QPointF place) const {
  const double scale = scaleOf(graph_);
  return {place.x() / scale, graph_.viewSize().height - place.y() / scale};
}

QRect GraphView::placeOf(std::size_t mark) const {
  const ViewRect& place = graph_.marks()[mark].place;
  const double scale = scaleOf(graph_);
  const double top = graph_.viewSize().height - place.top();
  return QRectF(place.left * scale, top * scale, place.width * scale, place.height * scale)
      .toAlignedRect();
}

// Some time after it came to have the focus: only while it still does is the graph sure to be
// there.
void GraphView::tellFocusedMark() {
  if (!hasFocus() || !QAccessible::isActive()) return;
  const auto mark = graph_.currentMark();
  if (!mark) return;
  QAccessibleEvent event(this, QAccessible::Focus);
  event.setChild(static_cast<int>(*mark));
  QAccessible::updateAccessibility(&event);
}

bool GraphView::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip || graph_.marks().empty()) return QWidget::event(event);
  showTip(static_cast<const QHelpEvent&>(*event));
  return true;
}

// It stays while the pointer is on the same mark.
void GraphView::showTip(const QHelpEvent& event) {
  const auto under = marksAt(graph_.marks(), viewPoint(event.pos()));
  if (under.empty()) return QToolTip::hideText();
  const std::string tip = graph_.tipAt(viewPoint(event.pos()));
  constexpr int slack = 5;  // the pointer may be that far off a small symbol
  QToolTip::showText(event.globalPos(), wrappedTip(tip), this,
                     placeOf(under.front()).adjusted(-slack, -slack, slack, slack));
}

void GraphView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), Qt::white);
  const float scale = scaleOf(graph_);
  painter.save();
  painter.scale(scale, scale);
  paintPicture(painter, graph_.picture());
  painter.restore();
  if (!focusByKey_) return;
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(theme::accent);
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void GraphView::mousePressEvent(QMouseEvent* event) {
  const auto button = modelButton(*event);
  if (!button) return;
  const QPointer<GraphView> alive(this);
  enter([&] { tolmer::raise(graph_.MouseDown, *button); });
  if (!alive || event->button() != Qt::LeftButton) return;
  const ClickKeys held{event->modifiers().testFlag(Qt::ShiftModifier),
                       event->modifiers().testFlag(Qt::ControlModifier)};
  enter([&] { graph_.press(viewPoint(event->position()), held); });
}

void GraphView::mouseMoveEvent(QMouseEvent* event) {
  if (event->buttons().testFlag(Qt::LeftButton))
    enter([&] { graph_.dragTo(viewPoint(event->position())); });
}

void GraphView::mouseReleaseEvent(QMouseEvent* event) {
  const auto button = modelButton(*event);
  if (!button) return;
  const bool clicked =
      event->button() == Qt::LeftButton && rect().contains(event->position().toPoint());
  // The handler may take the graph away, and this widget with it.
  const QPointer<GraphView> alive(this);
  enter([&] { tolmer::raise(graph_.MouseUp, *button); });
  if (alive && clicked) enter([&] { graph_.click(); });
  if (alive && event->button() == Qt::LeftButton) enter([&] { graph_.release(); });
}

void GraphView::focusInEvent(QFocusEvent* event) {
  focusByKey_ = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
  update();
  // The widget's own focus event comes after this one and would hide the mark's.
  QTimer::singleShot(0, this, [this] { tellFocusedMark(); });
}

void GraphView::focusOutEvent(QFocusEvent*) {
  focusByKey_ = false;
  update();
}

void paintPicture(QPainter& painter, const Picture& picture, PictureUse use) {
  painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
  for (const Primitive& primitive : picture.primitives)
    std::visit(PrimitivePainter{painter, picture.size, use}, primitive);
}

}  // namespace tolmer
