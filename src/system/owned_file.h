// A file that one program at a time owns, by a lock that ends with the program in whatever way.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <system_error>

namespace tolmer::host {

class OwnedFile {
 public:
  virtual ~OwnedFile() = default;
  // False once somebody removed the file or put another in its place.
  virtual bool isThere() const = 0;
  // Removes it while it is owned, so that nobody takes it in between.
  virtual void remove() = 0;
};

struct Owning {
  std::unique_ptr<OwnedFile> file;  // null where `error` says why
  std::string name;                 // of the file
  std::error_code error;            // operation_would_block: another program owns it
};

// Makes "BEGINNING" + six characters + "ENDING" and owns it.
Owning makeOwned(const std::string& beginning, const std::string& ending);

// Owns the file of that name, made where it is missing. Where the file system has no locks, the
// file names its owner; of one on another machine nothing can be known, and it counts as running
// until `lastSign` (seconds since 1970) is a day old.
Owning takeOwned(const std::string& name, std::int64_t lastSign);

}  // namespace tolmer::host
