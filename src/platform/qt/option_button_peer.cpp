#include "platform/option_button.h"

#include <QRadioButton>
#include <algorithm>

#include "platform/qt/convert.h"
#include "platform/qt/make_peer.h"

namespace tolmer {
namespace {

class OptionButtonPeer : public ControlPeer {
 public:
  OptionButtonPeer(Mirror& mirror, OptionButton& option, QWidget* ground)
      : ControlPeer(mirror, option, ground), option_(option) {}

 private:
  QWidget* create(QWidget* ground) override {
    widget_ = new QRadioButton(ground);
    on(widget_, &QRadioButton::toggled, [this](bool isOn) {
      // The one that is turned on turns the others off in the model too.
      if (isOn) tell([&option = option_] { option.setValue(true); });
    });
    return widget_;
  }
  void update(Change what) override {
    if (has(what, Change::text)) widget_->setText(toQt(option_.caption()));
    if (!has(what, Change::value)) return;
    // An exclusive button cannot be turned off by itself.
    widget_->setAutoExclusive(false);
    widget_->setChecked(option_.value());
    widget_->setAutoExclusive(true);
    shareTabStop();
  }

  // Tab leads to the option that is on, and passes the others.
  void shareTabStop() {
    const auto options =
        widget_->parentWidget()->findChildren<QRadioButton*>(QString(), Qt::FindDirectChildrenOnly);
    const bool oneIsOn = std::any_of(options.begin(), options.end(),
                                     [](const QRadioButton* one) { return one->isChecked(); });
    for (QRadioButton* one : options)
      one->setFocusPolicy(oneIsOn && !one->isChecked() ? Qt::ClickFocus : Qt::StrongFocus);
  }

  OptionButton& option_;
  QRadioButton* widget_ = nullptr;
};

}  // namespace

PeerPointer makeOptionButtonPeer(Mirror& mirror, OptionButton& option, QWidget* ground) {
  return std::make_unique<OptionButtonPeer>(mirror, option, ground);
}

}  // namespace tolmer
