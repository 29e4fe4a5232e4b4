#include "shell/popup_menu.h"

namespace tolmer {
namespace {

// A few words differ from the main menu's; the two lists are kept apart on purpose.
constexpr DisplayMenuCaptions captions = {
    {"&Residual Histogram", "Residual &Standardized Histogram", "Residual &Normality Plot",
     "&VIF Plot"},
    {"&Estimated Coefficients", "&ANOVA Table", "&Residual List", "&Data List",
     "&Correlation matrix", "Descriptive &Statistics"},
    "mnuScatterPlotList"};

}  // namespace

frmMenus::frmMenus() : displays(mnuMenuTop, captions) {}

}  // namespace tolmer
