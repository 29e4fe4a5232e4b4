#include "platform/panel.h"

#include <QPainter>

#include "platform/qt/convert.h"
#include "platform/qt/make_peer.h"
#include "platform/qt/siblings.h"
#include "platform/qt/theme.h"

namespace tolmer {
namespace {

class PanelWidget : public QWidget {
 public:
  PanelWidget(QWidget* parent, const Panel& panel) : QWidget(parent), panel_(panel) {}

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.fillRect(rect(), toQt(panel_.backColour()));
    if (panel_.border()) {
      painter.setPen(QColor(theme::line));
      painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
    if (panel_.caption().empty()) return;
    painter.setFont(toQt(panel_.font()));
    painter.setPen(toQt(panel_.foreColour()));
    const QStringList lines = toQt(panel_.caption()).split('\n');
    if (lines.size() > 1 && lines.count(lines.front()) == lines.size())
      paintRepeated(painter, lines.front(), static_cast<int>(lines.size()));
    else
      painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap, toQt(panel_.caption()));
  }

 private:
  // A pattern that fills the screen: setting one line and copying it takes a tenth of the time.
  void paintRepeated(QPainter& painter, const QString& line, int count) {
    const QFontMetrics metrics(painter.font());
    const int height = metrics.lineSpacing();
    const double ratio = devicePixelRatioF();
    QPixmap strip(QSize(width(), height) * ratio);
    strip.setDevicePixelRatio(ratio);
    strip.fill(toQt(panel_.backColour()));
    QPainter stripPainter(&strip);
    stripPainter.setFont(painter.font());
    stripPainter.setPen(painter.pen());
    stripPainter.drawText(QRect(0, 0, width(), height), Qt::AlignCenter, line);
    const int top = (this->height() - count * height) / 2;
    for (int i = 0; i < count; ++i) painter.drawPixmap(0, top + i * height, strip);
  }

  const Panel& panel_;
};

class PanelPeer : public ContainerPeer {
 public:
  PanelPeer(Mirror& mirror, Panel& panel, QWidget* ground)
      : ContainerPeer(mirror, panel, ground), panel_(panel) {}

 private:
  QWidget* create(QWidget* ground) override { return new PanelWidget(ground, panel_); }
  void update(Change what) override {
    if (has(what, Change::text)) widget()->update();
    if (raised_ != panel_.raised()) {
      raised_ = panel_.raised();
      widget()->raise();
    }
    ContainerPeer::update(what);
    if (has(what, Change::children) && panel_.stopsByPlace() && panel_.window())
      orderTabStops(*panel_.window());
  }
  // Painted text by itself is hidden from a screen reader.
  std::string accessibleName() const override {
    return panel_.accessibleName().empty() ? panel_.caption() : panel_.accessibleName();
  }

  Panel& panel_;
  int raised_ = 0;
};

}  // namespace

PeerPointer makePanelPeer(Mirror& mirror, Panel& panel, QWidget* ground) {
  return std::make_unique<PanelPeer>(mirror, panel, ground);
}

}  // namespace tolmer
