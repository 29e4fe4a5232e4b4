#include <QPushButton>

#include "platform/button.h"
#include "platform/qt/convert.h"
#include "platform/qt/make_peer.h"

namespace tolmer {
namespace {

class ButtonPeer : public ControlPeer {
 public:
  ButtonPeer(Mirror& mirror, Button& button, QWidget* ground)
      : ControlPeer(mirror, button, ground), button_(button) {}

 private:
  QWidget* create(QWidget* ground) override {
    widget_ = new QPushButton(ground);
    // Otherwise any button that gets the focus would take Return from the default button.
    widget_->setAutoDefault(false);
    on(widget_, &QPushButton::clicked, [this] { tell([&button = button_] { button.click(); }); });
    return widget_;
  }
  void update(Change what) override {
    if (has(what, Change::text)) widget_->setText(toQt(button_.caption()));
    if (has(what, Change::focus)) widget_->setDefault(button_.isDefault());
  }

  Button& button_;
  QPushButton* widget_ = nullptr;
};

}  // namespace

PeerPointer makeButtonPeer(Mirror& mirror, Button& button, QWidget* ground) {
  return std::make_unique<ButtonPeer>(mirror, button, ground);
}

}  // namespace tolmer
