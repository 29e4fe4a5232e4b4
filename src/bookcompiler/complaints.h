// What is wrong with a notebook source: all of it, not only the first.
#pragma once

#include <string>
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

}  // namespace tolmer
