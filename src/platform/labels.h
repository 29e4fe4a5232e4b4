// Controls that only show something: a text, a picture.
#pragma once

#include <string>
#include <utility>

#include "platform/control.h"

namespace tolmer {

// Shows a text. A "&" marks the letter that, with Alt, takes the focus to the next control.
class Label : public Captioned<Control> {
 public:
  using Captioned::Captioned;
  ControlKind kind() const override { return ControlKind::label; }

  Align align() const { return align_; }
  void setAlign(Align align) { assign(align_, align, Change::look); }
  bool wordWrap() const { return wordWrap_; }
  void setWordWrap(bool wrap) { assign(wordWrap_, wrap, Change::look); }
  // Looks and works like a link; it can then be reached and pressed with the keyboard.
  bool isLink() const { return isLink_; }
  void setIsLink(bool link) { assign(isLink_, link, Change::look); }
  // Is a "&" in the caption a mark? Not in texts that come from data.
  bool usesMnemonic() const { return usesMnemonic_; }
  void setUsesMnemonic(bool uses) { assign(usesMnemonic_, uses, Change::text); }
  bool takesFocus() const override { return isLink_; }

  // The room that the caption takes in one line, and, where it is wrapped to that width, its
  // height.
  Twips captionWidth() const;
  Twips captionHeight(Twips width) const;

  // The user's click or key.
  void click() { raise(Click); }
  void doubleClick() { raise(DblClick); }

  Event<> Click;
  Event<> DblClick;

 private:
  Align align_ = Align::left;
  bool wordWrap_ = false;
  bool isLink_ = false;
  bool usesMnemonic_ = false;
};

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

// A text of the label's with the line ends that the layout has reckoned with, where it wraps.
std::string inLines(const Label& label, const std::string& text);

}  // namespace tolmer
