// Windows: dialogs, the frame and its children.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/control.h"
#include "platform/menu.h"

namespace tolmer {

class Button;
class Desktop;
class FrameWindow;

enum class WindowStyle {
  dialog,  // title bar and close box, of fixed size unless sizable
  bare,    // no title bar: cover, hider
  frame,   // the main window, with child windows in it
  child    // inside the frame: can be maximised and restored, not dragged or closed by the user
};
enum class WindowState { normal, minimised, maximised };

// Construction is the loading of a window, destruction its unloading. The place of a dialog is its
// position on the screen and its inner size; the place of a child is its outer place in the frame.
class Window : public Captioned<Container> {
 public:
  Window(Desktop& desktop, std::string name, WindowStyle style, std::string caption = {});
  ~Window() override;
  ControlKind kind() const override { return ControlKind::window; }

  Desktop& desktop() const { return desktop_; }
  WindowStyle style() const { return style_; }

  Twips innerWidth() const { return inner_.width; }
  Twips innerHeight() const { return inner_.height; }
  // Its layout needs so much: with less room the inside keeps this size, and the front end scrolls.
  Size leastInner() const { return leastInner_; }
  void setLeastInner(Size least);
  // It is shown so many times as large as other windows, its lengths being what they are.
  float magnification() const { return magnification_; }
  void setMagnification(float times) {
    assign(magnification_, times, Change::place | Change::look);
  }
  WindowState state() const { return state_; }
  // Resize follows when the inner size changes by it.
  void setState(WindowState state);
  bool sizable() const { return sizable_; }
  FrameWindow* frame() const { return frame_; }  // that adopted it; null for any other window
  void setSizable(bool on) { assign(sizable_, on, Change::look); }

  // Shows and goes on; the first showing builds the mirror.
  void show();
  // Shows and returns when the window has been hidden.
  void showModal();
  void hide();
  // Comes to the front; Activate is raised, for a child only where another one was active.
  void activate();
  bool isModal() const { return modal_; }
  void centreOnScreen();

  // The close box, or code that asks politely. QueryUnload may refuse, as does a window that takes
  // no input; otherwise Unload runs and the window is hidden. Returns whether it was closed.
  bool requestClose();

  // Whether mouse, keys and close box mean anything to it. While they do not it looks as ever: for
  // what is to be seen to its end.
  bool takesInput() const { return takesInput_; }
  void setTakesInput(bool on) { assign(takesInput_, on, Change::enabled); }

  // Drawing of the window stands still while the count is above zero; see UpdateLock.
  int updateLocks() const { return updateLocks_; }

  Control* focus() const { return focus_; }
  void setFocusTo(Control* control) { setFocusTo(control, false); }
  // As Tab does: to the next control it stops at and that can be used, or the one before, around.
  void moveFocus(bool back = false);
  // While the peer is told of Change::focus: whether it moves so.
  bool focusMoves() const { return focusMoves_; }
  Button* defaultButton();
  Button* cancelButton();
  // A key that the control with the focus has left over. Return presses the link or button with the
  // focus, else the default button, Escape the cancel button; one that cannot be used is not
  // pressed. True for these two keys, and for what its frame takes.
  virtual bool pressKey(const KeyPress& key);

  MenuItem* menuBar() const { return menuBar_; }
  void setMenuBar(MenuItem* bar) { assign(menuBar_, bar, Change::items); }

  // A front end tells what the user or the window manager did.
  void reportInnerSize(Size inner);
  void reportState(WindowState state);
  void reportActivated() { activate(); }
  void reportPosition(Twips left, Twips top);
  void reportScreen() { raise(ScreenChanged); }

  Event<> Activate;
  Event<> Resize;            // the inner size has changed
  Event<> ScreenChanged;     // the screen has another size, or everything on it
  Event<bool&> QueryUnload;  // its argument set True cancels the close
  Event<> Unload;
  Event<> Click;  // on the ground
  // Files let fall on the program while this window takes input; where nobody listens they are
  // refused before they fall.
  Event<const DroppedItems&> Dropped;

 protected:
  void placeChanged() override;

  virtual void innerChanged() {}
  // The focus is on another control, or on none.
  virtual void focusMoved() {}

 private:
  friend class Control;
  friend class UpdateLock;
  friend class FrameWindow;
  void forget(const Control& control);
  void setFocusTo(Control* control, bool moves);
  void setInner(Size inner);
  void lockUpdates(int step);

  Desktop& desktop_;
  WindowStyle style_;
  MenuItem* menuBar_ = nullptr;
  Control* focus_ = nullptr;
  FrameWindow* frame_ = nullptr;
  Size inner_;
  Size leastInner_;
  float magnification_ = 1;
  int updateLocks_ = 0;
  WindowState state_ = WindowState::normal;
  bool modal_ = false;
  bool sizable_ = false;
  bool takesInput_ = true;
  bool focusMoves_ = false;
};

// The main window: its children stand inside it. It takes the customary keys of windows within a
// window: F6, Ctrl+F6 and Ctrl+Tab go to the next child, with Shift to the one before, and Ctrl+F10
// maximises.
class FrameWindow : public Window {
 public:
  FrameWindow(Desktop& desktop, std::string name, std::string caption);
  ~FrameWindow() override;

  // From then on the window is a child of this frame. It stays the owner's.
  void adopt(Window& child);
  const std::vector<Window*>& childWindows() const { return childWindows_; }
  // The child that was active last, whether the frame is active or not; null without a child.
  Window* activeChild() const { return activeChild_; }
  // Comes to the front, and Activate is raised, unless it is the active one.
  void activate(Window& child);
  using Window::activate;
  // The keyboard's way around: the next child on the screen in reading order, or the one before,
  // and after the last one the foot. A maximised child is restored where it would cover the next.
  void activateNext(bool forward = true);
  // A strip of that height below the ground of the children, in which the frame's own controls
  // stand; places are relative to it. The frame's inner size is that of the ground.
  Twips footHeight() const { return footHeight_; }
  void setFootHeight(Twips height) { assign(footHeight_, height, Change::place); }
  // A letter with Alt presses the button of any child on the screen, whichever is active: the
  // panel's commands are to be at hand from every quadrant. Letters of menus come first.
  bool pressKey(const KeyPress& key) override;
  // Maximises the active child, or restores it.
  void toggleMaximised();

  // What a child's frame and title bar take of its outer size (measured of the Fusion style).
  static constexpr Twips childSide = pixels(4);
  static constexpr Twips childTop = pixels(24);

 protected:
  void placeChanged() override {}
  void innerChanged() override;

 private:
  friend class Window;
  void takeKeys();
  bool hasFootStop() const;
  std::vector<Window*> shownInOrder() const;
  void leaveFor(Window& child);
  Button* mnemonicButton(char letter);
  std::vector<Window*> childWindows_;
  Window* activeChild_ = nullptr;
  Twips footHeight_ = 0;
};

// Holds a window's drawing back while it lives, so that a rebuilt page appears at once.
class UpdateLock {
 public:
  explicit UpdateLock(Window& window) : window_(window) { window_.lockUpdates(1); }
  ~UpdateLock() { window_.lockUpdates(-1); }
  UpdateLock(const UpdateLock&) = delete;
  UpdateLock& operator=(const UpdateLock&) = delete;

 private:
  Window& window_;
};

}  // namespace tolmer
