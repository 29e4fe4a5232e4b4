#pragma once

#include <QPoint>
#include <QPointer>
#include <QWidget>
#include <functional>
#include <optional>

#include "platform/qt/control_peer.h"

namespace tolmer {

// A window to read in beside the others: it takes input while a modal window of the program does,
// which every other window waits for. Under a message box it waits too: the box stands above it.
//
// The toolkit shuts out whatever is not transient for the modal window, and a window manager keeps
// a transient window above the one it was shown for. So this window is shown above one and
// afterwards only told to belong to another, which leaves the order on the screen alone. Where the
// one below it goes, it is shown again above the next. A modal window that covers all and has no
// frame would stay above it all the same: while there is one, this window lies on top at the left.
class CompanionWindow : public QWidget {
 public:
  // Gives the window to stand above; null where there is none.
  explicit CompanionWindow(std::function<QWidget*()> top);

  // Comes to the screen, or to its front, and takes the focus, unless it is to be read later.
  void bringUp(bool takesFocus = true);

 protected:
  bool event(QEvent* event) override;

 private:
  void settleLater();
  void settle();
  void showAbove(QWidget* window);
  void belongTo(QWidget* window);
  void stepAside(bool aside);

  std::function<QWidget*()> top_;
  EventHook hook_;                    // on the two below
  QPointer<QWidget> above_;           // shown above it
  QPointer<QWidget> modal_;           // belongs to it
  std::optional<QPoint> usualPlace_;  // while it lies aside
};

}  // namespace tolmer
