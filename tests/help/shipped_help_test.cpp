// The help as it is shipped, with the program that asks for its pages.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <set>

#include "base/file_io.h"
#include "help/help_reader.h"
#include "help/help_text.h"
#include "help/topic_page.h"
#include "shell/shipped_program.h"
#include "support/tree.h"

namespace tolmer::test {
namespace {

namespace fs = std::filesystem;

const std::string helpFolder = TOLMER_SOURCE_DIR "/course/help";

const HelpBook& shippedHelp() {
  static const auto book = readHelpBook(helpFolder);
  if (!book) throw std::runtime_error(book.error().message());
  return *book;
}

class ShippedHelp : public testing::TestWithParam<std::size_t> {
 protected:
  const HelpTopic& topic() const { return shippedHelp().topic(GetParam()); }
};

TEST(ShippedHelpFolder, HasEveryPageInItsContentsAndNoNumberTwice) {
  for (const Error& fault : shippedHelp().faults) ADD_FAILURE() << fault.message();
  std::set<std::string> names{"README.md", "contents.txt"};
  std::set<std::string> addresses;
  for (const HelpTopic& topic : shippedHelp().topics()) {
    names.insert(topic.name + ".txt");
    for (const std::string& picture : topicPictures(topic)) names.insert(picture);
    for (const HelpAddress& address : topic.opens)
      EXPECT_TRUE(addresses.insert(address.file + " " + std::to_string(address.number)).second)
          << topic.name << " claims a number of another page";
  }
  std::set<std::string> files;
  for (const auto& entry : fs::directory_iterator(helpFolder))
    files.insert(entry.path().filename().string());
  EXPECT_EQ(files, names);
}

TEST_P(ShippedHelp, LinksLeadSomewhere) {
  for (const HelpLink& link : topicLinks(topic())) {
    const auto target = shippedHelp().find(link.address);
    ASSERT_TRUE(target) << topic().name << ": " << linkUrl(link);
    if (link.entry.empty()) continue;
    const auto entries = topicEntries(shippedHelp().topic(*target));
    EXPECT_TRUE(std::ranges::any_of(
        entries, [&link](const TopicEntry& entry) { return entry.anchor == link.entry; }))
        << topic().name << ": " << linkUrl(link);
  }
}

TEST_P(ShippedHelp, IsReadInAFewMinutesAndLeavesNoMarks) {
  EXPECT_FALSE(topic().opens.empty()) << "nothing leads to " << topic().name;
  const std::string text = topicPlainText(topic());
  // A page of entries is looked up, not read.
  EXPECT_LE(wordsOf(text).size(), topicEntries(topic()).empty() ? 600U : 1500U);
  for (const char* mark : {"](", "**", "{", "}", "![", " *", "* "})
    EXPECT_THAT(text, testing::Not(testing::HasSubstr(mark))) << topic().name;
}

INSTANTIATE_TEST_SUITE_P(Pages, ShippedHelp,
                         testing::Range<std::size_t>(0, shippedHelp().topics().size()),
                         [](const auto& page) {
                           std::string name = shippedHelp().topic(page.param).name;
                           std::ranges::replace(name, '-', '_');
                           return name;
                         });

// Whoever asks, gets the page that is about what he asks from.
class HelpRequests : public ShippedProgram {
 protected:
  std::string lastTitle() {
    if (desktop.helpRequests().empty()) return "nothing";
    const HelpRequest& request = desktop.helpRequests().back();
    const long number = request.kind == HelpRequest::Kind::topic       ? request.context
                        : request.kind == HelpRequest::Kind::usingHelp ? 2
                                                                       : 0;
    const auto topic = shippedHelp().find({request.file, number});
    return topic ? shippedHelp().topic(*topic).title : "nothing";
  }
};

TEST_F(HelpRequests, OfEveryWindowHaveTheirPage) {
  script.window("frmOpeningBook");
  script.window("frmNotebook", [&] {
    user.key("frmNotebook", {keys::f1});
    EXPECT_EQ(lastTitle(), "The Notebook");
    user.click("frmNotebook", "cmdOK");
  });
  script.window("frmModelDesign", [&] {
    user.key("frmModelDesign", {keys::f1});
    EXPECT_EQ(lastTitle(), "Choosing Variables");
    script.window("frmShowData", [&] {
      user.key("frmShowData", {keys::f1});
      EXPECT_EQ(lastTitle(), "List of Variables");
      user.close("frmShowData");
    });
    user.click("frmModelDesign", "cmdShowData");
    script.window("frmHint", [&] { user.click("frmHint", "cmdOK"); });
    user.click("frmModelDesign", "cmdOK");
  });
  module.Main();
  for (const auto& [entry, title] : {std::pair{"Contents", "Help for Tolmer"},
                                     {"Search for Help on...", "Help for Tolmer"},
                                     {"Using Help", "Using Help"}}) {
    user.menu("mdiReg", std::string("Help/") + entry);
    EXPECT_EQ(lastTitle(), title);
  }
  user.key("frmControlPanel", {keys::f1});
  EXPECT_EQ(lastTitle(), "Control Panel");
}

TEST_F(HelpRequests, OfEveryDisplayHaveTheirPage) {
  startWithDefaultExample();
  ShellParts& parts = module.parts();
  for (const Display& entry : displayList()) {
    const auto [iCategory, iIndex] = entry.id;
    DisplayWindow* display = &parts.displays.display(entry);
    parts.state.frmCurrentDisplay = parts.frame.activeChild();
    if (parts.state.iDisplayState(iCategory, iIndex) != displayShown)
      parts.manager.ShowNewWindow(iCategory, iIndex);
    parts.frame.activate(*display);
    user.key(display->name(), {keys::f1});
    EXPECT_EQ(desktop.helpRequests().back().context, 200 + 10 * iCategory + iIndex);
    EXPECT_NE(lastTitle(), "nothing") << display->name();
  }
  // The data editor's dialogs ask by their own numbers.
  for (const auto& [number, title] : {std::pair{0, "Your Own Data"},
                                      {101, "Format"},
                                      {102, "Sort Options"},
                                      {103, "Graph Title"}})
    EXPECT_EQ(shippedHelp().topic(shippedHelp().find({"dataedit", number}).value()).title, title);
}

}  // namespace
}  // namespace tolmer::test
