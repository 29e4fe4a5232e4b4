#include "platform/number_box.h"

#include <QSpinBox>
#include <algorithm>

#include "platform/qt/make_peer.h"

namespace tolmer {
namespace {

class NumberBoxPeer : public ControlPeer {
 public:
  NumberBoxPeer(Mirror& mirror, NumberBox& box, QWidget* ground)
      : ControlPeer(mirror, box, ground), box_(box) {}

 private:
  QWidget* create(QWidget* ground) override {
    widget_ = new QSpinBox(ground);
    on(widget_, &QSpinBox::valueChanged,
       [this](int value) { tell([&box = box_, value] { box.setValue(value); }); });
    return widget_;
  }
  void update(Change what) override {
    if (what == Change::focus) return widget_->selectAll();
    if (!has(what, Change::items) && !has(what, Change::value)) return;
    // The program may set what the user may not type.
    widget_->setRange(std::min(box_.min(), box_.value()), std::max(box_.max(), box_.value()));
    widget_->setValue(box_.value());
  }

  NumberBox& box_;
  QSpinBox* widget_ = nullptr;
};

}  // namespace

PeerPointer makeNumberBoxPeer(Mirror& mirror, NumberBox& box, QWidget* ground) {
  return std::make_unique<NumberBoxPeer>(mirror, box, ground);
}

}  // namespace tolmer
