#include "platform/qt/qt_desktop.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QDesktopServices>
#include <QProcess>
#include <QScreen>
#include <QStandardPaths>
#include <QStyle>
#include <QTimer>
#include <QToolTip>
#include <QUrl>
#include <algorithm>

#include "base/paths.h"
#include "platform/qt/clipboard.h"
#include "platform/qt/convert.h"
#include "platform/qt/file_window.h"
#include "platform/qt/help_window.h"
#include "platform/qt/kept_window.h"
#include "platform/qt/menu_peer.h"
#include "platform/qt/message_window.h"
#include "platform/qt/page_painter.h"
#include "platform/qt/printing.h"
#include "platform/qt/theme.h"
#include "platform/qt/window_peer.h"

namespace tolmer {

QtDesktop::QtDesktop() : alarm_(timers(), mirror_.gate) {
  // The program ends by its own rules, not when no window happens to stand.
  QGuiApplication::setQuitOnLastWindowClosed(false);
  QObject::connect(QGuiApplication::primaryScreen(), &QScreen::availableGeometryChanged, &screens_,
                   [this] { screenChanged(); });
  QObject::connect(qGuiApp, &QGuiApplication::primaryScreenChanged, &screens_,
                   [this](QScreen* screen) {
                     if (!screen) return;
                     QObject::connect(screen, &QScreen::availableGeometryChanged, &screens_,
                                      [this] { screenChanged(); });
                     screenChanged();
                   });
}

QtDesktop::~QtDesktop() {
  // No loop runs any more that would carry out deferred deletions.
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

int QtDesktop::run() { return mirror_.gate.runApplication(); }

Answer QtDesktop::messageBox(const MessageBox& box) {
  return showMessageBox(mirror_, box, QCoreApplication::applicationName());
}

void QtDesktop::present(Window& window) { presentWindow(mirror_, window); }

void QtDesktop::modalLoop(Window& window) {
  mirror_.windows.waitUntilHidden(mirror_.gate, window);
  mirror_.gate.rethrow();
}

void QtDesktop::doEvents() {
  QCoreApplication::processEvents();
  mirror_.gate.rethrow();
}

Size QtDesktop::screenSize() const {
  const QSize size = QGuiApplication::primaryScreen()->availableGeometry().size();
  return toTwips(size, theme::zoom());
}

void QtDesktop::zoomChanged() {
  theme::setZoom(static_cast<float>(zoom()) / usualZoom);
  if (help_) help_->showAnew();
  if (kept_) kept_->showAnew();
  screenChanged();
}

// Each window stands anew on the screen as it is now; its model may have another idea of its size.
void QtDesktop::screenChanged() {
  for (Window* window : windows()) static_cast<ControlPeer*>(window->peer())->showAnew();
  mirror_.gate.enter([this] {
    for (Window* window : windows()) window->reportScreen();
  });
}

Twips QtDesktop::scrollBarThickness() const {
  return toTwips(QApplication::style()->pixelMetric(QStyle::PM_ScrollBarExtent), theme::zoom());
}

void QtDesktop::popupMenu(MenuItem& menu, Window& window) {
  popUpMenu(mirror_, menu, ControlPeer::widgetOf(window));
}

// A tip also is what a screen reader says of by itself.
void QtDesktop::tellAt(Control& control, const std::string& words) {
  QWidget* widget = ControlPeer::widgetOf(control);
  if (!widget) return;
  QToolTip::showText(widget->mapToGlobal(widget->rect().bottomLeft()), toQt(words), widget);
}

void QtDesktop::beep() { QApplication::beep(); }

void QtDesktop::setBusyPointer(bool busy) {
  if (busy == busyPointer_) return;
  busyPointer_ = busy;
  if (busy)
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  else
    QGuiApplication::restoreOverrideCursor();
}

void QtDesktop::setClipboard(const ClipboardContent& content) { putOnClipboard(content); }

ClipboardContent QtDesktop::pasted() const { return fromClipboard(); }

std::optional<ChosenFile> QtDesktop::openFileDialog(const FileQuestion& question) {
  return askForFile(mirror_, question, FileUse::open);
}

std::optional<ChosenFile> QtDesktop::saveFileDialog(const FileQuestion& question) {
  return askForFile(mirror_, question, FileUse::save);
}

Result<std::string> QtDesktop::pdfOf(const PrintedPages& pages) { return writePdf(pages); }

void QtDesktop::print(const PrintedPages& pages) {
  const auto save = [this](const PrintedPages& chosen, const std::string& path) {
    saveFile({.question = {.title = "Print", .kinds = {{"PDF document", {"pdf"}}}},
              .bytes = [&chosen](const ChosenFile&) { return writePdf(chosen); },
              .notSaved = "The PDF was not written.",
              .path = path});
  };
  const auto tell = [this](const std::string& reason) {
    messageBox({.title = "Print",
                .text = "Nothing was printed. " + reason +
                        " The report can be saved as a PDF document and printed from there.",
                .icon = MessageIcon::exclamation});
  };
  askAndPrint({mirror_, save, tell}, pages);
}

// The pages are read when somebody first asks for them.
void QtDesktop::showHelp(const HelpRequest& request) {
  if (!help_ && request.kind == HelpRequest::Kind::quit) return;
  if (!help_) {
    help_ = std::make_unique<HelpWindow>(
        helpFolder_.empty() ? programFolder() + "/help" : helpFolder_,
        [this] { return mirror_.windows.top(); },
        [this](const std::string& path, std::function<void()> failed) {
          openDocument(path, std::move(failed));
        });
    takeDesktopKeys(*help_, *this, mirror_.gate);
  }
  help_->answer(request);
}

void QtDesktop::keepBeside(const KeptPages& pages) {
  if (!kept_) {
    kept_ = std::make_unique<KeptWindow>([this] { return mirror_.windows.top(); });
    takeDesktopKeys(*kept_, *this, mirror_.gate);
  }
  kept_->open(pages);
}

// No way to other programs' windows that would work on every desktop.
bool QtDesktop::activateProgram(const std::string&) { return false; }

// The host's opener tells by its end that it has found no program. Where it stays with the one that
// it has found, what that ends with later is nothing to be told.
void QtDesktop::openDocument(const std::string& path, std::function<void()> failed) {
  const QString opener = QStandardPaths::findExecutable(QStringLiteral("xdg-open"));
  if (opener.isEmpty()) {
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(toQt(path)))) failed();
    return;
  }
  auto* process = new QProcess(qApp);
  const QDeadlineTimer search(30000);  // milliseconds
  const auto end = [this, process, search, failed = std::move(failed)](bool found) {
    process->deleteLater();
    if (found || search.hasExpired()) return;
    QTimer::singleShot(0, qApp, [this, failed] { mirror_.gate.enter(failed); });
  };
  QObject::connect(process, &QProcess::finished, process, [end](int code) { end(code == 0); });
  QObject::connect(process, &QProcess::errorOccurred, process, [end](QProcess::ProcessError error) {
    if (error == QProcess::FailedToStart) end(false);
  });
  process->start(opener, {toQt(path)});
}

void QtDesktop::endProgram(int status) { mirror_.gate.end(status); }

}  // namespace tolmer
