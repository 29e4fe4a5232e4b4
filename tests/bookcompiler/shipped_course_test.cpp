// The course as it is shipped: it compiles without a complaint, and every page of it can be read.
#include <gtest/gtest.h>

#include "base/file_io.h"
#include "bookcompiler/book_compiler.h"
#include "notebook/notebook_window.h"
#include "notebook/object_file.h"
#include "platform/headless/headless_desktop.h"
#include "support/layout_check.h"
#include "support/temp_folder.h"

namespace tolmer {
namespace {

const std::string courseFolder = TOLMER_SOURCE_DIR "/course";

CompiledBook compileCourse() {
  return compileBook(*readWholeFile(courseFolder + "/notebook.txt"),
                     {courseFolder, courseFolder + "/art"});
}

TEST(ShippedCourse, compilesWithoutComplaintOrWarning) {
  const auto course = compileCourse();
  for (const Complaint& complaint : course.complaints)
    ADD_FAILURE() << "notebook.txt:" << complaint.line << ": " << complaint.text;
  EXPECT_FALSE(course.objectText.empty());
}

TEST(ShippedCourse, showsEveryPageWithNothingCutOff) {
  const test::TempFolder folder;
  HeadlessDesktop desktop;
  NoteBook noteBook(desktop);
  noteBook.tProgramFolder = courseFolder + "/art";
  const std::string object = folder.file("shipped.nbo");
  ASSERT_FALSE(writeFileAtomically(object, compileCourse().objectText));
  noteBook.ReadObjectFile(object);
  frmNotebook& window = noteBook.window();
  const Book& book = noteBook.book();
  ASSERT_GE(book.uSection.count(), 6);
  for (int section = 1; section <= book.uSection.count(); ++section)
    for (int page = 1; page <= book.uSection[section].iNumPages; ++page) {
      window.goTo(section, page);
      EXPECT_EQ(test::layoutFaults(window), "") << "page " << section << "." << page;
    }
}

}  // namespace
}  // namespace tolmer
