#pragma once

#include <QIcon>
#include <functional>
#include <memory>

#include "platform/desktop.h"

namespace tolmer {

// Is there a screen to show windows on? Without one the toolkit ends the program.
bool screenAvailable();

// The program's application object, look and desktop. Windows are made after it and go before it.
//
//   QtProgram program(argc, argv);
//   Shell shell(program.desktop());
//   return program.run([&] { shell.Main(); });
class QtProgram {
 public:
  QtProgram(int& argc, char** argv);
  ~QtProgram();
  QtProgram(const QtProgram&) = delete;
  QtProgram& operator=(const QtProgram&) = delete;

  Desktop& desktop();
  // Runs `main` and then handles events until the program ends, be it within `main`. Returns the
  // exit status.
  int run(const std::function<void()>& main);

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace tolmer
