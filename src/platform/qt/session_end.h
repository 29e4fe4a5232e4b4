// The end of the desktop's session, as a session manager tells it.
#pragma once

#include <QObject>

class QSessionManager;

namespace tolmer {

struct Mirror;

// Asked beforehand, the program ends as if its main window was closed; where the user stays, the
// end of the session is called off, and where he cannot be asked, nothing is done that he would
// have to be asked for. Told that it has to go, the program ends without a question.
class SessionEnd : public QObject {
 public:
  explicit SessionEnd(Mirror& mirror);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void ask(QSessionManager& session);

  Mirror& mirror_;
};

}  // namespace tolmer
