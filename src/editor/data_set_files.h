// Opening and saving whole data sets, with all that is asked and told on the way.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include "base/message_box.h"
#include "platform/desktop.h"
#include "platform/input.h"
#include "sheet/data_sheet.h"
#include "symbolfile/symbol_file.h"

namespace tolmer {

// The filter of the editor's files for that many variables: "ZM Multivar (*.zmm)|*.zmm|All
// (*.*)|*.*". Empty, after a message, below one variable.
std::string tfFileFilter(int iNumberVariables, MessagePort& messages);

// The one of the dropped files that is to be opened, and what is to be told of the others.
struct DroppedFile {
  std::string name;
  std::string notice{};  // empty: nothing; a sentence
};
// Nothing, after a box that says why, of a folder or an address.
std::optional<DroppedFile> droppedFile(const DroppedItems& items, MessagePort& messages);

struct OpenOutcome {
  bool opened = false;   // false: the sheet stands, and a box has said so unless nothing was chosen
  std::string reason{};  // what is wrong with the file, where the box cannot say it; a sentence
};

class DataSetFiles {
 public:
  // The sheet outlives it. The program's folder is in the host's spelling.
  DataSetFiles(Desktop& desktop, DataSheet& sheet, std::string programFolder);

  // Puts the file that the user chooses into the sheet, without asking what becomes of the data
  // there. Text of another program becomes a data set without a file of its own yet.
  OpenOutcome open();
  // The same of a file that is named already.
  OpenOutcome open(const std::string& name);

  // The sheet holds work brought back that belongs to this file, where there is one, and was
  // written aside then, in seconds since 1970.
  void takeUp(const std::string& name, std::int64_t written);

  // Whether the data are in a file now. A file that another program has changed since it was opened
  // or saved here is overwritten only after a question. Text data, which loses formulas and
  // formats, does not become the data set's file: the sheet stays unsaved.
  bool SaveCurrentFile();
  bool SaveFileAs();

 private:
  OpenOutcome openFile(const std::string& name);
  bool openText(const std::string& name);
  bool openForeign(const std::string& name);
  bool SaveFile(const std::string& name);  // empty: the user chooses it
  bool mayOverwrite(const std::string& name);
  void remember(const std::string& name);
  bool wasGivenUp(const std::string& name, bool allowRetry);
  std::string dataFolder() const;

  Desktop& desktop_;
  DataSheet& sheet_;
  std::string programFolder_;
  std::string lastFolder_;  // of the file that was last opened or saved
  HostFiles files_;
  SymbolFileHost symbolFiles_;
  std::map<std::string, std::size_t> known_;  // of the bytes that were last read or written here
};

}  // namespace tolmer
