// The controls of a page's elements, laid out from top to bottom and used again for every page:
// each kind has an array of controls that grows on demand and never shrinks.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "notebook/book.h"
#include "platform/buttons.h"
#include "platform/control_array.h"
#include "platform/fields.h"
#include "platform/labels.h"
#include "platform/outline.h"

namespace tolmer {

class PageElements {
 public:
  explicit PageElements(Container& page) : page_(page) {}

  // Hides what is in use, and begins a page below its header.
  void hideAll();
  void beginPage();

  // Shows an element of any kind but scenarios and outlines; False for those. Pictures lie in the
  // program's folder (without a final backslash). Kinds that nobody knows show nothing.
  bool show(const Book& book, const PageElement& element, const std::string& programFolder);

  void ShowTextElement(const TextElement& text);
  void ShowHeadingElement(const std::string& heading);
  void ShowJumpElement(const JumpElement& jump);
  void ShowBitmapElement(const std::string& hostFile);
  void ShowCheckElement(const ValueElement& check);
  void ShowVersionElement(const ValueElement& version);
  void ShowSpace();
  // An outline that was loaded before, with its description beside it.
  void showOutline(int index);
  // Moves on below a control that was put at nextControlTop().
  void UpdateNextControlTop(const Control& ctlOldTop);
  Twips nextControlTop() const { return nextControlTop_; }
  // Moves down by so much what stands at that height of the page or below it.
  void moveDown(Twips from, Twips by);

  // A new outline and its description, hidden; returns its number.
  int loadOutline();
  void describeOutline(int index, const std::string& text);
  const JumpElement& jumpOf(int index) const { return jumps_.at(index); }

  // The user's doings, by index of the control in its array.
  std::function<void(int)> jumped;
  std::function<void(int, int)> checked;         // index, new value
  std::function<void(int, int)> versionChanged;  // index, new value
  std::function<void()> pictureClicked;
  std::function<void(int)> outlineClicked;
  std::function<void(int)> outlineMoved;
  std::function<void(int)> outlineDoubleClicked;

 private:
  Container& page_;

 public:
  ControlArray<Label> lblText{page_, "lblText"};
  ControlArray<Label> lblHeading{page_, "lblHeading"};
  ControlArray<Label> lblContentsEntry{page_, "lblContentsEntry"};
  ControlArray<Image> imgPicture{page_, "imgPicture"};
  ControlArray<CheckBox> chkCheck{page_, "chkCheck"};
  ControlArray<Label> lblVersion{page_, "lblVersion"};
  ControlArray<NumberBox> silgVersion{page_, "silgVersion"};
  ControlArray<Outline> outOutline{page_, "outOutline"};
  ControlArray<Label> lblDatabaseDesc{page_, "lblDatabaseDesc"};

 private:
  void loadLabel(ControlArray<Label>& labels, const Font& font, Colour colour);
  static void declareKeys(Outline& outline);
  void placeText(Label& label, Twips left, const std::string& text);

  // How many controls of each kind the present page uses.
  struct Counts {
    int text = 0, heading = 0, jump = 0, bitmap = 0, check = 0, version = 0;
  };
  Counts used_;
  std::vector<JumpElement> jumps_ = std::vector<JumpElement>(1);  // by index of lblContentsEntry
  Twips nextControlTop_ = 0;
  std::string heading_;  // last one on the page: what its pictures are about
  bool mbProcessCheckEvents_ = true;
  bool mbProcessVersionEvents_ = true;
};

}  // namespace tolmer
