// The desktop program.
#include <QCoreApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>
#include <charconv>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "base/paths.h"
#include "base/program_version.h"
#include "platform/qt/program.h"
#include "platform/qt/qt_desktop.h"
#include "sheetfiles/autosave_folder.h"
#include "shell/module.h"
#include "system/running_program.h"

namespace {

constexpr const char* usage =
    "Usage: tolmer [--zoom PERCENT] [--program-folder FOLDER] [--leave-after-first-page]\n"
    "              [--] [FILE]\n\n"
    "Multiple regression on the desktop.\n"
    "  FILE                       opens in the data editor: a data set, text as CSV, or a\n"
    "                             workbook or statistics file of another program\n"
    "  --zoom PERCENT             everything that much larger or smaller: 75 to 250; in the\n"
    "                             program Ctrl with Plus, Minus and 0\n"
    "  --program-folder FOLDER    take notebook, pictures and help from there\n"
    "  --leave-after-first-page   end after the first painted page of the notebook, without the\n"
    "                             second of the opening message (for measuring the start)\n"
    "  --version                  the version\n"
    "  --help                     this text\n";

struct Options {
  std::string programFolder = tolmer::programFolder();
  std::string file;  // empty: none
  int zoom = tolmer::Desktop::usualZoom;
  bool leaveAfterFirstPage = false;
  bool areUnderstood = true;
};

// False where it is no percentage within the bounds.
bool takeZoom(std::string_view word, int& zoom) {
  if (word.ends_with('%')) word.remove_suffix(1);
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), zoom);
  return error == std::errc() && end == word.data() + word.size() &&
         zoom >= tolmer::Desktop::leastZoom && zoom <= tolmer::Desktop::mostZoom;
}

Options optionsOf(int argc, char** argv) {
  Options options;
  bool isFile = false;  // behind "--"
  for (int i = 1; i < argc && options.areUnderstood; ++i) {
    const std::string_view word = argv[i];
    if (word == "--" && !isFile)
      isFile = true;
    else if (options.file.empty() && !word.empty() && (isFile || !word.starts_with('-')))
      options.file = std::filesystem::absolute(word).string();
    else if (isFile)
      options.areUnderstood = false;
    else if (word == "--program-folder" && i + 1 < argc)
      options.programFolder = argv[++i];
    else if (word == "--zoom" && i + 1 < argc)
      options.areUnderstood = takeZoom(argv[++i], options.zoom);
    else if (word == "-session" && i + 1 < argc)
      ++i;  // the toolkit's: a session manager starts again what ran when the session ended
    else if (word == "--leave-after-first-page")
      options.leaveAfterFirstPage = true;
    else
      options.areUnderstood = false;
  }
  return options;
}

// Watches for the first paint of the opening message, which it cuts short, and of the notebook,
// after which it ends the program as its menu would.
class FirstPageWatch : public QObject {
 public:
  FirstPageWatch(tolmer::QtDesktop& desktop, tolmer::Module& module)
      : desktop_(desktop), tmrLeave_(desktop.timers(), "tmrLeave", 1) {
    tmrLeave_.Tick = [this, &module] {
      left_ = true;
      tmrLeave_.setEnabled(false);  // leaving handles events, and would leave again
      module.parts().frame.requestClose();
    };
    QCoreApplication::instance()->installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::Paint || !watched->isWidgetType()) return false;
    const QString window = static_cast<QWidget*>(watched)->window()->objectName();
    if (window == QLatin1String("frmOpeningBook") && !cut_) {
      cut_ = true;
      QTimer::singleShot(0, [this] { desktop_.advance(1000); });
    } else if (window == QLatin1String("frmNotebook") && !left_ && !tmrLeave_.enabled()) {
      tmrLeave_.setEnabled(true);
      QTimer::singleShot(0, [this] { desktop_.advance(1); });
    }
    return false;
  }

 private:
  tolmer::QtDesktop& desktop_;
  tolmer::Timer tmrLeave_;
  bool cut_ = false;
  bool left_ = false;
};

// Fonts, the windows' pictures and the course: about eight megabytes until the first page stands.
void takeMemoryOfTheStart() {
  tolmer::host::keepMemory(1 << 24);
  tolmer::host::takeLargePages(4);
}

}  // namespace

int main(int argc, char** argv) {
  if (const auto answer = tolmer::answerAboutProgram({argv + 1, argv + argc}, "tolmer", usage)) {
    std::fputs(answer->c_str(), stdout);
    return 0;
  }
  const Options options = optionsOf(argc, argv);
  if (!options.areUnderstood) {
    std::fputs(usage, stderr);
    return 2;
  }
  if (!tolmer::screenAvailable()) {
    std::fputs("tolmer: there is no screen to show windows on; tolreport works without one\n",
               stderr);
    return 1;
  }
  takeMemoryOfTheStart();
  tolmer::QtProgram program(argc, argv);
  auto& desktop = dynamic_cast<tolmer::QtDesktop&>(program.desktop());
  desktop.setZoom(options.zoom);
  desktop.setHelpFolder(options.programFolder + "/help");
  tolmer::VisitFolder aside(tolmer::autosaveFolder());
  tolmer::Module module(desktop, options.programFolder);
  if (aside.isKnown()) module.parts().aside = &aside;
  module.parts().fileAtStart = options.file;
  std::unique_ptr<FirstPageWatch> watch;
  if (options.leaveAfterFirstPage) watch = std::make_unique<FirstPageWatch>(desktop, module);
  return program.run([&] { module.Main(); });
}
