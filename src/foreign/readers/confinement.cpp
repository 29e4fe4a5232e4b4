#include "foreign/readers/confinement.h"

#include <linux/audit.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>

namespace tolmer {
namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr bool sanitized = true;
#elif defined(__has_feature)
constexpr bool sanitized = __has_feature(address_sanitizer);
#else
constexpr bool sanitized = false;
#endif

bool limit(__rlimit_resource resource, rlim_t most) {
  const rlimit both{most, most};
  return ::setrlimit(resource, &both) == 0;
}

constexpr rlim_t mostMemory = rlim_t{512} << 20;
constexpr rlim_t mostSeconds = 5;

#if defined(__x86_64__)
constexpr unsigned machine = AUDIT_ARCH_X86_64;
#elif defined(__aarch64__)
constexpr unsigned machine = AUDIT_ARCH_AARCH64;
#elif defined(__riscv) && __riscv_xlen == 64
constexpr unsigned machine = AUDIT_ARCH_RISCV64;
#else
constexpr unsigned machine = 0;  // there the limits alone hold
#endif

constexpr sock_filter load(std::size_t offset) {
  return BPF_STMT(BPF_LD | BPF_W | BPF_ABS, static_cast<unsigned>(offset));
}
constexpr sock_filter answer(unsigned with) { return BPF_STMT(BPF_RET | BPF_K, with); }
// Skips one instruction where the number is not that one.
constexpr sock_filter unless(unsigned number) {
  return BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, number, 0, 1);
}

// Memory, the file that is open already, the way out. All else fails, as if forbidden by the
// system.
bool filterCalls() {
  constexpr std::array<unsigned, 16> allowed{
      SYS_read,   SYS_write,      SYS_lseek,     SYS_fstat,       SYS_close,    SYS_mmap,
      SYS_munmap, SYS_mremap,     SYS_brk,       SYS_madvise,     SYS_mprotect, SYS_futex,
      SYS_exit,   SYS_exit_group, SYS_getrandom, SYS_rt_sigreturn};
  std::array<sock_filter, 5 + 2 * allowed.size()> program{};
  std::size_t at = 0;
  program[at++] = load(offsetof(seccomp_data, arch));
  program[at++] = BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, machine, 1, 0);
  program[at++] = answer(SECCOMP_RET_KILL_PROCESS);
  program[at++] = load(offsetof(seccomp_data, nr));
  for (const unsigned call : allowed) {
    program[at++] = unless(call);
    program[at++] = answer(SECCOMP_RET_ALLOW);
  }
  program[at++] = answer(SECCOMP_RET_ERRNO | EPERM);
  const sock_fprog filter{static_cast<unsigned short>(at), program.data()};
  return ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &filter) == 0;
}

}  // namespace

bool confineProcess() {
  bool given = ::prctl(PR_SET_PDEATHSIG, SIGKILL) == 0;
  given = limit(RLIMIT_CPU, mostSeconds) && limit(RLIMIT_FSIZE, 0) && limit(RLIMIT_CORE, 0) &&
          limit(RLIMIT_NPROC, 0) && given;
  given = ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 && given;
  if (sanitized) return given;
  given = limit(RLIMIT_AS, mostMemory) && given;
  return (machine == 0 || filterCalls()) && given;
}

}  // namespace tolmer
