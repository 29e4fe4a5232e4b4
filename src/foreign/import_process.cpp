#include "foreign/import_process.h"

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
#include <system_error>
#include <utility>
#include <vector>

#include "base/paths.h"
#include "foreign/cut_format.h"
#include "foreign/cut_request.h"
#include "foreign/file_kind.h"

namespace tolmer {
namespace {

constexpr std::size_t mostFileBytes = std::size_t{256} << 20;
constexpr std::size_t mostTableBytes = std::size_t{32} << 20;

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

enum class Ending { closed, tooLate, tooLong, failed };

Ending readAll(int pipe, Clock::time_point deadline, std::string& text) {
  std::array<char, 1 << 16> buffer{};
  for (;;) {
    const auto left =
        std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now()).count();
    if (left <= 0) return Ending::tooLate;
    pollfd watched{pipe, POLLIN, 0};
    const int ready = ::poll(&watched, 1, static_cast<int>(left));
    if (ready == 0) return Ending::tooLate;
    if (ready < 0 && errno == EINTR) continue;
    if (ready < 0) return Ending::failed;
    const ssize_t length = ::read(pipe, buffer.data(), buffer.size());
    if (length == 0) return Ending::closed;
    if (length < 0) return Ending::failed;
    text.append(buffer.data(), static_cast<std::size_t>(length));
    if (text.size() > mostTableBytes) return Ending::tooLong;
  }
}

const char* const brokenReader =
    "its reader gave up: the file is damaged, or made in a way that is not understood; open it in "
    "the program it comes from and save it again, or as CSV";
const char* const slowReader = "reading it takes too long; save the part that you need as CSV";

std::string failureOf(int status) {
  if (WIFSIGNALED(status) && (WTERMSIG(status) == SIGXCPU || WTERMSIG(status) == SIGKILL))
    return slowReader;
  return brokenReader;
}

Error withFile(const std::string& name, const Error& error) {
  return {error.where.empty() ? name : name + ", " + error.where, error.text};
}

Result<std::string> textOfReader(int input, const CutRequest& request, const ImportReader& reader) {
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0)
    return Error{"", std::generic_category().message(errno)};
  const Descriptor from(ends[0]);
  Descriptor to(ends[1]);
  ReadingProcess process;
  const int failure = process.start(reader.program, wordsOf(request), input, to.number());
  if (failure == ENOENT)
    return Error{"",
                 "the program tolimport, which reads such files, is missing; save the data as "
                 "CSV instead"};
  if (failure != 0)
    return Error{
        "", "the program tolimport does not start: " + std::generic_category().message(failure)};
  to.close();
  std::string text;
  switch (readAll(from.number(), Clock::now() + reader.patience, text)) {
    case Ending::closed:
      break;
    case Ending::tooLate:
      return Error{"", slowReader};
    default:
      return Error{"", brokenReader};
  }
  const int status = process.status();
  if (status != 0) return Error{"", failureOf(status)};
  return text;
}

Result<CutBook> importFrom(int input, const std::string& name, std::string_view beginning,
                           const CutRequest& request, const ImportReader& reader) {
  if (const std::string refusal = refusalOf(kindOfFile(beginning)); !refusal.empty())
    return Error{name, refusal};
  const auto text = textOfReader(input, request, reader);
  if (!text) return withFile(name, text.error());
  auto book = bookFromCutText(*text);
  if (!book) return withFile(name, book.error());
  return book;
}

std::string beginningOf(int file) {
  std::string bytes(kindBytes, '\0');
  const ssize_t length = ::pread(file, bytes.data(), bytes.size(), 0);
  bytes.resize(length < 0 ? 0 : static_cast<std::size_t>(length));
  return bytes;
}

// Only a regular file has its kind at hand and does not keep anybody waiting.
Descriptor opened(const std::string& hostFileName, struct stat& facts) {
  Descriptor file(::open(hostFileName.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
  if (!file || ::fstat(file.number(), &facts) != 0) facts = {};
  return file;
}

}  // namespace

std::string importProgram() { return programPart("tolimport"); }

bool isForeign(std::string_view bytes) {
  const ForeignKind kind = kindOfFile(bytes);
  return kind != ForeignKind::text && kind != ForeignKind::other;
}

bool isForeignFile(const std::string& hostFileName) {
  struct stat facts {};
  const Descriptor file = opened(hostFileName, facts);
  return S_ISREG(facts.st_mode) && isForeign(beginningOf(file.number()));
}

Result<CutBook> importFile(const std::string& hostFileName, const CutRequest& request,
                           const ImportReader& reader) {
  struct stat facts {};
  const Descriptor file = opened(hostFileName, facts);
  if (!file) return Error{hostFileName, std::generic_category().message(errno)};
  if (!S_ISREG(facts.st_mode)) return Error{hostFileName, "it is no regular file"};
  if (static_cast<std::size_t>(facts.st_size) > mostFileBytes)
    return Error{hostFileName, "it is larger than " + std::to_string(mostFileBytes >> 20) + " MiB"};
  return importFrom(file.number(), hostFileName, beginningOf(file.number()), request, reader);
}

Result<CutBook> importBytes(const std::string& name, std::string_view bytes,
                            const CutRequest& request, const ImportReader& reader) {
  const Descriptor file(::memfd_create("foreign", MFD_CLOEXEC));
  if (!file) return Error{name, std::generic_category().message(errno)};
  for (std::string_view rest = bytes; !rest.empty();) {
    const ssize_t written = ::write(file.number(), rest.data(), rest.size());
    if (written <= 0) return Error{name, "there is no room for it in the memory"};
    rest.remove_prefix(static_cast<std::size_t>(written));
  }
  return importFrom(file.number(), name, bytes.substr(0, kindBytes), request, reader);
}

}  // namespace tolmer
