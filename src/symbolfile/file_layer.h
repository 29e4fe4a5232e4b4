// Files open for sequential input, by number. Failures carry the codes of the reader's table.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>

#include "state/analysis_state.h"

namespace tolmer {

// How the reader tells failures apart; the values are those of its ErrorType.
enum class FailureClass : Int16 {
  none = 0,
  notFound = 1,
  pastEnd = 2,
  badNumber = 3,
  permission = 4,
  device = 5,
  format = 6,
  other = 99
};

struct FileFailure {
  FailureClass kind = FailureClass::other;
  Int16 code = 0;           // the classic code where there is one, the host's own otherwise
  std::string description;  // the host's words
};

// What a host's error number means for a file named `fileSpec`. A missing file has code 53 and a
// missing folder 76.
FileFailure failureFromHost(int hostError, const std::string& fileSpec);

class FileLayer {
 public:
  virtual ~FileLayer() = default;

  // The lowest number without an open file, from 1.
  virtual int freeHandle() const = 0;
  // `exclusive` keeps others who open through this layer from reading, in any program. The name is
  // the host's, which may have backslashes in it.
  virtual std::optional<FileFailure> open(int handle, const std::string& fileSpec,
                                          bool exclusive) = 0;
  virtual std::optional<FileFailure> close(int handle) = 0;
  // Whether all bytes have been read. A number without a file is at no end.
  virtual bool atEnd(int handle) = 0;
  virtual std::optional<FileFailure> readByte(int handle, char& byte) = 0;
  virtual long position(int handle) = 0;
  virtual void seek(int handle, long position) = 0;
};

// The host's files.
class HostFiles : public FileLayer {
 public:
  int freeHandle() const override;
  std::optional<FileFailure> open(int handle, const std::string& fileSpec, bool exclusive) override;
  std::optional<FileFailure> close(int handle) override;
  bool atEnd(int handle) override;
  std::optional<FileFailure> readByte(int handle, char& byte) override;
  long position(int handle) override;
  void seek(int handle, long position) override;

 private:
  struct OpenFile;
  struct Dropper {
    void operator()(OpenFile* file) const;
  };
  OpenFile* find(int handle) const;

  std::map<int, std::unique_ptr<OpenFile, Dropper>> open_;
};

}  // namespace tolmer
