// What the page hears of each kind of control.
#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <string_view>

#include "platform/buttons.h"
#include "platform/desktop.h"
#include "platform/dialog_fit.h"
#include "platform/fields.h"
#include "platform/graph/graph.h"
#include "platform/graph/svg_writer.h"
#include "platform/grid/grid.h"
#include "platform/labels.h"
#include "platform/outline.h"
#include "platform/panels.h"
#include "platform/tab_book.h"
#include "platform/tab_order.h"
#include "platform/text_metrics.h"
#include "platform/web/nodes.h"
#include "platform/web/web_screen.h"
#include "platform/window.h"

namespace tolmer {
namespace {

int pixel(Twips length, float scale) {
  return static_cast<int>(std::lround(length * scale / twipsPerPixel));
}

// Edges are rounded, not sizes: what touches goes on touching.
void writePlace(JsonWriter& json, const Rect& place, float scale) {
  const int left = pixel(place.left, scale);
  const int top = pixel(place.top, scale);
  json.list("place", std::array{left, top, pixel(place.right(), scale) - left,
                                pixel(place.bottom(), scale) - top});
}

// The order in which controls of one container lie above one another.
int orderOf(const Control& control) {
  constexpr int above = 10000;
  int order = 0;
  if (const Container* container = control.parent()) {
    const auto& all = container->children();
    order = static_cast<int>(std::ranges::find(all, &control) - all.begin());
  }
  if (control.kind() == ControlKind::panel)
    order += above * static_cast<const Panel&>(control).raised();
  return order;
}

void writeLook(JsonWriter& json, const Control& control) {
  json.member("ink", control.hasOwnInk() ? hexColour(control.foreColour()) : std::string());
  json.member("ground", control.hasOwnGround() ? hexColour(control.backColour()) : std::string());
  json.member("serif", control.font().family == FontFamily::serif);
  const float scale = magnificationOf(control);
  const float size = control.font().pixels * scale;
  json.member("pixels", static_cast<int>(std::floor(scale == 1 ? size + 0.5F : size + 0.01F)));
  json.member("bold", control.font().bold);
  json.member("order", orderOf(control));
}

std::string accessibleNameOf(const Control& control) {
  if (!control.accessibleName().empty()) return control.accessibleName();
  if (control.kind() == ControlKind::panel) return static_cast<const Panel&>(control).caption();
  return {};
}

void writeCommon(JsonWriter& json, const NodePeer& node, Change what) {
  const Control& control = node.control();
  if (has(what, Change::look)) writeLook(json, control);
  if (has(what, Change::enabled)) json.member("enabled", isEnabledWithin(control));
  if (has(what, Change::visible)) json.member("visible", control.visible());
  if (has(what, Change::tip) || has(what, Change::text)) {
    json.members("tip", control.tip(), "label", accessibleNameOf(control), "description",
                 control.accessibleDescription());
  }
  if (has(what, Change::place) && control.kind() != ControlKind::window)
    writePlace(json, control.place(), magnificationOf(control));
}

void writeSize(JsonWriter& json, std::string_view name, Size size, float scale) {
  json.list(name, std::array{pixel(size.width, scale), pixel(size.height, scale)});
}

constexpr std::string_view nameOf(WindowStyle style) {
  switch (style) {
    case WindowStyle::bare:
      return "bare";
    case WindowStyle::frame:
      return "frame";
    case WindowStyle::child:
      return "child";
    case WindowStyle::dialog:
      break;
  }
  return "dialog";
}

// A dialog on a screen that may have no room for all of it.
void writeDialogPlace(JsonWriter& json, const Window& window) {
  const float scale = window.magnification();
  const Size screen = window.desktop().screenSize();
  const Size room = webRoom(window, screen);
  const Size whole{window.width(), window.height()};
  Rect shown{window.left(), window.top(), std::min(whole.width * scale, room.width),
             std::min(whole.height * scale, room.height)};
  Size inside = window.sizable() ? window.leastInner() : whole;
  Twips footTop = -1;
  if (!window.sizable()) {
    const DialogFit fit = fitDialog(window, whole, {room.width / scale, room.height / scale},
                                    window.desktop().scrollBarThickness() / scale);
    shown.width = fit.shown.width * scale;
    shown.height = fit.shown.height * scale;
    if (fit.footTop < whole.height) footTop = fit.footTop;
  }
  // Nothing reaches beyond the right or lower edge of the screen. From a whole pixel the size is
  // rounded as what the layout needs is.
  const auto within = [](Twips edge, Twips most) {
    return pixels(static_cast<float>(pixel(std::max(std::min(edge, most), 0.0F), 1)));
  };
  shown.left = within(shown.left, room.width - shown.width);
  shown.top = within(shown.top, room.height - shown.height);
  writePlace(json, shown, 1);
  writeSize(json, "least", inside, scale);
  json.member("foot", footTop < 0 ? -1 : pixel(footTop, scale));
}

void writeWindow(JsonWriter& json, const Window& window, Change what) {
  const bool isDialog =
      window.style() == WindowStyle::dialog || window.style() == WindowStyle::bare;
  if (has(what, Change::text)) json.member("caption", window.caption());
  if (what == Change::all) json.member("style", nameOf(window.style()));
  if (has(what, Change::visible)) json.member("modal", window.isModal());
  if (has(what, Change::look)) json.member("sizable", window.sizable());
  if (has(what, Change::enabled)) json.member("takesInput", window.takesInput());
  // Its frame may have changed which of its children is active.
  if (window.style() == WindowStyle::frame)
    json.member("active", NodePeer::idOf(static_cast<const FrameWindow&>(window).activeChild()));
  if (!has(what, Change::place)) return;
  constexpr std::string_view states[] = {"normal", "minimised", "maximised"};
  json.member("state", states[static_cast<int>(window.state())]);
  if (isDialog) return writeDialogPlace(json, window);
  writePlace(json, window.place(), 1);
  writeSize(json, "least", window.leastInner(), 1);
  if (window.style() == WindowStyle::frame)
    json.member("foot", pixel(static_cast<const FrameWindow&>(window).footHeight(), 1));
}

constexpr std::string_view nameOf(Align align) {
  if (align == Align::left) return "left";
  return align == Align::centre ? "centre" : "right";
}

// The control that is constructed just after the label and has no text of its own.
int namedBy(const Label& label) {
  if (!label.parent()) return 0;
  const auto& all = label.parent()->children();
  const auto next = std::ranges::find(all, &label) + 1;
  return next != all.end() && isLabelOf(label, **next) ? NodePeer::idOf(*next) : 0;
}

void writeLabel(JsonWriter& json, const Label& label, Change what) {
  if (has(what, Change::text))
    json.members("caption", label.caption(), "mnemonic",
                 label.usesMnemonic() || namedBy(label) != 0, "names", namedBy(label));
  if (has(what, Change::look))
    json.members("align", nameOf(label.align()), "wraps", label.wordWrap(), "link", label.isLink(),
                 "stop", label.isLink());
  if (label.wordWrap() && has(what, Change::text | Change::look | Change::place))
    json.list("lines", wrapText(label.font(), label.caption(), label.width() / twipsPerPixel));
}

void writeTextBox(JsonWriter& json, NodePeer& node, const TextBox& box, Change what) {
  if (has(what, Change::look)) json.member("multiLine", box.multiLine());
  if (has(what, Change::enabled)) json.member("readOnly", box.readOnly());
  if (has(what, Change::text) && (what == Change::all || node.pageText != box.text())) {
    node.pageText = box.text();
    json.member("text", box.text());
  }
  if (node.scrollWishes > 0 && has(what, Change::value))
    json.members("scrollKey", box.lastScrollKey(), "scrollWish", node.scrollWishes);
}

void writeOutline(JsonWriter& json, const Outline& outline, Change what) {
  if (has(what, Change::items)) {
    const auto each = [&](std::string_view name, auto part) {
      json.list(name, outline.items(), [&](const auto& item) { json.value(item.*part); });
    };
    each("items", &Outline::Item::text);
    each("levels", &Outline::Item::indent);
    each("opened", &Outline::Item::expanded);
  }
  if (has(what, Change::items | Change::value)) json.member("index", outline.listIndex());
}

void writeTabs(JsonWriter& json, const TabBook& book, Change what) {
  if (has(what, Change::items)) {
    json.key("items");
    json.beginArray();
    for (int i = 0; i < book.tabCount(); ++i) json.value(book.tab(i).caption);
    json.endArray();
  }
  if (has(what, Change::items | Change::value)) json.member("index", book.activeTab());
  if (has(what, Change::place | Change::look))
    json.member("tabHeight", pixel(TabBook::tabHeight, magnificationOf(book)));
}

template <class Box>
void writeCaption(JsonWriter& json, const Box& box, Change what) {
  if (has(what, Change::text)) json.member("caption", box.caption());
}

void writeRange(JsonWriter& json, int min, int max, int value) {
  json.members("min", min, "max", max, "value", value);
}

void writeGraph(JsonWriter& json, const Graph& graph, Change what) {
  if (!has(what, Change::content | Change::look | Change::place | Change::value)) return;
  json.member("svg",
              writeSvg(graph.picture(), graph.accessibleName(), graph.accessibleDescription()));
  json.member("marks", static_cast<int>(graph.marks().size()));
  const auto current = graph.currentMark();
  json.member("spoken", current ? graph.wordsOn(*current) : std::string());
}

void writeButtons(JsonWriter& json, const Control& control, Change what) {
  switch (control.kind()) {
    case ControlKind::button:
      writeCaption(json, static_cast<const Button&>(control), what);
      if (has(what, Change::focus))
        json.member("isDefault", static_cast<const Button&>(control).isDefault());
      return;
    case ControlKind::checkBox:
      writeCaption(json, static_cast<const CheckBox&>(control), what);
      if (has(what, Change::value))
        json.member("value", static_cast<const CheckBox&>(control).value());
      return;
    default:
      writeCaption(json, static_cast<const OptionButton&>(control), what);
      if (has(what, Change::value))
        json.member("value", static_cast<const OptionButton&>(control).value() ? 1 : 0);
  }
}

void writeFields(JsonWriter& json, const Control& control, Change what) {
  if (!has(what, Change::items | Change::value)) return;
  if (control.kind() == ControlKind::numberBox) {
    const auto& box = static_cast<const NumberBox&>(control);
    // The program may set what the user may not type.
    return writeRange(json, std::min(box.min(), box.value()), std::max(box.max(), box.value()),
                      box.value());
  }
  if (control.kind() == ControlKind::scrollBar) {
    const auto& bar = static_cast<const ScrollBar&>(control);
    writeRange(json, 0, bar.max(), bar.value());
    return json.members("small", bar.smallChange(), "large", bar.largeChange());
  }
  const auto& box = static_cast<const ComboBox&>(control);
  if (has(what, Change::items)) json.list("items", box.items());
  json.member("index", box.listIndex());
}

std::string_view nameOf(ControlKind kind) {
  constexpr std::string_view names[] = {
      "window", "label",     "button", "textBox", "checkBox", "optionButton", "comboBox", "frame",
      "panel",  "scrollBar", "image",  "tabBook", "outline",  "numberBox",    "grid",     "graph"};
  return names[static_cast<int>(kind)];
}

void writeFirst(JsonWriter& json, const Control& control) {
  const auto* window = dynamic_cast<const Window*>(&control);
  json.members("kind", nameOf(control.kind()), "name", control.name(), "parent",
               NodePeer::idOf(window ? window->frame() : control.parent()), "stop",
               control.takesFocus(), "follows", static_cast<bool>(control.MouseMove));
}

}  // namespace

void writeNode(JsonWriter& json, NodePeer& node, Change what) {
  const Control& control = node.control();
  if (what == Change::all) writeFirst(json, control);
  writeCommon(json, node, what);
  switch (control.kind()) {
    case ControlKind::window:
      return writeWindow(json, static_cast<const Window&>(control), what);
    case ControlKind::label:
      return writeLabel(json, static_cast<const Label&>(control), what);
    case ControlKind::textBox:
      return writeTextBox(json, node, static_cast<const TextBox&>(control), what);
    case ControlKind::button:
    case ControlKind::checkBox:
    case ControlKind::optionButton:
      return writeButtons(json, control, what);
    case ControlKind::comboBox:
    case ControlKind::numberBox:
    case ControlKind::scrollBar:
      return writeFields(json, control, what);
    case ControlKind::frame:
      return writeCaption(json, static_cast<const Frame&>(control), what);
    case ControlKind::panel:
      writeCaption(json, static_cast<const Panel&>(control), what);
      if (has(what, Change::look))
        json.member("border", static_cast<const Panel&>(control).border());
      return;
    case ControlKind::image:
      if (has(what, Change::look))
        json.member("file", pictureAddress(static_cast<const Image&>(control).file()));
      return;
    case ControlKind::tabBook:
      return writeTabs(json, static_cast<const TabBook&>(control), what);
    case ControlKind::outline:
      return writeOutline(json, static_cast<const Outline&>(control), what);
    case ControlKind::grid:
      return writeGrid(json, node, static_cast<const Grid&>(control), what);
    case ControlKind::graph:
      return writeGraph(json, static_cast<const Graph&>(control), what);
  }
}

}  // namespace tolmer
