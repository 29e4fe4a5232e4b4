// Work written aside in files: names, locks, owners.
//
// Each visit owns two files of a folder: "visit-XXXXXX.zmm", an editor's file that also names the
// file it was opened from, and "visit-XXXXXX.lock", locked by the program that owns it. The system
// drops the lock when the program ends in whatever way, so what lies there unlocked is lost work,
// and of two programs that look for it only one can take it. A file system without locks has the
// owner's name in the lock file instead.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "sheetfiles/autosave_places.h"

namespace tolmer {

// Where this user's programs keep such work: "tolmer" in XDG_STATE_HOME, else in ~/.local/state;
// empty where neither is known.
std::string autosaveFolder();

// A folder of such files, made where it is missing; an empty name is none.
class VisitFolder : public VisitPlaces {
 public:
  explicit VisitFolder(std::string folder) : folder_(std::move(folder)) {}

  bool isKnown() const { return !folder_.empty(); }
  Result<VisitPlacePointer> take() override;
  std::vector<VisitPlacePointer> lost() override;

 private:
  std::string folder_;
};

}  // namespace tolmer
