// The data editor at its largest, 500 cases of 50 variables with labels: each action of a student
// through the window, until it is painted. The measures beside them, in the same run: copying the
// cells once, and painting the window once with nothing changed.
#include <benchmark/benchmark.h>

#include <zlib.h>

#include <QApplication>
#include <QImage>

#include "base/file_io.h"
#include "editor/data_editor.h"
#include "editor/import_dialog.h"
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
  std::function<void(Window&)> onImport;

  Answer messageBox(const MessageBox& box) override {
    ++boxes;
    return box.buttons == MessageButtons::yesNo ? Answer::yes : Answer::ok;
  }
  void modalLoop(Window& window) override {
    auto* sort = dynamic_cast<frmSortOptions*>(&window);
    if (!sort && onImport && dynamic_cast<frmTextImport*>(&window)) onImport(window);
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

std::string littleEndian(std::size_t number, int bytes) {
  std::string text;
  for (; bytes > 0; --bytes, number >>= 8U) text += static_cast<char>(number & 0xFFU);
  return text;
}

// A zip archive of these parts, packed; its directory comes last.
std::string archiveOf(const std::vector<std::pair<std::string, std::string>>& parts) {
  constexpr std::size_t before = 2;  // of what zlib puts around the bare stream
  constexpr std::size_t behind = 4;
  std::string files;
  std::string directory;
  for (const auto& [name, text] : parts) {
    const auto* bytes = reinterpret_cast<const Bytef*>(text.data());
    uLongf size = compressBound(text.size());
    std::string packed(size, '\0');
    compress(reinterpret_cast<Bytef*>(packed.data()), &size, bytes, text.size());
    packed = packed.substr(before, size - before - behind);
    const std::string facts = littleEndian(20, 2) + littleEndian(0, 2) + littleEndian(8, 2) +
                              littleEndian(0, 4) +
                              littleEndian(crc32(0, bytes, static_cast<uInt>(text.size())), 4) +
                              littleEndian(packed.size(), 4) + littleEndian(text.size(), 4) +
                              littleEndian(name.size(), 2) + littleEndian(0, 2);
    directory += "PK\1\2" + littleEndian(20, 2) + facts + littleEndian(0, 10) +
                 littleEndian(files.size(), 4) + name;
    files += "PK\3\4" + facts + name + packed;
  }
  return files + directory + "PK\5\6" + littleEndian(0, 4) + littleEndian(parts.size(), 2) +
         littleEndian(parts.size(), 2) + littleEndian(directory.size(), 4) +
         littleEndian(files.size(), 4) + littleEndian(0, 2);
}

// A full sheet with words in its first column, so that the import asks.
std::string workbook() {
  const std::string main = "http://schemas.openxmlformats.org/spreadsheetml/2006/main";
  const std::string links = "http://schemas.openxmlformats.org/officeDocument/2006/relationships";
  const std::string packages = "http://schemas.openxmlformats.org/package/2006/relationships";
  std::string sheet = "<worksheet xmlns='" + main + "'><sheetData>";
  std::string line;
  std::string rows = "Town";
  for (int c = 1; c <= variables; ++c) rows += "\tV" + std::to_string(c);
  std::istringstream in(rows + "\n" + fullText());
  while (std::getline(in, line)) {
    sheet += "<row>";
    std::istringstream fields(line);
    for (std::string field; std::getline(fields, field, '\t');)
      sheet += std::isdigit(static_cast<unsigned char>(field[0])) != 0
                   ? "<c><v>" + field + "</v></c>"
                   : "<c t='inlineStr'><is><t>" + field + "</t></is></c>";
    sheet += "</row>";
  }
  return archiveOf(
      {{"_rels/.rels", "<Relationships xmlns='" + packages + "'><Relationship Id='a' Type='" +
                           links + "/officeDocument' Target='xl/workbook.xml'/></Relationships>"},
       {"xl/workbook.xml", "<workbook xmlns='" + main + "' xmlns:r='" + links +
                               "'><sheets><sheet name='Data' r:id='b'/></sheets></workbook>"},
       {"xl/_rels/workbook.xml.rels",
        "<Relationships xmlns='" + packages + "'><Relationship Id='b' Type='" + links +
            "/worksheet' Target='worksheets/sheet1.xml'/></Relationships>"},
       {"xl/worksheets/sheet1.xml", sheet + "</sheetData></worksheet>"}});
}

// To the preview, by the clock: another process reads it.
void previewWorkbook(benchmark::State& state) {
  Stage stage;
  stage.desktop.file = stage.folder.file("full.xlsx");
  writeFileAtomically(stage.desktop.file, workbook());
  int shown = 0;
  QImage image{1280, 800, QImage::Format_RGB32};
  stage.desktop.onImport = [&](Window& window) {
    window.show();
    QCoreApplication::processEvents();
    ControlPeer::widgetOf(window)->render(&image);
    ++shown;
  };
  for (auto _ : state) stage.editor.menu.mnuFileOpen.click();
  if (shown == 0) state.SkipWithError("the preview did not come");
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
BENCHMARK(previewWorkbook)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(20);
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
