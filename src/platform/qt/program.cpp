#include "platform/qt/program.h"

#include <QApplication>

#include "platform/qt/program_icon.h"
#include "platform/qt/qt_desktop.h"
#include "platform/qt/theme.h"

namespace tolmer {

bool screenAvailable() {
  for (const char* name : {"QT_QPA_PLATFORM", "WAYLAND_DISPLAY", "DISPLAY"})
    if (!qgetenv(name).isEmpty()) return true;
  return false;
}

struct QtProgram::Parts {
  Parts(int& argc, char** argv) : application(argc, argv) {
    theme::installFont();
    QApplication::setWindowIcon(programIcon());
  }
  QApplication application;
  QtDesktop desktop;
};

QtProgram::QtProgram(int& argc, char** argv) {
  QCoreApplication::setApplicationName(QStringLiteral("Tolmer"));
  theme::install();
  parts_ = std::make_unique<Parts>(argc, argv);
}

QtProgram::~QtProgram() = default;

Desktop& QtProgram::desktop() { return parts_->desktop; }

int QtProgram::run(const std::function<void()>& main) {
  try {
    main();
  } catch (const ProgramEnded& ended) {
    return ended.status;
  }
  return parts_->desktop.run();
}

}  // namespace tolmer
