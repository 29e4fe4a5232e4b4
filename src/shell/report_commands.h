// The report from the main menu: to a file, or to the printer.
#pragma once

#include <functional>
#include <string>

#include "displays/case_selection.h"
#include "platform/desktop.h"
#include "platform/paper/printed_pages.h"
#include "shell/report_dialog.h"

namespace tolmer {

class ReportCommands {
 public:
  ReportCommands(Desktop& desktop, const AnalysisState& state, const CaseSelection& cases)
      : desktop_(desktop), state_(state), cases_(cases) {}

  // Both ask first. There must be an analysis; its fit may have failed.
  void SaveReport();
  void PrintReport();

  // The report is in the file of that name, in the host's spelling.
  std::function<void(const std::string& path)> saved;

 private:
  bool asks(ReportUse use);
  ReportRequest requestFor(ReportFormat format) const;
  PrintedPages pages() const;
  Result<std::string> bytesAs(std::size_t kind);
  std::string suggestedName() const;

  Desktop& desktop_;
  const AnalysisState& state_;
  const CaseSelection& cases_;
  ReportChoice choice_;
  std::size_t kind_ = 0;  // of the file saved last
  std::string folder_;    // likewise
};

}  // namespace tolmer
