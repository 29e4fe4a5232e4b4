// The base of all mirrors: what every control on the screen has, whatever its kind.
#pragma once

#include <QEvent>
#include <QObject>
#include <QPointer>
#include <QWidget>
#include <functional>
#include <memory>
#include <utility>

#include "platform/control.h"
#include "platform/qt/mirror.h"

namespace tolmer {

// Lets its owner see a widget's events first; the function returns whether the event is dealt with.
// The widget needs no class of its own for that, and nothing dangles when the owner goes first.
class EventHook : public QObject {
 public:
  explicit EventHook(std::function<bool(QEvent&)> see) : see_(std::move(see)) {}

 protected:
  bool eventFilter(QObject*, QEvent* event) override { return see_(*event); }

 private:
  std::function<bool(QEvent&)> see_;
};

// Follows one model. The widget is made when the model is first visible: what nobody has seen yet
// costs nothing.
//
// While the model is being pushed into the widget, the widget's signals are echoes and dropped. Any
// other signal hands its value to the model with `tell` and touches neither peer nor widget
// afterwards: the model's handler may have destroyed both.
class ControlPeer : public Peer {
 public:
  // The widget will stand in `ground`.
  ControlPeer(Mirror& mirror, Control& control, QWidget* ground);
  ~ControlPeer() override;
  ControlPeer(const ControlPeer&) = delete;
  ControlPeer& operator=(const ControlPeer&) = delete;

  void changed(Change what) override;
  QWidget* widget() const { return widget_; }
  // To another ground, in which it has the same place.
  void moveTo(QWidget* ground);
  // The zoom has changed: for the control and all that stands in it.
  virtual void showAnew() { changed(Change::place | Change::look); }
  // The widget of that control; null while it has none.
  static QWidget* widgetOf(const Control& control);

 protected:
  virtual QWidget* create(QWidget* ground) = 0;
  // Pushes into the widget what is of this kind alone.
  virtual void update(Change what) = 0;
  virtual void watch();
  virtual void place();
  virtual void show(bool visible);
  // Font and colours. They are inherited by the widgets inside, so containers paint theirs.
  virtual void applyLook();
  float scale() const;
  virtual std::string accessibleName() const { return control_.accessibleName(); }

  void build();
  // For properties that take another kind of widget.
  void remake();
  template <class Work>
  void tell(Work&& work) {
    if (busy_ == 0) mirror_.gate.enter(std::forward<Work>(work));
  }
  // Connects for as long as the peer lives.
  template <class Sender, class Signal, class Slot>
  void on(Sender* sender, Signal signal, Slot slot) {
    QObject::connect(sender, signal, connections_.get(), std::move(slot));
  }

  Mirror& mirror_;

 private:
  void push(Change what);
  void applyColours();
  void describe();
  void drop();

  Control& control_;
  QPointer<QWidget> ground_;
  QPointer<QWidget> widget_;
  std::unique_ptr<QObject> connections_;
  int busy_ = 0;
  bool hasOwnLook_ = false;
};

// A control with others in it.
class ContainerPeer : public ControlPeer {
 public:
  ContainerPeer(Mirror& mirror, Container& container, QWidget* ground)
      : ControlPeer(mirror, container, ground), container_(container) {}

 protected:
  void update(Change what) override;
  void applyLook() override;
  void showAnew() override;
  // What the children stand on, and what this one does.
  virtual QWidget* childrenGround() { return widget(); }
  virtual QWidget* groundOf(const Control&) { return childrenGround(); }

 private:
  Container& container_;
};

using PeerPointer = std::unique_ptr<ControlPeer>;
using PeerMaker = PeerPointer(Mirror& mirror, Control& control, QWidget* ground);

// By the control's kind.
PeerMaker makePeer;

extern PeerMaker* const makeButtonPeer;
extern PeerMaker* const makeCheckBoxPeer;
extern PeerMaker* const makeComboBoxPeer;
extern PeerMaker* const makeFramePeer;
extern PeerMaker* const makeGraphPeer;
extern PeerMaker* const makeGridPeer;
extern PeerMaker* const makeImagePeer;
extern PeerMaker* const makeLabelPeer;
extern PeerMaker* const makeNumberBoxPeer;
extern PeerMaker* const makeOptionButtonPeer;
extern PeerMaker* const makeOutlinePeer;
extern PeerMaker* const makePanelPeer;
extern PeerMaker* const makeScrollBarPeer;
extern PeerMaker* const makeTabBookPeer;
extern PeerMaker* const makeTextBoxPeer;

// The peer of one kind of control.
template <class Model, class Base = ControlPeer>
class PeerOf : public Base {
 public:
  using Kind = Model;

  PeerOf(Mirror& mirror, Model& model, QWidget* ground)
      : Base(mirror, model, ground), model_(model) {}

 protected:
  Model& model_;
};

// One whose model needs one kind of widget.
template <class Model, class Widget, class Base = ControlPeer>
class WidgetPeer : public PeerOf<Model, Base> {
 public:
  using PeerOf<Model, Base>::PeerOf;

 protected:
  // Sets the new widget up and connects it.
  virtual void prepare() {}
  Widget* widget_ = nullptr;

 private:
  QWidget* create(QWidget* ground) override {
    widget_ = new Widget(ground);
    prepare();
    return widget_;
  }
};

template <class OnePeer>
PeerPointer makePeerOf(Mirror& mirror, Control& control, QWidget* ground) {
  return std::make_unique<OnePeer>(mirror, static_cast<typename OnePeer::Kind&>(control), ground);
}

// Puts the control's widget under those constructed after it, into the order of the Tab key, and
// makes a label just before a control that takes the focus its buddy.
void takePlaceAmongSiblings(Control& control);

// Puts all that the Tab key stops at in a window into its order.
void orderTabStops(const Window& window);

}  // namespace tolmer
