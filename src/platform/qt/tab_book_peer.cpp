#include <QPainter>
#include <QShortcut>
#include <QTabBar>
#include <QWidget>
#include <algorithm>
#include <numeric>

#include "platform/qt/control_peer.h"
#include "platform/qt/convert.h"
#include "platform/qt/theme.h"
#include "platform/tab_book.h"

namespace tolmer {
namespace {

class BookTabs;

// The tabs of a notebook along the upper edge and the page below them.
class BookWidget : public QWidget {
 public:
  explicit BookWidget(QWidget* parent);
  BookTabs& tabs() { return *tabs_; }
  void setScale(float scale);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void stepBy(int step);

  int tabHeight() const;

  BookTabs* tabs_;
  float scale_ = 1;
};

constexpr int corner = 5;

class BookTabs : public QTabBar {
 public:
  explicit BookTabs(QWidget* parent) : QTabBar(parent) {
    setDrawBase(false);
    setUsesScrollButtons(false);
    setElideMode(Qt::ElideRight);
    setExpanding(false);
    setMouseTracking(true);
  }

 protected:
  // Asked for often, and measuring is slow.
  void tabInserted(int index) override { wanted_.insert(index, wantedWidth(index)); }
  QSize tabSizeHint(int index) const override {
    const int wanted = wanted_.value(index);
    const int sum = std::accumulate(wanted_.begin(), wanted_.end(), 0);
    return {sum > width() && width() > 0 ? std::min(wanted, width() / count()) : wanted, height()};
  }
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    for (int i = 0; i < count(); ++i)
      if (i != currentIndex()) paintTab(painter, i);
    if (currentIndex() >= 0) paintTab(painter, currentIndex());
  }

 public:
  void setScale(float scale) {
    scale_ = scale;
    setFont(toQt(Font{}, scale));
    for (int i = 0; i < count(); ++i) wanted_[i] = wantedWidth(i);
  }

 private:
  int wantedWidth(int index) const {
    return toPixel(TabBook::tabSides, scale_) +
           fontMetrics().size(Qt::TextShowMnemonic, tabText(index)).width();
  }
  void paintTab(QPainter& painter, int index) {
    const bool chosen = index == currentIndex();
    // The chosen tab runs into the page; the others end above its edge.
    QRectF place = QRectF(tabRect(index)).adjusted(0.5, chosen ? 2.5 : 5.5, -2.5, corner + 2);
    if (!chosen) painter.setClipRect(rect().adjusted(0, 0, 0, -1));
    painter.setPen(QColor(theme::line));
    const bool hovered = !chosen && tabRect(index).contains(mapFromGlobal(QCursor::pos()));
    painter.setBrush(chosen    ? QColor(theme::window)
                     : hovered ? QColor(theme::paleAccent)
                               : QColor(theme::face).darker(104));
    painter.drawRoundedRect(place, corner, corner);
    painter.setClipping(false);
    if (chosen) paintAccent(painter, place);
    paintText(painter, index, chosen);
  }
  void paintAccent(QPainter& painter, const QRectF& place) {
    painter.fillRect(QRectF(place.left() + corner, place.top(), place.width() - 2 * corner, 2.5),
                     QColor(theme::accent));
  }
  void paintText(QPainter& painter, int index, bool chosen) {
    const QRect place = tabRect(index).adjusted(6, 4, -8, 0);
    const QString text = fontMetrics().elidedText(tabText(index), Qt::ElideRight, place.width(),
                                                  Qt::TextShowMnemonic);
    painter.setPen(QColor(chosen ? theme::text : theme::quietText));
    painter.drawText(place, Qt::AlignCenter | Qt::TextShowMnemonic, text);
    if (!chosen || !hasFocus()) return;
    const int width = fontMetrics().size(Qt::TextShowMnemonic, text).width();
    painter.fillRect(QRect(place.center().x() - width / 2, place.bottom() - 5, width, 2),
                     QColor(theme::accent));
  }

  float scale_ = 1;
  QList<int> wanted_;  // width of each tab where there is room for all
};

class TabBookPeer : public WidgetPeer<TabBook, BookWidget, ContainerPeer> {
 public:
  using WidgetPeer::WidgetPeer;

 private:
  void prepare() override {
    on(&widget_->tabs(), &QTabBar::currentChanged,
       [this](int tab) { tell([&book = model_, tab] { book.chooseTab(tab); }); });
  }
  void update(Change what) override {
    if (has(what, Change::look)) widget_->setScale(scale());
    QTabBar& tabs = widget_->tabs();
    if (has(what, Change::items))
      for (int i = tabs.count(); i < model_.tabCount(); ++i)
        tabs.addTab(toQt(model_.tab(i).caption).replace('&', "&&"));
    if (has(what, Change::items) || has(what, Change::value))
      tabs.setCurrentIndex(model_.activeTab());
    ContainerPeer::update(what);
  }
};

BookWidget::BookWidget(QWidget* parent) : QWidget(parent), tabs_(new BookTabs(this)) {
  setFocusProxy(tabs_);
  const auto key = [this](QKeySequence keys, int step) {
    auto* shortcut = new QShortcut(keys, this);
    connect(shortcut, &QShortcut::activated, this, [this, step] { stepBy(step); });
  };
  key(QKeySequence(Qt::CTRL | Qt::Key_Tab), 1);
  key(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Tab), -1);
}

void BookWidget::stepBy(int step) {
  const int count = tabs_->count();
  if (count > 0) tabs_->setCurrentIndex((tabs_->currentIndex() + step + count) % count);
}

void BookWidget::resizeEvent(QResizeEvent*) { tabs_->setGeometry(0, 0, width(), tabHeight()); }

int BookWidget::tabHeight() const { return toPixel(TabBook::tabHeight, scale_); }

void BookWidget::setScale(float scale) {
  if (scale == scale_) return;
  scale_ = scale;
  tabs_->setScale(scale);
  tabs_->setGeometry(0, 0, width(), tabHeight());
}

void BookWidget::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const int top = tabHeight() - 1;
  painter.setPen(QColor(theme::line));
  painter.setBrush(QColor(theme::window));
  painter.drawRect(0, top, width() - 1, height() - top - 1);
}

}  // namespace

constinit PeerMaker* const makeTabBookPeer = makePeerOf<TabBookPeer>;

}  // namespace tolmer
