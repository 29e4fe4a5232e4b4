// The top-level windows on the screen and the modal loops that wait for some of them.
#pragma once

#include <QEventLoop>
#include <QPointer>
#include <QWidget>
#include <vector>

namespace tolmer {

class Gate;
class Window;

class WindowStack {
 public:
  // A window has come to the screen, or come back to its front.
  void shown(Window& window, QWidget& widget);
  // It has left the screen: whoever waits for it goes on.
  void hidden(const Window& window);

  // Lets a window paint, unless its drawing is locked or a bare window covers it wholly: what
  // nobody can see is not painted.
  void allowPainting(const Window& window, QWidget& widget) const;

  // The window on top of which a new one belongs; null where there is none.
  QWidget* top() const { return shown_.empty() ? nullptr : shown_.back().widget.data(); }
  // On the screen, the lowest first.
  std::vector<Window*> windows() const;
  // The window that takes input alone: the innermost modal one.
  Window* modalWindow() const { return waiting_.empty() ? nullptr : waiting_.back().window; }

  // Handles events until the window is hidden.
  void waitUntilHidden(Gate& gate, Window& window);

 private:
  struct Shown {
    Window* window;
    QPointer<QWidget> widget;
  };
  struct Waiting {
    Window* window;
    QEventLoop* loop;
  };
  class Entry;
  void allowPainting() const;

  std::vector<Shown> shown_;
  std::vector<Waiting> waiting_;
};

}  // namespace tolmer
