#include "platform/web/web_desktop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <stdexcept>

#include "base/file_io.h"
#include "platform/buttons.h"
#include "platform/fields.h"
#include "platform/grid/edit_grid.h"
#include "platform/labels.h"
#include "platform/window.h"
#include "sheetfiles/autosave_store.h"

namespace tolmer {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

// A page whose user does one thing after another, each when the program waits.
class ScriptedPage : public PageLine {
 public:
  void post(const std::string& batch) override { batches.push_back(batch); }
  std::optional<std::string> next(double milliseconds) override {
    if (milliseconds == 0 || script.empty()) {
      if (milliseconds < 0) throw std::logic_error("the program waits and nobody does anything");
      return std::nullopt;
    }
    const auto step = std::move(script.front());
    script.pop_front();
    return step();
  }
  std::string lend(std::string_view bytes) override {
    lent.emplace_back(bytes);
    return "blob:" + std::to_string(lent.size());
  }
  std::optional<std::string> borrow(const std::string& address) override {
    if (!address.starts_with("blob:")) return std::nullopt;
    return lent.at(std::stoul(address.substr(5)) - 1);
  }
  // A message of these fields; "#NAME" stands for the number of the control of that name.
  void does(std::vector<std::string> fields) {
    script.emplace_back([this, fields] {
      std::string text;
      for (const std::string& field : fields) {
        if (!text.empty()) text += '\x1f';
        text += field.starts_with('#') ? std::to_string(numberOf(field.substr(1))) : field;
      }
      return text;
    });
  }
  int numberOf(const std::string& name) const {
    for (const std::string& batch : batches) {
      const auto at = batch.find("\"name\": \"" + name + '"');
      if (at == std::string::npos) continue;
      const auto id = batch.rfind("\"id\": ", at);
      return std::stoi(batch.substr(id + 6));
    }
    return -1;
  }
  // What was said since the last call.
  std::string heard() {
    std::string all;
    for (; heard_ < batches.size(); ++heard_) all += batches[heard_];
    return all;
  }

  std::vector<std::string> batches;
  std::vector<std::string> lent;
  std::deque<std::function<std::string()>> script;

 private:
  std::size_t heard_ = 0;
};

struct Dialog : Window {
  explicit Dialog(Desktop& desktop, std::string name = "frmTest")
      : Window(desktop, std::move(name), WindowStyle::dialog, "Test") {
    setPlace({0, 0, pixels(300), pixels(200)});
    cmdOK.setDefault(true);
    cmdOK.Click = [this] { hide(); };
  }
  TextBox txtName{this, "txtName"};
  CheckBox chkRound{this, "chkRound", "&Round"};
  Button cmdOK{this, "cmdOK", "OK"};
};

class WebDesktopTest : public testing::Test {
 protected:
  ScriptedPage page;
  WebDesktop desktop{page, "/zelmar/tolmod", testing::TempDir()};
};

TEST_F(WebDesktopTest, ADialogIsShownWorkedAndClosedThroughTheLine) {
  {
    Dialog dialog(desktop);
    dialog.chkRound.setEnabled(false);
    page.does({"text", "#txtName", "Größe", "7", "0"});
    page.does({"value", "#chkRound", "1"});  // cannot be used
    page.does({"click", "4711"});            // nothing that there is
    page.does({"point", "#txtName", "press", "1", "1"});
    page.does({"\x1f\x1f"});
    page.does({"key", "13", "0", "0", "0"});
    dialog.showModal();
    EXPECT_EQ(dialog.txtName.text(), "Größe");
    EXPECT_EQ(dialog.txtName.marked().first, 7U);
    EXPECT_EQ(dialog.chkRound.value(), 0);
    // What the user typed does not come back to him; what the program sets does.
    EXPECT_THAT(page.heard(), Not(HasSubstr("Größe")));
    dialog.txtName.setText("other");
    desktop.doEvents();
    EXPECT_THAT(page.heard(), HasSubstr("other"));
  }
  const int window = page.numberOf("frmTest");
  desktop.doEvents();
  EXPECT_THAT(page.heard(), HasSubstr(R"("do": "gone", "id": )" + std::to_string(window)));
}

TEST_F(WebDesktopTest, AControlIsToldAsHtmlAndWhatTheUserSetWhereTheProgramWantsItOtherwise) {
  Dialog dialog(desktop);
  Label label(&dialog, "lblAge", "<&Age> && more");
  NumberBox age(&dialog, "nbrAge");
  age.setTip("\"in years\"");
  dialog.chkRound.Click = [&] { dialog.chkRound.setValue(0); };
  dialog.show();
  desktop.doEvents();
  const std::string id = std::to_string(page.numberOf("lblAge"));
  EXPECT_THAT(page.heard(), AllOf(HasSubstr("&lt;<u>A</u>ge&gt; &amp; more"),
                                  HasSubstr("aria-labelledby=\\\"label-" + id),
                                  HasSubstr("aria-description=\\\"&quot;in years&quot;")));
  page.does({"value", "#nbrAge", "7"});
  page.does({"value", "#chkRound", "1"});
  EXPECT_THROW(desktop.run(), std::logic_error);
  EXPECT_EQ(age.value(), 7);
  EXPECT_THAT(page.heard(), AllOf(HasSubstr(R"("value": "0")"), Not(HasSubstr(R"("value": "7")"))));
}

TEST_F(WebDesktopTest, TabGoesRoundAndTheFocusIsToldOnce) {
  Dialog dialog(desktop);
  page.does({"key", "9", "0", "0", "0"});
  page.does({"key", "9", "1", "0", "0"});
  page.does({"focus", "#cmdOK"});
  page.does({"key", "13", "0", "0", "0"});
  dialog.showModal();
  std::vector<int> told;
  for (const std::string& batch : page.batches)
    if (const auto at = batch.find("\"do\": \"focus\", \"id\": "); at != std::string::npos)
      told.push_back(std::stoi(batch.substr(at + 21)));
  const int name = page.numberOf("txtName");
  EXPECT_THAT(told, ElementsAre(name, page.numberOf("chkRound"), name));
}

TEST_F(WebDesktopTest, TheWindowThatTheUserHasGoneBackToHasTheKeys) {
  Dialog first(desktop, "frmFirst");
  Dialog second(desktop, "frmSecond");
  first.show();
  second.show();
  page.does({"activate", "#frmFirst"});
  page.does({"key", "13", "0", "0", "0"});
  EXPECT_THROW(desktop.run(), std::logic_error);
  EXPECT_FALSE(first.visible());
  EXPECT_TRUE(second.visible());
}

TEST_F(WebDesktopTest, OfAGridOnlyRowsAreToldThatReadOtherwise) {
  Dialog dialog(desktop);
  EditGrid grid(&dialog, "spdData");
  grid.setPlace({0, 0, pixels(300), pixels(200)});
  grid.setSize(400, 5);
  grid.setText(390, 2, "far below");
  dialog.show();
  desktop.doEvents();
  EXPECT_THAT(page.heard(), Not(HasSubstr("far below")));
  grid.setText(3, 2, "1.5");
  grid.setText(4, 3, "");
  desktop.doEvents();
  const std::string heard = page.heard();
  EXPECT_THAT(heard, AllOf(HasSubstr(R"("at": 3, )"), HasSubstr(R"("text": "1.5")")));
  EXPECT_THAT(heard, Not(HasSubstr(R"("at": 4, )")));
  // A fixed cell is not edited, another one takes what is typed.
  grid.setStyle({1, 1, 400, 5}, {.type = CellType::text});
  std::string typed;
  grid.EditDone = [&](CellPosition, const std::string& text, bool& taken) {
    typed = text;
    taken = true;
  };
  page.does({"scrolled", "#spdData", "0", "0", "300", "200"});
  page.does({"point", "#spdData", "press", "100", "40", "left", "0", "0"});
  page.does({"type", "#spdData", "4"});
  page.does({"edit", "#spdData", "42", "2", "0"});
  page.does({"key", "13", "0", "0", "0"});
  page.does({"point", "#spdData", "press", "-5", "999", "left", "0", "0"});
  page.does({"scrolled", "#spdData", "0", "9250", "300", "200"});
  page.does({"click", "#cmdOK"});
  dialog.showModal();
  EXPECT_EQ(typed, "42");
  EXPECT_EQ(grid.activeCell(), (CellPosition{3, 2}));
  EXPECT_THAT(page.heard(), HasSubstr("far below"));
}

TEST_F(WebDesktopTest, AGridMayGoInItsOwnPress) {
  Dialog dialog(desktop);
  auto grid = std::make_unique<Grid>(&dialog, "spdAny");
  grid->setPlace({0, 0, pixels(300), pixels(200)});
  grid->setSize(9, 3);
  grid->MouseDown = [&](MouseButton) { grid.reset(); };
  page.does({"scrolled", "#spdAny", "0", "0", "300", "200"});
  page.does({"point", "#spdAny", "press", "100", "40", "left", "0", "0"});
  page.does({"point", "#spdAny", "release", "100", "40", "left", "0", "0"});
  page.does({"click", "#cmdOK"});
  dialog.showModal();
  EXPECT_EQ(grid, nullptr);
}

TEST_F(WebDesktopTest, ABoxWaitsWithinADialogAndTheEndLeavesAllLoops) {
  Dialog dialog(desktop);
  std::vector<Answer> answers;
  dialog.txtName.Changed = [&] {
    const MessageBox box{.title = "T", .text = "Sure?", .buttons = MessageButtons::yesNo};
    answers.push_back(desktop.messageBox(box));
    if (answers.back() == Answer::yes) desktop.endProgram(3);
  };
  page.does({"text", "#txtName", "a", "1", "0"});
  page.does({"key", "78", "0", "0", "0"});  // N
  page.does({"text", "#txtName", "ab", "2", "0"});
  page.does({"key", "9", "1", "0", "0"});  // back around, from Yes to No
  page.does({"key", "37", "0", "0", "0"});
  page.does({"key", "13", "0", "0", "0"});
  EXPECT_THROW(dialog.showModal(), ProgramEnded);
  EXPECT_THAT(answers, ElementsAre(Answer::no, Answer::yes));
}

TEST_F(WebDesktopTest, WorkGoesToThePagesStorageAndARefusalIsTold) {
  struct Store : VisitStore {
    explicit Store(WebDesktop& desktop) : desktop(desktop) {}
    std::optional<Error> write(const std::string& name, std::string_view bytes) override {
      return desktop.keepVisit(name, bytes);
    }
    void remove(const std::string& name) override { gone += name; }
    void handOver(const std::string& file, std::string_view bytes) override {
      given += file + ": " + std::string(bytes);
    }
    WebDesktop& desktop;
    std::string gone, given;
  } store(desktop);
  StoredVisits visits(store, {{"old", 5, "first"}, {"new", 9, "second"}});
  auto lost = visits.lost();
  ASSERT_EQ(lost.size(), 2U);
  EXPECT_EQ(*lost[0]->read(), "second");
  EXPECT_TRUE(visits.lost().empty());  // while they are held
  lost[0]->remove();
  lost.clear();
  lost = visits.lost();
  ASSERT_EQ(lost.size(), 1U);
  lost[0]->keepAside();
  lost.clear();
  EXPECT_TRUE(visits.lost().empty());
  EXPECT_EQ(store.given, "old.zmm: first");
  EXPECT_EQ(store.gone, "newold");

  const auto place = visits.take();
  page.does({"click", "1"});  // what the user does meanwhile waits
  page.does({"answer", "1", "0", "The storage is full."});
  EXPECT_EQ((*place)->write("work")->text, "The storage is full.");
  page.does({"answer", "2", "1"});
  EXPECT_FALSE((*place)->write("work"));
  EXPECT_THAT(page.heard(), HasSubstr(R"("address": "blob:2")"));
  EXPECT_THAT(page.lent, ElementsAre("work", "work"));
}

TEST_F(WebDesktopTest, KeptPagesAreTurnedAsFarAsTheyGo) {
  desktop.keepBeside({.pages = {{"One", "first"}, {"Two", "<a href=\"page:0\">second</a>"}}});
  for (const char* to : {"back", "forward", "forward", "2", "0"}) page.does({"kept", to});
  EXPECT_THROW(desktop.run(), std::logic_error);
  const std::string heard = page.heard();
  std::vector<std::string> told;
  for (auto at = heard.find(" - Notebook"); at != std::string::npos;
       at = heard.find(" - Notebook", at + 1))
    told.push_back(heard.substr(at - 3, 3));
  EXPECT_THAT(told, ElementsAre("One", "Two", "One"));
}

TEST_F(WebDesktopTest, AChosenFileIsReadWhereItLiesAndOneThatIsGoneIsNone) {
  const FileQuestion question{.title = "Open", .kinds = {{.name = "Data", .extensions = {"zmd"}}}};
  const std::string bytes("\xff\0z", 3);
  page.does({"chosen", "1", "0", "../mine.zmd", page.lend(bytes)});
  page.does({"chosen", "2", "0", "gone.zmd", "nowhere"});
  const auto chosen = desktop.openFileDialog(question);
  ASSERT_TRUE(chosen);
  EXPECT_EQ(chosen->path, testing::TempDir() + "/mine.zmd");
  EXPECT_EQ(*readWholeFile(chosen->path), bytes);
  EXPECT_FALSE(desktop.openFileDialog(question));
}

TEST(PageMessage, TakesNonsenseForNothing) {
  const PageMessage message("cell\x1fx\x1f-7");
  EXPECT_EQ(message.whole(0), 0);
  EXPECT_EQ(message.count(1), 0U);
  EXPECT_EQ(message.text(9), "");
}

}  // namespace
}  // namespace tolmer
