// What a report shall hold, asked before it is saved or printed.
#pragma once

#include <vector>

#include "platform/buttons.h"
#include "platform/control_array.h"
#include "platform/fields.h"
#include "platform/labels.h"
#include "platform/panels.h"
#include "platform/window.h"
#include "report/report_request.h"

namespace tolmer {

enum class ReportUse { save, print };

// Where the program's windows stand: letter paper in the countries where it is usual, by the
// territory of a locale's name ("en_US.UTF-8"; Unicode CLDR, territory information), else A4.
Paper usualPaper(std::string_view locale);
// Of the locale that the environment names for paper.
Paper usualPaper();

// All parts of a report: first the equation, the interpretation and what stands in the quadrants,
// in their order, then the others in reading order.
struct OfferedParts {
  std::vector<ReportPart> parts;
  std::size_t inUse = 0;  // how many of them the first ones are
};
OfferedParts offeredParts(const AnalysisState& state);

// Stays for the run.
struct ReportChoice {
  ReportRequest request{.paper = usualPaper()};
  bool hasOwnParts = false;  // else the parts are those in use
};

// Title, author and remarks, the parts, lists of cases and the paper. It lives for one showing.
class frmReport : public Window {
 public:
  // Starts with the choice, which outlives the window.
  frmReport(Desktop& desktop, const AnalysisState& state, ReportUse use, ReportChoice& choice);

  // Shows the window modally. After OK the choice is what the user wants, its parts named one by
  // one; on Cancel it stays and this is False.
  bool ask();

  Label lblTitle{this, "lblTitle", "&Title:"};
  TextBox txtTitle{this, "txtTitle"};
  Label lblAuthor{this, "lblAuthor", "&Author:"};
  TextBox txtAuthor{this, "txtAuthor"};
  Label lblRemarks{this, "lblRemarks", "&Remarks:"};
  TextBox txtRemarks{this, "txtRemarks"};
  Frame fraContents{this, "fraContents", "Contents"};
  Button cmdAll{&fraContents, "cmdAll", "A&ll"};
  Button cmdNone{&fraContents, "cmdNone", "&None"};
  ControlArray<CheckBox> chkPart{fraContents, "chkPart"};
  Label lblCaseLists{this, "lblCaseLists", "Lists of &cases:"};
  ComboBox cboCaseLists{this, "cboCaseLists"};
  Label lblPaper{this, "lblPaper", "&Paper:"};
  ComboBox cboPaper{this, "cboPaper"};
  Button cmdOK{this, "cmdOK"};
  Button cmdCancel{this, "cmdCancel", "Cancel"};
  Button cmdHelp{this, "cmdHelp", "&Help"};

 private:
  void load();
  void loadParts();
  void wire();
  void layOut();
  void layOutContents(Twips top);
  void tickAll(int value);
  void cmdOK_Click();
  std::vector<ReportPart> tickedParts() const;

  ReportChoice& choice_;
  const OfferedParts offered_;
  const std::string usualTitle_;
  bool isAccepted_ = false;
};

}  // namespace tolmer
