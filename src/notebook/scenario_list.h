// The frame with a page's scenarios: up to four options with their names, and the description of
// the one that is on, which scrolls.
#pragma once

#include <functional>
#include <string>

#include "notebook/book.h"
#include "platform/buttons.h"
#include "platform/control_array.h"
#include "platform/fields.h"
#include "platform/labels.h"
#include "platform/panels.h"

namespace tolmer {

class ScenarioList {
 public:
  ScenarioList(Container& page, const BookTable<Scenario, 50>& scenarios);

  // Shows the element's scenarios with its selected one on, at that height of the page. Raises
  // nothing.
  void show(const ScenarioElement& element, Twips top);
  // As much higher as the longest of the descriptions can use, at most by `room`; returns by how
  // much.
  Twips growInto(Twips room);
  void hide() { fraScenarios.setVisible(false); }
  // Is the list on the page, with that option?
  bool offers(int index) const;
  // Turns an option on without raising `selected`; an option that is not there is left aside.
  void turnOn(int index);
  // Row of the scenarios table of an option that is shown.
  Int16 scenarioOf(int index) const;

  std::function<void(int)> selected;    // the user chose that option
  std::function<void()> doubleClicked;  // on an option or its name, which is on by then

  Frame fraScenarios;
  ControlArray<OptionButton> optScenario;  // (0..3)
  ControlArray<Label> lblScenName;         // (0..3)
  Panel picScenDesc;
  Label lblScenarioDesc;
  ScrollBar vsbScenDesc;

 private:
  void loadOption(int index);
  void showOption(int index, Twips spacing);
  void showDescription(const std::string& text);
  void setHeights(Twips more);
  void optScenario_Click(int Index);
  void optScenario_DblClick(int Index);
  void vsbScenDesc_Change();

  const BookTable<Scenario, 50>& scenarios_;
  ScenarioElement element_;
  bool mbProcessControlEvents_ = true;
};

}  // namespace tolmer
