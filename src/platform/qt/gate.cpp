#include "platform/qt/gate.h"

#include <QCoreApplication>
#include <utility>

#include "platform/desktop.h"

namespace tolmer {
namespace {

// An exception may leave the loop's caller; the list must not keep a dead loop.
class Listed {
 public:
  Listed(std::vector<QEventLoop*>& list, QEventLoop& loop) : list_(list) { list_.push_back(&loop); }
  ~Listed() { list_.pop_back(); }
  Listed(const Listed&) = delete;
  Listed& operator=(const Listed&) = delete;

 private:
  std::vector<QEventLoop*>& list_;
};

}  // namespace

void Gate::run(QEventLoop& loop) {
  if (thrown_ || ended_) return;
  const Listed listed(loops_, loop);
  loop.exec();
}

int Gate::runApplication() {
  if (ended_) return status_;
  applicationRuns_ = true;
  const int status = QCoreApplication::exec();
  applicationRuns_ = false;
  if (ended_) return status_;
  rethrow();
  return status;
}

void Gate::rethrow() {
  if (!thrown_) return;
  // Outside all loops and events nobody else will ask for it.
  if (loops_.empty() && depth_ == 0) std::rethrow_exception(std::exchange(thrown_, nullptr));
  std::rethrow_exception(thrown_);
}

void Gate::end(int status) {
  ended_ = true;
  status_ = status;
  throw ProgramEnded{status};
}

void Gate::keep(std::exception_ptr thrown) {
  thrown_ = std::move(thrown);
  for (QEventLoop* loop : loops_) loop->quit();
  // Outside a running exec() this would leave a mark that ends every later loop at once.
  if (applicationRuns_) QCoreApplication::exit(status_);
}

}  // namespace tolmer
