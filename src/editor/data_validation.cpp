#include "editor/data_validation.h"

#include <cmath>
#include <limits>

#include "engine/decimals_choice.h"
#include "engine/number_format.h"
#include "sheet/new_sheet.h"
#include "sheet/sheet_content.h"
#include "textimport/typed_number.h"

namespace tolmer {
namespace {

// Whether row r is complete; its values and label go behind the complete cases so far.
bool takeCase(const DataSheet& sheet, int r, CompleteCases& cases) {
  StudentData& data = cases.data;
  const int slot = data.miCompleteObs + 1;
  const std::string& label = sheet.cell(r, 0).text;
  data.mtLabel[slot] = label;
  if (!label.empty()) data.mbDataLabelsEntered = true;
  std::string gaps;
  for (int c = 1; c <= cases.usedVariables; ++c) {
    const auto value = sheet.value(r, c);
    const bool isEmpty = sheet.cell(r, c).kind == DataCell::Kind::empty;
    if (value) data.mdValue(slot, c) = *value;
    if (!isEmpty) cases.bVarHasData[c] = true;
    if (!value && cases.bVarHasData[c])
      gaps += (gaps.empty() ? "" : ", ") +
              std::string(isEmpty ? "a gap in " : "a formula without a value in ") +
              sheet.heading(c);
  }
  if (!gaps.empty()) data.leftOut.push_back({r, label, gaps});
  return gaps.empty();
}

std::string missingText(int incomplete) {
  const std::string cases =
      incomplete == 1 ? "Warning: One case is incomplete. It cannot be used in the analysis."
                      : "Warning: " + std::to_string(incomplete) +
                            " cases are incomplete. They cannot be used in the analysis.";
  return cases +
         " Press OK to proceed by discarding incomplete data, or Cancel to return to the Data "
         "Editor.";
}

std::vector<std::string> descriptionOf(const SheetContent& sheet) {
  if (!isDescribed(sheet)) return {};
  std::vector<std::string> description = sheet.labels;
  description.front() = aboutData(sheet);
  return description;
}

bool discardsIncomplete(int incomplete, MessagePort& messages) {
  if (incomplete == 0) return true;
  return messages.messageBox({"Missing Data", missingText(incomplete), MessageIcon::question,
                              MessageButtons::okCancel}) == Answer::ok;
}

bool leavesWithTooFew(int minimum, MessagePort& messages) {
  return messages.messageBox(
             {"Not Enough Data",
              "The sample size is too small for analysis. You need at least " +
                  std::to_string(minimum) +
                  " complete observations. If you leave the Data Editor this data will NOT be "
                  "used! Do you want to leave the Data Editor anyway?",
              MessageIcon::exclamation, MessageButtons::yesNo}) == Answer::yes;
}

std::vector<float> variableValues(const StudentData& data, int iVar) {
  std::vector<float> sVal(static_cast<std::size_t>(data.miCompleteObs) + 1);
  for (int i = 1; i <= data.miCompleteObs; ++i) sVal[i] = static_cast<float>(data.mdValue(i, iVar));
  return sVal;
}

void writeBack(const std::vector<float>& sVal, StudentData& data, int iVar) {
  for (int i = 1; i <= data.miCompleteObs; ++i) data.mdValue(i, iVar) = sVal[i];
}

// The analysis holds its data as singles.
std::optional<MessageBox> checkSize(const DataSheet& sheet, const StudentData& data, int iVar) {
  constexpr double largest = std::numeric_limits<float>::max();
  for (int i = 1; i <= data.miCompleteObs; ++i)
    if (std::fabs(data.mdValue(i, iVar)) > largest)
      return MessageBox{"Variable Error",
                        "Your Variable " + sheet.cell(0, iVar).text + " has the value " +
                            exactText(data.mdValue(i, iVar)) +
                            ". The analysis takes numbers up to 3.4e38.",
                        MessageIcon::critical, MessageButtons::ok};
  return std::nullopt;
}

std::optional<MessageBox> variableFault(const DataSheet& sheet, StudentData& data, int iVar) {
  if (auto fault = checkSize(sheet, data, iVar)) return fault;
  const std::vector<float> sVal = variableValues(data, iVar);
  if (sheet.variables() != 4 || iVar != binaryVariable)
    return CheckConstantVariable(sVal, sheet.cell(0, iVar).text, data.miCompleteObs);
  auto fault = CheckBinaryVariable(sVal, data.miCompleteObs);
  if (!fault) writeBack(sVal, data, iVar);
  return fault;
}

bool variablesAreValid(const DataSheet& sheet, CompleteCases& cases, MessagePort& messages) {
  for (int i = 1; i <= cases.usedVariables; ++i)
    if (const auto fault = variableFault(sheet, cases.data, i)) {
      messages.messageBox(*fault);
      return false;
    }
  return true;
}

// The first of the variables that must have data and has none; 0 for none.
int missingVariable(const CompleteCases& cases, int minimum) {
  for (int i = 1; i <= minimum; ++i)
    if (!cases.bVarHasData[i]) return i;
  return 0;
}

MessageBox binaryFault(std::string text) {
  return {"Binary Variable Error", std::move(text), MessageIcon::critical, MessageButtons::ok};
}

}  // namespace

CompleteCases completeCases(const DataSheet& sheet) {
  CompleteCases cases;
  cases.data.mdValue.resize(sheet.observations(), sheet.variables());
  cases.data.mtLabel.resize(static_cast<std::size_t>(sheet.observations()) + 1);
  for (int c = 0; c <= sheet.variables(); ++c) cases.data.mtVarHeader.push_back(sheet.heading(c));
  cases.data.description = descriptionOf(sheet.content());
  cases.data.copy = sheet.dataCopy();
  cases.bVarHasData.resize(static_cast<std::size_t>(sheet.variables()) + 1);
  cases.usedVariables = sheet.lastUsedColumn();
  const int lastRow = sheet.lastUsedRow();
  for (int r = 1; r <= lastRow; ++r)
    ++(takeCase(sheet, r, cases) ? cases.data.miCompleteObs : cases.iIncomplete);
  return cases;
}

std::optional<MessageBox> CheckConstantVariable(std::span<const float> sVal,
                                                const std::string& tHeading, int iObs) {
  for (int i = 2; i <= iObs; ++i)
    if (sVal[i] != sVal[1]) return std::nullopt;
  if (iObs == 0 || sVal[1] == 0) return std::nullopt;
  const std::string picture = FindFormatStringValue(sVal[1], 4, 8, true, true, true, true);
  return MessageBox{
      "Variable Error",
      "Your Variable " + tHeading + " has only 1 value: " + formatNumber(sVal[1], picture),
      MessageIcon::critical, MessageButtons::ok};
}

std::optional<MessageBox> CheckBinaryVariable(std::span<const float> sVal, int iObs) {
  constexpr float unset = -9345.123f;
  if (iObs == 0) return std::nullopt;
  const float one = sVal[1];
  float two = unset;
  int countOne = 1;
  int countTwo = 0;
  for (int i = 2; i <= iObs; ++i) {
    const float value = sVal[i];
    if (value == one)
      ++countOne;
    else if (two == unset)
      two = value;
    else if (value == two)
      ++countTwo;
    else
      return binaryFault("Your Binary Variable has more than 2 values.");
  }
  if (two == unset)
    return binaryFault("Your Binary Variable has only 1 value: " + generalText(one));
  if (countOne == 1) return binaryFault("You have only one " + generalText(one) + " in your data");
  if (countTwo == 1) return binaryFault("You have only one " + generalText(two) + " in your data");
  return std::nullopt;
}

ExitVerdict bfDataAreValid(DataSheet& sheet, const ExitLimits& limits, MessagePort& messages) {
  sheet.nameBlankHeadings();
  CompleteCases cases = completeCases(sheet);
  if (const int missing = missingVariable(cases, limits.miMinVariables)) {
    messages.messageBox({"", "You need data for variable " + sheet.cell(0, missing).text});
    return {};
  }
  if (!discardsIncomplete(cases.iIncomplete, messages)) return {};
  if (cases.data.miCompleteObs < limits.miMinObservations)
    return {.mbUserCancel = leavesWithTooFew(limits.miMinObservations, messages)};
  const bool valid = variablesAreValid(sheet, cases, messages);
  return {.valid = valid, .data = std::move(cases.data)};
}

}  // namespace tolmer
