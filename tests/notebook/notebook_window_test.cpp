#include "notebook/notebook_window.h"

#include "notebook/cover.h"
#include "notebook/notebook_fixture.h"
#include "notebook/sample_only.h"
#include "platform/user_input.h"
#include "support/layout_check.h"

namespace tolmer {
namespace {

using NotebookWindow = test::NotebookFixture;

TEST_F(NotebookWindow, thePageIsLaidOutFromTopToBottom) {
  show([&] {
    const auto& heading = get<Label>("lblHeading(1)");
    const auto& text = get<Label>("lblText(1)");
    const auto& jump = get<Label>("lblContentsEntry(1)");
    EXPECT_EQ(heading.caption(), "Welcome");
    EXPECT_EQ(heading.left(), 300);
    EXPECT_EQ(heading.top(), 500);
    EXPECT_EQ(text.left(), 500) << "indented";
    EXPECT_TRUE(text.font().bold);
    EXPECT_EQ(text.top(), heading.bottom() + 100);
    EXPECT_EQ(jump.top(), text.bottom() + 100 + 200) << "a space between";
    EXPECT_FALSE(jump.font().bold);
    EXPECT_EQ(jump.left(), 300);
    click("cmdOK");
  });
}

TEST_F(NotebookWindow, theCoverPageHasItsOwnHeading) {
  show([&] {
    EXPECT_EQ(get<Label>("lblIntroChapterHeading").caption(), "A Sample");
    EXPECT_TRUE(sees("lblIntroChapterHeading"));
    EXPECT_FALSE(sees("lblPageHeader(0)"));
    click("lblContentsEntry(1)");
    EXPECT_FALSE(sees("lblIntroChapterHeading"));
    EXPECT_TRUE(sees("lblPageHeader(0)") && sees("lblPageHeader(1)"));
    EXPECT_EQ(get<Label>("lblPageHeader(0)").caption(), "Ch. 99 ");
    EXPECT_EQ(get<Label>("lblPageHeader(1)").caption(), "A Sample of Everything");
    click("cmdOK");
  });
}

TEST_F(NotebookWindow, turnersAndJumpsLeadToTheirPages) {
  const auto expectTurners = [&](bool back, bool on) {
    EXPECT_EQ(sees("lblPreviousPage"), back);
    EXPECT_EQ(sees("lblNextPage"), on);
    EXPECT_EQ(sees("ZMLogo(0)"), !back);
    EXPECT_EQ(sees("ZMLogo(1)"), back);
  };
  show([&] {
    expectTurners(false, false);
    click("lblContentsEntry(1)");  // to 2.1
    EXPECT_EQ(window().tbNoteBook.activeTab(), 1);
    expectTurners(false, true);
    click("lblNextPage");
    expectTurners(true, true);
    get<TabBook>("tbNoteBook").chooseTab(0);
    EXPECT_TRUE(sees("lblHeading(1)") && !sees("outOutline(1)"));
    get<TabBook>("tbNoteBook").chooseTab(1);  // comes back to its page
    EXPECT_TRUE(sees("outOutline(1)") && !sees("lblHeading(1)"));
    EXPECT_EQ(noteBook.LastPageNumber(), 2);
    click("lblNextPage");
    EXPECT_EQ(noteBook.LastPageNumber(), 3);
    EXPECT_EQ(noteBook.LastPageType(), PageType::picture);
    expectTurners(true, false);
    click("lblPreviousPage");
    EXPECT_EQ(window().tbNoteBook.activePage(), 1);
    click("lblNextPage");
    click("lblContentsEntry(1)");  // to page 1 of its own section
    EXPECT_EQ(window().tbNoteBook.activePage(), 0);
    EXPECT_EQ(noteBook.LastSectionNumber(), 2);
    EXPECT_EQ(noteBook.LastPageNumber(), 1);
    click("cmdOK");
  });
}

TEST_F(NotebookWindow, theScenarioListShowsNamesAndTheSelectedOnesDescription) {
  showAt(2, 1, [&] {
    EXPECT_EQ(get<Label>("lblScenName(0)").caption(), "alpha");
    EXPECT_TRUE(get<OptionButton>("optScenario(1)").value());
    EXPECT_EQ(get<Label>("lblScenarioDesc").caption(), "About beta, told at length.");
    EXPECT_FALSE(sees("optScenario(3)") || sees("lblScenName(3)"));
    const float spacing = std::round((get<Frame>("fraScenarios").height() - 250) / 3);
    EXPECT_EQ(get<OptionButton>("optScenario(2)").top(), spacing * 2 + 250);
    EXPECT_EQ(get<OptionButton>("optScenario(2)").left(), 80);
    EXPECT_EQ(get<Label>("lblScenName(2)").left(), 320);
    EXPECT_EQ(noteBook.LastScenarioName(), "beta") << "shown is selected";

    click("lblScenName(0)");
    EXPECT_EQ(get<Label>("lblScenarioDesc").caption(), "About alpha, told at length.");
    user.doubleClick("frmNotebook", "lblScenName(2)");  // is OK
  });
  EXPECT_EQ(noteBook.LastAction(), NoteBook::closedByOK);
  EXPECT_EQ(noteBook.LastScenarioParameter(1), "\\data\\gamma.csv");
  EXPECT_FALSE(window().visible());
}

TEST_F(NotebookWindow, aLongDescriptionScrolls) {
  Book book = test::sampleBook();
  for (int i = 0; i < 300; ++i) book.uScenario[3].tDesc += " more";
  load(book);
  showAt(2, 1, [&] {
    EXPECT_FALSE(sees("vsbScenDesc"));
    click("optScenario(2)");
    auto& bar = get<ScrollBar>("vsbScenDesc");
    const auto& text = get<Label>("lblScenarioDesc");
    ASSERT_TRUE(bar.visible());
    EXPECT_EQ(bar.max(), text.height() - get<Panel>("picScenDesc").height());
    EXPECT_EQ(bar.largeChange(), std::lround(bar.max() / 5.0));
    bar.setValue(bar.max());
    EXPECT_EQ(text.bottom(), get<Panel>("picScenDesc").height());
    click("optScenario(0)");
    EXPECT_EQ(text.top(), 0);
    click("cmdOK");
  });
}

TEST_F(NotebookWindow, cancelGivesBackPageAndScenario) {
  showAt(2, 1, [&] {
    click("lblScenName(0)");
    click("lblNextPage");
    click("cmdCancel");
  });
  EXPECT_EQ(noteBook.LastAction(), NoteBook::closedByCancel);
  EXPECT_EQ(noteBook.LastSectionNumber(), 2);
  EXPECT_EQ(noteBook.LastPageNumber(), 1);
  EXPECT_EQ(noteBook.GetSelectedScenario(2, 1), 1);
  EXPECT_EQ(noteBook.LastScenarioName(), "beta");
  show([&] {
    EXPECT_EQ(window().tbNoteBook.activePage(), 1) << "the page that was left";
    click("lblPreviousPage");
    EXPECT_TRUE(get<OptionButton>("optScenario(1)").value());
    click("cmdOK");
  });
}

TEST_F(NotebookWindow, keepsAPageBesideWithItsStepsAsANumberedList) {
  Book book = test::sampleBook();
  book.uScenario[2].tDesc = "Two <steps>:\n1. Press OK.\n12. Look & write.";
  load(book);
  showAt(2, 1, [&] {
    click("cmdKeepBeside");
    EXPECT_TRUE(window().visible());
    click("cmdCancel");
  });
  const KeptPages& kept = desktop.keptPages();
  EXPECT_EQ(kept.pages[kept.shown].title, book.uSection[2].tName + ", page 1 of 3");
  EXPECT_THAT(kept.pages[kept.shown].html,
              testing::HasSubstr(
                  "<a name=\"chosen\"></a>beta</h4><p>Two &lt;steps&gt;:</p><ol><li>Press OK.</li>"
                  "<li>Look &amp; write.</li></ol>"));
}

TEST_F(NotebookWindow, aLongDescriptionTakesTheRoomOfThePageAndScrollsByTheWheel) {
  Book book = test::sampleBook();
  book.uScenario[2].tDesc = "Line";
  for (int i = 0; i < 14; ++i) book.uScenario[2].tDesc += "\nLine";
  book.uScenario[1].tDesc = book.uScenario[2].tDesc;
  for (int i = 0; i < 60; ++i) book.uScenario[1].tDesc += "\nLine";
  load(book);
  showAt(2, 1, [&] {
    const auto& words = get<Label>("lblScenarioDesc");
    EXPECT_FALSE(get<ScrollBar>("vsbScenDesc").visible());
    EXPECT_LE(window().elements.nextControlTop(), window().picPageContainer.height());
    click("lblScenName(0)");
    EXPECT_TRUE(turnWheel(get<Label>("lblScenarioDesc"), 3));
    EXPECT_LT(words.top(), 0);
    click("cmdCancel");
  });
}

TEST_F(NotebookWindow, outlinesShareTheListAndKeepTheirOwnSelection) {
  showAt(2, 2, [&] {
    auto& first = get<Outline>("outOutline(1)");
    auto& second = get<Outline>("outOutline(2)");
    ASSERT_EQ(first.items().size(), 5U);
    EXPECT_EQ(second.items()[4].text, "Third");
    EXPECT_TRUE(first.expanded(0)) << "open at first";
    EXPECT_FALSE(first.expanded(3));
    EXPECT_FALSE(first.items()[0].isLeaf);
    EXPECT_TRUE(first.items()[1].isLeaf);
    EXPECT_EQ(get<Label>("lblDatabaseDesc(1)").caption(), "About First");
    EXPECT_EQ(get<Label>("lblDatabaseDesc(2)").caption(), "About Second");
    EXPECT_GT(second.top(), first.bottom());
    first.click(2);
    EXPECT_EQ(get<Label>("lblDatabaseDesc(1)").caption(), "About Second");
    click("cmdOK");
  });
  EXPECT_EQ(noteBook.LastDatabaseName(1), "Second");
  EXPECT_EQ(noteBook.GetSelectedDatabase(2, 2, 1), 2);
  EXPECT_EQ(noteBook.GetSelectedDatabase(2, 2, 2), 2);
}

TEST_F(NotebookWindow, aGroupOpensAndClosesAtAClickAndCannotBeChosen) {
  showAt(2, 2, [&] {
    auto& outline = get<Outline>("outOutline(1)");
    outline.click(3);
    EXPECT_TRUE(outline.expanded(3));
    EXPECT_FALSE(get<Button>("cmdOK").enabled());
    outline.doubleClick();  // closes the group again, and not the book
    EXPECT_FALSE(outline.expanded(3));
    EXPECT_TRUE(window().visible());
    click("lblNextPage");
    EXPECT_TRUE(get<Button>("cmdOK").enabled());
    click("lblPreviousPage");
    EXPECT_FALSE(get<Button>("cmdOK").enabled());
    outline.click(4);
    EXPECT_TRUE(get<Button>("cmdOK").enabled());
    outline.doubleClick();
  });
  EXPECT_EQ(noteBook.LastAction(), NoteBook::closedByOK);
  EXPECT_EQ(noteBook.LastDatabaseName(1), "Third");
}

TEST_F(NotebookWindow, cancelGivesBackTheDatabases) {  // by the window's frame and by its key, too
  for (const auto& leave : std::vector<std::function<void()>>{
           [&] { click("cmdCancel"); }, [&] { user.close("frmNotebook"); },
           [&] { user.key("frmNotebook", {keys::escape}); }}) {
    noteBook.iLastAction = NoteBook::neverClosed;
    showAt(2, 2, [&] {
      get<Outline>("outOutline(1)").click(4);
      get<Outline>("outOutline(2)").click(1);
      click("lblNextPage");
      leave();
    });
    EXPECT_EQ(noteBook.GetSelectedDatabase(2, 2, 1), 1);
    EXPECT_EQ(noteBook.GetSelectedDatabase(2, 2, 2), 2);
    EXPECT_EQ(noteBook.LastAction(), NoteBook::closedByCancel);
    EXPECT_EQ(noteBook.LastDatabaseName(1), "First");
    EXPECT_EQ(noteBook.LastDatabaseName(2), "Second");
  }
}

TEST_F(NotebookWindow, aPicturePageCanBeConfirmedOnlyWithAPicture) {
  showAt(2, 3, [&] {
    EXPECT_TRUE(get<Button>("cmdOK").enabled());
    EXPECT_THAT(get<Image>("imgPicture(2)").file(), testing::EndsWith("/two.png"));
    const auto& picture = get<Image>("imgPicture(1)");
    EXPECT_EQ(picture.width(), pixels(200));
    EXPECT_EQ(picture.left() + picture.right(), window().picPageContainer.width()) << "centred";
    click("cmdOK");
  });
  Book book = test::sampleBook();
  for (const int i : {8, 11}) book.uPageElement[i].iKind = ElementKind::space;
  book.uPage[1].iPageType = PageType::picture;
  load(book);
  show([&] {
    EXPECT_TRUE(get<Button>("cmdOK").enabled()) << "the cover page always";
    window().goTo(2, 3);
    EXPECT_FALSE(get<Button>("cmdOK").enabled());
    click("cmdCancel");
  });
}

TEST_F(NotebookWindow, aLargePictureIsMadeSmallerInItsProportions) {
  writePicture("one.png", 2320, 400);
  writePicture("two.png", 100, 1000);
  showAt(2, 3, [&] {
    const auto& wide = get<Image>("imgPicture(1)");
    EXPECT_EQ(wide.width(), window().picPageContainer.width() - 600);
    EXPECT_FLOAT_EQ(wide.height(), wide.width() * 400 / 2320);
    const auto& high = get<Image>("imgPicture(2)");
    EXPECT_LE(high.bottom(), window().picPageContainer.height());
    EXPECT_FLOAT_EQ(high.width(), high.height() / 10);
    click("cmdOK");
  });
}

TEST_F(NotebookWindow, aClickOnAPictureFlashesOKAndTellsThatItIsASample) {
  showAt(2, 3, [&] {
    script.window("frmSampleOnly", [&] {
      EXPECT_TRUE(window().tmrFlashOK.enabled());
      desktop.advance(500);
      EXPECT_EQ(window().cmdOK.backColour(), colours::red);
      EXPECT_EQ(window().cmdOK.foreColour(), colours::white);
      user.key("frmSampleOnly", {keys::escape});
    });
    click("imgPicture(1)");
    EXPECT_EQ(desktop.beeps(), 1);
    EXPECT_FALSE(window().tmrFlashOK.enabled());
    EXPECT_EQ(window().cmdOK.backColour(), colours::buttonFace);
    EXPECT_EQ(window().cmdOK.foreColour(), colours::buttonText);
    window().cmdOK.setEnabled(false);
    click("imgPicture(1)");
    EXPECT_EQ(desktop.beeps(), 1) << "nothing to press";
    window().cmdOK.setEnabled(true);
    click("cmdOK");
  });
}

TEST_F(NotebookWindow, checksAndVersionsAreRecordedByTheirNumberOnThePage) {
  showAt(2, 3, [&] {
    EXPECT_EQ(get<CheckBox>("chkCheck(2)").value(), 1);
    EXPECT_EQ(get<NumberBox>("silgVersion(1)").value(), 7);
    EXPECT_EQ(get<NumberBox>("silgVersion(1)").left(), 120);
    EXPECT_EQ(get<NumberBox>("silgVersion(2)").left(), 320);
    EXPECT_EQ(get<Label>("lblVersion(2)").top(), get<NumberBox>("silgVersion(2)").top());
    click("chkCheck(2)");
    user.type("frmNotebook", "silgVersion(1)", "99");
    click("cmdOK");
  });
  EXPECT_EQ(noteBook.GetCheck(2, 3, 2), 0);
  EXPECT_EQ(noteBook.GetVersion(2, 3), 99);
}

// Return after a page was turned by Return must not close the book by accident.
TEST_F(NotebookWindow, theFocusOfALinkThatIsGoneDoesNotFallOnOK) {
  showAt(2, 1, [&] {
    click("lblNextPage");
    EXPECT_EQ(window().focus(), &window().lblNextPage);
    click("lblNextPage");
    EXPECT_EQ(window().focus(), &window().lblPreviousPage) << "the last page";
    click("lblContentsEntry(1)");  // to page 1 of the section, which has no jump
    EXPECT_EQ(window().focus(), &window().tbNoteBook);
    click("optScenario(1)");
    window().goTo(2, 2);
    EXPECT_EQ(window().focus(), &window().tbNoteBook);
    click("lblNextPage");
    click("cmdOK");
  });
  show([&] {
    EXPECT_EQ(window().focus(), &window().tbNoteBook) << "whatever it was left on";
    click("cmdOK");
  });
}

TEST_F(NotebookWindow, everyPageAndWindowCanBeSeenAndRead) {
  // Forth and back: what one page leaves behind would lie over the next one.
  for (const auto& [section, page] :
       {std::pair(1, 1), {2, 1}, {2, 2}, {2, 3}, {1, 1}, {2, 2}, {2, 1}, {1, 1}}) {
    window().goTo(section, page);
    EXPECT_EQ(test::layoutFaults(window()), "") << section << "." << page;
  }
  frmNoteSplash cover(desktop, noteBook);
  EXPECT_EQ(test::layoutFaults(cover), "");
  frmSampleOnly sample(desktop, "");
  EXPECT_EQ(test::layoutFaults(sample), "");
  frmOpeningBook opening(desktop, folder.path());
  EXPECT_EQ(test::layoutFaults(opening), "");
}

}  // namespace
}  // namespace tolmer
