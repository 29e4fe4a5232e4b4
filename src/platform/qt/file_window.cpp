#include "platform/qt/file_window.h"

#include <QDir>
#include <QFileDialog>
#include <QHeaderView>
#include <QListView>
#include <QScreen>
#include <QStandardPaths>
#include <QTreeView>
#include <algorithm>

#include "platform/qt/convert.h"
#include "platform/qt/theme.h"

namespace tolmer {
namespace {

// "Data files (*.zmd)"
QString filterOf(const FileKind& kind) {
  QStringList patterns;
  for (const std::string& extension : kind.extensions)
    patterns << QStringLiteral("*.") + toQt(extension);
  if (patterns.isEmpty()) patterns << QStringLiteral("*");
  return toQt(kind.name) + QStringLiteral(" (") + patterns.join(' ') + ')';
}

QStringList filtersOf(const FileQuestion& question) {
  QStringList filters;
  for (const FileKind& kind : question.kinds) filters << filterOf(kind);
  return filters;
}

std::size_t chosenKind(const QFileDialog& window, const QStringList& filters) {
  return static_cast<std::size_t>(
      std::max<qsizetype>(filters.indexOf(window.selectedNameFilter()), 0));
}

// The extension follows the kind, before the question for a file that is there already.
void followKind(QFileDialog& window, const FileQuestion& question, const QStringList& filters) {
  const std::size_t kind = chosenKind(window, filters);
  if (kind >= question.kinds.size()) return;
  const auto& extensions = question.kinds[kind].extensions;
  window.setDefaultSuffix(extensions.empty() ? QString() : toQt(extensions.front()));
}

// By itself the list cuts sizes and dates short beside a wide column of names.
void showWholeColumns(QFileDialog& window) {
  const auto* list = window.findChild<QTreeView*>("treeView");
  if (!list) return;
  list->header()->setStretchLastSection(false);
  list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  list->header()->setSectionResizeMode(0, QHeaderView::Stretch);
}

// By itself the box is as high as its list would like to be, beyond the lower edge of a small
// screen, and cuts the names of the places at its side.
void fitScreen(QFileDialog& window) {
  const QSize room =
      window.screen()->availableGeometry().size() - QSize(0, theme::titleBarAllowance);
  window.resize(window.sizeHint().boundedTo(room));
  if (auto* places = window.findChild<QListView*>("sidebar"))
    places->setMinimumWidth(
        std::min(places->sizeHintForColumn(0) + 2 * places->frameWidth(), window.width() / 4));
}

QString folderOf(const FileQuestion& question) {
  const QString asked = toQt(question.folder);
  const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  for (const QString& folder : {asked, documents})
    if (!folder.isEmpty() && QDir(folder).exists()) return folder;
  return QDir::homePath();
}

void prepare(QFileDialog& window, const FileQuestion& question, FileUse use) {
  window.setWindowModality(Qt::ApplicationModal);
  window.setOption(QFileDialog::DontUseNativeDialog);
  window.setAcceptMode(use == FileUse::save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  window.setFileMode(use == FileUse::save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  const QStringList filters = filtersOf(question);
  window.setNameFilters(filters);
  if (use == FileUse::save) {
    followKind(window, question, filters);
    QObject::connect(&window, &QFileDialog::filterSelected, &window,
                     [&window, &question, filters] { followKind(window, question, filters); });
  }
  showWholeColumns(window);
  fitScreen(window);
  window.setDirectory(folderOf(question));
  if (!question.name.empty()) window.selectFile(toQt(question.name));
}

}  // namespace

std::optional<ChosenFile> askForFile(Mirror& mirror, const FileQuestion& question, FileUse use) {
  QFileDialog window(mirror.windows.top(), toQt(question.title));
  prepare(window, question, use);
  takeDesktopKeys(window, mirror.desktop, mirror.gate);
  QEventLoop loop;
  QObject::connect(&window, &QDialog::finished, &loop, &QEventLoop::quit);
  window.show();
  mirror.gate.run(loop);
  mirror.gate.rethrow();
  if (window.result() != QDialog::Accepted || window.selectedFiles().isEmpty()) return std::nullopt;
  const std::string path = window.selectedFiles().constFirst().toStdString();
  return ChosenFile{path, kindOf(question, path, chosenKind(window, filtersOf(question)))};
}

}  // namespace tolmer
