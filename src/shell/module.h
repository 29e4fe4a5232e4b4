// The whole program behind one call.
#pragma once

#include <string>

#include "shell/main_flow.h"
#include "shell/menu_commands.h"
#include "shell/shell_parts.h"

namespace tolmer {

class Module {
 public:
  // The folder holds the compiled notebook and the pictures.
  Module(Desktop& desktop, std::string tProgramFolder)
      : parts_(desktop, std::move(tProgramFolder)) {}

  // Shows the cover and the notebook and comes back when the first analysis stands. Leaving the
  // module ends the program through the desktop instead.
  void Main() { flow_.Main(); }

  ShellParts& parts() { return parts_; }

 private:
  ShellParts parts_;
  MainFlow flow_{parts_};
  MenuCommands commands_{parts_, flow_};
};

}  // namespace tolmer
