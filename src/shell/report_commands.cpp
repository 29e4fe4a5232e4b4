#include "shell/report_commands.h"

#include <algorithm>
#include <filesystem>

#include "base/program_version.h"
#include "base/text_encoding.h"
#include "report/printed_report.h"
#include "system/host_path.h"

namespace tolmer {
namespace {

struct SavedKind {
  const char* name;
  std::vector<std::string> extensions;
  ReportFormat format;
  bool isPdf = false;  // of the page
};

// What a report can be saved as. PDF comes first: it is what is handed in.
const std::vector<SavedKind>& savedKinds() {
  static const std::vector<SavedKind> kinds = {
      {"PDF documents", {"pdf"}, ReportFormat::html, true},
      {"Web pages", {"html", "htm"}, ReportFormat::html},
      {"R scripts", {"R"}, ReportFormat::r},
      {"Markdown texts", {"md", "markdown"}, ReportFormat::markdown}};
  return kinds;
}

}  // namespace

ReportRequest ReportCommands::requestFor(ReportFormat format) const {
  ReportRequest request = choice_.request;
  request.format = format;
  if (cases_.isShownInCopies) request.selectedCases = cases_.cases();
  return request;
}

bool ReportCommands::asks(ReportUse use) { return frmReport(desktop_, state_, use, choice_).ask(); }

void ReportCommands::SaveReport() {
  if (!asks(ReportUse::save)) return;
  // The dialog chooses the first of the kinds: the one that was saved last.
  std::vector<std::size_t> order;
  for (std::size_t i = 0; i < savedKinds().size(); ++i) order.push_back(i);
  std::rotate(order.begin(), order.begin() + static_cast<std::ptrdiff_t>(kind_),
              order.begin() + static_cast<std::ptrdiff_t>(kind_) + 1);
  std::vector<FileKind> kinds;
  for (const std::size_t i : order)
    kinds.push_back({savedKinds()[i].name, savedKinds()[i].extensions});
  std::size_t chosen = kind_;
  const Saving saving =
      desktop_.saveFile({.question = {"Save Report", std::move(kinds), folder_, suggestedName()},
                         .bytes =
                             [&](const ChosenFile& file) {
                               chosen = order[file.kind];
                               return bytesAs(chosen);
                             },
                         .notSaved = "The report was not saved."});
  if (saving.end != Saving::End::saved) return;
  kind_ = chosen;
  folder_ = host::nameOf(host::pathOf(saving.path).parent_path());
  raise(saved, saving.path);
}

void ReportCommands::PrintReport() {
  if (asks(ReportUse::print)) desktop_.print(pages());
}

PrintedPages ReportCommands::pages() const {
  const ReportRequest request = requestFor(ReportFormat::html);
  return printedReport(reportDocument(state_, request, {.date = today()}));
}

Result<std::string> ReportCommands::bytesAs(std::size_t kind) {
  const SavedKind& saved = savedKinds()[kind];
  if (saved.isPdf) return desktop_.pdfOf(pages());
  return makeReport(state_, requestFor(saved.format), {.date = today()});
}

// The title without what means something in a file's name. No extension: that follows the kind, and
// the dialog takes whatever stands behind a point for one.
std::string ReportCommands::suggestedName() const {
  const std::string& title = choice_.request.title;
  std::string name = title.empty() ? usualTitle(state_) : title;
  std::replace_if(
      name.begin(), name.end(),
      [](char c) { return std::string_view(R"(./\:*?"<>|)").find(c) != std::string_view::npos; },
      ' ');
  constexpr std::size_t longest = 60;
  name = onOneLine(name.substr(0, utf8Prefix(name, longest)));
  const auto last = name.find_last_not_of(' ');
  return last == name.npos ? "Report" : name.substr(0, last + 1);
}

}  // namespace tolmer
