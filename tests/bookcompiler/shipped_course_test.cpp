// The course as it is shipped: it compiles without a complaint, and a student who goes everywhere
// finds every page whole, every jump right and OK grey where it would open nothing.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <map>

#include "base/file_io.h"
#include "bookcompiler/book_compiler.h"
#include "notebook/notebook_window.h"
#include "notebook/object_file.h"
#include "notebook/picture_size.h"
#include "platform/headless/headless_desktop.h"
#include "support/layout_check.h"
#include "support/temp_folder.h"
#include "support/tree.h"

namespace tolmer {
namespace {

const std::string courseFolder = TOLMER_SOURCE_DIR "/course";
const std::string programFolder = TOLMER_PROGRAM_FOLDER;  // where the build draws the pictures

CompiledBook compileCourse() {
  return compileBook(*readWholeFile(courseFolder + "/notebook.txt"), {courseFolder, programFolder});
}

TEST(ShippedCourse, compilesWithoutComplaintOrWarning) {
  const auto course = compileCourse();
  for (const Complaint& complaint : course.complaints)
    ADD_FAILURE() << "notebook.txt:" << complaint.line << ": " << complaint.text;
  EXPECT_FALSE(course.objectText.empty());
}

class CourseWalk : public testing::Test {
 protected:
  CourseWalk() {
    noteBook.tProgramFolder = programFolder;
    const std::string object = folder.file("shipped.nbo");
    EXPECT_FALSE(writeFileAtomically(object, compileCourse().objectText));
    noteBook.ReadObjectFile(object);
  }

  const Book& book() { return noteBook.book(); }
  PageElements& elements() { return noteBook.window().elements; }

  // Calls it on each page, turned to, with section and page.
  void onEveryPage(const std::function<void(int, int)>& visit) {
    ASSERT_GE(book().uSection.count(), 6);
    for (int section = 1; section <= book().uSection.count(); ++section)
      for (int page = 1; page <= book().uSection[section].iNumPages; ++page) {
        SCOPED_TRACE("page " + std::to_string(section) + "." + std::to_string(page));
        noteBook.window().goTo(section, page);
        visit(section, page);
      }
  }

  // How many of a page's elements are of each kind.
  std::map<int, int> kindsOn(int section, int page) {
    const PageRecord& record = noteBook.page(section, page);
    std::map<int, int> kinds;
    for (int i = record.iFirstElement; i < record.iFirstElement + record.iNumElements; ++i)
      ++kinds[book().uPageElement[i].iKind];
    return kinds;
  }

  const test::TempFolder folder;
  HeadlessDesktop desktop;
  NoteBook noteBook{desktop};
};

TEST_F(CourseWalk, everyPageIsWholeAndItsPicturesAreThereInFullSize) {
  std::map<int, int> kinds;
  onEveryPage([&](int section, int page) {
    EXPECT_EQ(test::layoutFaults(noteBook.window()), "");
    for (const auto& [kind, count] : kindsOn(section, page)) kinds[kind] += count;
    for (int i = 1; i <= kindsOn(section, page)[ElementKind::bitmap]; ++i) {
      const Image& picture = elements().imgPicture(i);
      EXPECT_TRUE(isPicture(picture.file())) << picture.file();
      EXPECT_EQ(picture.width(), pictureSize(picture.file()).width) << "small letters";
    }
  });
  for (Int16 kind = ElementKind::text; kind <= ElementKind::version; ++kind)
    EXPECT_GT(kinds[kind], 0) << "the course uses every kind of element, but not " << kind;
}

TEST_F(CourseWalk, everyJumpLeadsToItsPage) {
  int jumps = 0;
  onEveryPage([&](int section, int page) {
    for (int i = 1; i <= kindsOn(section, page)[ElementKind::jump]; ++i, ++jumps) {
      noteBook.window().goTo(section, page);
      const JumpElement target = elements().jumpOf(i);
      elements().lblContentsEntry(i).Click();
      EXPECT_EQ(noteBook.LastSectionNumber(), target.iSection ? target.iSection : section);
      EXPECT_EQ(noteBook.LastPageNumber(), target.iPage);
      EXPECT_FALSE(noteBook.LastSectionNumber() == section && noteBook.LastPageNumber() == page)
          << "the jump \"" << target.tText << "\" leads nowhere";
    }
  });
  EXPECT_EQ(jumps, book().uJump.count());
}

TEST_F(CourseWalk, okCanBePressedOnlyWhereItOpensData) {
  onEveryPage([&](int section, int page) {
    const bool hasList =
        (section == 3 || section == 4) && page > 1 && noteBook.LastPageType() == PageType::scenario;
    EXPECT_EQ(noteBook.window().cmdOK.enabled(), section == 1 || section == 5 || hasList);
    for (int i = 1; i <= noteBook.window().miOutlineControlsLoaded; ++i) {
      Outline& outline = elements().outOutline(i);
      if (!outline.visible()) continue;
      for (int item = 0; item < static_cast<int>(outline.items().size()); ++item) {
        outline.click(item);
        EXPECT_FALSE(noteBook.window().cmdOK.enabled());
        EXPECT_NE(elements().lblDatabaseDesc(i).caption(), "") << outline.items()[item].text;
      }
    }
  });
}

// A data set that nobody is led to is lost on the student.
TEST_F(CourseWalk, everyDataSetIsOffered) {
  std::vector<std::string> offered;
  for (int i = 1; i <= book().uScenario.count(); ++i)
    offered.push_back(book().uScenario[i].tParameter[1]);
  for (const auto& file : std::filesystem::directory_iterator(courseFolder + "/data")) {
    if (file.path().extension() != ".csv") continue;
    EXPECT_THAT(offered, testing::Contains("\\data\\" + file.path().filename().string()));
  }
}

}  // namespace
}  // namespace tolmer
