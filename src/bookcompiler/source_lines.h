// The lines of a notebook source, put together and cut into keyword and text, and what is wrong
// with them: all of it, not only the first.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tolmer {

struct Complaint {
  int line;  // of the source, from 1
  std::string text;
  bool isWarning = false;  // the book is compiled all the same
};

class Complaints {
 public:
  void error(int line, std::string text) { all_.push_back({line, std::move(text), false}); }
  void warning(int line, std::string text) { all_.push_back({line, std::move(text), true}); }

  bool hasErrors() const {
    for (const Complaint& complaint : all_)
      if (!complaint.isWarning) return true;
    return false;
  }
  // In the order of the lines.
  std::vector<Complaint> sorted() const;

 private:
  std::vector<Complaint> all_;
};

// "jump indent bold 3.2: Text" is the keyword "jump" with the modifiers "indent", "bold", "3.2".
struct SourceEntry {
  int line = 0;
  std::string keyword;  // of two words where that is a keyword: "default scenario"
  std::vector<std::string> modifiers;
  // Continuation lines joined by one blank, or by a line end where they begin with "|".
  std::string text;
};

// Empty lines and lines that begin with "#" are left out; a line that begins with a blank goes on
// with the text before it. Complains of lines that are neither, of bytes that are no UTF-8, and of
// characters that an object file cannot hold (double quotes, control characters).
std::vector<SourceEntry> parseSource(std::string_view bytes, Complaints& complaints);

}  // namespace tolmer
