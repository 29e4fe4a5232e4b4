// Whatever the program shows a name of, the help says something about: each caption of an entry, a
// button, a box to tick, a frame or a window, each title of a message box and each key. They are
// read from the sources, since many boxes take a full disk or a broken file to appear.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <functional>
#include <map>
#include <regex>
#include <set>

#include "base/file_io.h"
#include "support/tree.h"

namespace tolmer {
namespace {

namespace fs = std::filesystem;

const std::string helpFolder = TOLMER_SOURCE_DIR "/course/help/";

// Without case, marks of the page, and line ends.
std::string flattened(std::string text) {
  std::erase(text, '*');
  text = std::regex_replace(text, std::regex("\\s+"), " ");
  std::ranges::transform(text, text.begin(), [](unsigned char c) { return std::tolower(c); });
  return text;
}

std::string helpText() {
  std::string all;
  for (const auto& entry : fs::directory_iterator(helpFolder))
    if (entry.path().extension() == ".txt") all += *readWholeFile(entry.path().string()) + " ";
  return flattened(all);
}

// Calls `visit` with each source of the program's windows, its name first. The front end draws what
// these say.
void visitSources(const std::function<void(const std::string&, const std::string&)>& visit) {
  const fs::path root = TOLMER_SOURCE_DIR "/src";
  for (const auto& entry : fs::recursive_directory_iterator(root)) {
    const fs::path& path = entry.path();
    if (path.extension() != ".h" && path.extension() != ".cpp") continue;
    const std::string name = fs::relative(path, root).generic_string();
    if (!name.starts_with("platform/qt/") && !name.starts_with("programs/"))
      visit(name, *readWholeFile(path.string()));
  }
}

std::vector<std::string> matches(const std::string& text, const char* pattern) {
  const std::regex regex(pattern);
  std::vector<std::string> found;
  for (std::sregex_iterator at(text.begin(), text.end(), regex), end; at != end; ++at)
    found.push_back((*at)[1]);
  return found;
}

// As it is read on the screen, without the mark of its letter, the dots of an entry that asks and
// the dash before a name. Nothing is left of a separator.
std::string shown(std::string caption) {
  std::erase(caption, '&');
  if (caption.ends_with("...")) caption.resize(caption.size() - 3);
  while (caption.ends_with(' ') || caption.ends_with('-')) caption.pop_back();
  return caption;
}

TEST(HelpCoverage, HasAWordOnEveryCaptionAndTitle) {
  const std::string help = helpText();
  // Shown to hosts alone that set the editor up for three or four variables.
  const std::set<std::string> ofOtherHosts{"Var 3 is OPTIONAL"};
  visitSources([&](const std::string& file, const std::string& text) {
    for (const char* pattern :
         {R"re(\b(?:MenuItem|Button|CheckBox|OptionButton|Frame) \w+\{[^;{}]*",\s*"([^"\n]*)"\})re",
          R"re(WindowStyle::\w+,\s*"([^"\n]+)")re", R"re(setCaption\("([^"\n]+)"\))re",
          R"re(\.title = "([^"\n]+)")re", R"re([mM]essageBox(?:\(\s*)?\{"([^"\n]+)")re"})
      for (const std::string& caption : matches(text, pattern)) {
        const std::string name = shown(caption);
        if (name.empty() || name.ends_with('.') || ofOtherHosts.contains(name)) continue;
        EXPECT_NE(help.find(flattened(name)), help.npos)
            << "\"" << name << "\" of src/" << file << " is on no page of course/help";
      }
  });
}

TEST(HelpCoverage, TellsEveryKey) {
  const std::string page = flattened(*readWholeFile(helpFolder + "keyboard.txt"));
  const std::map<std::string, std::string> names{{"backspace", ""},
                                                 {"deleteKey", "delete"},
                                                 {"end", "end"},
                                                 {"enter", "enter"},
                                                 {"escape", "esc"},
                                                 {"down", "arrows"},
                                                 {"left", "arrows"},
                                                 {"right", "arrows"},
                                                 {"up", "arrows"},
                                                 {"menu", "menu key"},
                                                 {"space", "space"},
                                                 {"pageDown", "page down"},
                                                 {"tab", "tab"},
                                                 {"pageUp", "page up"},
                                                 {"f10", "shift+f10"},
                                                 {"home", "home"},
                                                 {"f1", "f1"},
                                                 {"f2", "f2"},
                                                 {"Ctrl+PgDown", "ctrl+page down"},
                                                 {"Ctrl+PgUp", "ctrl+page up"}};
  const auto expect = [&page](const std::string& key, const std::string& file) {
    EXPECT_NE(page.find(flattened(key)), page.npos)
        << key << " of src/" << file << " is not on the page keyboard.txt";
  };
  visitSources([&](const std::string& file, const std::string& text) {
    for (const std::string& key : matches(text, R"(keys::(\w+))"))
      expect(names.contains(key) ? names.at(key) : key, file);
    for (const std::string& letter : matches(text, R"(withControl\('(\w)'\))"))
      expect("Ctrl+" + letter, file);
    for (const std::string& chord : matches(text, R"((\.code = '\w'[^}]*ontrol = [^}]*)\})"))
      expect((chord.find("shift = true") == chord.npos ? "Ctrl+" : "Ctrl+Shift+") +
                 chord.substr(chord.find('\'') + 1, 1),
             file);
  });
  for (const auto& entry : fs::directory_iterator(TOLMER_SOURCE_DIR "/src/platform/qt"))
    if (entry.path().extension() == ".cpp")
      for (const std::string& key :
           matches(*readWholeFile(entry.path().string()), R"re(\badd\("([^"]+)")re"))
        expect(names.contains(key) ? names.at(key) : key, entry.path().filename().string());
}

}  // namespace
}  // namespace tolmer
