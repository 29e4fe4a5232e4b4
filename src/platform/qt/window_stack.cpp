#include "platform/qt/window_stack.h"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>

#include "platform/qt/gate.h"
#include "platform/window.h"

namespace tolmer {

// An exception may leave the loop, so the list is kept by a guard.
class WindowStack::Entry {
 public:
  Entry(std::vector<Waiting>& list, Window& window, QEventLoop& loop) : list_(list) {
    list_.push_back({&window, &loop});
  }
  ~Entry() { list_.pop_back(); }
  Entry(const Entry&) = delete;
  Entry& operator=(const Entry&) = delete;

 private:
  std::vector<Waiting>& list_;
};

void WindowStack::shown(Window& window, QWidget& widget) {
  std::erase_if(shown_, [&](const Shown& entry) { return entry.window == &window; });
  shown_.push_back({&window, &widget});
  allowPainting();
}

void WindowStack::hidden(const Window& window) {
  std::erase_if(shown_, [&](const Shown& entry) { return entry.window == &window; });
  allowPainting();
  for (const Waiting& entry : waiting_)
    if (entry.window == &window) entry.loop->quit();
}

void WindowStack::allowPainting() const {
  for (const Shown& entry : shown_)
    if (entry.widget) allowPainting(*entry.window, *entry.widget);
}

void WindowStack::allowPainting(const Window& window, QWidget& widget) const {
  // A window that is about to be maximised may reach beyond the screen.
  const QRect seen = widget.geometry() & QGuiApplication::primaryScreen()->virtualGeometry();
  const auto covers = [&](const Shown& above) {
    return above.window->style() == WindowStyle::bare && above.widget &&
           above.widget->geometry().contains(seen);
  };
  auto above = std::find_if(shown_.begin(), shown_.end(),
                            [&](const Shown& entry) { return entry.window == &window; });
  if (above != shown_.end()) ++above;
  const bool covered = std::any_of(above, shown_.end(), covers);
  widget.setUpdatesEnabled(window.updateLocks() == 0 && !covered);
}

std::vector<Window*> WindowStack::windows() const {
  std::vector<Window*> windows;
  for (const Shown& entry : shown_) windows.push_back(entry.window);
  return windows;
}

void WindowStack::waitUntilHidden(Gate& gate, Window& window) {
  QEventLoop loop;
  const Entry entry(waiting_, window, loop);
  while (window.visible() && gate.isOpen()) gate.run(loop);
}

}  // namespace tolmer
