// The two large controls, whose views paint and take input themselves.
#include "platform/graph/graph.h"
#include "platform/qt/control_peer.h"
#include "platform/qt/graph_view.h"
#include "platform/qt/grid_view.h"

namespace tolmer {
namespace {

template <class Model, class View>
class ViewPeer : public PeerOf<Model> {
 public:
  using PeerOf<Model>::PeerOf;
  ~ViewPeer() override {
    // The view may still be in the middle of the event that unloaded the model.
    if (view_) view_->enter = [](const std::function<void()>&) {};
  }
  ViewPeer(const ViewPeer&) = delete;
  ViewPeer& operator=(const ViewPeer&) = delete;

 private:
  QWidget* create(QWidget* ground) override {
    view_ = new View(this->model_, ground);
    view_->enter = [this](const std::function<void()>& work) { this->tell(work); };
    return view_;
  }
  void update(Change what) override { view_->refresh(what); }
  void applyLook() override {}  // fonts and colours are the content's own

  QPointer<View> view_;
};

}  // namespace

constinit PeerMaker* const makeGraphPeer = makePeerOf<ViewPeer<Graph, GraphView>>;
constinit PeerMaker* const makeGridPeer = makePeerOf<ViewPeer<Grid, GridView>>;

}  // namespace tolmer
