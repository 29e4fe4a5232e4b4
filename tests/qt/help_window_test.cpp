// The help window beside the windows of the program.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QScrollBar>
#include <QTest>

#include "platform/buttons.h"
#include "platform/qt/help_window.h"
#include "platform/qt/kept_window.h"
#include "support/qt_user.h"
#include "support/script.h"
#include "support/temp_folder.h"
#include "support/tree.h"

namespace tolmer::test {
namespace {

using Kind = HelpRequest::Kind;

struct Asking : Window {
  Asking(Desktop& desktop, std::string name, long number)
      : Window(desktop, std::move(name), WindowStyle::dialog, "Dialog") {
    setPlace({pixels(300), pixels(200), pixels(300), pixels(200)});
    cmdHelp.setPlace({pixels(10), pixels(10), pixels(90), pixels(28)});
    cmdOK.setPlace({pixels(10), pixels(60), pixels(90), pixels(28)});
    cmdHelp.Click = [this, number] { this->desktop().showHelp({"tolmod", Kind::topic, number}); };
    cmdOK.Click = [this] { hide(); };
  }
  Button cmdHelp{this, "cmdHelp", "&Help"};
  Button cmdOK{this, "cmdOK", "OK"};
};

class HelpWindowTest : public testing::Test {
 protected:
  HelpWindowTest() { desktop.setHelpFolder(TOLMER_SOURCE_DIR "/course/help"); }

  HelpWindow& ask(long number, Kind kind = Kind::topic) {
    desktop.showHelp({"tolmod", kind, number});
    desktop.settle();
    return *desktop.helpWindow();
  }
  HelpWindow& help() { return *desktop.helpWindow(); }
  std::string title() { return help().windowTitle().toStdString(); }
  template <class Kind>
  Kind& part() {
    return *help().findChild<Kind*>();
  }
  // As a user: through the native window, where a modal window would be in the way.
  void pressKey(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(help().windowHandle(), key, modifiers);
    desktop.settle();
  }
  void press(const char* text) {
    for (QPushButton* button : help().findChildren<QPushButton*>())
      if (button->text() == QLatin1String(text))
        QTest::mouseClick(help().windowHandle(), Qt::LeftButton, {},
                          button->mapTo(&help(), button->rect().center()));
    desktop.settle();
  }

  ScriptedQtDesktop desktop;
  QtUser user{desktop};
  Script script{desktop.onModal, desktop.onMessageBox};
};

TEST_F(HelpWindowTest, IsMadeWhenFirstAskedForAndReusedAndClosedByQuit) {
  desktop.showHelp({"tolmod", Kind::quit, 0});
  EXPECT_EQ(desktop.helpWindow(), nullptr);
  HelpWindow& window = ask(231);
  EXPECT_EQ(title(), "Estimated Coefficients - Help");
  EXPECT_EQ(part<QTreeWidget>().currentItem()->text(0), "Estimated Coefficients");
  EXPECT_EQ(&ask(232), &window);
  EXPECT_EQ(title(), "ANOVA Table - Help");
  desktop.showHelp({"tolmod", Kind::quit, 0});
  EXPECT_FALSE(window.isVisible());
  ask(2, Kind::usingHelp);
  EXPECT_EQ(title(), "Using Help - Help");
}

TEST_F(HelpWindowTest, LeadsByKeysButtonsAndLinks) {
  ask(231);
  ask(232);
  pressKey(Qt::Key_Left, Qt::AltModifier);
  EXPECT_EQ(title(), "Estimated Coefficients - Help");
  press("&Forward");
  EXPECT_EQ(title(), "ANOVA Table - Help");
  emit part<HelpPage>().anchorClicked(QUrl("help:tolmod/400#vif"));
  EXPECT_EQ(title(), "Glossary - Help");
  EXPECT_GT(part<HelpPage>().verticalScrollBar()->value(), 1000);
  pressKey(Qt::Key_F1);
  EXPECT_EQ(title(), "Using Help - Help");
  press("&Contents");
  EXPECT_EQ(title(), "Help for Tolmer - Help");
  pressKey(Qt::Key_Escape);
  EXPECT_FALSE(help().isVisible());
}

TEST_F(HelpWindowTest, SearchesWhileTyping) {
  ask(103, Kind::search);
  ASSERT_TRUE(QTest::qWaitForWindowActive(&help()));
  EXPECT_EQ(QApplication::focusWidget(), &part<QLineEdit>());
  QTest::keyClicks(&part<QLineEdit>(), "corr mat");
  ASSERT_GE(part<QListWidget>().count(), 1);
  EXPECT_EQ(part<QListWidget>().item(0)->text(), "Correlation Matrix");
  EXPECT_TRUE(part<QListWidget>().isVisible());
  pressKey(Qt::Key_Return);
  EXPECT_EQ(title(), "Correlation Matrix - Help");
  part<QLineEdit>().setText("zzz");
  EXPECT_EQ(part<QListWidget>().item(0)->flags(), Qt::NoItemFlags);
  part<QLineEdit>().clear();
  EXPECT_TRUE(part<QTreeWidget>().isVisible());
  help().activateWindow();
  part<HelpPage>().setFocus();
  pressKey(Qt::Key_F, Qt::ControlModifier);
  EXPECT_EQ(QApplication::focusWidget(), &part<QLineEdit>());
  part<QLineEdit>().setText("corr mat");
  ask(231);
  EXPECT_TRUE(part<QTreeWidget>().isVisible());
}

TEST_F(HelpWindowTest, StaysUsableThroughDialogsThatOpenAndClose) {
  Window main(desktop, "frmMain", WindowStyle::dialog, "Main");
  main.show();
  ask(110);
  Asking outer(desktop, "frmOuter", 102);
  const auto works = [this] {
    desktop.settle();
    press("&Contents");
    const bool there = title() == "Help for Tolmer - Help";
    press("&Back");
    return there;
  };
  script.window("frmOuter", [&] {
    EXPECT_TRUE(works()) << "under a dialog that opened after it";
    {
      Asking inner(desktop, "frmInner", 113);
      script.window("frmInner", [&] {
        EXPECT_TRUE(works()) << "under a dialog of a dialog";
        user.click("frmInner", "cmdHelp");
        user.click("frmInner", "cmdOK");
      });
      inner.showModal();
    }
    EXPECT_TRUE(works()) << "after the dialog that it was asked from is gone";
    user.click("frmOuter", "cmdOK");
  });
  outer.showModal();
  EXPECT_TRUE(works());
  EXPECT_TRUE(help().isVisible());
}

TEST_F(HelpWindowTest, ShowsPicturesOfItsFolderAndSaysWhereItIsMissing) {
  const TempFolder folder;
  const auto write = [&folder](const std::string& name, const QByteArray& text) {
    QFile file(QString::fromStdString(folder.file(name)));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
  };
  write("contents.txt", "page\n");
  write("page.txt", "title: Page\nopens: tolmod\n\n![A red box](box.svg)\n");
  write(
      "box.svg",
      "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"40\" height=\"30\" viewBox=\"0 0 40 30\">"
      "<rect width=\"40\" height=\"30\" fill=\"red\"/></svg>");
  desktop.setHelpFolder(folder.path());
  ask(0, Kind::contents);
  const QImage picture = help().grab().toImage();
  int red = 0;
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x)
      red += picture.pixelColor(x, y) == QColor(Qt::red) ? 1 : 0;
  EXPECT_EQ(red, 1200);
  ScriptedQtDesktop other;
  other.setHelpFolder(folder.file("nowhere"));
  other.showHelp({"tolmod", Kind::topic, 231});
  EXPECT_THAT(other.helpWindow()->windowTitle().toStdString(),
              testing::HasSubstr("cannot be shown"));
}

TEST(HelpPrint, WritesThePageAsADocument) {
  HelpPage page({TOLMER_SOURCE_DIR "/course/help"}, nullptr);
  page.showPage("<h1>Title</h1><p>Text</p>", {});
  const TempFolder folder;
  const QString file = QString::fromStdString(folder.file("page.pdf"));
  EXPECT_TRUE(page.writePdf(file));
  QFile written(file);
  ASSERT_TRUE(written.open(QIODevice::ReadOnly));
  EXPECT_TRUE(written.readAll().startsWith("%PDF"));
  EXPECT_FALSE(page.writePdf(QString::fromStdString(folder.file("none/page.pdf"))));
}

TEST_F(HelpWindowTest, PagesKeptBesideTurnByKeysAndLinks) {
  desktop.keepBeside(
      {.pages = {{"One", "<p><a href=\"page:1\">on</a></p>"}, {"Two", "<p>two</p>"}}});
  desktop.settle();
  KeptWindow& kept = *desktop.keptWindow();
  const auto turn = [&](Qt::Key key) {
    QTest::keyClick(kept.windowHandle(), key, Qt::ControlModifier);
    return kept.windowTitle().toStdString();
  };
  EXPECT_EQ(turn(Qt::Key_PageDown), "Two - Notebook");
  EXPECT_EQ(turn(Qt::Key_PageDown), "Two - Notebook");
  EXPECT_EQ(turn(Qt::Key_PageUp), "One - Notebook");
  emit kept.findChild<HelpPage*>()->anchorClicked(QUrl("page:1"));
  EXPECT_EQ(kept.shownPage(), 1U);
  QTest::keyClick(kept.windowHandle(), Qt::Key_Escape);
  EXPECT_FALSE(kept.isVisible());
  std::string lines;
  for (int i = 0; i < 200; ++i) lines += "<p>line</p>";
  desktop.keepBeside({.pages = {{"One", lines + "<a name=\"chosen\"></a><p>Two</p>" + lines}}});
  EXPECT_GT(kept.findChild<HelpPage*>()->verticalScrollBar()->value(), 1000);

  const QPoint place = kept.pos();
  Window cover(desktop, "frmCover", WindowStyle::bare);
  cover.setPlace({0, 0, desktop.screenSize().width, desktop.screenSize().height});
  script.window("frmCover", [&] {
    desktop.settle();
    EXPECT_LT(kept.x(), place.x());
    EXPECT_TRUE(kept.windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint));
    cover.hide();
  });
  cover.showModal();
  desktop.settle();
  EXPECT_EQ(kept.pos(), place);
}

}  // namespace
}  // namespace tolmer::test
