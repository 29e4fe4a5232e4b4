// One redraw of every display, update and painting, at 500 cases, 49 predictors and 1920 x 1080:
// the time between a choice and the picture. The measure beside it is the bare setting of as much
// text as the fullest table shows at a time.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QWidget>

#include "engine/pipeline.h"
#include "graphs/scatter_plot.h"
#include "platform/qt/control_peer.h"
#include "platform/qt/qt_desktop.h"
#include "shell/all_displays.h"
#include "support/recording_host.h"
#include "support/regression_data.h"

namespace tolmer {
namespace {

constexpr QSize screen(1920, 1080);

// A main window with one maximised display in it.
class OneDisplay {
 public:
  explicit OneDisplay(DisplayId id) : state_(noisyModel(500, 49)) {
    ComputeStatistics(state_, desktop_);
    FitRegression(state_, desktop_);
    state_.iCurrentPlot = 1;
    state_.bShowRegressionLine = true;
    state_.bShowCorrelation = true;
    frame_.show();
    display_ = displays_.display(id.iCategory, id.iIndex);
    frame_.adopt(*display_);
    display_->setPlace({0, 0, pixels(900), pixels(500)});
    display_->show();
    display_->setState(WindowState::maximised);
    QCoreApplication::processEvents();
  }

  void redraw(QImage& image) {
    display_->UpdateDisplay();
    ControlPeer::widgetOf(*display_)->render(&image);
  }
  void choosePlot(int x, int y) {
    state_.iPlotXVar[1] = static_cast<Int16>(x);
    state_.iPlotYVar[1] = static_cast<Int16>(y);
  }

 private:
  QtDesktop desktop_;
  test::RecordingHost host_;
  AnalysisState state_;
  FrameWindow frame_{desktop_, "mdiReg", "Tolmer"};
  AllDisplays displays_{desktop_, state_, host_};
  DisplayWindow* display_ = nullptr;
};

struct SelectingHost : test::RecordingHost {
  CaseSelection* selectedCases() override { return &cases; }
  CaseSelection cases;
};

// Four displays of cases in a main window of the screen's size, no panel.
class FourDisplays {
 public:
  FourDisplays() : state_(noisyModel(500, 49)) {
    ComputeStatistics(state_, desktop_);
    FitRegression(state_, desktop_);
    InitDisplayTable(state_);
    chooseStartAxes(state_);
    state_.bShowCorrelation = true;
    frame_.show();
    host_.cases.changed = [this] { displays_.showCases(); };
    int place = 0;
    for (const DisplayId id : {DisplayId{scatterDisplays, 1}, DisplayId{graphDisplays, 3},
                               DisplayId{graphDisplays, 1}, DisplayId{tableDisplays, 4}}) {
      DisplayWindow& display = *displays_.display(id.iCategory, id.iIndex);
      state_.iDisplayState(id.iCategory, id.iIndex) = displayShown;
      frame_.adopt(display);
      display.setPlace({pixels(960) * static_cast<float>(place % 2),
                        pixels(520) * static_cast<float>(place / 2), pixels(960), pixels(520)});
      display.show();
      display.UpdateDisplay();
      ++place;
    }
    ControlPeer::widgetOf(frame_)->resize(screen);
    QCoreApplication::processEvents();
  }

  void select(int iCase, QImage& image) {
    host_.cases.select({iCase});
    ControlPeer::widgetOf(frame_)->render(&image);
  }

 private:
  QtDesktop desktop_;
  SelectingHost host_;
  AnalysisState state_;
  FrameWindow frame_{desktop_, "mdiReg", "Tolmer"};
  AllDisplays displays_{desktop_, state_, host_};
};

void selectACase(benchmark::State& run) {
  FourDisplays shown;
  QImage image(screen, QImage::Format_RGB32);
  int iCase = 0;
  for (auto _ : run) shown.select(1 + iCase++ % 500, image);
}

void redraw(benchmark::State& run, DisplayId id, int x, int y) {
  OneDisplay shown(id);
  shown.choosePlot(x, y);
  QImage image(screen, QImage::Format_RGB32);
  for (auto _ : run) shown.redraw(image);
}

void bareText(benchmark::State& run) {
  QImage image(screen, QImage::Format_RGB32);
  const QString figure = QStringLiteral("12.3456");
  for (auto _ : run) {
    image.fill(Qt::white);
    QPainter painter(&image);
    for (int y = 20; y < screen.height(); y += 20)
      for (int x = 0; x < screen.width(); x += 64) painter.drawText(x, y, figure);
  }
}

void registerAll() {
  benchmark::RegisterBenchmark("bareText", bareText)->Unit(benchmark::kMillisecond);
  benchmark::RegisterBenchmark("selectACase", selectACase)->Unit(benchmark::kMillisecond);
  for (const Display& display : displayList()) {
    const DisplayId id = display.id;
    const std::string name =
        "redraw/" + std::to_string(id.iCategory) + "." + std::to_string(id.iIndex);
    if (id.iCategory != scatterDisplays) {
      benchmark::RegisterBenchmark(name.c_str(), redraw, id, 0, 0)->Unit(benchmark::kMillisecond);
      continue;
    }
    // Residuals on fitted values; a variable on another; residuals in order of entry.
    const std::array<std::pair<int, int>, 3> axes = {{{50, 51}, {1, 0}, {51, 51}}};
    const auto [x, y] = axes[static_cast<std::size_t>(id.iIndex - 1)];
    benchmark::RegisterBenchmark(name.c_str(), redraw, id, x, y)->Unit(benchmark::kMillisecond);
  }
}

}  // namespace
}  // namespace tolmer

int main(int count, char** arguments) {
  qputenv("QT_QPA_PLATFORM", "offscreen:size=1920x1080");
  const QApplication application(count, arguments);
  tolmer::registerAll();
  benchmark::Initialize(&count, arguments);
  benchmark::RunSpecifiedBenchmarks();
}
