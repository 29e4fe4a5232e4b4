#include "editor/file_filter.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <string_view>

namespace tolmer {
namespace {

struct Family {
  const char* name;
  const char* extension;
};

constexpr std::array families = {Family{"ZM Univar", "zmu"}, Family{"ZM Bivar", "zmb"},
                                 Family{"ZM Trivar", "zmt"}, Family{"ZM Quadvar", "zmq"},
                                 Family{"ZM Multivar", "zmm"}};

const Family& familyOf(int iNumberVariables) {
  const int last = static_cast<int>(families.size());
  return families[static_cast<std::size_t>(std::clamp(iNumberVariables, 1, last) - 1)];
}

// In small letters, without the dot.
std::string extensionOf(const std::string& fileName) {
  const auto dot = fileName.rfind('.');
  if (dot == std::string::npos) return {};
  std::string extension = fileName.substr(dot + 1);
  std::transform(extension.begin(), extension.end(), extension.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return extension;
}

}  // namespace

std::string tfFileFilter(int iNumberVariables, MessagePort& messages) {
  if (iNumberVariables < 1) {
    messages.messageBox({.title = {}, .text = "Error 154 - invalid number of variables."});
    return {};
  }
  const auto [name, extension] = familyOf(iNumberVariables);
  const std::string pattern = std::string("*.") + extension;
  return std::string(name) + " (" + pattern + ")|" + pattern + "|All (*.*)|*.*";
}

std::vector<FileKind> editorFileKinds(int iNumberVariables) {
  const auto [name, extension] = familyOf(iNumberVariables);
  return {{name, {extension}}, {"Text data", {"csv", "tsv", "txt"}}, {"All", {}}};
}

bool isTextData(const std::string& fileName) {
  const std::string extension = extensionOf(fileName);
  return extension == "csv" || extension == "tsv" || extension == "txt";
}

char textSeparator(const std::string& fileName) {
  return extensionOf(fileName) == "csv" ? ',' : '\t';
}

}  // namespace tolmer
