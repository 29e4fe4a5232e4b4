#include "bookcompiler/book_compiler.h"

#include <filesystem>
#include <optional>

#include "base/file_io.h"
#include "base/text_encoding.h"
#include "bookcompiler/source_keywords.h"
#include "bookcompiler/student_view.h"
#include "notebook/object_file.h"
#include "system/host_path.h"

namespace tolmer {
namespace {

struct CompileArguments {
  std::string source;
  std::string output;
  std::string root;
};

// nullopt unless there are exactly a source, an output and a root.
std::optional<CompileArguments> parseArguments(const std::vector<std::string>& arguments) {
  CompileArguments parsed;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string& word = arguments[i];
    const bool isOption = word.starts_with("--");
    if (isOption && (word != "--root" || i + 1 == arguments.size())) return std::nullopt;
    std::string& target = isOption                ? parsed.root
                          : parsed.source.empty() ? parsed.source
                                                  : parsed.output;
    if (!target.empty()) return std::nullopt;
    target = isOption ? arguments[++i] : word;
  }
  const bool complete = !parsed.source.empty() && !parsed.output.empty() && !parsed.root.empty();
  return complete ? std::optional(parsed) : std::nullopt;
}

std::string folderOf(const std::string& file) {
  const std::string folder = host::nameOf(host::pathOf(file).parent_path());
  return folder.empty() ? "." : folder;
}

// What the files hold goes into the scenario's parameters.
void checkFiles(SourcedBook& sourced, const CourseFolders& folders, Complaints& complaints) {
  for (const DataSetClaim& claim : sourced.dataSets) {
    const auto found = checkDataSet(claim, folders, complaints);
    if (!found) continue;
    Book& book = sourced.book;
    auto& parameter =
        (claim.scenario == 0 ? book.uDefaultScenario : book.uScenario[claim.scenario]).tParameter;
    parameter[5] = std::to_string(found->cases);
    parameter[6] = std::to_string(found->columns);
    parameter[8] = stampText(found->dataStamp);
    if (found->infoStamp) parameter[9] = stampText(*found->infoStamp);
  }
  for (const FileClaim& file : sourced.courseFiles)
    checkCourseFile(file.line, file.name, folders, complaints);
  for (const FileClaim& file : sourced.pictures)
    checkPicture(file.line, file.name, folders, complaints);
}

}  // namespace

CompiledBook compileBook(std::string_view source, const CourseFolders& folders) {
  Complaints complaints;
  const auto entries = parseSource(source, complaints);
  SourcedBook sourced = buildBook(entries, complaints);
  checkFiles(sourced, folders, complaints);
  // references are right only where there are no errors
  if (!complaints.hasErrors()) warnForStudents(sourced, folders, complaints);
  CompiledBook compiled{{}, complaints.sorted(), complaints.hasErrors()};
  if (!compiled.hasErrors) compiled.objectText = objectFileText(sourced.book);
  return compiled;
}

int compileNotebook(const std::vector<std::string>& arguments, std::string& report) {
  const auto parsed = parseArguments(arguments);
  const bool askedForHelp = arguments == std::vector<std::string>{"--help"};
  if (!parsed) {
    report += "usage: nbocompile SOURCE OUTPUT --root FOLDER\n";
    return askedForHelp ? 0 : 2;
  }
  const auto source = readWholeFile(parsed->source);
  if (!source) {
    report += onOneLine(source.error().message()) + "\n";
    return 1;
  }
  const auto compiled = compileBook(*source, {parsed->root, folderOf(parsed->output)});
  for (const Complaint& complaint : compiled.complaints)
    report += onOneLine(parsed->source + ":" + std::to_string(complaint.line) + ": " +
                        (complaint.isWarning ? "warning: " : "") + complaint.text) +
              "\n";
  if (compiled.hasErrors) return 1;
  if (const auto error = writeFileAtomically(parsed->output, compiled.objectText)) {
    report += onOneLine(error->message()) + "\n";
    return 1;
  }
  return 0;
}

}  // namespace tolmer
