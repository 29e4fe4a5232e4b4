// What the open and save dialogs ask.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace tolmer {

struct FileKind {
  std::string name;                     // "Data files"
  std::vector<std::string> extensions;  // without the point; none for all files
};

struct FileQuestion {
  std::string title;
  std::vector<FileKind> kinds;  // at least one; the first is chosen at first
  std::string folder{};         // to begin in; one that does not exist is left aside
  std::string name{};           // suggested for the file
};

struct ChosenFile {
  std::string path;      // UTF-8
  std::size_t kind = 0;  // by the name's extension, else the one chosen in the dialog
};

// The first kind that has the name's extension (capitals of ASCII are as good), else `chosen`.
std::size_t kindOf(const FileQuestion& question, const std::string& path, std::size_t chosen);

// A name without a point gets the kind's first extension.
std::string withExtension(const std::string& path, const FileKind& kind);

}  // namespace tolmer
