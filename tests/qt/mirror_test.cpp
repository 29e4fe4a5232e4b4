// What only the mirror on the screen can get wrong: places, late making, keys of captions, spoken
// names, colours.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QFontMetrics>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRawFont>
#include <QScrollBar>
#include <QSpinBox>
#include <QTabBar>
#include <QTest>
#include <QTreeWidget>
#include <cmath>

#include "mirrors/stage.h"
#include "platform/buttons.h"
#include "platform/fields.h"
#include "platform/font_advances.h"
#include "platform/labels.h"
#include "platform/outline.h"
#include "platform/panels.h"
#include "platform/qt/control_peer.h"
#include "platform/qt/theme.h"
#include "platform/tab_book.h"
#include "platform/text_metrics.h"
#include "support/qt_user.h"

namespace tolmer::test {
namespace {

class MirrorTest : public testing::Test {
 protected:
  void show() {
    window.setPlace({pixels(40), pixels(40), pixels(400), pixels(420)});
    window.show();
    desktop.settle();
  }
  template <class Widget>
  Widget& as(const Control& control) {
    return dynamic_cast<Widget&>(widgetOf(control));
  }

  ScriptedQtDesktop desktop;
  QtUser user{desktop};
  Window window{desktop, "frmTest", WindowStyle::dialog, "Test"};
};

TEST_F(MirrorTest, NeighboursTouchWhateverTheirSizes) {
  std::vector<std::unique_ptr<Panel>> panels;
  for (int i = 0; i < 20; ++i) {
    panels.push_back(std::make_unique<Panel>(&window, "pnl"));
    panels.back()->setPlace({static_cast<float>(i) * 145, 0, 145, 145});
  }
  show();
  for (std::size_t i = 1; i < panels.size(); ++i)
    EXPECT_EQ(widgetOf(*panels[i]).geometry().left(),
              widgetOf(*panels[i - 1]).geometry().right() + 1);
}

TEST_F(MirrorTest, WidgetsAreMadeWhenFirstVisibleAndTakeTheirPlace) {
  Label label(&window, "lbl", "&Name");
  label.setUsesMnemonic(true);
  TextBox late(&window, "txtLate");
  TextBox last(&window, "txtLast");
  label.setPlace(at(0));
  late.setPlace(at(1));
  last.setPlace(at(1));
  late.setVisible(false);
  show();
  EXPECT_EQ(ControlPeer::widgetOf(late), nullptr);
  EXPECT_EQ(as<QLabel>(label).text(), "Name") << "a mark needs a control to lead to";

  late.setVisible(true);
  EXPECT_EQ(as<QLabel>(label).buddy(), &widgetOf(late));
  EXPECT_EQ(as<QLabel>(label).text(), "&Name");
  last.setFocus();
  user.key("frmTest", {keys::tab});
  EXPECT_EQ(window.focus(), &late);
  user.key("frmTest", {keys::tab});
  EXPECT_EQ(window.focus(), &last);
  const auto& children = widgetOf(late).parentWidget()->children();
  EXPECT_LT(children.indexOf(&widgetOf(late)), children.indexOf(&widgetOf(last)));
}

TEST_F(MirrorTest, MarkedLettersLeadToControls) {
  Label label(&window, "lblName", "&Name");
  label.setUsesMnemonic(true);
  TextBox text(&window, "txtName");
  CheckBox box(&window, "chk", "Use the &intercept");
  Button button(&window, "cmd", "&Update");
  int row = 0;
  for (Control* control : {static_cast<Control*>(&label), static_cast<Control*>(&text),
                           static_cast<Control*>(&box), static_cast<Control*>(&button)})
    control->setPlace(at(row++));
  int clicks = 0;
  button.Click = [&] { ++clicks; };
  show();
  button.setFocus();
  user.alt("frmTest", 'n');
  EXPECT_EQ(window.focus(), &text);
  user.alt("frmTest", 'i');
  EXPECT_EQ(box.value(), 1);
  user.alt("frmTest", 'u');
  EXPECT_EQ(clicks, 1);
}

TEST_F(MirrorTest, AWindowThatTakesNoInputLooksAsEver) {
  std::string heard;
  MenuItem bar(nullptr, "bar");
  MenuItem mnuFile(&bar, "mnuFile", "&File");
  MenuItem mnuNew(&mnuFile, "mnuNew", "&New");
  mnuFile.Click = [&] { heard += 'f'; };
  mnuNew.Click = [&] { heard += 'n'; };
  mnuNew.setShortcut({.code = 'N', .control = true});
  window.setMenuBar(&bar);
  TextBox txtName(&window, "txtName");
  Button cmdOK(&window, "cmdOK", "&OK");
  txtName.setPlace({0, 0, pixels(200), pixels(25)});
  cmdOK.setPlace({0, pixels(40), pixels(100), pixels(25)});
  cmdOK.setDefault(true);
  cmdOK.Click = [&] { heard += 'o'; };
  show();
  txtName.setFocus();
  QWindow* native = widgetOf(window).windowHandle();
  const auto tryAll = [&] {
    QTest::keyClick(native, '7');
    QTest::keyClick(native, Qt::Key_N, Qt::ControlModifier);
    QTest::keyClick(native, Qt::Key_O, Qt::AltModifier);
    QTest::keyClick(native, Qt::Key_Return);
    const QWidget& button = widgetOf(cmdOK);
    QTest::mouseClick(native, Qt::LeftButton, {},
                      button.mapTo(button.window(), button.rect().center()));
    QTest::mouseClick(native, Qt::LeftButton, {}, {10, 10});  // the menu bar
    QTest::qWait(150);  // the toolkit shows a button pressed before a letter clicks it
    desktop.settle();
  };
  window.setTakesInput(false);
  tryAll();
  widgetOf(window).close();
  EXPECT_EQ(heard + txtName.text(), "");
  EXPECT_EQ(window.focus(), &txtName);
  EXPECT_TRUE(window.visible() && widgetOf(cmdOK).isEnabled());
  window.setTakesInput(true);
  tryAll();
  EXPECT_EQ(heard + txtName.text(), "noofo7");
}

// With its kerning all of the text would have room in one line.
TEST_F(MirrorTest, LinesEndWhereTheLayoutHasReckonedThem) {
  Label label(&window, "lblText", "AVAVAVAV AVAVAV");
  label.setWordWrap(true);
  const float width = static_cast<float>(textWidth(label.font(), label.caption())) - 1;
  label.setPlace({0, 0, pixels(width), pixels(40)});
  show();
  EXPECT_EQ(as<QLabel>(label).text(), "AVAVAVAV\nAVAVAV");
  EXPECT_EQ(as<QLabel>(label).accessibleName(), "AVAVAVAV AVAVAV");
}

TEST_F(MirrorTest, LinksArePressedByKeyboardToo) {
  Label link(&window, "lblNextPage", "Next page ->");
  link.setIsLink(true);
  link.setPlace(at(0));
  int clicks = 0;
  link.Click = [&] { ++clicks; };
  show();
  link.setFocus();
  user.key("frmTest", {' '});
  user.key("frmTest", {keys::enter});
  EXPECT_EQ(clicks, 2);
  link.setIsLink(false);
  EXPECT_NE(dynamic_cast<QLabel*>(&widgetOf(link)), nullptr);
  user.click("frmTest", "lblNextPage");
  EXPECT_EQ(clicks, 3);
}

// A screen reader takes names from captions, and for boxes from the label before them; a name of
// its own would hide the value that a label shows.
TEST_F(MirrorTest, ControlsHaveSpokenNames) {
  Label title(&window, "lblY", "Y Axis Variable");
  ComboBox list(&window, "cboY");
  Button button(&window, "cmd", "&Change Model");
  Label value(&window, "lblValue", "59.90");
  value.setAccessibleName("F");
  Label link(&window, "lblLink", "R & D");
  link.setIsLink(true);
  Panel panel(&window, "pnl", "Loading . .");
  show();
  const auto spoken = [](const Control& control) {
    return QAccessible::queryAccessibleInterface(&widgetOf(control))
        ->text(QAccessible::Name)
        .toStdString();
  };
  EXPECT_EQ(spoken(button), "Change Model");
  EXPECT_EQ(spoken(value), "59.90");
  EXPECT_EQ(spoken(link), "R & D");
  EXPECT_EQ(spoken(panel), "Loading . .");
  const auto relations =
      QAccessible::queryAccessibleInterface(&widgetOf(list))->relations(QAccessible::Label);
  ASSERT_EQ(relations.size(), 1);
  EXPECT_EQ(relations[0].first->object(), &widgetOf(title));
}

TEST_F(MirrorTest, BookTurnsByMouseAndKeys) {
  TabBook book(&window, "tb");
  book.setPlace({0, 0, pixels(400), pixels(300)});
  for (const char* tab : {"Start", "Concepts", "Examples"}) book.addTab(tab, 2);
  std::string events;
  book.TabPageActivate = [&](int tab, int page) {
    events += std::to_string(tab) + "." + std::to_string(page) + " ";
  };
  show();
  book.setActive(1, 2);
  EXPECT_EQ(events, "") << "the program's own turning is no event";
  auto& tabs = *widgetOf(book).findChild<QTabBar*>();
  EXPECT_EQ(tabs.currentIndex(), 1);
  QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(2).center());
  user.key("frmTest", {keys::tab, false, true});  // Ctrl and Tab: round to the first
  user.key("frmTest", {keys::tab, false, true});
  EXPECT_EQ(events, "2.0 0.0 1.2 ");
  EXPECT_EQ(book.activeTab(), 1);
}

TEST_F(MirrorTest, OutlineOpensAndChooses) {
  Outline outline(&window, "out");
  outline.setPlace({0, 0, pixels(300), pixels(300)});
  outline.addItem("Biology", 1, 10);
  outline.addItem("Swiss", 2, 11);
  outline.addItem("Economics", 1, 12);
  std::string events;
  outline.Click = [&] {
    events += std::to_string(outline.listIndex());
    if (outline.listIndex() == 0) outline.setExpanded(0, !outline.expanded(0));
  };
  outline.Moved = [&] { events += "m" + std::to_string(outline.listIndex()); };
  show();
  auto& tree = as<QTreeWidget>(outline);
  const auto click = [&](const QTreeWidgetItem* item) {
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, tree.visualItemRect(item).center());
    desktop.settle();
  };
  click(tree.topLevelItem(0));
  EXPECT_TRUE(tree.topLevelItem(0)->isExpanded());
  click(tree.topLevelItem(0));
  EXPECT_FALSE(tree.topLevelItem(0)->isExpanded()) << "a click on the chosen one counts too";
  tree.topLevelItem(0)->setExpanded(true);
  EXPECT_TRUE(outline.expanded(0));
  QTest::keyClick(&tree, Qt::Key_Down);
  EXPECT_EQ(events, "00m1");
  QTest::mouseClick(tree.viewport(), Qt::LeftButton, {},
                    {6, tree.visualItemRect(tree.topLevelItem(0)).center().y()});
  EXPECT_EQ(events, "00m1m0") << "by its mark a group is only closed, and takes the selection";
  EXPECT_FALSE(outline.expanded(0) || tree.topLevelItem(0)->isExpanded());
  EXPECT_EQ(tree.currentItem(), tree.topLevelItem(0));
  outline.setListIndex(2);
  EXPECT_EQ(tree.currentItem(), tree.topLevelItem(1));
  EXPECT_EQ(events, "00m1m02");
}

TEST_F(MirrorTest, OtherWidgetsFollowTheirModels) {
  NumberBox number(&window, "num");
  ScrollBar bar(&window, "vsb");
  TextBox text(&window, "txt");
  ComboBox list(&window, "cbo");
  number.setRange(0, 99);
  bar.setRange(100, 5, 20);
  text.setMultiLine(true);
  text.setReadOnly(true);
  show();
  number.setValue(120);
  EXPECT_EQ(as<QSpinBox>(number).value(), 120);
  number.setValue(12);
  EXPECT_EQ(as<QSpinBox>(number).maximum(), 99);
  as<QScrollBar>(bar).setValue(60);
  EXPECT_EQ(bar.value(), 60);
  text.setText("StackLoss = - 39.92\n+ 0.7156 AirFlow");
  EXPECT_EQ(as<QPlainTextEdit>(text).toPlainText().toStdString(), text.text());
  EXPECT_TRUE(as<QPlainTextEdit>(text).isReadOnly());
  text.setMultiLine(false);
  EXPECT_TRUE(as<QLineEdit>(text).isReadOnly());
  for (const char* item : {"a", "b"}) list.addItem(item);
  EXPECT_EQ(as<QComboBox>(list).currentIndex(), -1);
}

TEST_F(MirrorTest, TheModelKnowsWhatIsMarkedAndTakesItsPlace) {
  TextBox title(&window, "txt");
  title.setPlace(at(0));
  title.setText("K\xC3\xB6ln rents");
  show();
  auto& line = as<QLineEdit>(title);
  line.setSelection(1, 3);
  EXPECT_EQ(title.markedText(), "\xC3\xB6ln");
  title.replaceMarked("iel");
  EXPECT_EQ(line.text(), "Kiel rents");
  EXPECT_EQ(line.cursorPosition(), 4);
  QTest::keyClicks(&line, "'s");
  EXPECT_EQ(title.text(), "Kiel's rents");
  EXPECT_EQ(title.marked().first, 6U);
  line.selectAll();
  EXPECT_EQ(title.markedText(), "Kiel's rents");
}

TEST_F(MirrorTest, TheMouseIsToldOverControlsThatListen) {
  Button listening(&window, "cmdOK", "OK");
  Button other(&window, "cmdCancel", "Cancel");
  listening.setPlace(at(0));
  other.setPlace(at(1));
  int moves = 0;
  listening.MouseMove = [&] { ++moves; };
  show();
  QTest::mouseMove(&widgetOf(other), {5, 5});
  desktop.settle();
  EXPECT_EQ(moves, 0);
  QTest::mouseMove(&widgetOf(listening), {5, 5});
  desktop.settle();
  EXPECT_GT(moves, 0);
  listening.setEnabled(false);
  const int before = moves;
  QTest::mouseMove(&widgetOf(listening), {9, 9});
  desktop.settle();
  EXPECT_EQ(moves, before);
}

class TablesAgainstFont : public testing::TestWithParam<std::tuple<const char*, Font>> {};

// The toolkit reads the font's file by another road than the one that made the tables.
TEST_P(TablesAgainstFont, EveryAdvanceIsTheFontsOwn) {
  const auto& [family, font] = GetParam();
  QFont unscaled(family);
  unscaled.setBold(font.bold);
  unscaled.setHintingPreference(QFont::PreferNoHinting);
  const FontAdvances& table = fontAdvances(font.family, font.bold);
  unscaled.setPixelSize(table.unitsPerEm);
  const QRawFont file = QRawFont::fromFont(unscaled);
  if (file.familyName() != family) GTEST_SKIP() << family << " is not installed";
  EXPECT_EQ(table.unitsPerEm, file.unitsPerEm());
  EXPECT_EQ(table.ascent, file.ascent());
  EXPECT_EQ(table.descent, file.descent());
  EXPECT_EQ(table.lineGap, file.leading());
  std::size_t i = 0;
  for (const CodePointRange& range : advanceRanges)
    for (char32_t code = range.first; code <= range.last; ++code, ++i) {
      const auto glyphs = file.glyphIndexesForString(QString::fromUcs4(&code, 1));
      const bool isThere = file.supportsCharacter(code);
      EXPECT_EQ(table.advances[i], isThere ? file.advancesForGlyphIndexes(glyphs).at(0).x() : 0)
          << "code point " << unsigned{code};
    }
  EXPECT_EQ(i, table.advances.size());
}

INSTANTIATE_TEST_SUITE_P(
    Fonts, TablesAgainstFont,
    testing::Values(std::tuple("Noto Sans", Font{FontFamily::interface, 12, false}),
                    std::tuple("Noto Sans", Font{FontFamily::interface, 12, true}),
                    std::tuple("Liberation Serif", Font{FontFamily::serif, 12, false}),
                    std::tuple("Liberation Serif", Font{FontFamily::serif, 12, true})));

// The layout of all windows relies on it.
TEST_F(MirrorTest, RealTextIsNotWiderThanTheTablesSay) {
  for (const char* text : {"Display Regression Line on Scatterplots", "AVATAR To Te Ty",
                           "Σ σ̂ β̂ x̄ ŷ 0.05", "1,234.5678", "ÄÖÜß éèñ"}) {
    const Font font;
    QFont real(theme::interfaceFamily);
    real.setPixelSize(static_cast<int>(font.pixels));
    EXPECT_LE(QFontMetricsF(real).horizontalAdvance(text), textWidth(font, text) + 0.01) << text;
  }
}

double luminance(QColor colour) {
  const auto linear = [](double c) {
    return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
         0.0722 * linear(colour.blueF());
}

// The ratio of the Web Content Accessibility Guidelines: 4.5 for text, 3 for disabled text and
// signs would be the usual asks; both grounds count.
TEST(Theme, TextsAreLegible) {
  const QPalette palette = theme::palette();
  const auto contrast = [&](QPalette::ColorRole text, QPalette::ColorRole ground) {
    const double a = luminance(palette.color(QPalette::Active, text));
    const double b = luminance(palette.color(QPalette::Active, ground));
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
  };
  EXPECT_GE(contrast(QPalette::WindowText, QPalette::Window), 7);
  EXPECT_GE(contrast(QPalette::Text, QPalette::Base), 7);
  EXPECT_GE(contrast(QPalette::ButtonText, QPalette::Button), 7);
  EXPECT_GE(contrast(QPalette::HighlightedText, QPalette::Highlight), 4.5);
  EXPECT_GE(contrast(QPalette::Link, QPalette::Base), 4.5);
  EXPECT_GE(contrast(QPalette::PlaceholderText, QPalette::Window), 4.5);
}

}  // namespace
}  // namespace tolmer::test
