// Every sample of the documentation, tried as its reader would.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <regex>

#include "base/file_io.h"
#include "bookcompiler/book_compiler.h"
#include "data/course_folder.h"
#include "data/data_sources.h"
#include "figures/course_figures.h"
#include "notebook/notebook.h"
#include "notebook/notebook_window.h"
#include "platform/headless/headless_desktop.h"
#include "support/temp_folder.h"
#include "support/tree.h"

namespace tolmer {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::IsEmpty;

// What the pattern's bracket holds, wherever it matches.
std::vector<std::string> samplesIn(const std::string& page, const char* pattern) {
  const std::regex sample(pattern);
  std::vector<std::string> samples;
  for (std::sregex_iterator at(page.begin(), page.end(), sample), end; at != end; ++at)
    samples.push_back((*at)[1]);
  return samples;
}

// What stands between two lines of three backquotes.
std::vector<std::string> fencedSamples(const std::string& page) {
  return samplesIn(page, R"(```[^\n]*\n([^`]*(?:`[^`]+)*)```)");
}

// What is set in by four blanks.
std::vector<std::string> indentedSamples(const std::string& page) {
  std::vector<std::string> samples = samplesIn(page, R"(\n((?:    [^\n]*\n)+))");
  for (std::string& sample : samples)
    sample = std::regex_replace(sample.substr(4), std::regex("\n    "), "\n");
  return samples;
}

class DocsSamples : public testing::Test {
 protected:
  DocsSamples() {
    fs::create_directories(folder.file("data"));
    fs::create_directories(folder.file("tolmod/figures"));
  }
  static std::string page(const char* name) {
    return *readWholeFile(std::string(TOLMER_SOURCE_DIR "/docs/") + name);
  }
  void put(const std::string& name, const std::string& bytes) const {
    ASSERT_FALSE(writeFileAtomically(folder.file(name), bytes));
  }

  // Compiles, opens the book, and calls `visit` on each page with its section and number.
  // Returns what the compiler said.
  std::string open(const std::string& source, const std::function<void(int, int)>& visit = {}) {
    put("notebook.txt", source);
    std::string said;
    EXPECT_EQ(compileNotebook({folder.file("notebook.txt"), folder.file("tolmod/tolmod.nbo"),
                               "--root", folder.path()},
                              said),
              0)
        << said;
    noteBook.tProgramFolder = folder.file("tolmod");
    noteBook.ReadObjectFile(folder.file("tolmod/tolmod.nbo"));
    const Book& book = noteBook.book();
    for (int section = 1; section <= book.uSection.count(); ++section)
      for (int page = 1; page <= book.uSection[section].iNumPages; ++page) {
        SCOPED_TRACE("page " + std::to_string(section) + "." + std::to_string(page));
        noteBook.window().goTo(section, page);
        if (visit) visit(section, page);
      }
    openData(book.uDefaultScenario);
    for (int i = 1; i <= book.uScenario.count(); ++i) openData(book.uScenario[i]);
    EXPECT_THAT(desktop.boxes(), IsEmpty());
    return said;
  }

  void openData(const Scenario& scenario) {
    WorkingCopy copy;
    test::StandInScenarios scenarios;
    std::copy_n(scenario.tParameter.begin() + 1, scenarios.last.size(), scenarios.last.begin());
    LoadNewDatabase(copy, scenarios, folder.file("tolmod"), desktop);
    EXPECT_GT(copy.miNumCases, 0);
    EXPECT_NE(copy.otColName(copy.miNumCols), "");
  }

  const test::TempFolder folder;
  HeadlessDesktop desktop;
  NoteBook noteBook{desktop};
};

TEST_F(DocsSamples, ACourseOfYourOwnGrowsStepByStep) {
  std::string notebook, picture;
  for (const std::string& sample : fencedSamples(page("teachers.md"))) {
    SCOPED_TRACE(sample);
    if (sample.starts_with("Plane,")) {
      put("data/planes.csv", sample);
    } else if (sample.starts_with("Twelve ")) {
      put("data/planes.inf", sample);
    } else if (sample.starts_with("title:")) {
      EXPECT_EQ(open(notebook = sample), "");
    } else if (sample.starts_with("section:")) {
      notebook += sample;
      EXPECT_EQ(open(notebook,
                     [this](int section, int page) {
                       const bool opens = section == 1 || section == 5 ||
                                          ((section == 3 || section == 4) && page == 2);
                       EXPECT_EQ(noteBook.window().cmdOK.enabled(), opens);
                     }),
                "");
    } else if (sample.starts_with("planes.svg")) {
      put("figures.txt", sample);
      const auto figures = courseFigures(folder.file("figures.txt"));
      ASSERT_TRUE(figures) << figures.error().message();
      EXPECT_FALSE(writeFigures(*figures, folder.file("data/"), folder.file("tolmod/figures/")));
    } else if (sample.starts_with("picture:")) {
      picture = sample;
    } else {
      EXPECT_TRUE(sample.starts_with("cp -r ") || sample.starts_with("tolmod/")) << "not tried";
    }
  }
  ASSERT_NE(picture, "");
  const std::string heading = "heading: Twelve Planes\n";
  ASSERT_THAT(notebook, HasSubstr(heading));
  EXPECT_EQ(open(notebook.insert(notebook.find(heading) + heading.size(), picture)), "");
}

// The messages of step 6 are those that the compiler gives.
TEST_F(DocsSamples, FaultsReadAsTheyAreTold) {
  const std::string text = page("teachers.md");
  const auto samples = fencedSamples(text);
  std::string planes, notebook;
  for (const std::string& sample : samples) {
    if (sample.starts_with("Plane,")) planes = sample;
    if (sample.starts_with("title:")) notebook = sample;
    if (sample.starts_with("Twelve ")) put("data/planes.inf", sample);
  }
  const auto said = [this](std::string source, const std::string& from, const std::string& to) {
    source.replace(source.find(from), from.size(), to);
    put("notebook.txt", source);
    std::string report;
    compileNotebook(
        {folder.file("notebook.txt"), folder.file("tolmod/x.nbo"), "--root", folder.path()},
        report);
    const std::size_t where = report.empty() ? 0 : folder.path().size() + 1;
    return report.substr(where, report.find('\n') - where);
  };
  put("data/planes.csv", planes);
  EXPECT_THAT(text, HasSubstr("`" + said(notebook, "12, 4, 1", "12, 3, 1") + "`"));
  EXPECT_THAT(text, HasSubstr("`" + said(notebook, "12, 4, 1", "11, 4, 1") + "`"));
  EXPECT_EQ(said(notebook, "12, 4, 1", ", , 1"), "");
  put("data/planes.csv", planes.replace(planes.find("5.1,18"), 6, "5.1,"));
  EXPECT_THAT(text, HasSubstr("`" + said(notebook, "12, 4, 1", "12, 4, 1") + "`"));
}

// Its samples are pieces; here each stands where it may.
TEST_F(DocsSamples, EveryKeywordOfTheReferenceCompiles) {
  for (const char* file : {"stakloss.csv", "stakloss.inf", "hald.csv", "hald.inf"})
    fs::copy(std::string(TOLMER_SOURCE_DIR "/course/data/") + file, folder.file("data"));
  fs::copy(TOLMER_PROGRAM_FOLDER "/figures/cars-fitted.svg", folder.file("tolmod/figures"));
  put("data/houses.csv", "Price\n1\n");
  put("data/houses.lab", "A\n");
  const auto samples = indentedSamples(page("notebook-source.md"));
  ASSERT_EQ(samples.size(), 8U);
  EXPECT_THAT(samples[0], HasSubstr("nbocompile SOURCE OUTPUT --root FOLDER"));
  const std::string& head = samples[1] + samples[2];
  const std::string before = "section: A\npage: plain\nsection: B\npage: picture\n";
  open(head + before + samples[3] + samples[5] + "page: plain\n" + samples[4] + "page: database\n" +
       samples[6] + samples[7]);
  EXPECT_EQ(noteBook.book().uDatabase.count(), 3);
  EXPECT_EQ(noteBook.book().uScenario[1].tName, "Hald's cement");
}

}  // namespace
}  // namespace tolmer
