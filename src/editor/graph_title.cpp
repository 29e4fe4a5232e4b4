#include "editor/graph_title.h"

#include "editor/dialog_parts.h"

namespace tolmer {
namespace {

constexpr const char* noTitle = "(No Title)";

}  // namespace

frmGraphTitle::frmGraphTitle(Desktop& desktop, DataSheet& sheet)
    : Window(desktop, "frmGraphTitle", WindowStyle::dialog, "Graph Title"), sheet_(sheet) {
  setPlace({0, 0, pixels(440), pixels(124)});
  const Twips inside = width() - 2 * dialogMargin;
  lblGraphTitle.setPlace({dialogMargin, dialogMargin, inside, pixels(20)});
  txtGraphTitle.setPlace({dialogMargin, lblGraphTitle.bottom(), inside, pixels(28)});
  placeCommands({&cmdOK, &cmdCancel, &cmdHelp}, width() - dialogMargin,
                height() - dialogMargin - commandHeight);
  Activate = [this] { Form_Activate(); };
  cmdOK.Click = [this] { cmdOK_Click(); };
  cmdCancel.Click = [this] { hide(); };
  cmdHelp.Click = [this] { showEditorHelp(this->desktop(), helpOnTitle); };
  centreOnScreen();
}

void frmGraphTitle::Form_Activate() {
  mtNewTitle_ = sheet_.title();
  txtGraphTitle.setText(mtNewTitle_);
  txtGraphTitle.setFocus();
  txtGraphTitle.selectAll();
}

void frmGraphTitle::cmdOK_Click() {
  mtNewTitle_ = txtGraphTitle.text();
  if (mtNewTitle_.empty()) mtNewTitle_ = noTitle;
  if (mtNewTitle_ != sheet_.title()) sheet_.setTitle(mtNewTitle_);
  hide();
}

}  // namespace tolmer
