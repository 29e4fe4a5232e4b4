#include "platform/qt/program_icon.h"

#include <QIconEngine>
#include <QPainter>

#include "platform/qt/theme.h"

namespace tolmer {
namespace {

class ProgramIcon : public QIconEngine {
 public:
  void paint(QPainter* painter, const QRect& place, QIcon::Mode, QIcon::State) override {
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(place.topLeft());
    painter->scale(place.width() / 64.0, place.height() / 64.0);
    painter->setPen(Qt::NoPen);
    painter->setBrush(QColor(theme::accent));
    painter->drawRoundedRect(2, 2, 60, 60, 10, 10);
    painter->setPen(QPen(QColor(theme::window), 4, Qt::SolidLine, Qt::RoundCap));
    painter->drawLine(12, 48, 52, 16);
    painter->setPen(Qt::NoPen);
    painter->setBrush(QColor(0xFF, 0xC8, 0x57));
    for (const QPointF point : {QPointF(18, 34), QPointF(28, 46), QPointF(36, 18), QPointF(46, 32)})
      painter->drawEllipse(point, 5, 5);
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
