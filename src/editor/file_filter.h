#pragma once

#include <string>
#include <vector>

#include "base/message_box.h"
#include "platform/file_question.h"

namespace tolmer {

// The filter of the editor's files for that many variables: "ZM Multivar (*.zmm)|*.zmm|All
// (*.*)|*.*". Empty, after a message, below one variable.
std::string tfFileFilter(int iNumberVariables, MessagePort& messages);

// The same kinds for the file dialogs, with text data of other programs between them.
std::vector<FileKind> editorFileKinds(int iNumberVariables);

// Whether the name's extension is one of text data, and what divides its fields then.
bool isTextData(const std::string& fileName);
char textSeparator(const std::string& fileName);

}  // namespace tolmer
