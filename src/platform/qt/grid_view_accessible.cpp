#include "platform/qt/grid_view_accessible.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <unordered_map>

#include "platform/grid/grid_words.h"
#include "platform/qt/accessible_leaf.h"
#include "platform/qt/convert.h"
#include "platform/qt/grid_cell_text.h"
#include "platform/qt/grid_view.h"

namespace tolmer {
namespace {

bool isMarked(const Grid& grid, CellPosition cell) {
  return !grid.selection().blocks().empty() && grid.selection().covers(cell);
}

// One cell. It knows its place only, and reads all else from the grid when it is asked.
class AccessibleCell : public AccessibleLeaf<GridView>,
                       public QAccessibleTableCellInterface,
                       public AccessibleCellText {
 public:
  AccessibleCell(GridView& view, CellPosition cell)
      : AccessibleLeaf(view), AccessibleCellText(view, cell), cell_(cell) {}

  bool isValid() const override {
    return view_ && !view_->isHidden() && view_->grid().sheet().contains(cell_);
  }

  using AccessibleCellText::text;
  QString text(QAccessible::Text what) const override {
    if (!isValid()) return {};
    const Grid& grid = view_->grid();
    if (what == QAccessible::Name || what == QAccessible::Value) return toQt(grid.wholeText(cell_));
    return what == QAccessible::Description ? toQt(describedCell(grid, cell_)) : QString();
  }

  QRect rect() const override {
    if (!isValid()) return {};
    const QRect place = view_->cellRect(cell_);
    return {view_->viewport()->mapToGlobal(place.topLeft()), place.size()};
  }

  QAccessible::Role role() const override {
    if (!isValid() || !view_->grid().sheet().at(cell_.row, cell_.col).style.heading)
      return QAccessible::Cell;
    return cell_.row == 1 ? QAccessible::ColumnHeader : QAccessible::RowHeader;
  }

  QAccessible::State state() const override {
    QAccessible::State state;
    if (!isValid()) {
      state.invalid = true;
      return state;
    }
    const Grid& grid = view_->grid();
    const bool canBeMarked = grid.selectionMode() != SelectionMode::none;
    state.editable = canBeEdited();
    state.readOnly = !state.editable;
    state.selectable = state.multiSelectable = state.focusable = canBeMarked || isLit(grid);
    state.selected = isSelected() || (canBeMarked && grid.selection().covers(cell_));
    state.focused = view_->hasFocus() && focusedCell(grid) == cell_;
    state.offscreen = !view_->viewport()->rect().intersects(view_->cellRect(cell_));
    return state;
  }

  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type == QAccessible::TableCellInterface)
      return static_cast<QAccessibleTableCellInterface*>(this);
    if (!canBeEdited()) return nullptr;
    if (type == QAccessible::TextInterface) return static_cast<QAccessibleTextInterface*>(this);
    return type == QAccessible::EditableTextInterface
               ? static_cast<QAccessibleEditableTextInterface*>(this)
               : nullptr;
  }

  int columnIndex() const override { return cell_.col - 1; }
  int rowIndex() const override { return cell_.row - 1; }
  int columnExtent() const override { return 1; }
  int rowExtent() const override { return 1; }
  bool isSelected() const override {
    return isValid() && (isMarked(view_->grid(), cell_) || isLit(view_->grid()));
  }
  QList<QAccessibleInterface*> columnHeaderCells() const override;
  QList<QAccessibleInterface*> rowHeaderCells() const override;
  QAccessibleInterface* table() const override { return parent(); }

 private:
  using AccessibleLeaf<GridView>::view_;  // the text has one of its own

  bool isLit(const Grid& grid) const { return grid.isLit(cell_.row); }
  bool canBeEdited() const { return isValid() && AccessibleCellText::canBeEdited(); }
  QList<QAccessibleInterface*> headerAt(CellPosition header) const;

  CellPosition cell_;
};

// Cells are made when they are asked for, and kept: they are known to the outside by their number.
class AccessibleGrid : public QAccessibleWidget, public QAccessibleTableInterface {
 public:
  explicit AccessibleGrid(GridView* view) : QAccessibleWidget(view, QAccessible::Table) {}
  ~AccessibleGrid() override { forgetCells(); }

  void* interface_cast(QAccessible::InterfaceType type) override {
    return type == QAccessible::TableInterface ? static_cast<QAccessibleTableInterface*>(this)
                                               : QAccessibleWidget::interface_cast(type);
  }

  int childCount() const override { return rowCount() * columnCount(); }
  QAccessibleInterface* child(int index) const override {
    if (index < 0 || index >= childCount()) return nullptr;
    return cellAt(index / columnCount(), index % columnCount());
  }
  int indexOfChild(const QAccessibleInterface* child) const override {
    const auto* cell = dynamic_cast<const AccessibleCell*>(child);
    return cell ? cell->rowIndex() * columnCount() + cell->columnIndex() : -1;
  }
  QAccessibleInterface* childAt(int x, int y) const override {
    const QPoint place = view().viewport()->mapFromGlobal(QPoint(x, y));
    if (childCount() == 0 || !view().viewport()->rect().contains(place)) return nullptr;
    const CellPosition cell = view().cellAt(place);
    return cellAt(cell.row - 1, cell.col - 1);
  }
  QAccessibleInterface* focusChild() const override {
    const auto cell = view().hasFocus() ? focusedCell(grid()) : std::nullopt;
    return cell ? child(accessibleIndex(grid(), *cell)) : nullptr;
  }

  QAccessibleInterface* cellAt(int row, int column) const override {
    if (row < 0 || row >= rowCount() || column < 0 || column >= columnCount()) return nullptr;
    const int index = row * columnCount() + column;
    if (const auto known = cells_.find(index); known != cells_.end())
      return QAccessible::accessibleInterface(known->second);
    auto* cell = new AccessibleCell(view(), {row + 1, column + 1});
    cells_[index] = QAccessible::registerAccessibleInterface(cell);
    return cell;
  }
  // A view is hidden when its grid is gone.
  int rowCount() const override { return view().isHidden() ? 0 : grid().maxRows(); }
  int columnCount() const override { return view().isHidden() ? 0 : grid().maxCols(); }
  QString columnDescription(int column) const override {
    return column < columnCount() ? toQt(columnHeading(grid(), column + 1)) : QString();
  }
  QString rowDescription(int row) const override {
    return row < rowCount() ? toQt(rowHeading(grid(), row + 1)) : QString();
  }
  QAccessibleInterface* caption() const override { return nullptr; }
  QAccessibleInterface* summary() const override { return nullptr; }

  int selectedCellCount() const override { return static_cast<int>(selectedCells().size()); }
  QList<QAccessibleInterface*> selectedCells() const override {
    QList<QAccessibleInterface*> cells;
    for (int row = 0; row < rowCount(); ++row)
      for (int column = 0; column < columnCount(); ++column)
        if (isMarked(grid(), {row + 1, column + 1})) cells << cellAt(row, column);
    return cells;
  }
  bool isRowSelected(int row) const override { return selectedRows().contains(row); }
  bool isColumnSelected(int column) const override { return selectedColumns().contains(column); }
  QList<int> selectedRows() const override {
    QList<int> rows;
    if (childCount() == 0) return rows;
    for (const int row : grid().litRows()) rows << row - 1;
    for (const CellBlock& block : grid().selection().blocks())
      for (int row = block.row; row <= block.row2 && block.col2 - block.col + 1 == columnCount();
           ++row)
        if (!rows.contains(row - 1)) rows << row - 1;
    return rows;
  }
  QList<int> selectedColumns() const override {
    QList<int> columns;
    if (childCount() == 0) return columns;
    for (const CellBlock& block : grid().selection().blocks())
      for (int col = block.col; col <= block.col2 && block.row2 - block.row + 1 == rowCount();
           ++col)
        if (!columns.contains(col - 1)) columns << col - 1;
    return columns;
  }
  int selectedRowCount() const override { return static_cast<int>(selectedRows().size()); }
  int selectedColumnCount() const override { return static_cast<int>(selectedColumns().size()); }
  bool selectRow(int row) override { return take({row + 1, 1, row + 1, columnCount()}); }
  bool selectColumn(int column) override { return take({1, column + 1, rowCount(), column + 1}); }
  bool unselectRow(int) override { return unmark(); }
  bool unselectColumn(int) override { return unmark(); }

  // The numbers of the cells stand for other cells from now on.
  void modelChange(QAccessibleTableModelChangeEvent*) override { forgetCells(); }

 private:
  GridView& view() const { return *static_cast<GridView*>(widget()); }
  Grid& grid() const { return view().grid(); }
  bool take(const CellBlock& block) {
    if (childCount() == 0 || grid().selectionMode() == SelectionMode::none) return false;
    view().enter([&] { grid().select(block); });
    return true;
  }
  bool unmark() {
    view().enter([&] { grid().unmarkBlocks(); });
    return true;
  }
  void forgetCells() {
    for (const auto& [index, id] : cells_) QAccessible::deleteAccessibleInterface(id);
    cells_.clear();
  }

  mutable std::unordered_map<int, QAccessible::Id> cells_;
};

QList<QAccessibleInterface*> AccessibleCell::headerAt(CellPosition header) const {
  const auto* table = dynamic_cast<AccessibleGrid*>(parent());
  if (!table || header == cell_) return {};
  return {table->cellAt(header.row - 1, header.col - 1)};
}

QList<QAccessibleInterface*> AccessibleCell::columnHeaderCells() const {
  if (!isValid() || !view_->grid().sheet().at(1, cell_.col).style.heading) return {};
  return headerAt({1, cell_.col});
}

QList<QAccessibleInterface*> AccessibleCell::rowHeaderCells() const {
  if (!isValid() || !view_->grid().sheet().at(cell_.row, 1).style.heading) return {};
  return headerAt({cell_.row, 1});
}

QAccessibleInterface* makeAccessible(const QString&, QObject* object) {
  auto* view = dynamic_cast<GridView*>(object);
  return view ? new AccessibleGrid(view) : nullptr;
}

}  // namespace

void installGridAccessibility() {
  [[maybe_unused]] static const bool installed =
      (QAccessible::installFactory(makeAccessible), true);
}

int accessibleIndex(const Grid& grid, CellPosition cell) {
  return (cell.row - 1) * grid.maxCols() + cell.col - 1;
}

}  // namespace tolmer
