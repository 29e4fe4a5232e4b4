// What the page hears of each kind of control.
#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/desktop.h"
#include "platform/dialog_fit.h"
#include "platform/fields.h"
#include "platform/grid/grid.h"
#include "platform/panels.h"
#include "platform/tab_book.h"
#include "platform/web/grid_orders.h"
#include "platform/web/message_window.h"
#include "platform/web/nodes.h"
#include "platform/web/web_screen.h"
#include "platform/window.h"

namespace tolmer {
namespace {

int pixel(Twips length, float scale) {
  return static_cast<int>(std::lround(length * scale / twipsPerPixel));
}

// Edges are rounded, not sizes: what touches goes on touching.
std::array<int, 4> placed(const Rect& place, float scale) {
  const int left = pixel(place.left, scale);
  const int top = pixel(place.top, scale);
  return {left, top, pixel(place.right(), scale) - left, pixel(place.bottom(), scale) - top};
}

void writePlace(JsonWriter& json, const Rect& place, float scale) {
  json.list("place", placed(place, scale));
}

std::string px(int pixels) { return std::to_string(pixels) + "px"; }

void writeLook(JsonWriter& json, const Control& control, float scale) {
  const float size = control.font().pixels * scale;
  const int pixels = static_cast<int>(std::floor(scale == 1 ? size + 0.5F : size + 0.01F));
  json.members("color", control.hasOwnInk() ? hexColour(control.foreColour()) : std::string(),
               "--own", control.hasOwnGround() ? hexColour(control.backColour()) : std::string(),
               "font-size", px(pixels), "font-weight", control.font().bold ? "bold" : "");
}

// How much of all is seen.
double shareOf(const ScrollBar& bar) {
  return bar.largeChange() / static_cast<double>(bar.max() + bar.largeChange());
}

// Place and look; controls of one container lie above one another in their order.
std::string styleOf(const Control& control) {
  const ControlKind kind = control.kind();
  const float scale = magnificationOf(control);
  return jsonOf([&](JsonWriter& json) {
    json.beginObject();
    if (kind != ControlKind::window) {
      const auto [left, top, width, height] = placed(control.place(), scale);
      json.members("left", px(left), "top", px(top), "width", px(width), "height", px(height));
    }
    if (kind != ControlKind::grid && kind != ControlKind::graph) writeLook(json, control, scale);
    if (kind == ControlKind::tabBook) json.member("--tabs", px(pixel(TabBook::tabHeight, scale)));
    if (kind == ControlKind::panel)
      json.member("z-index", std::to_string(static_cast<const Panel&>(control).raised()));
    if (kind == ControlKind::scrollBar)
      json.member("--share", std::to_string(shareOf(static_cast<const ScrollBar&>(control))));
    json.endObject();
  });
}

void writeSize(JsonWriter& json, std::string_view name, Size size, float scale) {
  json.list(name, std::array{pixel(size.width, scale), pixel(size.height, scale)});
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

void writeBox(JsonWriter& json, const MessageBox& box) {
  constexpr std::string_view icons[] = {"none", "critical", "question", "exclamation",
                                        "information"};
  json.members("box", icons[static_cast<int>(box.icon)], "closes", answerToEscape(box).has_value());
}

void writeWindow(JsonWriter& json, const Window& window, Change what) {
  const auto* message = dynamic_cast<const MessageWindow*>(&window);
  const bool isDialog =
      window.style() == WindowStyle::dialog || window.style() == WindowStyle::bare;
  if (has(what, Change::text)) json.member("caption", window.caption());
  constexpr std::string_view styles[] = {"dialog", "bare", "frame", "child"};
  if (what == Change::all) json.member("style", styles[static_cast<int>(window.style())]);
  if (what == Change::all && message) writeBox(json, message->box());
  if (has(what, Change::visible)) json.member("modal", window.isModal());
  if (has(what, Change::look)) json.member("sizable", window.sizable());
  if (has(what, Change::enabled)) json.member("takesInput", window.takesInput());
  // Its frame may have changed which of its children is active.
  if (window.style() == WindowStyle::frame)
    json.member("active", NodePeer::idOf(static_cast<const FrameWindow&>(window).activeChild()));
  if (!has(what, Change::place) || message) return;
  constexpr std::string_view states[] = {"normal", "minimised", "maximised"};
  json.member("state", states[static_cast<int>(window.state())]);
  if (isDialog) return writeDialogPlace(json, window);
  writePlace(json, window.place(), 1);
  writeSize(json, "least", window.leastInner(), 1);
  if (window.style() == WindowStyle::frame)
    json.member("foot", pixel(static_cast<const FrameWindow&>(window).footHeight(), 1));
}

void writePlain(JsonWriter& json, NodePeer& node) {
  const auto tell = [&](std::string_view name, std::optional<std::string>& known, std::string now) {
    if (known == now) return;
    json.member(name, now);
    known = std::move(now);
  };
  const Control& control = node.control();
  auto [html, value] = htmlOf(control);
  // Of a list with other items the page may have chosen another one.
  if (control.kind() == ControlKind::comboBox && node.html != html) node.value.reset();
  tell("html", node.html, std::move(html));
  tell("value", node.value, std::move(value));
}

// Of a grid the page makes all elements itself.
void writeNames(JsonWriter& json, const Control& control) {
  const std::string& words = control.accessibleDescription();
  json.members("label", control.accessibleName(), "labelledBy", labelId(control), "description",
               words.empty() ? control.tip() : words);
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
               NodePeer::idOf(window ? window->frame() : control.parent()), "follows",
               static_cast<bool>(control.MouseMove));
}

}  // namespace

void writeNode(JsonWriter& json, NodePeer& node, Change what) {
  const Control& control = node.control();
  if (what == Change::all) writeFirst(json, control);
  if (has(what, Change::enabled)) json.member("enabled", isEnabledWithin(control));
  if (has(what, Change::visible)) json.member("visible", control.visible());
  if (has(what, Change::tip)) json.member("tip", control.tip());
  if (std::string style = styleOf(control); style != node.style) {
    json.key("css");
    json.token(node.style = std::move(style));
  }
  const bool isWindow = control.kind() == ControlKind::window;
  if (!isWindow && control.kind() != ControlKind::grid) return writePlain(json, node);
  if (has(what, Change::tip)) writeNames(json, control);
  if (isWindow) return writeWindow(json, static_cast<const Window&>(control), what);
  if (has(what, Change::place)) writePlace(json, control.place(), magnificationOf(control));
  if (!node.grid)
    node.grid = std::make_shared<ToldGrid>(static_cast<Grid&>(node.control()), node.id());
  node.grid->write(json);
}

}  // namespace tolmer
