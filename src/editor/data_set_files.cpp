#include "editor/data_set_files.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <filesystem>
#include <functional>
#include <utility>

#include "base/data_limits.h"
#include "base/file_io.h"
#include "base/paths.h"
#include "editor/import_dialog.h"
#include "foreign/import_process.h"
#include "platform/file_question.h"
#include "sheet/new_sheet.h"
#include "sheet/sheet_content.h"
#include "sheetfiles/editor_file.h"
#include "sheetfiles/text_export.h"
#include "system/host_path.h"

namespace tolmer {
namespace {

struct Family {
  const char* name;
  const char* extension;
};

constexpr std::array families = {Family{"ZM Univar", "zmu"}, Family{"ZM Bivar", "zmb"},
                                 Family{"ZM Trivar", "zmt"}, Family{"ZM Quadvar", "zmq"},
                                 Family{"ZM Multivar", "zmm"}};

const Family& familyOf(int iNumberVariables) {
  const int last = static_cast<int>(families.size());
  return families[std::clamp(iNumberVariables, 1, last) - 1];
}

// In small letters, without the dot.
std::string extensionOf(const std::string& fileName) {
  const auto dot = fileName.rfind('.');
  if (dot == std::string::npos) return {};
  std::string extension = fileName.substr(dot + 1);
  std::transform(extension.begin(), extension.end(), extension.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return extension;
}

// The same kinds as in tfFileFilter, for the file dialogs, with text data of other programs between
// them.
std::vector<FileKind> editorFileKinds(int iNumberVariables) {
  const auto [name, extension] = familyOf(iNumberVariables);
  return {{name, {extension}}, {"Text data", {"csv", "tsv", "txt"}}, {"All", {}}};
}

// What Open can read comes first, all of it together.
std::vector<FileKind> readableKinds(int iNumberVariables) {
  std::vector<FileKind> kinds = editorFileKinds(iNumberVariables);
  kinds.insert(kinds.end() - 1, {"Workbooks and statistics files",
                                 {"xlsx", "xlsm", "ods", "fods", "sav", "zsav", "dta", "gdt"}});
  FileKind all{"All readable files", {}};
  for (const FileKind& kind : kinds)
    all.extensions.insert(all.extensions.end(), kind.extensions.begin(), kind.extensions.end());
  kinds.insert(kinds.begin(), std::move(all));
  return kinds;
}

// By the extension of its name.
bool isTextData(const std::string& fileName) {
  const std::string extension = extensionOf(fileName);
  return extension == "csv" || extension == "tsv" || extension == "txt";
}

char textSeparator(const std::string& fileName) {
  return extensionOf(fileName) == "csv" ? ',' : '\t';
}

SheetContent contentOf(const LandingTable& landing, int observations, int variables) {
  DataSheet sheet(observations, variables);
  sheet.paste({landing.first, landing.first}, landing.table);
  return sheet.content();
}

// For other programs a cell that shows an error is a missing value.
SheetContent withoutErrors(const DataSheet& sheet) {
  SheetContent content = sheet.content();
  for (int row = 1; row <= sheet.observations(); ++row)
    for (int column = 1; column <= sheet.variables(); ++column)
      if (!sheet.value(row, column)) content.cells(row, column) = {};
  return content;
}

}  // namespace

std::string tfFileFilter(int iNumberVariables, MessagePort& messages) {
  if (iNumberVariables < 1) {
    messages.messageBox({{}, "Error 154 - invalid number of variables."});
    return {};
  }
  const auto [name, extension] = familyOf(iNumberVariables);
  const std::string pattern = std::string("*.") + extension;
  return std::string(name) + " (" + pattern + ")|" + pattern + "|All (*.*)|*.*";
}

std::optional<DroppedFile> droppedFile(const DroppedItems& items, MessagePort& messages) {
  const auto refused = [&messages](const std::string& text) {
    messages.messageBox({"Open", text, MessageIcon::exclamation});
    return std::nullopt;
  };
  if (items.files.empty())
    return refused(
        "Only files can be opened. Save what lies on the web with your browser, or copy its table "
        "and paste it into the Data Editor.");
  const auto first = host::pathOf(items.files.front());
  std::error_code failed;
  if (std::filesystem::is_directory(first, failed))
    return refused(host::nameOf(first) + " is a folder. Drop one of the files in it.");
  const std::size_t others = items.files.size() + items.addresses.size() - 1;
  return DroppedFile{host::nameOf(first),
                     others == 0 ? std::string()
                                 : "Of " + std::to_string(others + 1) +
                                       " files that were dropped only the first was opened, " +
                                       host::nameOf(first.filename()) + "."};
}

DataSetFiles::DataSetFiles(Desktop& desktop, DataSheet& sheet, std::string programFolder)
    : desktop_(desktop),
      sheet_(sheet),
      programFolder_(std::move(programFolder)),
      symbolFiles_(desktop, files_) {}

// Where a file was last opened or saved; else the folder for the user's files beside the course,
// where somebody has made one that can be written, else the user's documents.
std::string DataSetFiles::dataFolder() const {
  if (!lastFolder_.empty()) return lastFolder_;
  const std::string own =
      hostPath(tRemoveBackSlash(tParentFolder(tRemoveBackSlash(coursePath(programFolder_)))) +
               "\\zmdata\\userdata");
  std::error_code failed;
  return std::filesystem::is_directory(host::pathOf(own), failed) && !isReadOnly(own)
             ? own
             : std::string();
}

OpenOutcome DataSetFiles::open() {
  const auto chosen = desktop_.openFileDialog(
      {.title = "Open", .kinds = readableKinds(sheet_.variables()), .folder = dataFolder()});
  return chosen ? open(chosen->path) : OpenOutcome{};
}

OpenOutcome DataSetFiles::open(const std::string& name) {
  if (wasGivenUp(name, false)) return {};
  lastFolder_ = host::nameOf(host::pathOf(name).parent_path());
  if (isForeignFile(name)) return {openForeign(name)};
  return isTextData(name) ? OpenOutcome{openText(name)} : openFile(name);
}

// Opens and closes it once. Where that fails, the user has his say; only Abort gives it up.
bool DataSetFiles::wasGivenUp(const std::string& name, bool allowRetry) {
  SymbolFile file(symbolFiles_);
  file.setFileSpec(name);
  file.setAllowRetry(allowRetry);
  file.setAllowAbortOperation(true);
  file.OpenFile();
  if (file.FileIsOpen()) file.CloseFile();
  return file.UserErrorChoice() == SymbolFile::choseAbort;
}

OpenOutcome DataSetFiles::openFile(const std::string& name) {
  const auto content = loadEditorFile(name, sheet_.observations(), sheet_.variables());
  if (!content) {
    desktop_.messageBox({"Bad File", "Could not load file " + name + ". Check file type.",
                         MessageIcon::exclamation});
    return {false, content.error().message()};
  }
  sheet_.replaceWith(*content, name);
  sheet_.markSaved(name);
  remember(name);
  return {true};
}

bool DataSetFiles::openText(const std::string& name) {
  auto bytes = readWholeFile(name, mostTextBytes);
  if (!bytes) {
    desktop_.messageBox({"Bad File", bytes.error().message(), MessageIcon::exclamation});
    return false;
  }
  const int observations = sheet_.observations();
  const int variables = sheet_.variables();
  const auto table =
      tableFromText(desktop_, *std::move(bytes), {TextOrigin::file, 1, 1, observations, variables},
                    newContent(observations, variables), name);
  if (table) sheet_.replaceWith(contentOf(*table, observations, variables), {});
  return table.has_value();
}

bool DataSetFiles::openForeign(const std::string& name) {
  const int observations = sheet_.observations();
  const int variables = sheet_.variables();
  const auto table =
      tableFromForeignFile(desktop_, name, {TextOrigin::file, 1, 1, observations, variables},
                           newContent(observations, variables));
  if (table) sheet_.replaceWith(contentOf(*table, observations, variables), {});
  return table.has_value();
}

bool DataSetFiles::SaveCurrentFile() {
  const std::string name = sheet_.mtFileName();
  return !wasGivenUp(name, true) && mayOverwrite(name) && SaveFile(name);
}

void DataSetFiles::takeUp(const std::string& name, std::int64_t written) {
  const auto changed = secondsWritten(name);
  if (changed && *changed <= written) remember(name);
}

void DataSetFiles::remember(const std::string& name) {
  if (const auto bytes = readWholeFile(name))
    known_[name] = std::hash<std::string>{}(*bytes);
  else
    known_.erase(name);
}

bool DataSetFiles::mayOverwrite(const std::string& name) {
  const auto written = secondsWritten(name);
  if (!written || isReadOnly(name)) return true;  // there is nothing to overwrite
  const auto bytes = readWholeFile(name);
  const auto known = known_.find(name);
  if (bytes && known != known_.end() && known->second == std::hash<std::string>{}(*bytes))
    return true;
  return desktop_.messageBox(
             {.title = "File Changed",
              .text = "Another program has changed the file " + name +
                      " since it was opened or saved here (" + localTime(*written) +
                      "). Do you want to overwrite it? Answer No to leave it as it is; Save As "
                      "saves the data to a different file.",
              .icon = MessageIcon::exclamation,
              .buttons = MessageButtons::yesNo,
              .yesLosesWork = true}) == Answer::yes;
}

bool DataSetFiles::SaveFileAs() { return SaveFile({}); }

bool DataSetFiles::SaveFile(const std::string& name) {
  bool asText = false;
  const auto bytes = [&](const ChosenFile& file) -> Result<std::string> {
    asText = isTextData(file.path);
    if (asText) return sheetText(withoutErrors(sheet_), textSeparator(file.path));
    return editorFileToSave(file.path, sheet_.content());
  };
  const Saving saving = desktop_.saveFile(
      {.question = {.title = "Save As",
                    .kinds = editorFileKinds(sheet_.variables()),
                    .folder = dataFolder(),
                    .name = sheet_.mtFileName()},
       .bytes = bytes,
       .notSaved = name.empty() ? "The data were not saved."
                                : "The data were not saved; Save As saves them to a "
                                  "different file.",
       .path = name});
  if (saving.end != Saving::End::saved) return false;
  lastFolder_ = host::nameOf(host::pathOf(saving.path).parent_path());
  if (asText) return true;
  sheet_.markSaved(saving.path);
  remember(saving.path);
  return true;
}

}  // namespace tolmer
