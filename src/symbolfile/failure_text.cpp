#include "symbolfile/failure_text.h"

namespace tolmer {

std::string_view failureDescription(FailureClass kind) {
  switch (kind) {
    case FailureClass::notFound:
      return "File could not be found";
    case FailureClass::pastEnd:
      return "No more data in file";
    case FailureClass::badNumber:
      return "Invalid data read from file. ";
    case FailureClass::permission:
      return "File access permission denied";
    case FailureClass::device:
      return "Could not read data from file";
    case FailureClass::format:
      return "Error in internal format. ";
    case FailureClass::none:
    case FailureClass::other:
      break;
  }
  return "Unknown error";
}

std::string failureCauses(const FileFailure& failure) {
  switch (failure.kind) {
    case FailureClass::notFound:
      return "The file or the directory it is in may have been deleted or renamed. You may have "
             "typed an invalid file specification. If you are using Zelmar on a network, the "
             "network drive or service may not be available. If an error occurred during "
             "installation (such as running out of space on the installation drive), the file may "
             "not have been installed correctly. If all else fails, try reinstalling Zelmar.";
    case FailureClass::pastEnd:
      return "The file has been changed. There is less data in the file. If this is a Zelmar "
             "file, copy a good version from somewhere else, or reinstall Zelmar.";
    case FailureClass::badNumber:
      return "You are trying the read the wrong file. The wrong type of data is in the file (such "
             "as a letter in a numeric data file). The file has been corrupted.";
    case FailureClass::permission:
      return "The file is opened for editing by another user. You have opened the file for editing "
             "in another program, such as a word processor. Try closing the file and shutting down "
             "the other program.";
    case FailureClass::device:
      return "There may be an error on your disk. If you are using Zelmar on a network, the "
             "network drive or service may not be available. If you are trying to access a "
             "floppy, the drive door may be open or there may be no disk in the drive. You may "
             "have typed an invalid file specification. ";
    case FailureClass::none:
    case FailureClass::format:
    case FailureClass::other:
      break;
  }
  return "The operating system reported an error. Error number: " + std::to_string(failure.code) +
         ", Description: " + failure.description;
}

}  // namespace tolmer
