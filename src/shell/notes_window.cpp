#include "shell/notes_window.h"

#include <algorithm>

#include "displays/display_list.h"
#include "platform/desktop.h"

namespace tolmer {
namespace {

constexpr Twips margin = pixels(16);
constexpr Twips windowWidth = pixels(470);
constexpr Twips roomForText = windowWidth - 2 * margin;
constexpr Twips lineOfLinks = pixels(22);
constexpr Twips betweenLinks = pixels(16);
constexpr Twips betweenNotes = pixels(12);

// Each once, in the order of the note's cells.
std::vector<std::string> displaysOf(const Note& note) {
  std::vector<std::string> displays;
  const auto add = [&displays](const std::string& display) {
    if (std::ranges::find(displays, display) == displays.end()) displays.push_back(display);
  };
  for (const NotedCell& cell : note.cells) add(cell.display);
  if (!note.cases.empty()) add("frmDataList");
  return displays;
}

std::vector<std::unique_ptr<Label>> linksOn(Panel& ground, const std::string& name) {
  constexpr int tables = 6;  // whose cells a note can speak of
  std::vector<std::unique_ptr<Label>> links;
  for (int i = 1; i <= tables; ++i) {
    links.push_back(std::make_unique<Label>(&ground, name + "(" + std::to_string(i) + ")"));
    links.back()->setIsLink(true);
  }
  return links;
}

}  // namespace

frmNotes::Entry::Entry(Panel& ground, int index)
    : number("(" + std::to_string(index) + ")"),
      title(&ground, "lblTitle" + number),
      text(&ground, "lblNote" + number),
      ways(linksOn(ground, "lblShow" + number)),
      help(&ground, "lblHelp" + number, "Help") {
  title.setFont({FontFamily::interface, 12, true});
  text.setWordWrap(true);
  help.setIsLink(true);
}

void frmNotes::Entry::hide() {
  for (Label* label : {&title, &text, &help}) label->setVisible(false);
  for (const auto& way : ways) way->setVisible(false);
}

frmNotes::frmNotes(Desktop& desktop) : Window(desktop, "frmNotes", WindowStyle::dialog, "Notes") {
  cmdClose.setCancel(true);
  cmdClose.Click = [this] { hide(); };
}

void frmNotes::setNotes(const std::vector<Note>& notes) {
  const UpdateLock lock(*this);
  while (entries_.size() < notes.size())
    entries_.push_back(std::make_unique<Entry>(pnlNotes, static_cast<int>(entries_.size()) + 1));
  for (const auto& entry : entries_) entry->hide();
  Twips top = margin;
  for (std::size_t i = 0; i < notes.size(); ++i) {
    fill(*entries_[i], notes[i]);
    top = place(*entries_[i], top) + betweenNotes;
  }
  pnlNotes.announceChildren();
  placeBelow(top);
}

void frmNotes::fill(Entry& entry, const Note& note) {
  entry.title.setCaption(std::string(helpEntryOf(note.kind)));
  entry.text.setCaption(note.text);
  entry.help.setAccessibleDescription(note.text);
  entry.help.Click = [this, note] { raise(helpOn, note); };
  for (Label* label : {&entry.title, &entry.text, &entry.help}) label->setVisible(true);
  const auto displays = displaysOf(note);
  for (std::size_t i = 0; i < displays.size(); ++i) {
    Label& way = *entry.ways[i];
    way.setCaption("Show in " + std::string(findDisplay(displays[i])->caption));
    way.setAccessibleDescription(note.text);
    way.Click = [this, note, display = displays[i]] { raise(showIn, note, display); };
    way.setVisible(true);
  }
}

// The links stand in lines below the text; where the entry ends.
Twips frmNotes::place(Entry& entry, Twips top) {
  for (Label* label : {&entry.title, &entry.text}) {
    label->setPlace({margin, top, roomForText, label->captionHeight(roomForText)});
    top = label->bottom() + pixels(2);
  }
  Twips left = margin;
  const auto putLink = [&](Label& link) {
    const Twips needed = link.captionWidth();
    if (left > margin && left + needed > windowWidth - margin) {
      left = margin;
      top += lineOfLinks;
    }
    link.setPlace({left, top, needed, lineOfLinks});
    left = link.right() + betweenLinks;
  };
  for (const auto& way : entry.ways)
    if (way->visible()) putLink(*way);
  putLink(entry.help);
  return top + lineOfLinks;
}

void frmNotes::placeBelow(Twips end) {
  pnlNotes.setPlace({0, 0, windowWidth, end});
  cmdClose.setPlace({windowWidth - margin - pixels(90), end, pixels(90), pixels(30)});
  const Twips height = cmdClose.bottom() + margin;
  setPlace({left(), top(), windowWidth, height});
}

// Over the lower right of the screen at first, then where the user has left it.
void frmNotes::open() {
  if (!isPlaced_) {
    const Size screen = desktop().screenSize();
    setPlace({screen.width - windowWidth - pixels(24),
              std::max(screen.height - height() - pixels(80), 0.0F), windowWidth, height()});
    isPlaced_ = true;
  }
  if (!focus()) cmdClose.setFocus();
  show();
}

}  // namespace tolmer
