// The plain controls as HTML: what they show, how a screen reader names them, and where their
// marked letters lead. What the user sets is told apart from it.
#include <algorithm>
#include <array>
#include <cctype>
#include <string>
#include <string_view>

#include "base/markup_text.h"
#include "platform/buttons.h"
#include "platform/fields.h"
#include "platform/graph/graph.h"
#include "platform/graph/svg_writer.h"
#include "platform/labels.h"
#include "platform/outline.h"
#include "platform/panels.h"
#include "platform/tab_book.h"
#include "platform/tab_order.h"
#include "platform/text_metrics.h"
#include "platform/web/nodes.h"

namespace tolmer {
namespace {

std::string attribute(std::string_view name, std::string_view value) {
  return std::string(" ").append(name) + "=\"" + markupText(value) + '"';
}
std::string attribute(std::string_view name, int value) {
  return attribute(name, std::to_string(value));
}
// None where the value is empty.
std::string filled(std::string_view name, std::string_view value) {
  return value.empty() ? std::string() : attribute(name, value);
}

const Control* beside(const Control& control, std::ptrdiff_t step) {
  if (!control.parent()) return nullptr;
  const auto& all = control.parent()->children();
  const auto at = std::ranges::find(all, &control) - all.begin() + step;
  return at >= 0 && at < std::ssize(all) ? all[static_cast<std::size_t>(at)] : nullptr;
}

std::string idOfLabel(const Control& label) {
  return "label-" + std::to_string(NodePeer::idOf(&label));
}

// The control that is constructed just after the label and has no text of its own.
const Control* namedBy(const Label& label) {
  const Control* next = beside(label, 1);
  return next && isLabelOf(label, *next) ? next : nullptr;
}

std::string idIn(const Control& control, std::string_view kind, int index) {
  return std::string(kind) + '-' + std::to_string(NodePeer::idOf(&control)) + '-' +
         std::to_string(index);
}

// Looks are names of classes.
std::string shell(const Control& control, const std::string& looks) {
  const bool isSerif = control.font().family == FontFamily::serif;
  return attribute("class", "control " + looks + (isSerif ? " serif" : "") +
                                (isEnabledWithin(control) ? "" : " off")) +
         attribute("data-id", NodePeer::idOf(&control));
}

std::string disabled(const Control& control) { return isEnabledWithin(control) ? "" : " disabled"; }

std::string described(const Control& control) {
  const std::string& words = control.accessibleDescription();
  return filled("aria-description", words.empty() ? control.tip() : words);
}

// What has the focus: its name may stand in the label before it.
std::string spoken(const Control& control) {
  return filled("aria-label", control.accessibleName()) +
         filled("aria-labelledby", labelId(control)) + described(control) + disabled(control);
}

std::string letterOf(std::string_view caption) {
  const int letter = mnemonicOf(caption);
  return letter == 0 ? "" : attribute("data-key", std::string(1, static_cast<char>(letter)));
}

std::string span(const std::string& html) { return "<span>" + html + "</span>"; }

std::string html(const Label& label) {
  constexpr std::array aligns{"", " centre", " right"};
  const std::string text = inLines(label, label.caption());
  const Control* named = namedBy(label);
  const std::string tag = label.isLink() ? "button" : "div";
  return '<' + tag +
         shell(label, std::string("label") + (label.isLink() ? " link" : "") +
                          (label.wordWrap() ? " wraps" : "") +
                          aligns.at(static_cast<std::size_t>(label.align()))) +
         (named ? attribute("data-for", NodePeer::idOf(named)) + attribute("id", idOfLabel(label))
                : std::string()) +
         (named || (label.isLink() && label.usesMnemonic()) ? letterOf(label.caption()) : "") +
         described(label) + '>' +
         span(named || label.usesMnemonic() ? captionHtml(text) : markupText(text)) + "</" + tag +
         '>';
}

std::string html(const Button& button) {
  return "<button" + shell(button, button.isDefault() ? "button default" : "button") +
         spoken(button) + letterOf(button.caption()) + '>' + captionHtml(button.caption()) +
         "</button>";
}

template <class Choice>
std::string choice(const Choice& box, const char* type) {
  return "<label" + shell(box, "choice") + letterOf(box.caption()) + "><input" +
         attribute("type", type) + attribute("name", NodePeer::idOf(box.parent())) + spoken(box) +
         '>' + span(captionHtml(box.caption())) + "</label>";
}
std::string html(const CheckBox& box) { return choice(box, "checkbox"); }
std::string html(const OptionButton& option) { return choice(option, "radio"); }

std::string html(const TextBox& box) {
  const std::string all = shell(box, "box") + spoken(box) + (box.readOnly() ? " readonly" : "") +
                          R"( autocomplete="off" spellcheck="false">)";
  return box.multiLine() ? "<textarea" + all + "</textarea>" : "<input" + all;
}

// The program may set what the user may not type.
std::string html(const NumberBox& box) {
  return R"(<input type="number" autocomplete="off")" + shell(box, "box number") + spoken(box) +
         attribute("min", std::min(box.min(), box.value())) +
         attribute("max", std::max(box.max(), box.value())) + '>';
}

std::string html(const ComboBox& box) {
  std::string options;
  for (const std::string& item : box.items())
    options += "<option>" + markupText(item) + "</option>";
  return "<select" + shell(box, "box combo") + spoken(box) + '>' + options + "</select>";
}

std::string html(const ScrollBar& bar) {
  return R"(<input type="range")" + shell(bar, bar.height() > bar.width() ? "bar upright" : "bar") +
         spoken(bar) + attribute("max", bar.max()) + attribute("data-small", bar.smallChange()) +
         attribute("data-large", bar.largeChange()) + '>';
}

// The caption stands in an edge of its own, so that children are placed as everywhere.
std::string html(const Frame& frame) {
  const std::string& name = frame.accessibleName();
  const std::string legend = "<legend>" + captionHtml(frame.caption()) + "</legend>";
  return "<fieldset" + shell(frame, "frame") + disabled(frame) +
         filled("aria-label", name.empty() ? withoutMnemonic(frame.caption()) : name) +
         R"(><fieldset class="edge" aria-hidden="true">)" +
         (frame.caption().empty() ? "" : legend) + "</fieldset></fieldset>";
}

// A caption that something else is read out for is a pattern.
std::string html(const Panel& panel) {
  const std::string& name = panel.accessibleName();
  const std::string& said = name.empty() ? panel.caption() : name;
  const std::string caption = (name.empty() ? "<span>" : R"(<span aria-hidden="true">)") +
                              markupText(panel.caption()) + "</span>";
  return "<div" + shell(panel, panel.border() ? "panel bordered" : "panel") +
         filled("aria-label", said) + (said.empty() ? "" : R"( role="group")") +
         (isEnabledWithin(panel) ? "" : " inert") + '>' + (panel.caption().empty() ? "" : caption) +
         "</div>";
}

std::string html(const Image& image) {
  return "<img" + shell(image, "image") + filled("src", pictureAddress(image.file())) +
         attribute("alt", image.accessibleName()) + described(image) + R"( draggable="false">)";
}

std::string html(const TabBook& book) {
  constexpr double tabGap = 2;  // pixels
  std::string tabs;
  double width = 0;
  for (int i = 0; i < book.tabCount(); ++i) {
    const bool isActive = i == book.activeTab();
    tabs += R"(<button class="tab" role="tab")" + attribute("id", idIn(book, "tab", i)) +
            attribute("aria-selected", isActive ? "true" : "false") +
            attribute("tabindex", isActive ? 0 : -1) + '>' + span(markupText(book.tab(i).caption)) +
            "</button>";
    width +=
        textWidth(book.font(), book.tab(i).caption) + TabBook::tabSides / twipsPerPixel + tabGap;
  }
  const bool isTight = width > book.width() / twipsPerPixel;
  return "<div" + shell(book, "book") + R"(><div role="tablist")" +
         attribute("class", isTight ? "tabs tight" : "tabs") + spoken(book) + '>' + tabs +
         R"(</div><div class="page" role="tabpanel")" +
         attribute("aria-labelledby", idIn(book, "tab", book.activeTab())) + "></div></div>";
}

std::string html(const Outline& outline) {
  const auto& items = outline.items();
  std::string rows;
  int deepest = items.empty() ? 0 : items.front().indent;  // that shows
  for (int i = 0; i < std::ssize(items); ++i) {
    const Outline::Item& item = items[i];
    const bool isGroup = i + 1 < std::ssize(items) && items[i + 1].indent > item.indent;
    const bool isShown = item.indent <= deepest;
    if (isShown) deepest = item.indent + (item.expanded ? 1 : 0);
    rows += R"(<div class="row" role="treeitem")" + attribute("id", idIn(outline, "item", i)) +
            attribute("aria-level", item.indent) + (isShown ? "" : " hidden") +
            attribute("aria-selected", i == outline.listIndex() ? "true" : "false") +
            (isGroup ? attribute("aria-expanded", item.expanded ? "true" : "false") : "") + '>' +
            (isGroup ? R"(<i class="mark"></i>)" : "") + span(markupText(item.text)) + "</div>";
  }
  const std::string active =
      outline.listIndex() < 0 ? "" : idIn(outline, "item", outline.listIndex());
  return R"(<div role="tree" tabindex="0")" + shell(outline, "box outline") + spoken(outline) +
         filled("aria-activedescendant", active) + '>' + rows + "</div>";
}

// A picture alone, or one to step about in. Titles in it would be tips of the browser's.
std::string html(const Graph& graph) {
  const std::string& name = graph.accessibleName();
  return R"(<div role="img")" + shell(graph, "graph") +
         attribute("aria-roledescription", graph.marks().empty() ? "picture" : "chart") +
         attribute("aria-label", name.empty() ? "Graph" : name) + described(graph) +
         attribute("tabindex", graph.takesFocus() ? 0 : -1) + R"(><div aria-hidden="true">)" +
         writeSvg(graph.picture(), {}, {}) + "</div></div>";
}

std::string value(const Control&) { return {}; }
std::string value(const TextBox& box) { return box.text(); }
std::string value(const CheckBox& box) { return std::to_string(box.value()); }
std::string value(const OptionButton& option) { return std::to_string(option.value()); }
std::string value(const NumberBox& box) { return std::to_string(box.value()); }
std::string value(const ScrollBar& bar) { return std::to_string(bar.value()); }
std::string value(const ComboBox& box) { return std::to_string(box.listIndex()); }
std::string value(const Graph& graph) {
  const auto mark = graph.currentMark();
  return mark ? graph.wordsOn(*mark) : std::string();
}

ControlHtml none(const Control&) { return {}; }
template <class Kind>
ControlHtml of(const Control& control) {
  const auto& one = static_cast<const Kind&>(control);
  return {html(one), value(one)};
}

}  // namespace

std::string captionHtml(std::string_view caption) {
  std::string text;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    const bool isMark = caption[i] == '&' && i + 1 < caption.size();
    const std::string letter = markupText(caption.substr(isMark ? ++i : i, 1));
    const bool isMarked = isMark && std::isalnum(static_cast<unsigned char>(caption[i]));
    text += isMarked ? "<u>" + letter + "</u>" : letter;
  }
  return text;
}

std::string labelId(const Control& control) {
  const Control* before = beside(control, -1);
  const bool isNamed = before && isLabelOf(*before, control) && control.accessibleName().empty();
  return isNamed ? idOfLabel(*before) : std::string();
}

ControlHtml htmlOf(const Control& control) {
  constexpr std::array writers{none,         of<Label>,        of<Button>,   of<TextBox>,
                               of<CheckBox>, of<OptionButton>, of<ComboBox>, of<Frame>,
                               of<Panel>,    of<ScrollBar>,    of<Image>,    of<TabBook>,
                               of<Outline>,  of<NumberBox>,    none,         of<Graph>};
  return writers.at(static_cast<std::size_t>(control.kind()))(control);
}

}  // namespace tolmer
