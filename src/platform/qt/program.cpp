#include "platform/qt/program.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>

#include "platform/qt/qt_desktop.h"
#include "platform/qt/theme.h"

namespace tolmer {
namespace {

const QColor cream(0xFF, 0xFD, 0xF7), grey(0xB0, 0xB0, 0xB0), red(0xD9, 0x1E, 0x18),
    blue(0x1A, 0x4F, 0xE0);

// The picture of tolmer.svg, drawn here because the start cannot wait for a reader of such files.
class ProgramIcon : public QIconEngine {
 public:
  void paint(QPainter* painter, const QRect& place, QIcon::Mode, QIcon::State) override {
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(place.topLeft());
    painter->scale(place.width() / 64.0, place.height() / 64.0);
    painter->setPen(QPen(grey, 2.5));
    painter->setBrush(cream);
    painter->drawRoundedRect(3, 3, 58, 58, 11, 11);
    if (place.width() * painter->device()->devicePixelRatioF() < 28)
      paintSmall(*painter);
    else
      paintLarge(*painter);
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
  QList<QSize> availableSizes(QIcon::Mode, QIcon::State) override {
    return {{16, 16}, {24, 24}, {32, 32}, {48, 48}, {64, 64}, {128, 128}, {256, 256}};
  }

 private:
  static void paintLarge(QPainter& painter) {
    painter.setPen(QPen(grey, 3.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(QPolygon({QPoint(14, 13), QPoint(14, 50), QPoint(51, 50)}));
    painter.setPen(QPen(red, 4.5, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(17, 45, 51, 17);
    paintPoints(painter, {{23, 31}, {31, 42}, {36, 20}, {46, 32}}, 4.6);
  }
  // Without axes, and what is left larger: they would be a blur.
  static void paintSmall(QPainter& painter) {
    painter.setPen(QPen(red, 6, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(12, 50, 52, 14);
    paintPoints(painter, {{20, 24}, {44, 42}, {28, 50}}, 6.5);
  }
  static void paintPoints(QPainter& painter, const QPolygon& centres, double radius) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(blue);
    for (const QPointF centre : centres) painter.drawEllipse(centre, radius, radius);
  }
};

// Points around a rising line; drawn when somebody wants to see it, at whatever size.
QIcon programIcon() { return QIcon(new ProgramIcon); }

}  // namespace

bool screenAvailable() {
  for (const char* name : {"QT_QPA_PLATFORM", "WAYLAND_DISPLAY", "DISPLAY"})
    if (!qgetenv(name).isEmpty()) return true;
  return false;
}

struct QtProgram::Parts {
  Parts(int& argc, char** argv) : application(argc, argv) {
    theme::installFont();
    QApplication::setWindowIcon(programIcon());
  }
  QApplication application;
  QtDesktop desktop;
};

QtProgram::QtProgram(int& argc, char** argv) {
  QCoreApplication::setApplicationName(QStringLiteral("Tolmer"));
  theme::install();
  parts_ = std::make_unique<Parts>(argc, argv);
}

QtProgram::~QtProgram() = default;

Desktop& QtProgram::desktop() { return parts_->desktop; }

int QtProgram::run(const std::function<void()>& main) {
  try {
    main();
  } catch (const ProgramEnded& ended) {
    return ended.status;
  }
  return parts_->desktop.run();
}

}  // namespace tolmer
