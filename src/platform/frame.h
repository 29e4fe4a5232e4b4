#pragma once

#include <string>
#include <utility>

#include "platform/control.h"

namespace tolmer {

// A box with a caption in its upper edge around other controls.
class Frame : public Container {
 public:
  Frame(Container* parent, std::string name, std::string caption = {})
      : Container(parent, std::move(name)), caption_(std::move(caption)) {}
  ControlKind kind() const override { return ControlKind::frame; }

  const std::string& caption() const { return caption_; }
  void setCaption(std::string caption) { assign(caption_, std::move(caption), Change::text); }

 private:
  std::string caption_;
};

}  // namespace tolmer
