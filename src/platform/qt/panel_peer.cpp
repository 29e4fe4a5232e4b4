#include "platform/panel.h"

#include <QPainter>

#include "platform/qt/convert.h"
#include "platform/qt/make_peer.h"
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
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap, toQt(panel_.caption()));
  }

 private:
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
