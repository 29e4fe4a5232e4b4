#include "platform/qt/kept_window.h"

#include <QBoxLayout>
#include <QGuiApplication>
#include <QScreen>
#include <QShortcut>
#include <QStringList>
#include <algorithm>
#include <utility>

#include "platform/qt/convert.h"
#include "platform/qt/theme.h"

namespace tolmer {
namespace {

constexpr QSize usualSize(540, 560);
constexpr double mostOfScreen = 0.45;  // the buttons above the last quadrant stay in sight
constexpr QSize smallestSize(300, 200);
constexpr int edge = 12;
constexpr int titleBar = 30;

}  // namespace

KeptWindow::KeptWindow(std::function<QWidget*()> top)
    : CompanionWindow(std::move(top)),
      page_(new HelpPage({}, this)),
      previous_(new QPushButton(QStringLiteral("&Previous Page"))),
      next_(new QPushButton(QStringLiteral("&Next Page"))) {
  setObjectName(QStringLiteral("kept"));
  page_->setAccessibleName(QStringLiteral("Notebook page"));
  layOut();
  addKeys();
  connect(previous_, &QPushButton::clicked, this, [this] { turn(false); });
  connect(next_, &QPushButton::clicked, this, [this] { turn(true); });
  connect(page_, &QTextBrowser::anchorClicked, this,
          [this](const QUrl& link) { turnTo(link.path().toULongLong()); });
}

void KeptWindow::layOut() {
  auto* turners = new QHBoxLayout;
  turners->addWidget(previous_);
  turners->addStretch(1);
  turners->addWidget(next_);
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(edge, edge, edge, edge);
  rows->addWidget(page_, 1);
  rows->addLayout(turners);
  const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
  const QSize room = screen.size() - QSize(2 * edge, 2 * edge + titleBar);
  setMinimumSize(smallestSize.boundedTo(room));
  const int highest =
      std::max(smallestSize.height(), static_cast<int>(screen.height() * mostOfScreen));
  resize((usualSize * theme::zoom()).boundedTo({room.width(), std::min(room.height(), highest)}));
  move(screen.right() - width() - edge, screen.bottom() - height() - edge - titleBar);
}

// The keys of the notebook itself.
void KeptWindow::addKeys() {
  const auto add = [this](const char* keys, auto work) {
    connect(new QShortcut(QKeySequence(QLatin1String(keys)), this), &QShortcut::activated, this,
            work);
  };
  add("Esc", [this] { hide(); });
  add("Ctrl+PgDown", [this] { turn(true); });
  add("Ctrl+PgUp", [this] { turn(false); });
}

void KeptWindow::open(const KeptPages& pages) {
  pages_ = pages;
  QStringList folders;
  for (const std::string& folder : pages_.pictureFolders) folders << toQt(folder);
  page_->setFolders(folders);
  turnTo(pages_.shown);
  // The book that it was taken from is still to be left.
  bringUp(false);
  page_->setFocus();
}

void KeptWindow::turnTo(std::size_t page) {
  if (page >= pages_.pages.size()) return;
  pages_.shown = page;
  page_->showPage(toQt(pages_.pages[page].html), QStringLiteral("chosen"));
  setWindowTitle(toQt(pages_.pages[page].title) + QStringLiteral(" - Notebook"));
  previous_->setEnabled(page > 0);
  next_->setEnabled(page + 1 < pages_.pages.size());
}

void KeptWindow::turn(bool forward) {
  if (forward || pages_.shown > 0) turnTo(forward ? pages_.shown + 1 : pages_.shown - 1);
}

}  // namespace tolmer
