// Between this program's names and what the system's calls take.
#pragma once

#ifndef NOMINMAX
#define NOMINMAX
#endif
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <string>
#include <system_error>
#include <utility>

#include "system/host_path.h"

namespace tolmer::host {

inline std::wstring wide(const std::string& name) { return pathOf(name).make_preferred().native(); }

// The standard's own codes, which the program's tables of failures know, where there is one.
inline std::error_code codeOf(DWORD error) {
  const std::error_code code(static_cast<int>(error), std::system_category());
  const std::error_condition same = code.default_error_condition();
  return same.category() == std::generic_category()
             ? std::error_code(same.value(), std::generic_category())
             : code;
}

inline std::error_code lastError() { return codeOf(::GetLastError()); }

// An open handle; closes itself.
class Handle {
 public:
  explicit Handle(HANDLE handle = INVALID_HANDLE_VALUE) : handle_(handle) {}
  ~Handle() { close(); }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, INVALID_HANDLE_VALUE)) {}

  explicit operator bool() const { return handle_ != INVALID_HANDLE_VALUE; }
  HANDLE get() const { return handle_; }
  void close() {
    if (handle_ != INVALID_HANDLE_VALUE) ::CloseHandle(handle_);
    handle_ = INVALID_HANDLE_VALUE;
  }

 private:
  HANDLE handle_;
};

}  // namespace tolmer::host
