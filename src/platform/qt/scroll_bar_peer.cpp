#include "platform/scroll_bar.h"

#include <QScrollBar>

#include "platform/qt/make_peer.h"

namespace tolmer {
namespace {

class ScrollBarPeer : public ControlPeer {
 public:
  ScrollBarPeer(Mirror& mirror, ScrollBar& bar, QWidget* ground)
      : ControlPeer(mirror, bar, ground), bar_(bar) {}

 private:
  QWidget* create(QWidget* ground) override {
    widget_ = new QScrollBar(ground);
    widget_->setFocusPolicy(Qt::StrongFocus);
    on(widget_, &QScrollBar::valueChanged,
       [this](int value) { tell([&bar = bar_, value] { bar.setValue(value); }); });
    return widget_;
  }
  void update(Change what) override {
    if (has(what, Change::place))
      widget_->setOrientation(bar_.height() > bar_.width() ? Qt::Vertical : Qt::Horizontal);
    if (has(what, Change::items)) {
      widget_->setRange(0, bar_.max());
      widget_->setSingleStep(bar_.smallChange());
      widget_->setPageStep(bar_.largeChange());
    }
    if (has(what, Change::items) || has(what, Change::value)) widget_->setValue(bar_.value());
  }

  ScrollBar& bar_;
  QScrollBar* widget_ = nullptr;
};

}  // namespace

PeerPointer makeScrollBarPeer(Mirror& mirror, ScrollBar& bar, QWidget* ground) {
  return std::make_unique<ScrollBarPeer>(mirror, bar, ground);
}

}  // namespace tolmer
