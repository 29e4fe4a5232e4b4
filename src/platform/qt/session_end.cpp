#include "platform/qt/session_end.h"

#include <QEvent>
#include <QGuiApplication>
#include <QSessionManager>
#include <algorithm>

#include "platform/qt/mirror.h"
#include "platform/window.h"

namespace tolmer {

SessionEnd::SessionEnd(Mirror& mirror) : mirror_(mirror) {
  QObject::connect(
      qGuiApp, &QGuiApplication::commitDataRequest, this,
      [this](QSessionManager& session) { ask(session); }, Qt::DirectConnection);
  qGuiApp->installEventFilter(this);
}

void SessionEnd::ask(QSessionManager& session) {
  const auto all = mirror_.windows.windows();
  const auto frame = std::ranges::find(all, WindowStyle::frame, &Window::style);
  if (frame == all.end() || !session.allowsInteraction()) return;
  mirror_.gate.enter([&] {
    if (!(*frame)->requestClose()) session.cancel();
  });
}

// The toolkit would close the windows one by one, and each may ask. What is unsaved stays aside.
bool SessionEnd::eventFilter(QObject* watched, QEvent* event) {
  if (watched != qGuiApp || event->type() != QEvent::Quit) return false;
  mirror_.gate.enter([this] { mirror_.gate.end(0); });
  return true;
}

}  // namespace tolmer
