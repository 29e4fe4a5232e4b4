// What a system does wrong, for root as for anybody.
#pragma once

#include <sys/resource.h>
#include <sys/types.h>

namespace tolmer::test {

enum class Call { fsync, flock, fchown };

// While it lives, that call of the system fails so, after it has worked so many times.
class FailingCall {
 public:
  FailingCall(Call call, int error, int worksBefore = 0);
  ~FailingCall();
  FailingCall(const FailingCall&) = delete;
  FailingCall& operator=(const FailingCall&) = delete;

 private:
  Call call_;
};

// While it lives, a file that grows beyond so many bytes fails as on a full disk.
class FullDisk {
 public:
  explicit FullDisk(rlim_t bytes);
  ~FullDisk();
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  rlimit before_{};
};

// While it lives, folders that are closed to others are closed to this program, too: root may write
// anywhere.
class Nobody {
 public:
  Nobody();
  ~Nobody();
  Nobody(const Nobody&) = delete;
  Nobody& operator=(const Nobody&) = delete;
  bool works() const { return works_; }

 private:
  uid_t before_;
  bool works_ = true;
};

}  // namespace tolmer::test
