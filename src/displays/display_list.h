// The displays of the program: one table of what they are called and where they stand, and what
// each of them says of an analysis.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "advice/interpretation.h"
#include "base/message_box.h"
#include "graphs/graph_content.h"
#include "state/analysis_state.h"
#include "tables/table_content.h"

namespace tolmer {

// A display is known by its category (DisplayCategory) and, from 1, its index in it.
struct DisplayId {
  int iCategory;
  int iIndex;
  friend bool operator==(const DisplayId&, const DisplayId&) = default;
};

using Sections = std::vector<Section>;
using DisplayContent = std::variant<TableContent, GraphContent, Sections>;

using TableMaker = TableContent (*)(const AnalysisState&);
// Called only where there is a fit. Size in view units; trouble goes to the message port.
using GraphMaker = GraphContent (*)(const AnalysisState&, ViewSize, MessagePort&);
using TextMaker = Sections (*)(const AnalysisState&);

struct Display {
  DisplayId id;
  const char* form;        // its window, and its key in the report
  const char* word;        // its name on a command line
  const char* control;     // what fills the window
  const char* caption;     // of the window
  const char* menuWords;   // in the menu of the main window
  const char* popupWords;  // in the right-click menu, where a few words differ
  // Where a reader of the report comes to it: in words first, then the fit as a whole, its terms,
  // the variables, the cases, and the graphs.
  int readingPlace;
  std::variant<TableMaker, GraphMaker, TextMaker> make;
  bool listsCases;  // grows with the cases
  bool showsFit;    // and not the data alone, which are right after a failed fit, too
  // A click on its graph takes the two lists of the control panel away and nothing else.
  bool keepsPanel;

  long helpTopic() const { return 200 + 10 * id.iCategory + id.iIndex; }
};

// In the order of categories and indices, which is that of the menus and of the report's JSON.
std::span<const Display> displayList();
// Null for a pair, or a form's name, that is no display's.
const Display* findDisplay(DisplayId id);
const Display* findDisplay(std::string_view form);
std::vector<const Display*> inReadingOrder();

// Is there a fit of the present model? Otherwise a graph stays as it is.
bool hasFit(const AnalysisState& state);
// What stands behind the title of all that shows the fit, where the last one failed: " (no valid
// fit)", else nothing.
std::string fitMark(const AnalysisState& state);
// The display's caption, with that mark where it shows the fit.
std::string titleOf(const Display& display, const AnalysisState& state);
// Of a graph without a fit an empty plot. Only graphs need the size and the message port.
DisplayContent contentOf(const Display& display, const AnalysisState& state, ViewSize size,
                         MessagePort& messages);

// Every display that exists is hidden, every other entry of iDisplayState is noSuchDisplay.
void InitDisplayTable(AnalysisState& state);

}  // namespace tolmer
