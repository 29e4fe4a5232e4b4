#include "support/faults.h"

#include <sys/file.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>

namespace tolmer::test {
namespace {

struct Fault {
  int error = 0;  // none
  int worksBefore = 0;
};
std::array<Fault, 3> faults;

Fault& faultOf(Call call) { return faults[static_cast<std::size_t>(call)]; }

template <class... Arguments>
int called(Call call, long number, Arguments... arguments) {
  Fault& fault = faultOf(call);
  if (fault.error == 0 || fault.worksBefore-- > 0)
    return static_cast<int>(::syscall(number, arguments...));
  errno = fault.error;
  return -1;
}

}  // namespace

FailingCall::FailingCall(Call call, int error, int worksBefore) : call_(call) {
  faultOf(call) = {error, worksBefore};
}
FailingCall::~FailingCall() { faultOf(call_) = {}; }

FullDisk::FullDisk(rlim_t bytes) {
  std::signal(SIGXFSZ, SIG_IGN);
  ::getrlimit(RLIMIT_FSIZE, &before_);
  const rlimit small{bytes, before_.rlim_max};
  ::setrlimit(RLIMIT_FSIZE, &small);
}
FullDisk::~FullDisk() {
  ::setrlimit(RLIMIT_FSIZE, &before_);
  std::signal(SIGXFSZ, SIG_DFL);
}

Nobody::Nobody() : before_(::geteuid()) {
  if (before_ == 0) works_ = ::seteuid(65534) == 0;
}
Nobody::~Nobody() {
  if (before_ == 0) works_ = ::seteuid(before_) == 0;
}

}  // namespace tolmer::test

// A program's own functions come before those of the system's library, for all of the program.
extern "C" {
int fsync(int file) { return tolmer::test::called(tolmer::test::Call::fsync, SYS_fsync, file); }
int flock(int file, int operation) noexcept {
  return tolmer::test::called(tolmer::test::Call::flock, SYS_flock, file, operation);
}
int fchown(int file, uid_t owner, gid_t group) noexcept {
  return tolmer::test::called(tolmer::test::Call::fchown, SYS_fchown, file, owner, group);
}
}
