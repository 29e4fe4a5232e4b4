#include "platform/qt/help_window.h"

#include <QBoxLayout>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImageReader>
#include <QPdfWriter>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>
#include <QSplitter>
#include <QTextDocument>
#include <algorithm>

#include "base/file_io.h"
#include "help/topic_page.h"
#include "platform/qt/convert.h"
#include "platform/qt/theme.h"

namespace tolmer {
namespace {

constexpr Font textFont{FontFamily::interface, 14};
constexpr Twips pageMargin = pixels(18);
constexpr int dotsPerInch = 96;  // so that a page on paper has the sizes of the screen

QString pageStyle() {
  return QStringLiteral(
             "h2 { color: %1; margin-top: 0px; margin-bottom: 8px; }"
             "h3 { color: %1; margin-top: 16px; margin-bottom: 4px; }"
             "h4 { margin-top: 12px; margin-bottom: 0px; }"
             "p { margin-top: 4px; margin-bottom: 8px; }"
             "li { margin-bottom: 4px; }"
             "table { border-collapse: collapse; border: 1px solid %2; margin-top: 4px; }"
             "th { background-color: %3; text-align: left; }"
             "td, th { padding: 4px 8px; border: 1px solid %2; }"
             "a { color: %4; }")
      .arg(theme::text.name(), theme::line.name(), theme::face.name(), theme::accent.name());
}

constexpr QSize usualSize(860, 600);
constexpr QSize smallestSize(480, 300);
constexpr int finderWidth = 285;
constexpr int edge = 24;  // between the window and the screen's upper left corner
constexpr int gap = 8;

QPushButton* button(const char* text, const char* tip) {
  auto* button = new QPushButton(QString::fromUtf8(text));
  button->setToolTip(QString::fromUtf8(tip));
  return button;
}

QVariant topicOf(const QTreeWidgetItem* item) { return item->data(0, Qt::UserRole); }

}  // namespace

HelpPage::HelpPage(const QStringList& folders, QWidget* parent)
    : QTextBrowser(parent), folders_(folders) {
  setOpenLinks(false);
  setAccessibleName(QStringLiteral("Help page"));
  document()->setDefaultStyleSheet(pageStyle());
  showAnew();
}

void HelpPage::showAnew() {
  document()->setDefaultFont(toQt(textFont, theme::zoom()));
  document()->setDocumentMargin(toPixel(pageMargin, theme::zoom()));
}

void HelpPage::showPage(const QString& html, const QString& anchor) {
  setHtml(html);
  showAnew();
  verticalScrollBar()->setValue(0);
  if (!anchor.isEmpty()) scrollToAnchor(anchor);
}

bool HelpPage::writePdf(const QString& file) const {
  QPdfWriter writer(file);
  writer.setResolution(dotsPerInch);
  writer.setTitle(documentTitle());
  const std::unique_ptr<QTextDocument> copy(document()->clone());
  copy->print(&writer);
  return QFileInfo(file).size() > 0;
}

QVariant HelpPage::loadResource(int type, const QUrl& name) {
  if (type != QTextDocument::ImageResource) return {};
  const QString file = name.toString();
  if (!isPictureName(file.toStdString())) return {};
  return picture(file);
}

// As many dots as the screen has, so that lines stay sharp on a fine one.
QImage HelpPage::picture(const QString& name) const {
  const auto folder = std::ranges::find_if(folders_, [&name](const QString& one) {
    return isRegularFile((one + "/" + name).toStdString());
  });
  if (folder == folders_.end()) return {};
  QImageReader reader(*folder + "/" + name);
  const qreal dots = devicePixelRatioF();
  if (reader.format() == "svg") reader.setScaledSize((QSizeF(reader.size()) * dots).toSize());
  QImage image = reader.read();
  if (reader.format() == "svg") image.setDevicePixelRatio(dots);
  return image;
}

HelpWindow::HelpWindow(const std::string& folder, std::function<QWidget*()> top,
                       OpenDocument openDocument)
    : CompanionWindow(std::move(top)),
      reader_(helpBookIn(folder)),
      openDocument_(std::move(openDocument)),
      page_(new HelpPage({toQt(folder)}, this)),
      query_(new QLineEdit),
      finder_(new QStackedWidget),
      contents_(new QTreeWidget),
      hits_(new QListWidget),
      back_(button("&Back", "The page before (Alt+Left)")),
      forward_(button("&Forward", "The page that you came back from (Alt+Right)")),
      home_(button("&Contents", "All pages")),
      print_(button("&Print", "Open this page as a document to print it (Ctrl+P)")),
      printedTo_(new QLabel) {
  setObjectName(QStringLiteral("help"));
  layOut();
  fillContents();
  connectWidgets();
  addKeys();
}

void HelpWindow::layOut() {
  auto* split = new QSplitter;
  split->addWidget(makeFinder());
  split->addWidget(page_);
  split->setStretchFactor(1, 1);
  split->setChildrenCollapsible(false);
  const int forFinder = static_cast<int>(finderWidth * std::min(theme::zoom(), 1.5F));
  split->setSizes({forFinder, usualSize.width() - forFinder});
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(gap, gap, gap, gap);
  rows->setSpacing(gap);
  rows->addWidget(makeButtons());
  rows->addWidget(split, 1);
  const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
  const QSize room = screen.size() - QSize(2 * edge, 3 * edge);
  setMinimumSize(smallestSize.boundedTo(room));
  resize((usualSize * theme::zoom()).boundedTo(room));
  move(screen.topLeft() + QPoint(edge, edge));
}

QWidget* HelpWindow::makeButtons() {
  auto* bar = new QWidget;
  auto* row = new QHBoxLayout(bar);
  row->setContentsMargins(0, 0, 0, 0);
  for (QPushButton* button : {back_, forward_, home_, print_}) row->addWidget(button);
  row->addWidget(printedTo_, 1);
  // A long path must not widen the window.
  printedTo_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  printedTo_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  return bar;
}

QWidget* HelpWindow::makeFinder() {
  auto* finder = new QWidget;
  auto* rows = new QVBoxLayout(finder);
  rows->setContentsMargins(0, 0, 0, 0);
  auto* label = new QLabel(QStringLiteral("&Search:"));
  label->setBuddy(query_);
  auto* row = new QHBoxLayout;
  row->addWidget(label);
  row->addWidget(query_);
  rows->addLayout(row);
  rows->addWidget(finder_, 1);
  query_->setClearButtonEnabled(true);
  query_->setPlaceholderText(QStringLiteral("beginning of a word"));
  contents_->setHeaderHidden(true);
  contents_->setIndentation(16);
  contents_->setAccessibleName(QStringLiteral("Contents"));
  hits_->setAccessibleName(QStringLiteral("Pages found"));
  hits_->setWordWrap(true);
  finder_->addWidget(contents_);
  finder_->addWidget(hits_);
  return finder;
}

void HelpWindow::connectWidgets() {
  connect(back_, &QPushButton::clicked, this, [this] { go(&HelpReader::back); });
  connect(forward_, &QPushButton::clicked, this, [this] { go(&HelpReader::forward); });
  connect(home_, &QPushButton::clicked, this, [this] { toContents(); });
  connect(print_, &QPushButton::clicked, this, [this] { print(); });
  connect(query_, &QLineEdit::textChanged, this, [this](const QString& text) { search(text); });
  connect(query_, &QLineEdit::returnPressed, this, [this] { openFirstHit(); });
  connect(page_, &QTextBrowser::anchorClicked, this, [this](const QUrl& link) {
    if (reader_.follow(link.toString().toStdString())) showPlace();
  });
  const auto openTopic = [this](QTreeWidgetItem* item) { openItem(topicOf(item)); };
  connect(contents_, &QTreeWidget::itemClicked, this, openTopic);
  connect(contents_, &QTreeWidget::itemActivated, this, openTopic);
  const auto openHit = [this](QListWidgetItem* item) { openItem(item->data(Qt::UserRole)); };
  connect(hits_, &QListWidget::itemClicked, this, openHit);
  connect(hits_, &QListWidget::itemActivated, this, openHit);
}

void HelpWindow::addKeys() {
  const auto add = [this](const char* keys, auto work) {
    connect(new QShortcut(QKeySequence(QLatin1String(keys)), this), &QShortcut::activated, this,
            work);
  };
  add("Esc", [this] { hide(); });
  add("F1", [this] {
    reader_.openUsing();
    showPlace();
  });
  add("Alt+Left", [this] { go(&HelpReader::back); });
  add("Alt+Right", [this] { go(&HelpReader::forward); });
  add("Ctrl+F", [this] { toSearch(); });
  add("Ctrl+P", [this] { print(); });
  // From the words to what they have found.
  auto* down = new QShortcut(Qt::Key_Down, query_);
  down->setContext(Qt::WidgetShortcut);
  connect(down, &QShortcut::activated, this, [this] { finder_->currentWidget()->setFocus(); });
}

void HelpWindow::fillContents() {
  std::vector<QTreeWidgetItem*> path{contents_->invisibleRootItem()};
  for (std::size_t i = 0; i < reader_.book().topics().size(); ++i) {
    const HelpTopic& topic = reader_.book().topic(i);
    path.resize(static_cast<std::size_t>(topic.level) + 1);
    auto* item = new QTreeWidgetItem(path.back(), {toQt(topic.title)});
    item->setData(0, Qt::UserRole, QVariant::fromValue(static_cast<qulonglong>(i)));
    item->setToolTip(0, toQt(topic.title));
    path.push_back(item);
  }
  contents_->expandAll();
}

void HelpWindow::answer(const HelpRequest& request) {
  if (request.kind == HelpRequest::Kind::quit) {
    hide();
    return;
  }
  open(request);
  showPlace();
  bringUp();
  if (request.kind == HelpRequest::Kind::search) return toSearch();
  query_->clear();  // what was searched for another question would hide the contents
  page_->setFocus();
}

void HelpWindow::showAnew() {
  if (isVisible()) showPlace();
}

void HelpWindow::open(const HelpRequest& request) {
  using Kind = HelpRequest::Kind;
  switch (request.kind) {
    case Kind::topic:
      return reader_.open({request.file, request.context}, request.entry);
    case Kind::usingHelp:
      return reader_.openUsing();
    case Kind::contents:
    case Kind::search:
      return reader_.openContents(request.file);
    case Kind::quit:
      break;
  }
}

void HelpWindow::go(void (HelpReader::*way)()) {
  (reader_.*way)();
  showPlace();
}

void HelpWindow::showPlace() {
  const HelpPlace& place = reader_.place();
  page_->showPage(toQt(reader_.html()), toQt(place.entry));
  const QString title = toQt(reader_.book().topic(place.topic).title);
  page_->setDocumentTitle(title);
  setWindowTitle(title + QStringLiteral(" - Help"));
  back_->setEnabled(reader_.canGoBack());
  forward_->setEnabled(reader_.canGoForward());
  printedTo_->clear();
  markInContents();
}

void HelpWindow::markInContents() {
  for (QTreeWidgetItemIterator item(contents_); *item; ++item)
    if (topicOf(*item).toULongLong() == reader_.place().topic) {
      contents_->setCurrentItem(*item);
      contents_->scrollToItem(*item);
    }
}

void HelpWindow::search(const QString& text) {
  found_ = reader_.find(text.toStdString());
  hits_->clear();
  for (std::size_t i = 0; i < found_.size(); ++i) {
    auto* item = new QListWidgetItem(toQt(found_[i].title), hits_);
    item->setData(Qt::UserRole, QVariant::fromValue(static_cast<qulonglong>(i)));
  }
  if (found_.empty()) {
    auto* item = new QListWidgetItem(QStringLiteral("No page has a word that begins so."), hits_);
    item->setFlags(Qt::NoItemFlags);
  }
  hits_->setCurrentRow(0);
  const bool isQuery = !text.trimmed().isEmpty();
  finder_->setCurrentWidget(isQuery ? static_cast<QWidget*>(hits_) : contents_);
}

void HelpWindow::openFirstHit() {
  if (!found_.empty() && finder_->currentWidget() == hits_) openItem(qulonglong{0});
}

// Of whichever list stands at the left: its items hold the index of a page or of a hit.
void HelpWindow::openItem(const QVariant& index) {
  if (!index.isValid()) return;
  const std::size_t i = index.toULongLong();
  reader_.open(finder_->currentWidget() == hits_ ? found_.at(i).place : HelpPlace{.topic = i});
  showPlace();
}

void HelpWindow::toSearch() {
  query_->setFocus(Qt::ShortcutFocusReason);
  query_->selectAll();
}

void HelpWindow::toContents() {
  query_->clear();
  reader_.openContents("tolmod");
  showPlace();
}

// A printing dialog would have the program load the printing system at its start; the host's reader
// of documents has one of its own.
void HelpWindow::print() {
  if (!printed_) printed_ = std::make_unique<QTemporaryDir>();
  const HelpTopic& topic = reader_.book().topic(reader_.place().topic);
  const std::string file = printed_->path().toStdString() + "/" + topic.name + ".pdf";
  const bool written = page_->writePdf(toQt(file));
  printedTo_->setText(written ? "To be printed: " + toQt(file)
                              : QStringLiteral("The page could not be written."));
  if (written)
    openDocument_(file, [this, file] {
      printedTo_->setText("No program of this computer opens " + toQt(file));
    });
}

}  // namespace tolmer
