#include "platform/file_question.h"

#include <algorithm>
#include <filesystem>

#include "system/host_path.h"

namespace tolmer {
namespace {

std::string lower(std::string text) {
  for (char& c : text)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  return text;
}

}  // namespace

std::size_t kindOf(const FileQuestion& question, const std::string& path, std::size_t chosen) {
  const std::string extension = lower(host::nameOf(host::pathOf(path).extension()));
  const auto hasIt = [&extension](const FileKind& kind) {
    return std::any_of(
        kind.extensions.begin(), kind.extensions.end(),
        [&extension](const std::string& own) { return '.' + lower(own) == extension; });
  };
  if (chosen < question.kinds.size() && hasIt(question.kinds[chosen])) return chosen;
  const auto found = std::find_if(question.kinds.begin(), question.kinds.end(), hasIt);
  return found == question.kinds.end() ? chosen
                                       : static_cast<std::size_t>(found - question.kinds.begin());
}

std::string withExtension(const std::string& path, const FileKind& kind) {
  const bool hasOne = host::nameOf(host::pathOf(path).filename()).find('.') != std::string::npos;
  return hasOne || kind.extensions.empty() ? path : path + '.' + kind.extensions.front();
}

}  // namespace tolmer
