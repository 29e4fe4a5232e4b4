#include "system/child_output.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <utility>

namespace tolmer::host {
namespace {

class Descriptor {
 public:
  explicit Descriptor(int number = -1) : number_(number) {}
  ~Descriptor() { close(); }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}

  int number() const { return number_; }
  explicit operator bool() const { return number_ >= 0; }
  void close() {
    if (number_ >= 0) ::close(number_);
    number_ = -1;
  }

 private:
  int number_;
};

class SpawnSettings {
 public:
  SpawnSettings(int input, int output) {
    ::posix_spawn_file_actions_init(&actions_);
    ::posix_spawnattr_init(&attributes_);
    ::posix_spawn_file_actions_adddup2(&actions_, input, STDIN_FILENO);
    ::posix_spawn_file_actions_adddup2(&actions_, output, STDOUT_FILENO);
    ::posix_spawn_file_actions_addopen(&actions_, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    sigset_t signals;
    ::sigfillset(&signals);
    ::posix_spawnattr_setsigdefault(&attributes_, &signals);
    ::sigemptyset(&signals);
    ::posix_spawnattr_setsigmask(&attributes_, &signals);
    ::posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
  }
  ~SpawnSettings() {
    ::posix_spawn_file_actions_destroy(&actions_);
    ::posix_spawnattr_destroy(&attributes_);
  }
  SpawnSettings(const SpawnSettings&) = delete;
  SpawnSettings& operator=(const SpawnSettings&) = delete;

  const posix_spawn_file_actions_t* actions() const { return &actions_; }
  const posix_spawnattr_t* attributes() const { return &attributes_; }

 private:
  posix_spawn_file_actions_t actions_{};
  posix_spawnattr_t attributes_{};
};

// A process that reads; it does not outlive this.
class ReadingProcess {
 public:
  ~ReadingProcess() { stop(); }
  ReadingProcess() = default;
  ReadingProcess(const ReadingProcess&) = delete;
  ReadingProcess& operator=(const ReadingProcess&) = delete;

  // 0, or the number of the system's error.
  int start(const std::string& program, std::vector<std::string> words, int input, int output) {
    words.insert(words.begin(), program);
    std::vector<char*> arguments;
    for (std::string& word : words) arguments.push_back(word.data());
    arguments.push_back(nullptr);
    std::array<char*, 1> nothing{};  // what the user's surroundings say is none of its business
    const SpawnSettings settings(input, output);
    return ::posix_spawn(&id_, program.c_str(), settings.actions(), settings.attributes(),
                         arguments.data(), nothing.data());
  }

  // Its end as waitpid tells it; it has closed its output.
  int status() {
    int status = 0;
    while (::waitpid(id_, &status, 0) < 0)
      if (errno != EINTR) return -1;
    id_ = -1;
    return status;
  }

  void stop() {
    if (id_ <= 0) return;
    ::kill(id_, SIGKILL);
    status();
  }

 private:
  pid_t id_ = -1;
};

using Clock = std::chrono::steady_clock;

// All that comes out of the pipe until it is closed.
ChildEnd readAll(int pipe, const ChildLimits& limits, std::string& text) {
  const Clock::time_point deadline = Clock::now() + limits.patience;
  std::array<char, 1 << 16> buffer{};
  for (;;) {
    const auto left =
        std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now()).count();
    if (left <= 0) return ChildEnd::tooLate;
    pollfd watched{pipe, POLLIN, 0};
    const int ready = ::poll(&watched, 1, static_cast<int>(left));
    if (ready == 0) return ChildEnd::tooLate;
    if (ready < 0 && errno == EINTR) continue;
    if (ready < 0) return ChildEnd::failed;
    const ssize_t length = ::read(pipe, buffer.data(), buffer.size());
    if (length == 0) return ChildEnd::well;
    if (length < 0) return ChildEnd::failed;
    text.append(buffer.data(), static_cast<std::size_t>(length));
    if (text.size() > limits.mostOutput) return ChildEnd::failed;
  }
}

ChildEnd endOf(int status) {
  if (status == 0) return ChildEnd::well;
  const bool ranOutOfTime =
      WIFSIGNALED(status) && (WTERMSIG(status) == SIGXCPU || WTERMSIG(status) == SIGKILL);
  return ranOutOfTime ? ChildEnd::tooLate : ChildEnd::failed;
}

ChildOutput notStarted(int code) {
  const ChildEnd end = code == ENOENT ? ChildEnd::missing : ChildEnd::notStarted;
  return {end, {}, {code, std::generic_category()}};
}

}  // namespace

struct ChildInput::Source {
  Descriptor file;
  struct stat facts {};
  int failure = 0;  // the system's error
};

ChildInput::ChildInput(std::unique_ptr<Source> source) : source_(std::move(source)) {
  if (!source_->file || ::fstat(source_->file.number(), &source_->facts) != 0)
    source_->failure = errno;
}
ChildInput::ChildInput(ChildInput&&) noexcept = default;
ChildInput::~ChildInput() = default;

ChildInput ChildInput::ofFile(const std::string& name) {
  return ChildInput(std::make_unique<Source>(
      Source{Descriptor(::open(name.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY))}));
}

ChildInput ChildInput::ofBytes(std::string_view bytes) {
  ChildInput input(
      std::make_unique<Source>(Source{Descriptor(::memfd_create("input", MFD_CLOEXEC))}));
  Source& source = *input.source_;
  while (source.failure == 0 && !bytes.empty()) {
    const ssize_t written = ::write(source.file.number(), bytes.data(), bytes.size());
    if (written <= 0) source.failure = ENOMEM;
    bytes.remove_prefix(written > 0 ? static_cast<std::size_t>(written) : 0);
  }
  return input;
}

std::error_code ChildInput::error() const { return {source_->failure, std::generic_category()}; }

bool ChildInput::isRegular() const { return S_ISREG(source_->facts.st_mode); }

std::size_t ChildInput::size() const { return static_cast<std::size_t>(source_->facts.st_size); }

std::string ChildInput::beginning(std::size_t most) const {
  std::string bytes(most, '\0');
  const ssize_t length = ::pread(source_->file.number(), bytes.data(), bytes.size(), 0);
  bytes.resize(length < 0 ? 0 : static_cast<std::size_t>(length));
  return bytes;
}

ChildOutput outputOf(const std::string& program, std::vector<std::string> words,
                     const ChildInput& input, const ChildLimits& limits) {
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0)
    return {ChildEnd::notStarted, {}, {errno, std::generic_category()}};
  const Descriptor from(ends[0]);
  Descriptor to(ends[1]);
  ReadingProcess process;
  const int failure =
      process.start(program, std::move(words), input.source().file.number(), to.number());
  if (failure != 0) return notStarted(failure);
  to.close();
  ChildOutput output;
  output.end = readAll(from.number(), limits, output.text);
  if (output.end == ChildEnd::well) output.end = endOf(process.status());
  return output;
}

}  // namespace tolmer::host
