#include "shell/main_frame.h"

#include <algorithm>
#include <cmath>

#include "platform/desktop.h"
#include "platform/text_metrics.h"
#include "shell/status_line.h"

namespace tolmer {
namespace {

constexpr Twips statusHeight = pixels(25);
constexpr Twips statusMargin = pixels(10);

}  // namespace

mdiReg::mdiReg(Desktop& desktop)
    : FrameWindow(desktop, "mdiReg", "Tolmer Analysis"),
      tmrTold_(desktop.timers(), "tmrTold", wordsStay) {
  tmrTold_.Tick = [this] {
    tmrTold_.setEnabled(false);
    showLine(status_);
  };
  setMenuBar(&menu);
  setFootHeight(statusHeight);
  lblNotes.setIsLink(true);
  lblNotes.setAlign(Align::right);
  lblNotes.setVisible(false);
  setState(WindowState::maximised);
  Resize = [this] { MDIForm_Resize(); };
}

// The frame can be minimised and maximised and never stays in a normal size.
void mdiReg::MDIForm_Resize() {
  if (mbProcessMainResize && state() == WindowState::normal) setState(WindowState::maximised);
  placeStatus();
  raise(placeQuadrants);
}

void mdiReg::showStatus(const std::string& status, const std::string& notes) {
  status_ = status;
  if (!tmrTold_.enabled()) showLine(status);
  lblNotes.setCaption(notes);
  lblNotes.setAccessibleDescription(status);
  lblNotes.setVisible(!status.empty());
  placeStatus();
}

void mdiReg::tell(const std::string& words) {
  showLine(words);
  tmrTold_.setEnabled(false);
  tmrTold_.setEnabled(true);
}

void mdiReg::showLine(const std::string& words) {
  lblStatus.setCaption(words);
  lblStatus.setTip(words);
}

// What is too long for the line is cut off at its end, and the tip has it whole.
void mdiReg::placeStatus() {
  const auto words = static_cast<float>(textWidth(lblNotes.font(), lblNotes.caption()));
  const Twips width = pixels(std::ceil(words) + 4);
  const Twips left = std::max(innerWidth() - statusMargin - width, 0.0F);
  const Twips top = pixels(1);  // below the line at its upper edge
  lblNotes.setPlace({left, top, width, statusHeight - top});
  lblStatus.setPlace(
      {statusMargin, top, std::max(left - 2 * statusMargin, 0.0F), statusHeight - top});
}

}  // namespace tolmer
