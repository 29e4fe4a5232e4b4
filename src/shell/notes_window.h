// The notes beside the work.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "notes/note.h"
#include "platform/buttons.h"
#include "platform/labels.h"
#include "platform/panels.h"
#include "platform/window.h"

namespace tolmer {

// A window of its own that waits for nobody: each note with a way to its help and to the displays
// with the cells it speaks of. It is as large as its notes.
class frmNotes : public Window {
 public:
  explicit frmNotes(Desktop& desktop);

  // What it says from now on; whether it is on the screen stays as it is.
  void setNotes(const std::vector<Note>& notes);
  // Comes to the screen, or to its front.
  void open();

  std::function<void(const Note&)> helpOn;
  std::function<void(const Note&, const std::string& display)> showIn;

  Panel pnlNotes{this, "pnlNotes"};
  Button cmdClose{this, "cmdClose", "Close"};

 private:
  // One note on the window. The controls stay from note to note: one may be in use right now.
  struct Entry {
    Entry(Panel& ground, int index);
    void hide();

    std::string number;  // "(1)"
    Label title, text;
    std::vector<std::unique_ptr<Label>> ways;  // to displays
    Label help;
  };
  void fill(Entry& entry, const Note& note);
  static Twips place(Entry& entry, Twips top);
  void placeBelow(Twips end);

  std::vector<std::unique_ptr<Entry>> entries_;
  bool isPlaced_ = false;
};

}  // namespace tolmer
