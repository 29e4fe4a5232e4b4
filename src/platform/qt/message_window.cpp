#include "platform/qt/message_window.h"

#include <QKeyEvent>
#include <QMessageBox>
#include <QPushButton>

#include "platform/qt/convert.h"

namespace tolmer {
namespace {

QMessageBox::Icon iconOf(MessageIcon icon) {
  if (icon == MessageIcon::critical) return QMessageBox::Critical;
  if (icon == MessageIcon::question) return QMessageBox::Question;
  if (icon == MessageIcon::exclamation) return QMessageBox::Warning;
  if (icon == MessageIcon::information) return QMessageBox::Information;
  return QMessageBox::NoIcon;
}

QMessageBox::StandardButton standardButton(MessageButtons buttons, Answer answer) {
  const bool saves = buttons == MessageButtons::saveDontSaveCancel;
  if (answer == Answer::cancel) return QMessageBox::Cancel;
  if (answer == Answer::yes) return saves ? QMessageBox::Save : QMessageBox::Yes;
  if (answer == Answer::no) return saves ? QMessageBox::Discard : QMessageBox::No;
  return QMessageBox::Ok;
}

Answer answerOf(const MessageBox& box, int button) {
  for (const AnswerButton& one : answerButtons(box.buttons))
    if (standardButton(box.buttons, one.answer) == button) return one.answer;
  return Answer::ok;
}

// The toolkit's own words may say something else and have no letters.
void addButtons(QMessageBox& window, const MessageBox& box) {
  for (const auto& [answer, caption] : answerButtons(box.buttons))
    window.addButton(standardButton(box.buttons, answer))->setText(QLatin1String(caption));
  window.setDefaultButton(standardButton(box.buttons, answerToReturn(box)));
  if (const auto answer = answerToEscape(box))
    window.setEscapeButton(window.button(standardButton(box.buttons, *answer)));
}

// Leaves a box to its buttons.
class WithoutEscape : public QObject {
 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    const bool isEscape = event->type() == QEvent::KeyPress &&
                          static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
    if (event->type() == QEvent::Close) event->ignore();
    return isEscape || event->type() == QEvent::Close;
  }
};

}  // namespace

Answer showMessageBox(Mirror& mirror, const MessageBox& box, const QString& emptyTitle) {
  QMessageBox window(iconOf(box.icon), box.title.empty() ? emptyTitle : toQt(box.title),
                     toQt(box.text), QMessageBox::NoButton, mirror.windows.top());
  window.setTextFormat(Qt::PlainText);
  addButtons(window, box);
  window.setWindowModality(Qt::ApplicationModal);
  takeDesktopKeys(window, mirror.desktop, mirror.gate);
  WithoutEscape withoutEscape;
  if (!answerToEscape(box)) window.installEventFilter(&withoutEscape);
  QEventLoop loop;
  QObject::connect(&window, &QDialog::finished, &loop, &QEventLoop::quit);
  window.show();
  // A gate that is shut already would leave the box without a loop.
  mirror.gate.run(loop);
  mirror.gate.rethrow();
  return answerOf(box, window.result());
}

}  // namespace tolmer
