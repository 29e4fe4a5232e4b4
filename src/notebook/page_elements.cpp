#include "notebook/page_elements.h"

#include <algorithm>

#include "base/paths.h"
#include "notebook/book_look.h"
#include "notebook/picture_size.h"

namespace tolmer {
namespace {

using namespace book_look;

constexpr Twips firstTop = 500;  // below the page's header
constexpr Twips gap = 100;       // between two elements
constexpr Twips space = 200;     // of a space element
constexpr Twips plainLeft = 300;
constexpr Twips indentedLeft = 500;
constexpr Twips rightMargin = 300;
constexpr Twips checkHeight = pixels(23);
constexpr Size versionSize{pixels(52), pixels(25)};
constexpr Twips outlineLeft = 600;
constexpr Size outlineSize{3450, 2700};
constexpr Twips descriptionLeft = 4200;

Twips leftOf(bool bIndent) { return bIndent ? indentedLeft : plainLeft; }

// Plain and bold are told; any other style leaves the font as it stands.
void emphasize(Control& control, Int16 iEmphasisStyle) {
  if (iEmphasisStyle == EmphasisStyle::plain) control.setFont(textFont);
  if (iEmphasisStyle == EmphasisStyle::bold) control.setFont(boldFont);
}

template <class Kind>
void hideUsed(ControlArray<Kind>& controls, int used) {
  for (int i = controls.first(); i <= used; ++i) controls(i).setVisible(false);
}

}  // namespace

void PageElements::hideAll() {
  hideUsed(lblText, used_.text);
  hideUsed(lblHeading, used_.heading);
  hideUsed(lblContentsEntry, used_.jump);
  hideUsed(imgPicture, used_.bitmap);
  for (int i = 1; i <= used_.bitmap; ++i) imgPicture(i).setFile("");
  hideUsed(chkCheck, used_.check);
  hideUsed(lblVersion, used_.version);
  hideUsed(silgVersion, used_.version);
  hideUsed(outOutline, outOutline.last());
  hideUsed(lblDatabaseDesc, lblDatabaseDesc.last());
}

void PageElements::beginPage() {
  used_ = {};
  nextControlTop_ = firstTop;
  heading_.clear();
}

bool PageElements::show(const Book& book, const PageElement& element,
                        const std::string& programFolder) {
  const int row = element.iIndex;
  const int kind = element.iKind;
  if (kind == ElementKind::text)
    ShowTextElement(book.uText[row]);
  else if (kind == ElementKind::heading)
    ShowHeadingElement(book.tHeading[row]);
  else if (kind == ElementKind::jump)
    ShowJumpElement(book.uJump[row]);
  else if (kind == ElementKind::bitmap)
    ShowBitmapElement(hostPath(programFolder + "\\" + book.tBitmap[row]));
  else if (kind == ElementKind::space)
    ShowSpace();
  else if (kind == ElementKind::check)
    ShowCheckElement(book.uCheck[row]);
  else if (kind == ElementKind::version)
    ShowVersionElement(book.uVersion[row]);
  return kind != ElementKind::scenario && kind != ElementKind::outline;
}

void PageElements::UpdateNextControlTop(const Control& ctlOldTop) {
  nextControlTop_ += ctlOldTop.height() + gap;
}

void PageElements::moveDown(Twips from, Twips by) {
  for (Control* control : page_.children())
    if (control->visible() && control->top() >= from) control->setTop(control->top() + by);
  nextControlTop_ += by;
}

void PageElements::loadLabel(ControlArray<Label>& labels, const Font& font, Colour colour) {
  Label& label = labels.load();
  label.setFont(font);
  label.setForeColour(colour);
  label.setBackColour(paper);
  label.setWordWrap(true);
}

void PageElements::placeText(Label& label, Twips left, const std::string& text) {
  const Twips width = page_.width() - left - rightMargin;
  label.setCaption(text);
  label.setPlace({left, nextControlTop_, width, heightOf(label.font(), text, width)});
  label.setVisible(true);
  UpdateNextControlTop(label);
}

void PageElements::ShowTextElement(const TextElement& text) {
  if (++used_.text > lblText.last()) loadLabel(lblText, textFont, ink);
  Label& label = lblText(used_.text);
  emphasize(label, text.iEmphasisStyle);
  placeText(label, leftOf(text.bIndent), text.tText);
}

void PageElements::ShowHeadingElement(const std::string& heading) {
  if (++used_.heading > lblHeading.last()) loadLabel(lblHeading, headingFont, headingInk);
  placeText(lblHeading(used_.heading), plainLeft, heading);
  heading_ = heading;
}

void PageElements::ShowJumpElement(const JumpElement& jump) {
  if (++used_.jump > lblContentsEntry.last()) {
    loadLabel(lblContentsEntry, textFont, linkInk);
    jumps_.emplace_back();
    Label& entry = lblContentsEntry(used_.jump);
    entry.setIsLink(true);
    entry.Click = [this, index = used_.jump] { raise(jumped, index); };
  }
  jumps_.at(used_.jump) = jump;
  Label& entry = lblContentsEntry(used_.jump);
  emphasize(entry, jump.iEmphasisStyle);
  placeText(entry, leftOf(jump.bIndent), jump.tText);
  // only the words are the link, not the line to its end
  entry.setWidth(std::min(entry.width(), widthOf(entry.font(), jump.tText) + pixels(4)));
}

// A picture that is wider than the page, or higher than what is left of it, is made smaller.
void PageElements::ShowBitmapElement(const std::string& hostFile) {
  if (++used_.bitmap > imgPicture.last())
    imgPicture.load().Click = [this] { raise(pictureClicked); };
  Image& picture = imgPicture(used_.bitmap);
  const Size natural = pictureSize(hostFile);
  const Twips roomWide = page_.width() - 2 * plainLeft;
  const Twips roomHigh = std::max(page_.height() - nextControlTop_ - gap, pixels(40));
  const float scale = std::min({1.0F, roomWide / natural.width, roomHigh / natural.height});
  const Size shown{natural.width * scale, natural.height * scale};
  picture.setFile(hostFile);
  picture.setAccessibleName(heading_.empty() ? "Picture" : "Picture: " + heading_);
  picture.setPlace(
      {page_.width() / 2 - shown.width / 2, nextControlTop_, shown.width, shown.height});
  picture.setVisible(true);
  UpdateNextControlTop(picture);
}

void PageElements::ShowCheckElement(const ValueElement& check) {
  if (++used_.check > chkCheck.last()) {
    CheckBox& box = chkCheck.load();
    box.setBackColour(paper);
    box.Click = [this, index = used_.check] {
      if (mbProcessCheckEvents_ && checked) checked(index, chkCheck(index).value());
    };
  }
  CheckBox& box = chkCheck(used_.check);
  emphasize(box, check.iEmphasisStyle);
  const Twips left = leftOf(check.bIndent);
  box.setCaption(check.tCaption);
  box.setPlace({left, nextControlTop_, page_.width() - left - rightMargin, checkHeight});
  mbProcessCheckEvents_ = false;
  box.setValue(check.iValue);
  mbProcessCheckEvents_ = true;
  box.setVisible(true);
  UpdateNextControlTop(box);
}

void PageElements::ShowVersionElement(const ValueElement& version) {
  if (++used_.version > silgVersion.last()) {
    loadLabel(lblVersion, textFont, ink);
    NumberBox& edit = silgVersion.load();
    edit.setRange(0, highestVersion);
    edit.setTip("Enter the version number (1 to 99)  or 0");
    edit.Changed = [this, index = used_.version] {
      if (mbProcessVersionEvents_ && versionChanged)
        versionChanged(index, silgVersion(index).value());
    };
  }
  NumberBox& edit = silgVersion(used_.version);
  const Twips left = version.bIndent ? 320 : 120;
  edit.setPlace({left, nextControlTop_, versionSize.width, versionSize.height});
  edit.setAccessibleName(version.tCaption);
  mbProcessVersionEvents_ = false;
  edit.setValue(version.iValue);
  mbProcessVersionEvents_ = true;
  edit.setVisible(true);
  Label& caption = lblVersion(used_.version);
  emphasize(caption, version.iEmphasisStyle);
  const Twips captionLeft = edit.width() + edit.left() + 100;
  const Twips captionWidth = page_.width() - captionLeft - rightMargin;
  caption.setCaption(version.tCaption);
  // one line stands in the middle of the edit's height, more begin at its top
  caption.setWordWrap(widthOf(caption.font(), version.tCaption) > captionWidth);
  const Twips height = heightOf(caption.font(), version.tCaption, captionWidth);
  caption.setPlace({captionLeft, nextControlTop_, captionWidth, std::max(height, edit.height())});
  caption.setVisible(true);
  UpdateNextControlTop(caption);
}

void PageElements::ShowSpace() { nextControlTop_ += space; }

int PageElements::loadOutline() {
  Outline& outline = outOutline.load();
  const int index = outOutline.last();
  outline.setPlace({outlineLeft, 0, outlineSize.width, outlineSize.height});
  outline.setAccessibleName("Databases");
  declareKeys(outline);
  outline.Moved = [this, index] { raise(outlineMoved, index); };
  outline.Click = [this, index] { raise(outlineClicked, index); };
  outline.DblClick = [this, index] { raise(outlineDoubleClicked, index); };
  loadLabel(lblDatabaseDesc, textFont, ink);
  return index;
}

// The space bar does as a click, and so does Return on a group, where OK has nothing to open.
void PageElements::declareKeys(Outline& outline) {
  const auto clicks = [&outline](int code, bool onlyGroups) {
    outline.takeKey(
        {code, Held::any, Held::no, Held::no}, [&outline] { outline.click(outline.listIndex()); },
        [&outline, onlyGroups] {
          const int item = outline.listIndex();
          if (item < 0) return false;
          return !onlyGroups || !outline.items().at(item).isLeaf;
        });
  };
  clicks(keys::space, false);
  clicks(keys::enter, true);
}

void PageElements::describeOutline(int index, const std::string& text) {
  Label& label = lblDatabaseDesc(index);
  const Twips width = page_.width() - descriptionLeft - rightMargin;
  label.setCaption(text);
  outOutline(index).setAccessibleDescription(text);
  label.setPlace({descriptionLeft, label.top(), width,
                  std::min(heightOf(label.font(), text, width), outlineSize.height)});
}

void PageElements::showOutline(int index) {
  outOutline(index).setTop(nextControlTop_);
  outOutline(index).setVisible(true);
  lblDatabaseDesc(index).setTop(nextControlTop_);
  lblDatabaseDesc(index).setVisible(true);
  UpdateNextControlTop(outOutline(index));
}

}  // namespace tolmer
