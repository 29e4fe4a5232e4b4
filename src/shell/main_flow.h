// Start-up and main flow: notebook and designer in turn, until a data set and a model stand.
#pragma once

#include <memory>
#include <string>

#include "data/data_sources.h"
#include "insight/model_comparison.h"
#include "shell/hider.h"
#include "shell/shell_parts.h"

namespace tolmer {

// The title of the window of the suite's menu program.
inline constexpr const char* suiteTitle = "zelmar";

// Of the module's help.
inline constexpr const char* helpFile = "tolmod";
// Contexts of ShowHelpTopic; any other is the number of a topic.
inline constexpr long helpOnHelp = 2;
inline constexpr long helpContents = 101;
inline constexpr long helpSearch = 103;
inline constexpr long helpOnPanel = 111;

class MainFlow : public ScenarioSource {
 public:
  explicit MainFlow(ShellParts& parts);

  // From the cover to the first analysis. Afterwards the windows' events carry on.
  void Main();
  // Acts on the notebook's last page: takes the data source, shows the designer, and analyses.
  // Sets bNewDataRequested where another page has to be chosen first.
  void LoadModelAndData();
  // Shows the hint at the end of the start.
  void FinishStartup();
  void showHint();
  void ShowHelpTopic(long lContext);
  // The last act of the program.
  void ExitModule();

  // A copy of the data in force, of an example or a database, goes into the data editor; OK there
  // and on the designer, which has the model in force, analyses it.
  void editCopy();
  // That model of the present data, which have its columns, in place of the present one.
  void takeUpModel(const ModelRecord& record);

  // The control panel's commands.
  void changeModel();
  void showNotebook();
  void changeDataSource();

  std::string LastScenarioParameter(int iIndex) const override;
  std::string DefaultScenarioParameter(int iIndex) const override;

 private:
  void startNotebook();
  void readNotebook();
  void showMainWindow();
  void coverScreen();
  void uncoverScreen() { hider_.reset(); }
  void tickOptions();
  void askWhetherToExit();
  void loadUntilModelStands();
  bool takeDataSource();
  bool takeEditorData();
  bool editData(bool keepsModel = false);
  void openDropped(const DroppedItems& items);
  void showDesigner(bool keepsModel = false);

  ShellParts& parts_;
  AnalysisState& state_;
  std::unique_ptr<frmHider> hider_;
};

}  // namespace tolmer
