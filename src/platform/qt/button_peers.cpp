#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>

#include "platform/buttons.h"
#include "platform/qt/control_peer.h"
#include "platform/qt/convert.h"
#include "platform/tab_order.h"

namespace tolmer {
namespace {

class ButtonPeer : public WidgetPeer<Button, QPushButton> {
 public:
  using WidgetPeer::WidgetPeer;

 private:
  void prepare() override {
    // Otherwise any button that gets the focus would take Return from the default button.
    widget_->setAutoDefault(false);
    on(widget_, &QPushButton::clicked, [this] { tell([&button = model_] { button.click(); }); });
  }
  void update(Change what) override {
    if (has(what, Change::text)) widget_->setText(toQt(model_.caption()));
    if (has(what, Change::focus)) widget_->setDefault(model_.isDefault());
  }
};

class CheckBoxPeer : public WidgetPeer<CheckBox, QCheckBox> {
 public:
  using WidgetPeer::WidgetPeer;

 private:
  void prepare() override {
    on(widget_, &QCheckBox::stateChanged, [this](int state) {
      tell([&box = model_, state] { box.setValue(state == Qt::Checked ? 1 : 0); });
    });
  }
  void update(Change what) override {
    if (has(what, Change::text)) widget_->setText(toQt(model_.caption()));
    if (!has(what, Change::value)) return;
    // The user goes between clear and ticked; only the program makes a box grey.
    widget_->setTristate(model_.value() == 2);
    widget_->setCheckState(model_.value() == 2   ? Qt::PartiallyChecked
                           : model_.value() == 1 ? Qt::Checked
                                                 : Qt::Unchecked);
  }
};

class OptionButtonPeer : public WidgetPeer<OptionButton, QRadioButton> {
 public:
  using WidgetPeer::WidgetPeer;

 private:
  void prepare() override {
    on(widget_, &QRadioButton::toggled, [this](bool isOn) {
      // The one that is turned on turns the others off in the model too.
      if (isOn) tell([&option = model_] { option.setValue(true); });
    });
  }
  void update(Change what) override {
    if (has(what, Change::text)) widget_->setText(toQt(model_.caption()));
    if (!has(what, Change::value)) return;
    // An exclusive button cannot be turned off by itself.
    widget_->setAutoExclusive(false);
    widget_->setChecked(model_.value());
    widget_->setAutoExclusive(true);
    shareTabStop();
  }

  void shareTabStop() {
    for (const Control* one : model_.parent()->children())
      if (QWidget* widget = one->kind() == ControlKind::optionButton ? widgetOf(*one) : nullptr)
        widget->setFocusPolicy(isTabStop(*one) ? Qt::StrongFocus : Qt::ClickFocus);
  }
};

}  // namespace

constinit PeerMaker* const makeButtonPeer = makePeerOf<ButtonPeer>;
constinit PeerMaker* const makeCheckBoxPeer = makePeerOf<CheckBoxPeer>;
constinit PeerMaker* const makeOptionButtonPeer = makePeerOf<OptionButtonPeer>;

}  // namespace tolmer
