// The one way from the toolkit into the models, and what becomes of an exception on it.
#pragma once

#include <QEventLoop>
#include <exception>
#include <vector>

namespace tolmer {

// No exception may cross the toolkit's own functions. So it is caught where the toolkit called in,
// ends all event loops that the models opened, and goes on where those loops return. To the models
// it looks as if it had come straight through: their next lines do not run and their locals are
// destroyed.
class Gate {
 public:
  // Every call from an event, signal or timer into a model goes through here. Once something has
  // been thrown, and while the gate is shut, nothing enters any more.
  template <class Work>
  void enter(Work&& work) {
    if (!isOpen()) return;
    ++depth_;
    try {
      work();
    } catch (...) {
      keep(std::current_exception());
    }
    --depth_;
  }

  // Runs a loop of a model's call (modal window, message box) until it is quit, by its owner or by
  // an exception.
  void run(QEventLoop& loop);
  // Runs the application's loop and returns the exit status.
  int runApplication();
  // After a loop, or after events were handled: throws what was thrown in them.
  void rethrow();
  // The end of the program: throws ProgramEnded, and the gate stays closed for good.
  [[noreturn]] void end(int status);

  bool isOpen() const { return !thrown_ && !ended_ && shut_ == 0; }

  // While one of these lives nothing enters: events that come of destroying a widget are nobody's.
  class Shut {
   public:
    explicit Shut(Gate& gate) : gate_(gate) { ++gate_.shut_; }
    ~Shut() { --gate_.shut_; }
    Shut(const Shut&) = delete;
    Shut& operator=(const Shut&) = delete;

   private:
    Gate& gate_;
  };

 private:
  void keep(std::exception_ptr thrown);

  std::vector<QEventLoop*> loops_;
  std::exception_ptr thrown_;
  int depth_ = 0;
  int shut_ = 0;
  int status_ = 0;
  bool ended_ = false;
  bool applicationRuns_ = false;
};

}  // namespace tolmer
