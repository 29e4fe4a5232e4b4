// The rules that hold for every kind of control: an event without a handler does nothing, setting
// what is there already changes nothing, and a control may be destroyed in its own event.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <sstream>
#include <tuple>

#include "base/file_io.h"
#include "platform/buttons.h"
#include "platform/curtain.h"
#include "platform/fields.h"
#include "platform/headless/headless_desktop.h"
#include "platform/labels.h"
#include "platform/outline.h"
#include "platform/panels.h"
#include "platform/tab_book.h"
#include "platform/tab_order.h"
#include "platform/text_metrics.h"
#include "platform/user_input.h"
#include "platform/window.h"
#include "support/temp_folder.h"

namespace tolmer {
namespace {

class CountingPeer : public Peer {
 public:
  explicit CountingPeer(int& count) : count_(count) {}
  void changed(Change) override { ++count_; }

 private:
  int& count_;
};

// How each kind is changed by its user: by a click, or by another value.
template <class Kind>
constexpr bool hasValue = !requires(Kind & control) {
  control.click();
};

void use(auto& control) { control.click(); }
void use(CheckBox& control) { control.setValue(1); }
void use(OptionButton& control) { control.setValue(true); }
void use(ComboBox& control) { control.setListIndex(1); }
void use(TextBox& control) { control.setText("typed"); }
void use(NumberBox& control) { control.setValue(7); }
void use(ScrollBar& control) { control.setValue(40); }
void use(Outline& control) { control.setListIndex(0); }

void prepare(Control&) {}
void prepare(ComboBox& control) {
  for (const char* item : {"one", "two"}) control.addItem(item);
}
void prepare(ScrollBar& control) { control.setRange(100, 1, 10); }
void prepare(Outline& control) { control.addItem("only", 1, 1); }

// The event that says so.
Event<>& event(auto& control) {
  if constexpr (requires { control.Changed; })
    return control.Changed;
  else
    return control.Click;
}

template <class Kind>
class ControlRules : public testing::Test {
 protected:
  HeadlessDesktop desktop;
  Window window{desktop, "frmTest", WindowStyle::dialog};
};

using Kinds = testing::Types<Button, Label, Panel, Image, CheckBox, OptionButton, ComboBox, TextBox,
                             NumberBox, ScrollBar, Outline>;
TYPED_TEST_SUITE(ControlRules, Kinds);

TYPED_TEST(ControlRules, WorksWithoutHandlerAndRaisesItsEventOnce) {
  TypeParam control(&this->window, "ctl");
  prepare(control);
  use(control);

  TypeParam other(&this->window, "ctlOther");
  prepare(other);
  int events = 0;
  event(other) = [&] { ++events; };
  use(other);
  EXPECT_EQ(events, 1);
  use(other);
  EXPECT_EQ(events, hasValue<TypeParam> ? 1 : 2);
}

TYPED_TEST(ControlRules, TellsItsObserverOfRealChangesOnly) {
  TypeParam control(&this->window, "ctl");
  prepare(control);
  int changes = 0;
  control.setPeer(std::make_unique<CountingPeer>(changes));
  control.setPlace({15, 15, 300, 300});
  control.setEnabled(false);
  control.setTip("tip");
  const int before = changes;
  EXPECT_EQ(before, 3);
  control.setPlace({15, 15, 300, 300});
  control.setEnabled(false);
  control.setTip("tip");
  EXPECT_EQ(changes, before);
}

TYPED_TEST(ControlRules, MayBeDestroyedInItsOwnEvent) {
  auto control = std::make_unique<TypeParam>(&this->window, "ctl");
  prepare(*control);
  const std::string seen = "captured text that is long enough to lie on the heap";
  std::string result;
  event(*control) = [&control, &result, seen] {
    control.reset();
    result = seen;
  };
  use(*control);
  EXPECT_EQ(result, seen);
  EXPECT_TRUE(this->window.children().empty());
}

class WindowTest : public testing::Test {
 protected:
  HeadlessDesktop desktop;
};

TEST_F(WindowTest, TimersKeepTheirOwnTime) {
  std::string ticks;
  Timer fast(desktop.timers(), "fast", 400, true);
  Timer slow(desktop.timers(), "slow", 1000, true);
  fast.Tick = [&] { ticks += 'f'; };
  slow.Tick = [&] {
    ticks += 's';
    fast.setEnabled(false);
  };
  desktop.advance(2100);
  EXPECT_EQ(ticks, "ffss");
}

struct InputTest : WindowTest {
  Window window{desktop, "frm", WindowStyle::dialog};
  Panel panel{&window, "pnl"};
  void SetUp() override { window.show(); }
};

TEST_F(InputTest, TheMouseGoesToWhatWasPressed) {
  std::string heard;
  auto image = std::make_unique<Image>(&panel, "img");
  Label link(&panel, "lnk");
  link.setIsLink(true);
  link.Click = [&] { heard += 'l'; };
  image->Click = [&] { heard += 'i'; };
  panel.Click = [&] { heard += 'p'; };
  panel.MouseUp = [&](MouseButton button) { heard += button == MouseButton::right ? 'R' : 'L'; };
  MouseRoute mouse;
  const auto leftOn = [&](Control& pressed, Control& released, bool inside) {
    mouse.press(pressed, MouseButton::left);
    mouse.release(released, MouseButton::left, inside);
    heard += ' ';
  };
  leftOn(panel, panel, true);
  leftOn(panel, panel, false);
  leftOn(*image, panel, true);
  leftOn(*image, *image, true);
  leftOn(link, link, true);  // a link has a press of its own
  mouse.release(*image, MouseButton::right, true);
  window.setTakesInput(false);
  leftOn(panel, panel, true);
  mouse.release(*image, MouseButton::right, true);
  window.setTakesInput(true);
  EXPECT_EQ(heard, "Lp L L i  R ");
  image->MouseUp = [&](MouseButton) {
    mouse.forget(*image);
    image.reset();
  };
  leftOn(*image, *image, true);
}

TEST_F(InputTest, TabGoesFromTopToBottomWhereAPanelWantsIt) {
  Label caption(&panel, "lbl", "&Name");
  TextBox lower(&panel, "txtLower"), upper(&panel, "txtUpper");
  Button last(&window, "cmd");
  lower.setTop(400);
  EXPECT_THAT(tabStops(window), testing::ElementsAre(&lower, &upper, &last));
  panel.orderStopsByPlace();
  EXPECT_THAT(tabStops(window), testing::ElementsAre(&upper, &lower, &last));
  EXPECT_TRUE(isLabelOf(caption, lower));
  EXPECT_FALSE(isLabelOf(caption, last)) << "it has a text of its own";
  caption.setIsLink(true);
  EXPECT_FALSE(isLabelOf(caption, lower));
}

TEST_F(InputTest, TabStopsAtTheOptionThatIsOn) {
  OptionButton one(&panel, "opt1"), two(&panel, "opt2"), three(&panel, "opt3");
  Button last(&window, "cmd");
  const auto way = [&] {
    std::string names;
    for (int step = 0; step < 3; ++step) {
      window.moveFocus();
      names += window.focus()->name() + " ";
    }
    return names;
  };
  EXPECT_EQ(way(), "opt1 opt2 opt3 ");
  two.setValue(true);
  EXPECT_EQ(way(), "cmd opt2 cmd ");
  window.moveFocus(true);
  EXPECT_TRUE(two.hasFocus());
}

TEST_F(InputTest, SystemGroundsAreNotAControlsOwn) {
  TextBox text(&window, "txt");
  Label label(&window, "lbl");
  for (const auto& [control, colour, own] :
       {std::tuple<Control*, Colour, bool>{&text, colours::window, false},
        {&text, colours::white, true},
        {&text, colours::buttonFace, false},
        {&label, colours::window, true},
        {&label, colours::buttonFace, false},
        {&panel, colours::buttonFace, true}}) {
    control->setBackColour(colour);
    EXPECT_EQ(control->hasOwnGround(), own) << control->name();
  }
}

// The full disk and the like are seen with the editor.
TEST_F(WindowTest, ASavingIsDoneGivenUpOrFailsAndSaysWhy) {
  const test::TempFolder folder;
  Result<std::string> bytes = std::string("<html>");
  std::size_t kind = 9;
  const FileToSave report{.question = {"Save Report", {{"Page", {"html"}}, {"Script", {"R"}}}},
                          .bytes = [&](const ChosenFile& file) { return kind = file.kind, bytes; },
                          .notSaved = "The report was not saved."};
  std::optional<std::string> name;
  desktop.onSaveFile = [&](const FileQuestion&) { return name; };
  EXPECT_EQ(desktop.saveFile(report).end, Saving::End::givenUp);
  EXPECT_EQ(kind, 9U);
  name = folder.file("a.R");
  EXPECT_EQ(desktop.saveFile(report).path, folder.file("a.R"));
  EXPECT_EQ(kind, 1U);
  bytes = Error{"", "There is no model."};
  EXPECT_EQ(desktop.saveFile(report).end, Saving::End::failed);
  EXPECT_EQ(*readWholeFile(*name), "<html>");
  ASSERT_EQ(::chmod(name->c_str(), 0444), 0);
  EXPECT_EQ(desktop.saveFile(report).end, Saving::End::failed);
  ASSERT_EQ(desktop.boxes().size(), 2U);
  EXPECT_EQ(desktop.boxes()[0].box.text, "The report was not saved. There is no model.");
  EXPECT_EQ(desktop.boxes()[1].box.text,
            "This file is in a Read Only directory. Use Save Report to save the file to a "
            "different directory.");
}

TEST(MessageBoxTest, EscapeAnswersByTheLastButtonUnlessWorkIsLost) {
  MessageBox box;
  box.buttons = MessageButtons::yesNo;
  EXPECT_EQ(answerToEscape(box), Answer::no);
  box.buttons = MessageButtons::saveDontSaveCancel;
  EXPECT_EQ(answerToEscape(box), Answer::cancel);
  box.noLosesWork = true;
  EXPECT_EQ(answerToEscape(box), std::nullopt);
  EXPECT_EQ(answerToReturn(box), answerButtons(box.buttons).front().answer);
  box.yesLosesWork = true;
  EXPECT_EQ(answerToReturn(box), Answer::no);
}

// Lines that differ, or end in a blank, would not stand under each other.
TEST(Curtain, EqualLinesReachAllEdges) {
  HeadlessDesktop desktop;
  Window window(desktop, "frmHider", WindowStyle::bare);
  Curtain curtain(&window, "pnlHider");
  for (const auto& [width, height] : {std::pair{1280.0F, 800.0F}, std::pair{3840.0F, 2160.0F}}) {
    curtain.fill({pixels(width), pixels(height)});
    std::istringstream text(curtain.caption());
    std::string first;
    ASSERT_TRUE(std::getline(text, first));
    EXPECT_TRUE(first.starts_with("Z e l m a r   Z") && first.ends_with("Z e l m a r"));
    EXPECT_GE(textWidth(curtain.font(), first), width);
    int lines = 1;
    for (std::string line; std::getline(text, line); ++lines) ASSERT_EQ(line, first);
    EXPECT_GE(lines * lineHeight(curtain.font()), height);
  }
}

}  // namespace
}  // namespace tolmer
