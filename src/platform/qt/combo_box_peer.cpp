#include "platform/combo_box.h"

#include <QComboBox>

#include "platform/qt/convert.h"
#include "platform/qt/make_peer.h"

namespace tolmer {
namespace {

class ComboBoxPeer : public ControlPeer {
 public:
  ComboBoxPeer(Mirror& mirror, ComboBox& box, QWidget* ground)
      : ControlPeer(mirror, box, ground), box_(box) {}

 private:
  QWidget* create(QWidget* ground) override {
    widget_ = new QComboBox(ground);
    on(widget_, &QComboBox::currentIndexChanged,
       [this](int index) { tell([&box = box_, index] { box.setListIndex(index); }); });
    return widget_;
  }
  void update(Change what) override {
    if (has(what, Change::items)) fill();
    if (has(what, Change::items) || has(what, Change::value))
      widget_->setCurrentIndex(box_.listIndex());
  }
  // A list only grows at its end or is cleared.
  void fill() {
    const int count = static_cast<int>(box_.items().size());
    if (widget_->count() >= count) widget_->clear();
    for (int i = widget_->count(); i < count; ++i)
      widget_->addItem(toQt(box_.items()[static_cast<std::size_t>(i)]));
  }

  ComboBox& box_;
  QComboBox* widget_ = nullptr;
};

}  // namespace

PeerPointer makeComboBoxPeer(Mirror& mirror, ComboBox& box, QWidget* ground) {
  return std::make_unique<ComboBoxPeer>(mirror, box, ground);
}

}  // namespace tolmer
