#include "platform/qt/make_peer.h"

#include "platform/button.h"
#include "platform/check_box.h"
#include "platform/combo_box.h"
#include "platform/frame.h"
#include "platform/graph/graph.h"
#include "platform/grid/grid.h"
#include "platform/image.h"
#include "platform/label.h"
#include "platform/number_box.h"
#include "platform/option_button.h"
#include "platform/outline.h"
#include "platform/panel.h"
#include "platform/scroll_bar.h"
#include "platform/tab_book.h"
#include "platform/text_box.h"

namespace tolmer {

PeerPointer makePeer(Mirror& mirror, Control& control, QWidget* ground) {
  switch (control.kind()) {
    case ControlKind::label:
      return makeLabelPeer(mirror, static_cast<Label&>(control), ground);
    case ControlKind::button:
      return makeButtonPeer(mirror, static_cast<Button&>(control), ground);
    case ControlKind::textBox:
      return makeTextBoxPeer(mirror, static_cast<TextBox&>(control), ground);
    case ControlKind::checkBox:
      return makeCheckBoxPeer(mirror, static_cast<CheckBox&>(control), ground);
    case ControlKind::optionButton:
      return makeOptionButtonPeer(mirror, static_cast<OptionButton&>(control), ground);
    case ControlKind::comboBox:
      return makeComboBoxPeer(mirror, static_cast<ComboBox&>(control), ground);
    case ControlKind::frame:
      return makeFramePeer(mirror, static_cast<Frame&>(control), ground);
    case ControlKind::panel:
      return makePanelPeer(mirror, static_cast<Panel&>(control), ground);
    case ControlKind::scrollBar:
      return makeScrollBarPeer(mirror, static_cast<ScrollBar&>(control), ground);
    case ControlKind::image:
      return makeImagePeer(mirror, static_cast<Image&>(control), ground);
    case ControlKind::tabBook:
      return makeTabBookPeer(mirror, static_cast<TabBook&>(control), ground);
    case ControlKind::outline:
      return makeOutlinePeer(mirror, static_cast<Outline&>(control), ground);
    case ControlKind::numberBox:
      return makeNumberBoxPeer(mirror, static_cast<NumberBox&>(control), ground);
    case ControlKind::graph:
      return makeGraphPeer(mirror, static_cast<Graph&>(control), ground);
    case ControlKind::grid:
      return makeGridPeer(mirror, static_cast<Grid&>(control), ground);
    case ControlKind::window:  // windows are not in containers
      break;
  }
  return nullptr;
}

}  // namespace tolmer
