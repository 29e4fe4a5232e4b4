#include "symbolfile/file_layer.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>

#include "system/error_codes.h"
#include "system/host_path.h"
#include "system/opened_file.h"

namespace tolmer {
namespace {

struct Meaning {
  FailureClass kind;
  Int16 code;
};

// A network share that has gone away counts as a device.
Meaning meaningOf(int hostError) {
  static const std::map<int, Meaning> meanings{
      {ENOENT, {FailureClass::notFound, 53}},     {ENOTDIR, {FailureClass::notFound, 76}},
      {EACCES, {FailureClass::permission, 70}},   {EPERM, {FailureClass::permission, 70}},
      {EBUSY, {FailureClass::permission, 70}},    {EWOULDBLOCK, {FailureClass::permission, 70}},
      {EIO, {FailureClass::device, 57}},          {host::staleFile, {FailureClass::device, 57}},
      {ETIMEDOUT, {FailureClass::device, 57}},    {ENETDOWN, {FailureClass::device, 57}},
      {ENETUNREACH, {FailureClass::device, 57}},  {host::hostDown, {FailureClass::device, 57}},
      {EHOSTUNREACH, {FailureClass::device, 57}}, {ENXIO, {FailureClass::device, 68}},
      {ENODEV, {FailureClass::device, 68}},       {host::noMedium, {FailureClass::device, 71}},
      {EISDIR, {FailureClass::device, 75}}};
  const auto found = meanings.find(hostError);
  return found == meanings.end() ? Meaning{FailureClass::other, static_cast<Int16>(hostError)}
                                 : found->second;
}

bool folderIsMissing(const std::string& fileSpec) {
  std::error_code ignored;
  const auto folder = host::pathOf(fileSpec).parent_path();
  return !folder.empty() && !std::filesystem::exists(folder, ignored);
}

// A folder can be opened but not read, and a pipe would wait for its writer. Locks are advice among
// those who open through this layer.
int refusal(const host::OpenedFile& file, bool exclusive) {
  if (file.error) return file.error.value();
  if (file.kind == host::FileKind::folder) return EISDIR;
  if (file.kind != host::FileKind::regular) return ENODEV;
  return host::tryLock(file.stream.get(), exclusive ? host::Lock::exclusive : host::Lock::shared);
}

FileFailure notOpen() { return {FailureClass::other, 52, "Bad file name or number"}; }

}  // namespace

FileFailure failureFromHost(int hostError, const std::string& fileSpec) {
  Meaning meaning = meaningOf(hostError);
  if (meaning.code == 53 && folderIsMissing(fileSpec)) meaning.code = 76;
  return {meaning.kind, meaning.code, std::generic_category().message(hostError)};
}

struct HostFiles::OpenFile {
  std::FILE* stream;
  std::string fileSpec;
};

void HostFiles::Dropper::operator()(OpenFile* file) const {
  if (file->stream) std::fclose(file->stream);
  delete file;
}

HostFiles::OpenFile* HostFiles::find(int handle) const {
  const auto found = open_.find(handle);
  return found == open_.end() ? nullptr : found->second.get();
}

int HostFiles::freeHandle() const {
  int handle = 1;
  while (open_.contains(handle)) ++handle;
  return handle;
}

std::optional<FileFailure> HostFiles::open(int handle, const std::string& fileSpec,
                                           bool exclusive) {
  host::OpenedFile file = host::openToRead(fileSpec);
  if (const int failed = refusal(file, exclusive)) return failureFromHost(failed, fileSpec);
  open_[handle].reset(new OpenFile{file.stream.release(), fileSpec});
  return std::nullopt;
}

std::optional<FileFailure> HostFiles::close(int handle) {
  OpenFile* file = find(handle);
  if (!file) return notOpen();
  const std::string name = file->fileSpec;
  const int failed = std::fclose(file->stream) == 0 ? 0 : errno;
  file->stream = nullptr;
  open_.erase(handle);
  if (failed) return failureFromHost(failed, name);
  return std::nullopt;
}

// A byte that cannot be read is still to come: readByte will tell.
bool HostFiles::atEnd(int handle) {
  OpenFile* file = find(handle);
  if (!file) return false;
  const int next = std::fgetc(file->stream);
  if (next != EOF) std::ungetc(next, file->stream);
  return next == EOF && !std::ferror(file->stream);
}

std::optional<FileFailure> HostFiles::readByte(int handle, char& byte) {
  OpenFile* file = find(handle);
  if (!file) return notOpen();
  std::clearerr(file->stream);
  const int next = std::fgetc(file->stream);
  if (next == EOF && std::ferror(file->stream)) return failureFromHost(errno, file->fileSpec);
  if (next == EOF) return FileFailure{FailureClass::pastEnd, 62, "Input past end of file"};
  byte = static_cast<char>(next);
  return std::nullopt;
}

long HostFiles::position(int handle) {
  OpenFile* file = find(handle);
  return file ? std::ftell(file->stream) : 0;
}

void HostFiles::seek(int handle, long position) {
  OpenFile* file = find(handle);
  if (file && std::fseek(file->stream, position, SEEK_SET) != 0) std::clearerr(file->stream);
}

}  // namespace tolmer
