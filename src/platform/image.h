#pragma once

#include <string>
#include <utility>

#include "platform/control.h"

namespace tolmer {

// Shows a picture file (PNG or SVG), fitted into its place with its proportions kept.
class Image : public Control {
 public:
  using Control::Control;
  ControlKind kind() const override { return ControlKind::image; }

  const std::string& file() const { return file_; }  // host path; empty shows nothing
  void setFile(std::string file) { assign(file_, std::move(file), Change::look); }
  void click() { raise(Click); }

  Event<> Click;

 private:
  std::string file_;
};

}  // namespace tolmer
