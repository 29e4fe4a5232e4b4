#pragma once

#include <QPushButton>
#include <functional>

#include "platform/desktop.h"
#include "platform/qt/help_window.h"

namespace tolmer {

// Pages of the notebook beside the work. One window, used again for every page that is kept.
class KeptWindow : public CompanionWindow {
 public:
  // `top` as for CompanionWindow.
  explicit KeptWindow(std::function<QWidget*()> top);

  void open(const KeptPages& pages);
  // The zoom has changed.
  void showAnew() { page_->showAnew(); }
  std::size_t shownPage() const { return pages_.shown; }

 private:
  void layOut();
  void addKeys();
  void turnTo(std::size_t page);
  void turn(bool forward);

  KeptPages pages_;
  HelpPage* page_;
  QPushButton* previous_;
  QPushButton* next_;
};

}  // namespace tolmer
