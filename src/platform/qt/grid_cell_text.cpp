#include "platform/qt/grid_cell_text.h"

#include "platform/qt/convert.h"
#include "platform/qt/grid_view.h"

namespace tolmer {

bool AccessibleCellText::canBeEdited() const {
  const auto* grid = view_ ? dynamic_cast<const EditGrid*>(&view_->grid()) : nullptr;
  return grid && grid->canEdit(cell_);
}

QString AccessibleCellText::content() const {
  QString content;
  if (view_ && !view_->isHidden())
    view_->enter(
        [&] { content = toQt(static_cast<const EditGrid&>(view_->grid()).contentOf(cell_)); });
  return content;
}

QString AccessibleCellText::text(int startOffset, int endOffset) const {
  return content().mid(startOffset, endOffset < 0 ? -1 : endOffset - startOffset);
}

int AccessibleCellText::characterCount() const { return static_cast<int>(content().size()); }

void AccessibleCellText::selection(int, int* startOffset, int* endOffset) const {
  *startOffset = *endOffset = 0;
}

void AccessibleCellText::scrollToSubstring(int, int) {
  if (view_) view_->bringIntoView(cell_);
}

QString AccessibleCellText::attributes(int, int* startOffset, int* endOffset) const {
  *startOffset = 0;
  *endOffset = characterCount();
  return {};
}

void AccessibleCellText::deleteText(int startOffset, int endOffset) {
  replaceText(startOffset, endOffset, {});
}

void AccessibleCellText::insertText(int offset, const QString& text) {
  replaceText(offset, offset, text);
}

void AccessibleCellText::replaceText(int startOffset, int endOffset, const QString& text) {
  if (!view_ || view_->isHidden()) return;
  const QString before = content();
  const QString after = before.left(startOffset) + text + before.mid(endOffset);
  view_->enter([&] { static_cast<EditGrid&>(view_->grid()).enter(cell_, after.toStdString()); });
}

}  // namespace tolmer
