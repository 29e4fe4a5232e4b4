#include "platform/window.h"

#include <algorithm>
#include <iterator>

#include "platform/buttons.h"
#include "platform/desktop.h"
#include "platform/labels.h"
#include "platform/tab_order.h"
#include "platform/text_metrics.h"

namespace tolmer {
namespace {

// The first button, in the order of construction, that passes the test.
template <class Test>
Button* findButton(Container& container, Test test) {
  for (Control* child : container.children()) {
    if (child->kind() == ControlKind::button && test(static_cast<Button&>(*child)))
      return static_cast<Button*>(child);
    if (auto* inner = dynamic_cast<Container*>(child))
      if (Button* found = findButton(*inner, test)) return found;
  }
  return nullptr;
}

}  // namespace

Window::Window(Desktop& desktop, std::string name, WindowStyle style, std::string caption)
    : Captioned(nullptr, std::move(name), std::move(caption)), desktop_(desktop), style_(style) {
  setVisible(false);
}

Window::~Window() {
  setPeer(nullptr);
  if (!frame_) return;
  std::erase(frame_->childWindows_, this);
  if (frame_->activeChild_ == this) frame_->activeChild_ = nullptr;
}

void Window::setState(WindowState state) {
  if (state_ == state) return;
  state_ = state;
  notify(Change::place);
  placeChanged();
}

void Window::reportState(WindowState state) { setState(state); }

void Window::show() {
  setVisible(true);
  desktop_.present(*this);
  activate();
}

void Window::activate() {
  if (frame_)
    frame_->activate(*this);
  else
    raise(Activate);
}

void Window::showModal() {
  modal_ = true;
  show();
  if (visible()) desktop_.modalLoop(*this);
  modal_ = false;
}

void Window::hide() { setVisible(false); }

void Window::centreOnScreen() {
  const Size screen = desktop_.screenSize();
  setPlace({(screen.width - width() * magnification_) / 2,
            (screen.height - height() * magnification_) / 2, width(), height()});
}

bool Window::requestClose() {
  if (!takesInput_) return false;
  bool cancel = false;
  raise(QueryUnload, cancel);
  if (cancel) return false;
  raise(Unload);
  hide();
  return true;
}

void Window::moveFocus(bool back) {
  std::vector<Control*> stops = tabStops(*this);
  if (back) std::ranges::reverse(stops);
  if (const auto here = std::ranges::find(stops, focus_); here != stops.end())
    std::rotate(stops.begin(), here + 1, stops.end());
  const auto next = std::ranges::find_if(
      stops, [](const Control* stop) { return isTabStop(*stop) && stop->canBeUsed(); });
  if (next != stops.end()) setFocusTo(*next, true);
}

void Window::setFocusTo(Control* control, bool moves) {
  if (frame_) frame_->focus_ = nullptr;
  if (focus_ == control) return;
  Control* before = focus_;
  focus_ = control;
  focusMoves_ = moves;
  notify(Change::focus);
  focusMoves_ = false;
  focusMoved();
  if (before) {
    before->focusLeft();
    raise(before->LostFocus);
  }
  if (focus_) raise(focus_->GotFocus);
}

Button* Window::defaultButton() {
  return findButton(*this, [](const Button& button) { return button.isDefault(); });
}

Button* Window::cancelButton() {
  return findButton(*this, [](const Button& button) { return button.isCancel(); });
}

bool Window::pressKey(const KeyPress& key) {
  if (key.code != keys::enter && key.code != keys::escape) return frame_ && frame_->pressKey(key);
  const bool isOnLink = focus_ && focus_->kind() == ControlKind::label && focus_->canBeUsed();
  if (key.code == keys::enter && isOnLink) {
    static_cast<Label*>(focus_)->click();
    return true;
  }
  const bool isOnButton = focus_ && focus_->kind() == ControlKind::button;
  Button* button = key.code == keys::escape ? cancelButton()
                   : isOnButton             ? static_cast<Button*>(focus_)
                                            : defaultButton();
  if (button && button->canBeUsed()) button->click();
  return true;
}

void Window::forget(const Control& control) {
  if (focus_ == &control) focus_ = nullptr;
}

void Window::lockUpdates(int step) {
  updateLocks_ += step;
  notify(Change::updates);
}

void Window::setLeastInner(Size least) {
  if (assign(leastInner_, least, Change::place)) setInner(inner_);
}

void Window::setInner(Size inner) {
  inner = {std::max(inner.width, leastInner_.width), std::max(inner.height, leastInner_.height)};
  if (inner_ == inner) return;
  inner_ = inner;
  innerChanged();
  raise(Resize);
}

void Window::reportInnerSize(Size inner) {
  const bool isDialog = style_ == WindowStyle::dialog || style_ == WindowStyle::bare;
  if (isDialog && state_ == WindowState::normal)
    keepPlace({left(), top(), inner.width, inner.height});
  setInner(inner);
}

void Window::reportPosition(Twips left, Twips top) { setPlace({left, top, width(), height()}); }

void Window::placeChanged() {
  if (state_ == WindowState::minimised) return;
  if (!frame_) {
    if (style_ != WindowStyle::frame) setInner({width(), height()});
    return;
  }
  const Size room{frame_->innerWidth(), frame_->innerHeight()};
  const Size outer = state_ == WindowState::maximised ? room : Size{width(), height()};
  const bool framed = state_ != WindowState::maximised;
  const Twips sides = framed ? 2 * FrameWindow::childSide : 0;
  const Twips bars = framed ? FrameWindow::childTop + FrameWindow::childSide : 0;
  setInner({std::max(outer.width - sides, 0.0F), std::max(outer.height - bars, 0.0F)});
}

FrameWindow::FrameWindow(Desktop& desktop, std::string name, std::string caption)
    : Window(desktop, std::move(name), WindowStyle::frame, std::move(caption)) {
  setSizable(true);
  takeKeys();
}

void FrameWindow::takeKeys() {
  for (const bool back : {false, true}) {
    const Held shift = back ? Held::yes : Held::no;
    const auto next = [this, back] { activateNext(!back); };
    takeKey({keys::f6, shift, Held::any, Held::no}, next);
    takeKey({keys::tab, shift, Held::yes, Held::no}, next);
  }
  takeKey({keys::f10, Held::no, Held::yes, Held::no}, [this] { toggleMaximised(); });
}

FrameWindow::~FrameWindow() {
  for (Window* child : childWindows_) child->frame_ = nullptr;
}

void FrameWindow::adopt(Window& child) {
  child.frame_ = this;
  childWindows_.push_back(&child);
  notify(Change::children);
  child.placeChanged();
}

// From the foot the active child gets the keyboard back.
void FrameWindow::activate(Window& child) {
  const bool isOther = activeChild_ != &child;
  if (!isOther && !focus()) return;
  activeChild_ = &child;
  focus_ = nullptr;
  notify(Change::focus);
  if (isOther) raise(child.Activate);
}

std::vector<Window*> FrameWindow::shownInOrder() const {
  std::vector<Window*> shown;
  std::copy_if(childWindows_.begin(), childWindows_.end(), std::back_inserter(shown),
               [](const Window* child) { return child->visible(); });
  std::sort(shown.begin(), shown.end(), [](const Window* a, const Window* b) {
    return std::pair(a->top(), a->left()) < std::pair(b->top(), b->left());
  });
  return shown;
}

bool FrameWindow::hasFootStop() const {
  const auto stops = tabStops(*this);
  return std::ranges::any_of(stops, [](const Control* stop) { return stop->canBeUsed(); });
}

void FrameWindow::activateNext(bool forward) {
  std::vector<Window*> ring = shownInOrder();
  if (ring.empty()) return;
  if (hasFootStop()) ring.push_back(nullptr);
  const auto at = std::ranges::find(ring, focus() ? nullptr : activeChild_);
  std::size_t next = 0;
  if (at != ring.end()) {
    const auto step = forward ? 1 : ring.size() - 1;
    next = (static_cast<std::size_t>(at - ring.begin()) + step) % ring.size();
  }
  if (ring[next])
    leaveFor(*ring[next]);
  else
    moveFocus();
}

void FrameWindow::leaveFor(Window& child) {
  const bool staysAbove = focus() && activeChild_ == &child;
  if (activeChild_ && activeChild_->state() == WindowState::maximised && !staysAbove)
    activeChild_->setState(WindowState::normal);
  activate(child);
}

bool FrameWindow::pressKey(const KeyPress& key) {
  const bool isLetter = key.code >= 'A' && key.code <= 'Z';
  if (!isLetter || !key.alt || key.control || key.shift) return Window::pressKey(key);
  Button* button = mnemonicButton(static_cast<char>(key.code));
  if (!button) return false;
  if (button->canBeUsed())
    button->click();
  else
    desktop().tellAt(*button, withoutMnemonic(button->caption()) + " cannot be used now.");
  return true;
}

// One that can be used goes before one that cannot.
Button* FrameWindow::mnemonicButton(char letter) {
  for (const bool usable : {true, false}) {
    const auto fits = [=](const Button& button) {
      return mnemonicOf(button.caption()) == letter && button.visible() &&
             button.canBeUsed() == usable;
    };
    for (Window* child : childWindows_)
      if (child->visible())
        if (Button* button = findButton(*child, fits)) return button;
  }
  return nullptr;
}

void FrameWindow::toggleMaximised() {
  if (!activeChild_ || !activeChild_->visible()) return;
  const bool maximised = activeChild_->state() == WindowState::maximised;
  activeChild_->setState(maximised ? WindowState::normal : WindowState::maximised);
}

void FrameWindow::innerChanged() {
  for (Window* child : childWindows_) child->placeChanged();
}

}  // namespace tolmer
