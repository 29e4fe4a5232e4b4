#include "shell/report_dialog.h"

#include <algorithm>
#include <array>
#include <cstdlib>

#include "editor/dialog_parts.h"
#include "platform/desktop.h"
#include "report/report_document.h"

namespace tolmer {
namespace {

constexpr long helpOnReport = 117;

constexpr Twips dialogWidth = pixels(620);
constexpr Twips labelWidth = pixels(76);
constexpr Twips fieldHeight = pixels(26);
constexpr Twips rowPitch = pixels(32);
constexpr Twips remarksHeight = pixels(70);
constexpr Twips partPitch = pixels(23);
constexpr Twips gap = pixels(12);

void placeRow(Label& label, Control& field, Twips top, Twips height = fieldHeight) {
  label.setUsesMnemonic(true);
  label.setPlace({dialogMargin, top + pixels(4), labelWidth, pixels(20)});
  field.setPlace(
      {dialogMargin + labelWidth, top, dialogWidth - 2 * dialogMargin - labelWidth, height});
}

}  // namespace

Paper usualPaper(std::string_view locale) {
  constexpr std::array letterLands = {"BZ", "CA", "CL", "CO", "CR", "GT", "MX",
                                      "NI", "PA", "PH", "PR", "SV", "US", "VE"};
  const auto at = locale.find('_');
  const auto land = at == locale.npos ? std::string_view() : locale.substr(at + 1, 2);
  const bool isOne = std::find(letterLands.begin(), letterLands.end(), land) != letterLands.end();
  return isOne ? Paper::letter : Paper::a4;
}

Paper usualPaper() {
  for (const char* name : {"LC_ALL", "LC_PAPER", "LANG"})
    if (const char* locale = std::getenv(name); locale && *locale) return usualPaper(locale);
  return Paper::a4;
}

OfferedParts offeredParts(const AnalysisState& state) {
  OfferedParts offered;
  auto& parts = offered.parts;
  const auto offer = [&parts](ReportPart part) {
    if (std::find(parts.begin(), parts.end(), part) == parts.end()) parts.push_back(part);
  };
  offer(nullptr);
  offer(findDisplay({textDisplays, 1}));
  for (const std::size_t row : {1U, 2U})
    for (const std::size_t column : {1U, 2U}) {
      const Quadrant& place = state.uQuadrant[row][column];
      if (const Display* display = findDisplay({place.iCategory, place.iIndex})) offer(display);
    }
  offered.inUse = parts.size();
  for (const ReportPart part : allParts()) offer(part);
  return offered;
}

frmReport::frmReport(Desktop& desktop, const AnalysisState& state, ReportUse use,
                     ReportChoice& choice)
    : Window(desktop, "frmReport", WindowStyle::dialog),
      choice_(choice),
      offered_(offeredParts(state)),
      usualTitle_(usualTitle(state)) {
  setCaption(use == ReportUse::save ? "Save Report" : "Print Report");
  cmdOK.setCaption(use == ReportUse::save ? "&Save..." : "Pr&int...");
  load();
  wire();
  layOut();
  centreOnScreen();
}

bool frmReport::ask() {
  isAccepted_ = false;
  showModal();
  return isAccepted_;
}

void frmReport::load() {
  const ReportRequest& request = choice_.request;
  txtTitle.setText(request.title.empty() ? usualTitle_ : request.title);
  txtAuthor.setText(request.author);
  txtRemarks.setMultiLine(true);
  txtRemarks.setText(request.remarks);
  for (const char* words : {"Whole", "First 20 cases and all marked", "Left out"})
    cboCaseLists.addItem(words);
  cboCaseLists.setListIndex(static_cast<int>(request.caseLists));
  for (const char* words : {"A4", "US Letter"}) cboPaper.addItem(words);
  cboPaper.setListIndex(static_cast<int>(request.paper));
  loadParts();
}

void frmReport::loadParts() {
  const auto isTicked = [this](std::size_t place) {
    if (!choice_.hasOwnParts) return place < offered_.inUse;
    const auto& own = *choice_.request.parts;
    return std::find(own.begin(), own.end(), offered_.parts[place]) != own.end();
  };
  for (std::size_t i = 0; i < offered_.parts.size(); ++i) {
    CheckBox& box = chkPart.load();
    box.setCaption(asCaption(std::string(captionOf(offered_.parts[i]))));
    box.setValue(isTicked(i) ? 1 : 0);
    box.setVisible(true);
  }
}

void frmReport::wire() {
  Activate = [this] {
    txtTitle.setFocus();
    txtTitle.selectAll();
  };
  cmdAll.Click = [this] { tickAll(1); };
  cmdNone.Click = [this] { tickAll(0); };
  cmdOK.Click = [this] { cmdOK_Click(); };
  cmdCancel.Click = [this] { hide(); };
  const auto help = [this] { desktop().showHelp({.file = "tolmod", .context = helpOnReport}); };
  cmdHelp.Click = help;
  takeKey({keys::f1}, help);
}

void frmReport::layOut() {
  placeRow(lblTitle, txtTitle, dialogMargin);
  placeRow(lblAuthor, txtAuthor, dialogMargin + rowPitch);
  placeRow(lblRemarks, txtRemarks, dialogMargin + 2 * rowPitch, remarksHeight);
  layOutContents(txtRemarks.bottom() + gap);
  const Twips top = fraContents.bottom() + gap;
  lblCaseLists.setUsesMnemonic(true);
  lblCaseLists.setPlace({dialogMargin, top + pixels(4), pixels(92), pixels(20)});
  cboCaseLists.setPlace({lblCaseLists.right(), top, pixels(236), fieldHeight});
  lblPaper.setUsesMnemonic(true);
  lblPaper.setPlace({cboCaseLists.right() + 2 * gap, top + pixels(4), pixels(48), pixels(20)});
  cboPaper.setPlace(
      {lblPaper.right(), top, dialogWidth - dialogMargin - lblPaper.right(), fieldHeight});
  const Twips commands = top + fieldHeight + gap;
  placeCommands({&cmdOK, &cmdCancel, &cmdHelp}, dialogWidth - dialogMargin, commands);
  setPlace({0, 0, dialogWidth, commands + commandHeight + dialogMargin});
}

// The boxes go down the left column first, as the report has them.
void frmReport::layOutContents(Twips top) {
  constexpr Twips underTitle = pixels(22);
  constexpr Twips buttonWidth = pixels(72);
  const Twips width = dialogWidth - 2 * dialogMargin;
  const Twips column = (width - gap) / 2;
  const int rows = (chkPart.last() + 1) / 2;
  cmdAll.setPlace({gap, underTitle, buttonWidth, fieldHeight});
  cmdNone.setPlace({cmdAll.right() + pixels(8), underTitle, buttonWidth, fieldHeight});
  const Twips boxes = cmdAll.bottom() + pixels(6);
  for (int i = chkPart.first(); i <= chkPart.last(); ++i) {
    const int place = i - 1;
    chkPart(i).setPlace({gap + (place < rows ? 0 : column),
                         boxes + static_cast<float>(place % rows) * partPitch, column - gap,
                         partPitch});
  }
  fraContents.setPlace(
      {dialogMargin, top, width, boxes + static_cast<float>(rows) * partPitch + pixels(8)});
}

void frmReport::tickAll(int value) {
  for (int i = chkPart.first(); i <= chkPart.last(); ++i) chkPart(i).setValue(value);
}

std::vector<ReportPart> frmReport::tickedParts() const {
  std::vector<ReportPart> parts;
  for (std::size_t i = 0; i < offered_.parts.size(); ++i)
    if (chkPart(static_cast<int>(i) + 1).value() == 1) parts.push_back(offered_.parts[i]);
  return parts;
}

void frmReport::cmdOK_Click() {
  ReportRequest& request = choice_.request;
  request.title = txtTitle.text() == usualTitle_ ? std::string() : txtTitle.text();
  request.author = txtAuthor.text();
  request.remarks = txtRemarks.text();
  request.caseLists = static_cast<CaseLists>(cboCaseLists.listIndex());
  request.paper = static_cast<Paper>(cboPaper.listIndex());
  request.parts = tickedParts();
  const auto inUse = offered_.parts.begin() + static_cast<std::ptrdiff_t>(offered_.inUse);
  choice_.hasOwnParts =
      !std::equal(offered_.parts.begin(), inUse, request.parts->begin(), request.parts->end());
  isAccepted_ = true;
  hide();
}

}  // namespace tolmer
