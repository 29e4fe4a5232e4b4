#include "platform/check_box.h"

#include <QCheckBox>

#include "platform/qt/convert.h"
#include "platform/qt/make_peer.h"

namespace tolmer {
namespace {

class CheckBoxPeer : public ControlPeer {
 public:
  CheckBoxPeer(Mirror& mirror, CheckBox& box, QWidget* ground)
      : ControlPeer(mirror, box, ground), box_(box) {}

 private:
  QWidget* create(QWidget* ground) override {
    widget_ = new QCheckBox(ground);
    on(widget_, &QCheckBox::stateChanged, [this](int state) {
      tell([&box = box_, state] { box.setValue(state == Qt::Checked ? 1 : 0); });
    });
    return widget_;
  }
  void update(Change what) override {
    if (has(what, Change::text)) widget_->setText(toQt(box_.caption()));
    if (!has(what, Change::value)) return;
    // The user goes between clear and ticked; only the program makes a box grey.
    widget_->setTristate(box_.value() == 2);
    widget_->setCheckState(box_.value() == 2   ? Qt::PartiallyChecked
                           : box_.value() == 1 ? Qt::Checked
                                               : Qt::Unchecked);
  }

  CheckBox& box_;
  QCheckBox* widget_ = nullptr;
};

}  // namespace

PeerPointer makeCheckBoxPeer(Mirror& mirror, CheckBox& box, QWidget* ground) {
  return std::make_unique<CheckBoxPeer>(mirror, box, ground);
}

}  // namespace tolmer
