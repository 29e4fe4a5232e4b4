#include "platform/scrolled_panel.h"

#include <algorithm>
#include <cmath>

namespace tolmer {

ScrolledPanel::ScrolledPanel(Panel& view, Panel& content, ScrollBar& bar)
    : view_(view), content_(content), bar_(bar) {
  bar_.setVisible(false);
  bar_.Changed = [this] { content_.setTop(static_cast<Twips>(-bar_.value())); };
  view_.Wheel = [this](float lines) { moveBy(lines * pixels(20) / view_.height()); };
}

void ScrolledPanel::fit(Twips barThickness) {
  const int hidden = static_cast<int>(std::max(content_.height() - view_.height(), 0.0F));
  bar_.setPlace({view_.right() + pixels(2), view_.top(), barThickness, view_.height()});
  bar_.setRange(hidden, static_cast<int>(pixels(20)), static_cast<int>(view_.height() * 9 / 10));
  bar_.setVisible(hidden > 0);
  content_.setTop(static_cast<Twips>(-bar_.value()));
}

void ScrolledPanel::moveBy(float ofView) {
  bar_.setValue(bar_.value() + static_cast<int>(std::lround(ofView * view_.height())));
}

void ScrolledPanel::bringIntoView(const Control& control) {
  constexpr Twips around = pixels(6);
  Twips top = control.top();
  const Control* above = control.parent();
  for (; above && above != &content_; above = above->parent()) top += above->top();
  if (!above || !scrolls()) return;
  const auto value = static_cast<Twips>(bar_.value());
  const Twips least = top + control.height() + around - view_.height();
  bar_.setValue(static_cast<int>(std::min(std::max(value, least), top - around)));
}

}  // namespace tolmer
