#include "platform/qt/program_icon.h"

#include <QIconEngine>
#include <QPainter>

namespace tolmer {
namespace {

// The picture of tolmer.svg, drawn here because the start cannot wait for a reader of such files.
class ProgramIcon : public QIconEngine {
 public:
  void paint(QPainter* painter, const QRect& place, QIcon::Mode, QIcon::State) override {
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(place.topLeft());
    painter->scale(place.width() / 64.0, place.height() / 64.0);
    painter->setPen(Qt::NoPen);
    painter->setBrush(QColor(0x26, 0x3E, 0x5C));
    painter->drawRoundedRect(2, 2, 60, 60, 10, 10);
    painter->setPen(QPen(QColor(0xC9, 0xD6, 0xE4), 3, Qt::SolidLine, Qt::RoundCap));
    painter->drawPolyline(QPolygon({QPoint(12, 12), QPoint(12, 52), QPoint(52, 52)}));
    painter->setPen(QPen(QColor(0xE8, 0x55, 0x3F), 4, Qt::SolidLine, Qt::RoundCap));
    painter->drawLine(15, 46, 51, 17);
    painter->setPen(Qt::NoPen);
    painter->setBrush(QColor(0x7F, 0xB2, 0xFF));
    for (const QPoint point :
         {QPoint(20, 36), QPoint(28, 40), QPoint(34, 25), QPoint(42, 31), QPoint(48, 13)})
      painter->drawEllipse(point, 4, 4);
    painter->restore();
  }
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return pixmap;
  }
  QIconEngine* clone() const override { return new ProgramIcon; }
  QList<QSize> availableSizes(QIcon::Mode, QIcon::State) override { return {{16, 16}, {48, 48}}; }
};

}  // namespace

QIcon programIcon() { return QIcon(new ProgramIcon); }

}  // namespace tolmer
