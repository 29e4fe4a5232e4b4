#include "notebook/scenario_list.h"

#include <algorithm>
#include <cmath>

#include "notebook/book_look.h"

namespace tolmer {
namespace {

using namespace book_look;

constexpr Rect framePlace{300, 0, 8700, 2850};
constexpr Twips optionsTop = 250;
constexpr Twips optionSide = 240;
constexpr Twips nameLeft = 320;
constexpr Twips nameWidth = 3400;
constexpr Rect descriptionPlace{3900, 250, 4400, 2450};
constexpr Twips barWidth = 240;

}  // namespace

ScenarioList::ScenarioList(Container& page, const BookTable<Scenario, 50>& scenarios)
    : fraScenarios(&page, "fraScenarios"),
      optScenario(fraScenarios, "optScenario", 0),
      lblScenName(fraScenarios, "lblScenName", 0),
      picScenDesc(&fraScenarios, "picScenDesc"),
      lblScenarioDesc(&picScenDesc, "lblScenarioDesc"),
      vsbScenDesc(&fraScenarios, "vsbScenDesc"),
      scenarios_(scenarios) {
  fraScenarios.setVisible(false);
  fraScenarios.setPlace(framePlace);
  fraScenarios.setBackColour(paper);
  for (int i = 0; i < maxScenariosOnPage; ++i) loadOption(i);
  picScenDesc.setPlace(descriptionPlace);
  picScenDesc.setBackColour(paper);
  lblScenarioDesc.setFont(textFont);
  lblScenarioDesc.setWordWrap(true);
  lblScenarioDesc.setForeColour(ink);
  lblScenarioDesc.setBackColour(paper);
  vsbScenDesc.setPlace(
      {descriptionPlace.right(), descriptionPlace.top, barWidth, descriptionPlace.height});
  vsbScenDesc.setAccessibleName("Scroll the description");
  vsbScenDesc.Changed = [this] { vsbScenDesc_Change(); };
}

void ScenarioList::loadOption(int index) {
  OptionButton& option = optScenario.load();
  option.setBackColour(paper);
  option.Click = [this, index] { optScenario_Click(index); };
  option.DblClick = [this, index] { optScenario_DblClick(index); };
  Label& name = lblScenName.load();
  name.setWordWrap(true);
  name.setForeColour(ink);
  name.setBackColour(paper);
  name.Click = [this, index] { optScenario(index).setValue(true); };
  name.DblClick = [this, index] { optScenario_DblClick(index); };
}

void ScenarioList::show(const ScenarioElement& element, Twips top) {
  element_ = element;
  fraScenarios.setCaption("");
  fraScenarios.setTop(top);
  setHeights(0);
  const int shown = std::min<int>(element.iNumScenarios, maxScenariosOnPage);
  const Twips spacing =
      std::round((fraScenarios.height() - optionsTop) / static_cast<float>(std::max(shown, 1)));
  for (int i = 0; i < maxScenariosOnPage; ++i) {
    if (i < shown) showOption(i, spacing);
    optScenario(i).setVisible(i < shown);
    lblScenName(i).setVisible(i < shown);
  }
  fraScenarios.setVisible(true);
  turnOn(element.iSelected);
}

Twips ScenarioList::growInto(Twips room) {
  Twips longest = 0;
  for (int i = 0; offers(i); ++i)
    longest = std::max(longest,
                       heightOf(textFont, scenarios_[scenarioOf(i)].tDesc, descriptionPlace.width));
  const Twips more = std::clamp(longest - descriptionPlace.height, 0.0F, std::max(room, 0.0F));
  setHeights(more);
  showDescription(lblScenarioDesc.caption());
  return more;
}

void ScenarioList::setHeights(Twips more) {
  fraScenarios.setHeight(framePlace.height + more);
  picScenDesc.setHeight(descriptionPlace.height + more);
  vsbScenDesc.setHeight(descriptionPlace.height + more);
}

void ScenarioList::showOption(int index, Twips spacing) {
  const std::string& name = scenarios_[scenarioOf(index)].tName;
  const Twips top = spacing * static_cast<float>(index) + optionsTop;
  optScenario(index).setTag(std::to_string(scenarioOf(index)));
  optScenario(index).setAccessibleName(name);
  optScenario(index).setAccessibleDescription(scenarios_[scenarioOf(index)].tDesc);
  optScenario(index).setPlace({80, top, optionSide, optionSide});
  lblScenName(index).setCaption(name);
  const Twips height = std::min(heightOf(textFont, name, nameWidth), spacing);
  lblScenName(index).setPlace({nameLeft, top, nameWidth, height});
}

Int16 ScenarioList::scenarioOf(int index) const {
  return static_cast<Int16>(element_.iFirstScenario + index);
}

bool ScenarioList::offers(int index) const {
  return fraScenarios.visible() && index >= 0 && index < element_.iNumScenarios &&
         index < maxScenariosOnPage;
}

void ScenarioList::turnOn(int index) {
  if (!offers(index)) return;
  mbProcessControlEvents_ = false;
  optScenario(index).setValue(true);
  mbProcessControlEvents_ = true;
  // the option may have been on already, for another page's scenario
  showDescription(scenarios_[scenarioOf(index)].tDesc);
}

void ScenarioList::showDescription(const std::string& text) {
  const Twips height =
      std::max(heightOf(textFont, text, picScenDesc.width()), picScenDesc.height());
  lblScenarioDesc.setCaption(text);
  vsbScenDesc.setValue(0);
  lblScenarioDesc.setPlace({0, 0, picScenDesc.width(), height});
  const int hidden = static_cast<int>(height - picScenDesc.height());
  vsbScenDesc.setRange(hidden, static_cast<int>(std::lround(hidden / 10.0)),
                       static_cast<int>(std::lround(hidden / 5.0)));
  vsbScenDesc.setVisible(hidden > 0);
  // Where all is seen the wheel is the page's.
  picScenDesc.Wheel = nullptr;
  if (hidden > 0)
    picScenDesc.Wheel = [this](float lines) {
      vsbScenDesc.setValue(vsbScenDesc.value() + static_cast<int>(lines * pixels(20)));
    };
}

void ScenarioList::optScenario_Click(int Index) {
  if (!mbProcessControlEvents_) return;
  showDescription(scenarios_[scenarioOf(Index)].tDesc);
  raise(selected, Index);
}

void ScenarioList::optScenario_DblClick(int Index) {
  optScenario(Index).setValue(true);
  raise(doubleClicked);
}

void ScenarioList::vsbScenDesc_Change() {
  lblScenarioDesc.setTop(static_cast<Twips>(-vsbScenDesc.value()));
}

}  // namespace tolmer
