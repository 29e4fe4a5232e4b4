#include "platform/tab_book.h"

#include "platform/qt/book_widget.h"
#include "platform/qt/convert.h"
#include "platform/qt/make_peer.h"

namespace tolmer {
namespace {

class TabBookPeer : public ContainerPeer {
 public:
  TabBookPeer(Mirror& mirror, TabBook& book, QWidget* ground)
      : ContainerPeer(mirror, book, ground), book_(book) {}

 private:
  QWidget* create(QWidget* ground) override {
    widget_ = new BookWidget(ground);
    on(&widget_->tabs(), &QTabBar::currentChanged,
       [this](int tab) { tell([&book = book_, tab] { book.chooseTab(tab); }); });
    return widget_;
  }
  void update(Change what) override {
    QTabBar& tabs = widget_->tabs();
    if (has(what, Change::items))
      for (int i = tabs.count(); i < book_.tabCount(); ++i)
        tabs.addTab(toQt(book_.tab(i).caption).replace('&', "&&"));
    if (has(what, Change::items) || has(what, Change::value))
      tabs.setCurrentIndex(book_.activeTab());
    ContainerPeer::update(what);
  }

  TabBook& book_;
  BookWidget* widget_ = nullptr;
};

}  // namespace

PeerPointer makeTabBookPeer(Mirror& mirror, TabBook& book, QWidget* ground) {
  return std::make_unique<TabBookPeer>(mirror, book, ground);
}

}  // namespace tolmer
