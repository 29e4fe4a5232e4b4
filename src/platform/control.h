// What all controls have in common, and the containers they stand in.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/geometry.h"
#include "platform/input.h"
#include "platform/look.h"
#include "platform/observed.h"

namespace tolmer {

class Container;
class Window;

enum class ControlKind {
  window,
  label,
  button,
  textBox,
  checkBox,
  optionButton,
  comboBox,
  frame,
  panel,
  scrollBar,
  image,
  tabBook,
  outline,
  numberBox,
  grid,
  graph
};

// A control belongs to the container given at its construction and stands in it in the order of
// construction, which is also the order of the Tab key. Places are relative to that container.
class Control : public Observed {
 public:
  Control(Container* parent, std::string name);
  ~Control() override;

  virtual ControlKind kind() const = 0;
  const std::string& name() const { return name_; }  // as in the code: "cmdOK", "lblText(3)"
  Container* parent() const { return parent_; }
  Window* window();  // the window it stands in, itself for a window; null outside any
  const Window* window() const { return const_cast<Control*>(this)->window(); }

  const Rect& place() const { return place_; }
  Twips left() const { return place_.left; }
  Twips top() const { return place_.top; }
  Twips width() const { return place_.width; }
  Twips height() const { return place_.height; }
  Twips right() const { return place_.right(); }
  Twips bottom() const { return place_.bottom(); }
  void setPlace(const Rect& place) {
    assign(place_, place, Change::place);
    placeChanged();
  }
  void setLeft(Twips left) { setPlace({left, top(), width(), height()}); }
  void setTop(Twips top) { setPlace({left(), top, width(), height()}); }
  void setWidth(Twips width) { setPlace({left(), top(), width, height()}); }
  void setHeight(Twips height) { setPlace({left(), top(), width(), height}); }

  bool enabled() const { return enabled_; }
  void setEnabled(bool enabled) { assign(enabled_, enabled, Change::enabled); }
  bool visible() const { return visible_; }
  void setVisible(bool visible) { assign(visible_, visible, Change::visible); }
  // Visible, enabled and in containers that are so up to its window, which takes input.
  bool canBeUsed() const;

  const std::string& tip() const { return tip_; }
  void setTip(std::string tip) { assign(tip_, std::move(tip), Change::tip); }
  const std::string& tag() const { return tag_; }
  void setTag(std::string tag) { tag_ = std::move(tag); }
  // What a screen reader says in place of the caption; for controls without one.
  const std::string& accessibleName() const { return accessibleName_; }
  void setAccessibleName(std::string text) {
    assign(accessibleName_, std::move(text), Change::tip);
  }
  const std::string& accessibleDescription() const { return accessibleDescription_; }
  void setAccessibleDescription(std::string text) {
    assign(accessibleDescription_, std::move(text), Change::tip);
  }

  const Font& font() const { return font_; }
  void setFont(const Font& font) { assign(font_, font, Change::look); }
  Colour foreColour() const { return foreColour_; }
  void setForeColour(Colour colour) { assign(foreColour_, colour, Change::look); }
  Colour backColour() const { return backColour_; }
  void setBackColour(Colour colour) { assign(backColour_, colour, Change::look); }
  // Is it painted on a ground of its own, in an ink of its own? Otherwise it shows what it stands
  // on, or as an edit the usual white, and writes as the system does.
  bool hasOwnGround() const;
  bool hasOwnInk() const;

  // Can it have the keyboard focus at all?
  virtual bool takesFocus() const { return false; }
  bool hasFocus();
  void setFocus();

  // A key that comes to it, or to a window to anything in it, and does nothing else then. Declared
  // beforehand, since a front end may have to know before it acts; while `when` holds.
  void takeKey(const KeyChord& key, std::function<void()> work, std::function<bool()> when = {}) {
    takenKeys_.push_back({key, std::move(work), std::move(when)});
  }
  // In the order of declaration, in which the first that fits counts.
  const std::vector<TakenKey>& takenKeys() const { return takenKeys_; }

  // Raised by the front end; the place is in twips relative to the control.
  Event<MouseButton> MouseDown;
  Event<MouseButton> MouseUp;
  // The mouse moves over it, no button held. Set before its window is first shown, or not raised.
  Event<> MouseMove;
  Event<> GotFocus;
  Event<> LostFocus;

 protected:
  virtual void placeChanged() {}
  // The front end has put it there: nobody is told.
  void keepPlace(const Rect& place) { place_ = place; }
  // The focus has gone to another control; before LostFocus.
  virtual void focusLeft() {}

 private:
  friend class Container;
  friend class Window;
  Container* parent_;
  std::string name_;
  std::string tip_;
  std::string tag_;
  std::string accessibleName_;
  std::string accessibleDescription_;
  std::vector<TakenKey> takenKeys_;
  Rect place_;
  Font font_;
  Colour foreColour_ = colours::buttonText;
  Colour backColour_ = colours::buttonFace;
  bool enabled_ = true;
  bool visible_ = true;
};

// A control that holds others. It does not own them: they are members of a window, or elements of
// its control arrays.
class Container : public Control {
 public:
  using Control::Control;
  ~Container() override;

  const std::vector<Control*>& children() const { return children_; }
  // After the construction of a control in a window that may be on the screen already.
  void announceChildren() { notify(Change::children); }
  // The control of that name in here or in a container in here; null where there is none.
  Control* find(std::string_view name);

 private:
  friend class Control;
  std::vector<Control*> children_;
};

// A control with a caption.
template <class Base>
class Captioned : public Base {
 public:
  Captioned(Container* parent, std::string name, std::string caption = {})
      : Base(parent, std::move(name)), caption_(std::move(caption)) {}
  const std::string& caption() const { return caption_; }  // "&" may mark the mnemonic
  void setCaption(std::string caption) { this->assign(caption_, std::move(caption), Change::text); }

 private:
  std::string caption_;
};

}  // namespace tolmer
