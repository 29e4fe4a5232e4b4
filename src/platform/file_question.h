// What the open and save dialogs ask, and what is saved under a name that was chosen.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "base/error.h"

namespace tolmer {

struct FileKind {
  std::string name;                     // "Data files"
  std::vector<std::string> extensions;  // without the point; none for all files
};

struct FileQuestion {
  std::string title;
  std::vector<FileKind> kinds;  // at least one; the first is chosen at first
  std::string folder{};         // to begin in; empty or not there: the user's documents
  std::string name{};           // suggested for the file
};

struct ChosenFile {
  std::string path;      // UTF-8
  std::size_t kind = 0;  // by the name's extension, else the one chosen in the dialog
};

struct FileToSave {
  FileQuestion question;  // its title is the command's name
  // The file's bytes, asked for once when its name and kind stand.
  std::function<Result<std::string>(const ChosenFile&)> bytes;
  std::string notSaved;  // "The data were not saved.": told before the reason
  std::string path{};    // known already, so that nobody is asked; empty: the user chooses
};

struct Saving {
  enum class End { saved, givenUp, failed };  // by the user; a box has said why
  End end = End::givenUp;
  std::string path{};  // where it was saved; empty where nobody can tell, as of a download
};

// The first kind that has the name's extension (capitals of ASCII are as good), else `chosen`.
std::size_t kindOf(const FileQuestion& question, const std::string& path, std::size_t chosen);

// A name without a point gets the kind's first extension.
std::string withExtension(const std::string& path, const FileKind& kind);

}  // namespace tolmer
