// The data editor at its largest, 500 cases of 50 variables with labels: each action of a student
// through the window, until it is painted. The measures beside them, in the same run: copying the
// cells once, and painting the window once with nothing changed.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QImage>

#include "editor/data_editor.h"
#include "editor/sort_options.h"
#include "platform/qt/control_peer.h"
#include "platform/qt/qt_desktop.h"
#include "support/temp_folder.h"

namespace tolmer {
namespace {

constexpr int cases = 500;
constexpr int variables = 50;

// A user who chooses the file and sorts by the next column each time.
class BenchDesktop : public QtDesktop {
 public:
  std::string file;
  int key = 0;
  int boxes = 0;

  Answer messageBox(const MessageBox& box) override {
    ++boxes;
    return box.buttons == MessageButtons::yesNo ? Answer::yes : Answer::ok;
  }
  void modalLoop(Window& window) override {
    auto* sort = dynamic_cast<frmSortOptions*>(&window);
    if (!sort) return window.hide();
    sort->cmboSortVbl.setListIndex(1 + key++ % variables);
    sort->cmdOK.click();
  }
  std::optional<ChosenFile> openFileDialog(const FileQuestion&) override {
    return ChosenFile{.path = file};
  }
  std::optional<ChosenFile> saveFileDialog(const FileQuestion&) override {
    return ChosenFile{.path = file};
  }
};

// What a spreadsheet puts on the clipboard; the last variable has one value, so that the check at
// the exit looks at all of them and then stays.
std::string fullText() {
  std::string text;
  unsigned noise = 1;
  for (int r = 1; r <= cases; ++r) {
    text += "Case " + std::to_string(r);
    for (int c = 1; c < variables; ++c) {
      noise = noise * 1664525U + 1013904223U;
      text += "\t0." + std::to_string(100000000U + (noise >> 6U));
    }
    text += "\t5\n";
  }
  return text;
}

class Stage {
 public:
  Stage() {
    desktop.file = folder.file("full.zmm");
    desktop.setClipboard({.text = fullText()});
    editor.SetupEditor();
    editor.show();
    paste();
    if (editor.sheet().lastUsedRow() != cases) throw std::logic_error("the paste was not taken");
  }
  void paste() {
    editor.spdData.setActiveCell({2, 1});
    editor.menu.mnuEditPaste.click();
  }
  void paint() {
    QCoreApplication::processEvents();
    ControlPeer::widgetOf(editor)->render(&image_);
  }
  void run(benchmark::State& state, const std::function<void()>& action) {
    paint();
    for (auto _ : state) {
      action();
      paint();
    }
  }

  test::TempFolder folder;
  BenchDesktop desktop;
  frmDataEditor editor{desktop, {folder.path(), nullptr}};

 private:
  QImage image_{1280, 800, QImage::Format_RGB32};
};

void copyCells(benchmark::State& state) {
  Stage stage;
  for (auto _ : state) {
    SheetContent copy = stage.editor.sheet().content();
    benchmark::DoNotOptimize(copy);
  }
}

void paintOnce(benchmark::State& state) {
  Stage stage;
  stage.run(state, [] {});
}

void pasteAll(benchmark::State& state) {
  Stage stage;
  stage.run(state, [&] {
    stage.editor.menu.mnuEditUndo.click();
    stage.paste();
  });
}

void copyAll(benchmark::State& state) {
  Stage stage;
  stage.editor.spdData.press({2, 1});
  stage.editor.spdData.press({cases + 1, variables + 1}, {.shift = true});
  stage.run(state, [&] { stage.editor.menu.mnuEditCopy.click(); });
}

void save(benchmark::State& state) {
  Stage stage;
  stage.run(state, [&] { stage.editor.menu.mnuFileSaveAs.click(); });
}

void open(benchmark::State& state) {
  Stage stage;
  stage.editor.menu.mnuFileSaveAs.click();
  stage.run(state, [&] { stage.editor.menu.mnuFileOpen.click(); });
  if (stage.desktop.boxes > 0) state.SkipWithError("the file was not taken");
}

void sort(benchmark::State& state) {
  Stage stage;
  stage.run(state, [&] { stage.editor.menu.mnuOptionSort.click(); });
}

void checkAtExit(benchmark::State& state) {
  Stage stage;
  stage.run(state, [&] { stage.editor.cmdOK.click(); });
  if (stage.desktop.boxes == 0) state.SkipWithError("the check did not reach the last variable");
}

void insertAndDeleteRow(benchmark::State& state) {
  Stage stage;
  stage.editor.spdData.setActiveCell({2, 2});
  stage.run(state, [&] {
    stage.editor.menu.mnuEditInsertRow.click();
    stage.editor.menu.mnuEditDeleteRow.click();
  });
}

// A column in which every formula needs the one above; its first value changes.
void recalculateColumn(benchmark::State& state) {
  Stage stage;
  EditGrid& grid = stage.editor.spdData;
  for (int r = 2; r <= cases; ++r)
    grid.enter({r + 1, 2}, "=B" + std::to_string(r - 1) + "*0.5+C" + std::to_string(r));
  int number = 0;
  stage.run(state, [&] {
    grid.enter({2, 2}, std::to_string(number));
    number = 1 - number;
  });
}

BENCHMARK(copyCells)->Unit(benchmark::kMillisecond);
BENCHMARK(paintOnce)->Unit(benchmark::kMillisecond);
// Fixed rounds: every one adds to what can be undone.
BENCHMARK(pasteAll)->Unit(benchmark::kMillisecond)->Iterations(50);
BENCHMARK(copyAll)->Unit(benchmark::kMillisecond);
BENCHMARK(save)->Unit(benchmark::kMillisecond);
BENCHMARK(open)->Unit(benchmark::kMillisecond)->Iterations(50);
BENCHMARK(sort)->Unit(benchmark::kMillisecond)->Iterations(100);
BENCHMARK(checkAtExit)->Unit(benchmark::kMillisecond);
BENCHMARK(insertAndDeleteRow)->Unit(benchmark::kMillisecond)->Iterations(100);
BENCHMARK(recalculateColumn)->Unit(benchmark::kMillisecond)->Iterations(500);

}  // namespace
}  // namespace tolmer

int main(int count, char** arguments) {
  qputenv("QT_QPA_PLATFORM", "offscreen:size=1280x800");
  qputenv("QT_LOGGING_RULES", "default.warning=false");  // no window can be raised there
  const QApplication application(count, arguments);
  benchmark::Initialize(&count, arguments);
  benchmark::RunSpecifiedBenchmarks();
}
