// What another program makes of a file: the file is its standard input, its standard output is
// taken.
#pragma once

#include <chrono>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace tolmer::host {

// An opened file, or bytes that stand for one.
class ChildInput {
 public:
  static ChildInput ofFile(const std::string& name);
  // Kept in memory.
  static ChildInput ofBytes(std::string_view bytes);
  ChildInput(ChildInput&&) noexcept;
  ~ChildInput();

  std::error_code error() const;  // why it could not be opened
  bool isRegular() const;         // another kind might keep the reader waiting
  std::size_t size() const;
  // Its first bytes, at most so many.
  std::string beginning(std::size_t most) const;

  struct Source;
  const Source& source() const { return *source_; }

 private:
  explicit ChildInput(std::unique_ptr<Source> source);
  std::unique_ptr<Source> source_;
};

struct ChildLimits {
  std::chrono::milliseconds patience;
  std::size_t mostOutput;  // bytes
};

enum class ChildEnd {
  well,
  missing,     // there is no such program
  notStarted,  // `error` says why
  tooLate,     // its time, of the clock or of the processor, was over
  failed       // it broke down, said too much or ended with a status other than 0
};

struct ChildOutput {
  ChildEnd end = ChildEnd::well;
  std::string text;  // of one that ended well
  std::error_code error;
};

// Runs the program with these words, without the user's surroundings; it does not outlive the call.
ChildOutput outputOf(const std::string& program, std::vector<std::string> words,
                     const ChildInput& input, const ChildLimits& limits);

}  // namespace tolmer::host
