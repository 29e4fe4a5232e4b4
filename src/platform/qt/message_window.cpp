#include "platform/qt/message_window.h"

#include <QKeyEvent>
#include <QMessageBox>
#include <QPushButton>
#include <utility>

#include "platform/qt/convert.h"

namespace tolmer {
namespace {

QMessageBox::Icon iconOf(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::critical:
      return QMessageBox::Critical;
    case MessageIcon::question:
      return QMessageBox::Question;
    case MessageIcon::exclamation:
      return QMessageBox::Warning;
    case MessageIcon::information:
      return QMessageBox::Information;
    case MessageIcon::none:
      break;
  }
  return QMessageBox::NoIcon;
}

QMessageBox::StandardButtons buttonsOf(MessageButtons buttons) {
  switch (buttons) {
    case MessageButtons::okCancel:
      return QMessageBox::Ok | QMessageBox::Cancel;
    case MessageButtons::yesNo:
      return QMessageBox::Yes | QMessageBox::No;
    case MessageButtons::saveDontSaveCancel:
      return QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel;
    case MessageButtons::ok:
      break;
  }
  return QMessageBox::Ok;
}

Answer answerOf(int button) {
  switch (button) {
    case QMessageBox::Cancel:
      return Answer::cancel;
    case QMessageBox::Yes:
    case QMessageBox::Save:
      return Answer::yes;
    case QMessageBox::No:
    case QMessageBox::Discard:
      return Answer::no;
    default:
      return Answer::ok;
  }
}

// The toolkit's words for these say something else and have no letters.
void nameButtons(QMessageBox& window) {
  const std::pair<QMessageBox::StandardButton, const char*> names[] = {
      {QMessageBox::Save, "&Save"},
      {QMessageBox::Discard, "&Don't Save"},
      {QMessageBox::Cancel, "&Cancel"}};
  for (const auto& [button, name] : names) window.button(button)->setText(QLatin1String(name));
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
                     toQt(box.text), buttonsOf(box.buttons), mirror.windows.top());
  window.setTextFormat(Qt::PlainText);
  if (box.buttons == MessageButtons::saveDontSaveCancel) nameButtons(window);
  window.setWindowModality(Qt::ApplicationModal);
  WithoutEscape withoutEscape;
  if (box.noLosesWork) window.installEventFilter(&withoutEscape);
  QEventLoop loop;
  QObject::connect(&window, &QDialog::finished, &loop, &QEventLoop::quit);
  window.show();
  // A gate that is shut already would leave the box without a loop.
  mirror.gate.run(loop);
  mirror.gate.rethrow();
  return answerOf(window.result());
}

}  // namespace tolmer
