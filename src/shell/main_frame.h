// The main window: a maximised frame around the quadrants, with the program's menu above and a line
// on the analysis below them.
#pragma once

#include <functional>

#include "platform/labels.h"
#include "platform/timer.h"
#include "platform/window.h"
#include "shell/main_menu.h"

namespace tolmer {

class mdiReg : public FrameWindow, public MainMenu {
 public:
  explicit mdiReg(Desktop& desktop);

  // False while the frame is first being shown: its size is no command to anybody then.
  bool mbProcessMainResize = false;
  // The inner size has changed; the frame itself has nothing in it but the status line.
  std::function<void()> placeQuadrants;

  Label lblStatus{this, "lblStatus"};  // data set, cases, model
  Label lblNotes{this, "lblNotes"};    // "2 notes", which leads to them

  // The line says `status`, and `notes` is where a click leads to; it is not there before, and so
  // comes last in the window.
  void showStatus(const std::string& status, const std::string& notes);
  // Some seconds long the line says these words instead.
  void tell(const std::string& words);

 private:
  void showLine(const std::string& words);
  void MDIForm_Resize();
  void placeStatus();

  std::string status_;
  Timer tmrTold_;
};

}  // namespace tolmer
