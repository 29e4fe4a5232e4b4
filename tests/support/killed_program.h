// A program that works until it is killed.
#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <functional>

namespace tolmer::test {

// Runs `work` over and over in a process of its own, and kills that so many microseconds after it
// has said that the work was done so many times: what it got done does not hang on how busy the
// machine is.
inline void killWhileWorking(const std::function<void()>& work, unsigned microseconds,
                             int timesDone = 1) {
  int ready[2];
  ASSERT_EQ(::pipe(ready), 0);
  const pid_t child = ::fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    for (int times = 0;; ++times) {
      work();
      if (times < timesDone && ::write(ready[1], "x", 1) != 1) ::_exit(1);
    }
  }
  for (char byte = 0; timesDone > 0; --timesDone) EXPECT_EQ(::read(ready[0], &byte, 1), 1);
  ::usleep(microseconds);
  ::kill(child, SIGKILL);
  EXPECT_EQ(::waitpid(child, nullptr, 0), child);
  ::close(ready[0]);
  ::close(ready[1]);
}

}  // namespace tolmer::test
