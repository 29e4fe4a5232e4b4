#include "platform/outline.h"

#include <QApplication>
#include <QTreeWidget>

#include "platform/qt/control_peer.h"
#include "platform/qt/convert.h"

namespace tolmer {
namespace {

constexpr Twips rowHeight = pixels(23);
constexpr Twips indentation = pixels(16);

class OutlinePeer : public PeerOf<Outline> {
 public:
  using PeerOf::PeerOf;

 private:
  QWidget* create(QWidget* ground) override {
    items_.clear();
    tree_ = new QTreeWidget(ground);
    tree_->setHeaderHidden(true);
    tree_->setUniformRowHeights(true);
    tree_->setExpandsOnDoubleClick(false);  // what a click opens and closes is the model's business
    connectMouse();
    // By the keyboard, or by whatever works the tree from outside.
    on(tree_, &QTreeWidget::currentItemChanged, [this](QTreeWidgetItem* item) {
      if (QApplication::mouseButtons() != Qt::NoButton) return;
      tell([&outline = model_, index = indexOf(item)] { outline.moveTo(index); });
    });
    on(tree_, &QTreeWidget::itemExpanded, [this](QTreeWidgetItem* item) { opened(item, true); });
    on(tree_, &QTreeWidget::itemCollapsed, [this](QTreeWidgetItem* item) { opened(item, false); });
    return tree_;
  }

  void connectMouse() {
    on(tree_, &QTreeWidget::itemPressed, [this](QTreeWidgetItem* item) {
      if (QApplication::mouseButtons() != Qt::LeftButton) return;
      tell([&outline = model_, index = indexOf(item)] { outline.click(index); });
    });
    on(tree_, &QTreeWidget::itemDoubleClicked,
       [this] { tell([&outline = model_] { outline.doubleClick(); }); });
  }

  void opened(QTreeWidgetItem* item, bool open) {
    tell([&outline = model_, index = indexOf(item), open] { outline.openByUser(index, open); });
  }

  void update(Change what) override {
    if (has(what, Change::items)) fill();
    if (has(what, Change::items) || has(what, Change::look)) sizeRows();
    if (!has(what, Change::items) && !has(what, Change::value)) return;
    const int index = model_.listIndex();
    tree_->setCurrentItem(index < 0 ? nullptr : items_[index]);
  }

  // An outline only grows at its end.
  void fill() {
    for (std::size_t i = items_.size(); i < model_.items().size(); ++i) {
      const auto& entry = model_.items()[i];
      auto* item = new QTreeWidgetItem({toQt(entry.text)});
      item->setData(0, Qt::UserRole, static_cast<int>(i));
      if (QTreeWidgetItem* above = parentOf(i))
        above->addChild(item);
      else
        tree_->addTopLevelItem(item);
      items_.push_back(item);
    }
    for (std::size_t i = 0; i < items_.size(); ++i)
      items_[i]->setExpanded(model_.items()[i].expanded);
  }

  void sizeRows() {
    tree_->setIndentation(toPixel(indentation, scale()));
    for (QTreeWidgetItem* item : items_) item->setSizeHint(0, {0, toPixel(rowHeight, scale())});
  }

  // The nearest item before it that stands further out.
  QTreeWidgetItem* parentOf(std::size_t index) const {
    const auto& entries = model_.items();
    for (std::size_t i = index; i-- > 0;)
      if (entries[i].indent < entries[index].indent) return items_[i];
    return nullptr;
  }

  static int indexOf(const QTreeWidgetItem* item) {
    return item ? item->data(0, Qt::UserRole).toInt() : -1;
  }

  QTreeWidget* tree_ = nullptr;
  std::vector<QTreeWidgetItem*> items_;
};

}  // namespace

constinit PeerMaker* const makeOutlinePeer = makePeerOf<OutlinePeer>;

}  // namespace tolmer
