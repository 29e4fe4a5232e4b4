#include "platform/panels.h"

#include <gtest/gtest.h>

#include <sstream>

#include "platform/headless/headless_desktop.h"
#include "platform/text_metrics.h"
#include "platform/window.h"

namespace tolmer {
namespace {

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
