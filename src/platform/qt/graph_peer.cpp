#include "platform/graph/graph.h"
#include "platform/qt/graph_view.h"
#include "platform/qt/make_peer.h"

namespace tolmer {
namespace {

class GraphPeer : public ControlPeer {
 public:
  GraphPeer(Mirror& mirror, Graph& graph, QWidget* ground)
      : ControlPeer(mirror, graph, ground), graph_(graph) {}
  ~GraphPeer() override {
    // The view may still be in the middle of the event that unloaded the model.
    if (view_) view_->enter = [](const std::function<void()>&) {};
  }
  GraphPeer(const GraphPeer&) = delete;
  GraphPeer& operator=(const GraphPeer&) = delete;

 private:
  QWidget* create(QWidget* ground) override {
    view_ = new GraphView(graph_, ground);
    view_->enter = [this](const std::function<void()>& work) { tell(work); };
    return view_;
  }
  void update(Change what) override { view_->refresh(what); }
  void applyLook() override {}  // the picture has fonts and colours of its own

  Graph& graph_;
  QPointer<GraphView> view_;
};

}  // namespace

PeerPointer makeGraphPeer(Mirror& mirror, Graph& graph, QWidget* ground) {
  return std::make_unique<GraphPeer>(mirror, graph, ground);
}

}  // namespace tolmer
