// The mirror of each kind of control.
#pragma once

#include <memory>

#include "platform/qt/control_peer.h"

namespace tolmer {

class Button;
class CheckBox;
class ComboBox;
class Frame;
class Graph;
class Grid;
class Image;
class Label;
class NumberBox;
class OptionButton;
class Outline;
class Panel;
class ScrollBar;
class TabBook;
class TextBox;

using PeerPointer = std::unique_ptr<ControlPeer>;

// By the control's kind.
PeerPointer makePeer(Mirror& mirror, Control& control, QWidget* ground);

PeerPointer makeButtonPeer(Mirror& mirror, Button& button, QWidget* ground);
PeerPointer makeCheckBoxPeer(Mirror& mirror, CheckBox& box, QWidget* ground);
PeerPointer makeComboBoxPeer(Mirror& mirror, ComboBox& box, QWidget* ground);
PeerPointer makeFramePeer(Mirror& mirror, Frame& frame, QWidget* ground);
PeerPointer makeGraphPeer(Mirror& mirror, Graph& graph, QWidget* ground);
PeerPointer makeGridPeer(Mirror& mirror, Grid& grid, QWidget* ground);
PeerPointer makeImagePeer(Mirror& mirror, Image& image, QWidget* ground);
PeerPointer makeLabelPeer(Mirror& mirror, Label& label, QWidget* ground);
PeerPointer makeNumberBoxPeer(Mirror& mirror, NumberBox& box, QWidget* ground);
PeerPointer makeOptionButtonPeer(Mirror& mirror, OptionButton& option, QWidget* ground);
PeerPointer makeOutlinePeer(Mirror& mirror, Outline& outline, QWidget* ground);
PeerPointer makePanelPeer(Mirror& mirror, Panel& panel, QWidget* ground);
PeerPointer makeScrollBarPeer(Mirror& mirror, ScrollBar& bar, QWidget* ground);
PeerPointer makeTabBookPeer(Mirror& mirror, TabBook& book, QWidget* ground);
PeerPointer makeTextBoxPeer(Mirror& mirror, TextBox& box, QWidget* ground);

}  // namespace tolmer
