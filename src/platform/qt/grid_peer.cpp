#include "platform/grid/grid.h"
#include "platform/qt/grid_view.h"
#include "platform/qt/make_peer.h"

namespace tolmer {
namespace {

class GridPeer : public ControlPeer {
 public:
  GridPeer(Mirror& mirror, Grid& grid, QWidget* ground)
      : ControlPeer(mirror, grid, ground), grid_(grid) {}
  ~GridPeer() override {
    // The view may still be in the middle of the event that unloaded the model.
    if (view_) view_->enter = [](const std::function<void()>&) {};
  }
  GridPeer(const GridPeer&) = delete;
  GridPeer& operator=(const GridPeer&) = delete;

 private:
  QWidget* create(QWidget* ground) override {
    view_ = new GridView(grid_, ground);
    view_->enter = [this](const std::function<void()>& work) { tell(work); };
    return view_;
  }
  void update(Change what) override { view_->refresh(what); }
  void applyLook() override {}  // the cells have fonts and colours of their own

  Grid& grid_;
  QPointer<GridView> view_;
};

}  // namespace

PeerPointer makeGridPeer(Mirror& mirror, Grid& grid, QWidget* ground) {
  return std::make_unique<GridPeer>(mirror, grid, ground);
}

}  // namespace tolmer
