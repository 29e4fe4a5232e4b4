// What program and user do to a control, on each desktop: the value arrives, its event comes once,
// and nothing echoes.
#include <gtest/gtest.h>

#include "mirrors/stage.h"
#include "platform/buttons.h"
#include "platform/control_array.h"
#include "platform/fields.h"
#include "platform/labels.h"
#include "platform/panels.h"

namespace tolmer::test {
namespace {

struct TestWindow : Window {
  explicit TestWindow(Desktop& desktop) : Window(desktop, "frmTest", WindowStyle::dialog, "Test") {
    setPlace({pixels(50), pixels(50), pixels(400), pixels(420)});
  }
};

class ControlsSuite : public StageTest {
 protected:
  TestWindow window{desktop};
};

TEST_P(ControlsSuite, TextBox) {
  TextBox box(&window, "txt");
  box.setPlace(at(0));
  int changes = 0;
  box.Changed = [&] { ++changes; };
  window.show();

  box.setText("σ̂ from the program");
  EXPECT_EQ(changes, 1);
  box.setText("σ̂ from the program");
  EXPECT_EQ(changes, 1);
  user.type("frmTest", "txt", "12.5é");
  EXPECT_EQ(box.text(), "12.5é");
  EXPECT_GT(changes, 1);
}

TEST_P(ControlsSuite, TextBoxWhoseHandlerSetsTheTextAgainSettles) {
  TextBox box(&window, "txt");
  box.setPlace(at(0));
  box.Changed = [&] {
    std::string upper = box.text();
    for (char& c : upper) c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    box.setText(upper);
  };
  window.show();
  user.type("frmTest", "txt", "abc");
  EXPECT_EQ(box.text(), "ABC");
}

TEST_P(ControlsSuite, CheckBox) {
  CheckBox box(&window, "chk", "Use the &intercept");
  box.setPlace(at(0));
  int clicks = 0;
  box.Click = [&] { ++clicks; };
  window.show();
  box.setValue(1);
  EXPECT_EQ(clicks, 1);
  user.click("frmTest", "chk");
  EXPECT_EQ(box.value(), 0);
  user.click("frmTest", "chk");
  EXPECT_EQ(box.value(), 1);
  EXPECT_EQ(clicks, 3);
  box.setValue(2);
  user.click("frmTest", "chk");
  EXPECT_EQ(box.value(), 1) << "the user only goes between clear and ticked";
}

TEST_P(ControlsSuite, OptionsExcludeEachOtherWithinTheirContainer) {
  Panel group(&window, "pnl");
  group.setPlace({0, 0, pixels(200), pixels(200)});
  OptionButton first(&group, "opt1", "First");
  OptionButton second(&group, "opt2", "Second");
  OptionButton outside(&window, "opt3", "Outside");
  first.setPlace(at(0));
  second.setPlace(at(1));
  outside.setPlace(at(8));
  std::string clicks;
  first.Click = [&] { clicks += '1'; };
  second.Click = [&] { clicks += '2'; };
  window.show();

  outside.setValue(true);
  first.setValue(true);
  user.click("frmTest", "opt2");
  user.click("frmTest", "opt2");
  EXPECT_FALSE(first.value());
  EXPECT_TRUE(second.value());
  EXPECT_TRUE(outside.value());
  EXPECT_EQ(clicks, "12");
  second.setValue(false);
  EXPECT_FALSE(first.value());
  user.click("frmTest", "opt1");
  EXPECT_EQ(clicks, "121") << "after the program has turned all off";
}

TEST_P(ControlsSuite, ComboBox) {
  ComboBox box(&window, "cbo");
  box.setPlace(at(0));
  int clicks = 0;
  box.Click = [&] { ++clicks; };
  window.show();
  for (const char* item : {"Weight", "Height", "Age"}) box.addItem(item);
  EXPECT_EQ(box.listIndex(), -1);
  EXPECT_EQ(clicks, 0) << "filling a list chooses nothing";
  box.setListIndex(0);
  user.choose("frmTest", "cbo", "Age");
  EXPECT_EQ(box.listIndex(), 2);
  user.choose("frmTest", "cbo", "Age");
  EXPECT_EQ(clicks, 2) << "the same entry again is no choice";

  box.clear();
  box.addItem("Fitted Y");
  user.choose("frmTest", "cbo", "Fitted Y");
  EXPECT_EQ(box.listIndex(), 0);
  EXPECT_EQ(clicks, 3);
}

TEST_P(ControlsSuite, ButtonThatCannotBeUsedRefuses) {
  Frame frame(&window, "fra", "Scatter Plot Controls");
  frame.setPlace({0, 0, pixels(200), pixels(100)});
  Button button(&frame, "cmd", "&Update");
  button.setPlace(at(1));
  int clicks = 0;
  button.Click = [&] { ++clicks; };
  window.show();
  user.click("frmTest", "cmd");
  frame.setEnabled(false);
  EXPECT_ANY_THROW(user.click("frmTest", "cmd"));
  frame.setEnabled(true);
  button.setVisible(false);
  EXPECT_ANY_THROW(user.click("frmTest", "cmd"));
  button.setVisible(true);
  user.click("frmTest", "cmd");
  EXPECT_EQ(clicks, 2);
}

TEST_P(ControlsSuite, ControlsMayGoInTheirOwnEvent) {
  auto other = std::make_unique<TestWindow>(desktop);
  auto button = std::make_unique<Button>(other.get(), "cmd", "Close");
  button->setPlace(at(0));
  const std::string seen = "captured text that is long enough to lie on the heap";
  std::string result;
  button->Click = [&, seen] {
    button.reset();
    other.reset();
    result = seen;
  };
  other->show();
  user.click("frmTest", "cmd");
  EXPECT_EQ(result, seen);
}

TEST_P(ControlsSuite, ArrayElementsLoadedLateWork) {
  Panel page(&window, "pic");
  page.setPlace({0, 0, pixels(400), pixels(300)});
  window.show();
  ControlArray<Label> links(page, "lblContentsEntry");
  int pressed = 0;
  for (int i = 1; i <= 2; ++i) {
    Label& link = links.load();
    link.setPlace(at(i));
    link.setCaption("Example & more");
    link.setIsLink(true);
    link.Click = [&pressed, i] { pressed = i; };
    EXPECT_ANY_THROW(user.click("frmTest", link.name())) << "not shown yet";
    link.setVisible(true);
  }
  user.click("frmTest", "lblContentsEntry(2)");
  EXPECT_EQ(pressed, 2);
}

TEST_P(ControlsSuite, MouseReachesTheNearestModelThatListens) {
  Panel panel(&window, "pnl");
  panel.setPlace({0, 0, pixels(400), pixels(200)});
  Label label(&panel, "lbl", "Text");
  label.setPlace(at(0));
  Button disabled(&panel, "cmd", "Disabled");
  disabled.setPlace(at(1));
  disabled.setEnabled(false);
  TextBox text(&window, "txt");
  text.setPlace(at(8));
  std::string events;
  window.MouseUp = [&](MouseButton button) { events += button == MouseButton::right ? 'w' : 'l'; };
  window.Click = [&] { events += 'g'; };
  panel.Click = [&] { events += 'p'; };
  window.show();
  user.rightClick("frmTest", "lbl");
  user.rightClick("frmTest", "txt");
  user.rightClick("frmTest");
  EXPECT_EQ(events, "www");
  panel.MouseUp = [&](MouseButton) { events += 'u'; };
  user.rightClick("frmTest", "lbl");
  EXPECT_EQ(events, "wwwu");
  events.clear();
  user.click("frmTest", "lbl");
  EXPECT_EQ(events, "") << "a left click is the label's own";
  user.click("frmTest", "pnl");
  EXPECT_EQ(events, "up");
}

INSTANTIATE_TEST_SUITE_P(Desktops, ControlsSuite, stages(), stageName);

}  // namespace
}  // namespace tolmer::test
