#include "platform/web/message_window.h"

#include "platform/text_metrics.h"

namespace tolmer {

MessageWindow::MessageWindow(Desktop& desktop, const MessageBox& box)
    : Window(desktop, "messagebox", WindowStyle::dialog, box.title.empty() ? "Tolmer" : box.title),
      box_(box),
      answer_(answerToEscape(box).value_or(answerButtons(box.buttons).back().answer)),
      lblText_(this, "lblText", box.text) {
  setAccessibleDescription(box.text);
  for (const AnswerButton& button : answerButtons(box.buttons)) add(button);
  takeArrows();
  if (!answerToEscape(box)) QueryUnload = [](bool& cancel) { cancel = true; };
}

// Its letter presses it with Alt and without.
void MessageWindow::add(const AnswerButton& given) {
  Button& button = buttons_.emplace_back(this, withoutMnemonic(given.caption), given.caption);
  button.Click = [this, answer = given.answer] {
    answer_ = answer;
    hide();
  };
  button.setCancel(given.answer == answerToEscape(box_));
  if (given.answer == answerToReturn(box_)) {
    button.setDefault(true);
    button.setFocus();
  }
  if (const int letter = mnemonicOf(given.caption))
    takeKey({letter, Held::any, Held::no}, button.Click);
}

void MessageWindow::takeArrows() {
  for (const int key : {keys::left, keys::up}) takeKey({key}, [this] { moveFocus(true); });
  for (const int key : {keys::right, keys::down}) takeKey({key}, [this] { moveFocus(); });
}

}  // namespace tolmer
