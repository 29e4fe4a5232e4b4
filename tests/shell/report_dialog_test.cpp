// Save Report and Print: what is asked, what comes of it, and what stays for the run.
#include "shell/report_dialog.h"

#include <gmock/gmock.h>

#include "base/file_io.h"
#include "platform/paper/printed_pages.h"
#include "shell/shipped_program.h"
#include "support/layout_check.h"
#include "support/temp_folder.h"

namespace tolmer::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class ReportDialog : public ShippedProgram {
 protected:
  void SetUp() override {
    startWithDefaultExample();
    desktop.onSaveFile = [this](const FileQuestion& question) {
      asked = question;
      return name.empty() ? std::nullopt : std::optional(folder.file(name));
    };
    desktop.onPdf = [this](const PrintedPages& pages) {
      printed = pages;
      return Result<std::string>("%PDF");
    };
    desktop.onPrint = [this](const PrintedPages& pages) { printed = pages; };
  }
  frmReport& dialog() { return dynamic_cast<frmReport&>(user.window("frmReport")); }
  std::vector<std::string> ticked() {
    std::vector<std::string> captions;
    for (int i = 1; i <= dialog().chkPart.last(); ++i)
      if (dialog().chkPart(i).value() == 1) captions.push_back(dialog().chkPart(i).caption());
    return captions;
  }
  // The entry is chosen, the user does this and goes.
  void report(const std::string& entry, const std::function<void()>& work,
              const char* way = "cmdOK") {
    script.window("frmReport", [this, work, way] {
      work();
      user.click("frmReport", way);
    });
    user.menu("mdiReg", "File/" + entry);
  }
  std::vector<std::string> headings() const {
    std::vector<std::string> titles;
    for (const PrintedHeading& heading : printed.headings) titles.push_back(heading.title);
    return titles;
  }

  TempFolder folder;
  std::string name = "r";
  FileQuestion asked;
  PrintedPages printed;
};

TEST_F(ReportDialog, OffersWhatIsInUseAndSavesAPdfOnReturn) {
  script.window("frmReport", [&] {
    EXPECT_EQ(layoutFaults(dialog()), "");
    EXPECT_EQ(dialog().txtTitle.text(), "Multiple regression of StackLoss");
    EXPECT_EQ(dialog().focus(), &dialog().txtTitle);
    EXPECT_THAT(ticked(), ElementsAre("Fitted Model", "Interpretation", "Estimated Coefficients",
                                      "ANOVA Table", "Histogram of Residuals"));
    EXPECT_EQ(dialog().chkPart.last(), 15);
    user.key("frmReport", {keys::enter});
  });
  user.menu("mdiReg", "File/Save Report...");
  EXPECT_EQ(asked.name, "Multiple regression of StackLoss");
  EXPECT_EQ(*readWholeFile(folder.file("r.pdf")), "%PDF");
  const Label& line = module.parts().frame.lblStatus;
  EXPECT_EQ(line.caption(), "The report was saved: " + folder.file("r.pdf"));
  desktop.advance(10000);
  EXPECT_THAT(line.caption(), HasSubstr("21 of 21 cases"));
  EXPECT_THAT(headings(), ElementsAre("Fitted Model", "Interpretation", "Estimated Coefficients",
                                      "ANOVA Table", "Histogram of Residuals"));
}

TEST_F(ReportDialog, TheNameDecidesTheFormat) {
  for (const auto& [file, beginning] : {std::pair{"a.html", "<!DOCTYPE html>"},
                                        {"a.md", "# My \\<title\\>"},
                                        {"a.R", "# My <ti"}}) {
    name = file;
    report("Save Report...", [&] { user.type("frmReport", "txtTitle", "My <title>"); });
    EXPECT_THAT(*readWholeFile(folder.file(file)), testing::StartsWith(beginning));
    EXPECT_EQ(asked.name, "My  title");
  }
  report("Save Report...", [] {});
  EXPECT_THAT(asked.kinds.front().extensions, ElementsAre("R")) << "as the last time";
  EXPECT_EQ(asked.folder, folder.path());
}

TEST_F(ReportDialog, KeepsItsChoiceForTheRunAndFollowsTheQuadrantsUntilThen) {
  const auto replaceFirst = [this](DisplayId id) {
    module.parts().state.frmCurrentDisplay = &user.window("frmEstCoef");
    module.parts().manager.ShowNewWindow(id.iCategory, id.iIndex);
  };
  report("Print...", [&] { user.type("frmReport", "txtAuthor", "A. B."); });
  EXPECT_EQ(printed.author, "A. B.");
  replaceFirst({tableDisplays, 3});
  report("Print...", [&] {
    EXPECT_THAT(ticked(), testing::Contains("Residual List"));
    EXPECT_EQ(dialog().txtAuthor.text(), "A. B.");
    user.click("frmReport", "cmdNone");
    EXPECT_TRUE(ticked().empty());
    user.click("frmReport", "chkPart(3)");
    user.choose("frmReport", "cboCaseLists", "Left out");
    user.choose("frmReport", "cboPaper", "US Letter");
  });
  EXPECT_TRUE(headings().empty()) << "the only part lists cases";
  EXPECT_EQ(printed.paper.width, 612);
  report(
      "Save Report...",
      [&] {
        EXPECT_THAT(ticked(), ElementsAre("Residual List"));
        user.click("frmReport", "cmdAll");
        user.type("frmReport", "txtAuthor", "nobody");
      },
      "cmdCancel");
  EXPECT_TRUE(asked.title.empty()) << "no file is asked for after Cancel";
  report("Print...", [&] {
    EXPECT_EQ(dialog().txtAuthor.text(), "A. B.");
    EXPECT_THAT(ticked(), ElementsAre("Residual List"));
    user.key("frmReport", {keys::f1});
    EXPECT_EQ(desktop.helpRequests().back().context, 117);
  });
}

TEST(UsualPaper, IsLetterWhereThatIsUsual) {
  EXPECT_EQ(usualPaper("en_US.UTF-8"), Paper::letter);
  EXPECT_EQ(usualPaper("es_MX"), Paper::letter);
  for (const char* other : {"de_DE.UTF-8", "C", "", "_", "en_"})
    EXPECT_EQ(usualPaper(other), Paper::a4) << other;
}

}  // namespace
}  // namespace tolmer::test
