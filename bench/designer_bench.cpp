// The largest data set, 500 cases of 50 variables: from the opened designer with all variables
// chosen to the painted quadrants, and the list of all data. The measure beside them is a window of
// plain labels, as many as the designer has rows on the screen.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QVBoxLayout>

#include "data/designer.h"
#include "data/show_data.h"
#include "platform/qt/control_peer.h"
#include "platform/qt/qt_desktop.h"
#include "shell/shell_parts.h"
#include "support/stand_in_editor.h"

namespace tolmer {
namespace {

constexpr int cases = 500;
constexpr int variables = 50;

class FixedScenarios : public ScenarioSource {
 public:
  std::string LastScenarioParameter(int) const override { return {}; }
  std::string DefaultScenarioParameter(int) const override { return {}; }
};

test::StandInEditor fullEditor() {
  test::StandInEditor editor;
  editor.cases = cases;
  unsigned noise = 1;
  for (int v = 1; v <= variables; ++v) {
    auto& variable = editor.variables.emplace_back();
    variable.header = "Variable " + std::to_string(v);
    for (int i = 0; i < cases; ++i) {
      noise = noise * 1664525U + 1013904223U;
      variable.values.push_back(v + static_cast<double>(noise >> 8U) / (1U << 24U));
    }
  }
  return editor;
}

void paint(const Window& window, QImage& image) { ControlPeer::widgetOf(window)->render(&image); }

void openChooseAllAndAccept(benchmark::State& run) {
  test::StandInEditor editor = fullEditor();
  const FixedScenarios scenarios;
  QtDesktop desktop;
  ShellParts parts(desktop, {});
  parts.frame.show();
  QCoreApplication::processEvents();
  parts.state.iDataSource = dataEditor;
  parts.manager.ShowInitialChildren();
  QImage image(1920, 1080, QImage::Format_RGB32);
  int intercept = 1;  // another model each time, so that OK always has something to accept
  for (auto _ : run) {
    frmModelDesign designer(desktop, parts.state, {scenarios, {}, &editor}, parts.frame);
    designer.show();
    paint(designer, image);
    designer.spdVarList.press({1, 1});
    designer.cmdDepVarSelect.click();
    designer.spdVarList.press({1, 1});
    designer.spdVarList.press({variables, 1}, {.shift = true, .control = false});
    designer.cmdIndVarSelect.click();
    paint(designer, image);
    designer.chkUseIntercept.setValue(intercept);
    intercept = 1 - intercept;
    designer.cmdOK.click();
    parts.analysis.RunAnalysis();
    paint(parts.frame, image);
  }
}

void listAllData(benchmark::State& run) {
  const test::StandInEditor editor = fullEditor();
  QtDesktop desktop;
  WorkingCopy copy;
  LoadFromDataEditor(copy, editor.studentData());
  QImage image(1920, 1080, QImage::Format_RGB32);
  for (auto _ : run) {
    frmShowData list(desktop, copy);
    list.PositionControls();
    list.UpdateDisplay();
    list.show();
    paint(list, image);
  }
}

void windowOfLabels(benchmark::State& run) {
  QImage image(1920, 1080, QImage::Format_RGB32);
  for (auto _ : run) {
    QWidget window;
    auto* lines = new QVBoxLayout(&window);
    for (int i = 0; i < 40; ++i) lines->addWidget(new QLabel(QStringLiteral("Variable")));
    window.show();
    window.render(&image);
  }
}

BENCHMARK(windowOfLabels)->Unit(benchmark::kMillisecond);
BENCHMARK(openChooseAllAndAccept)->Unit(benchmark::kMillisecond);
BENCHMARK(listAllData)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tolmer

int main(int count, char** arguments) {
  qputenv("QT_QPA_PLATFORM", "offscreen:size=1920x1080");
  const QApplication application(count, arguments);
  benchmark::Initialize(&count, arguments);
  benchmark::RunSpecifiedBenchmarks();
}
