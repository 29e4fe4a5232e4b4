// When the data editor's work is written aside, and what it is.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/error.h"
#include "sheetfiles/autosave_places.h"
#include "sheetfiles/editor_file.h"

namespace tolmer {

Result<EditorFileContent> workIn(const VisitPlace& place);

class Autosave {
 public:
  using Clock = std::function<std::int64_t()>;  // milliseconds from any start
  using Content = std::function<SheetContent()>;
  static constexpr std::int64_t interval = 3000;  // milliseconds
  static constexpr int lookInterval = 1000;       // between looks whether it is over

  // The places outlive it; null: nothing is written aside.
  Autosave(VisitPlaces* places, Clock now) : places_(places), now_(std::move(now)) {}

  bool isOn() const { return places_; }
  std::vector<VisitPlacePointer> lost() const {
    return places_ ? places_->lost() : std::vector<VisitPlacePointer>();
  }

  // The lost work becomes this visit's: nothing is ever without a copy.
  void adopt(VisitPlacePointer work) { place_ = std::move(work); }

  // After each change of the sheet.
  void changed();
  // At least every second. Writes when there are changes and the last writing, or the first change
  // after a quiet time, is `interval` ago. A failure is told once and then tried again at the same
  // pace; the editor goes on without.
  std::optional<Error> poll(const Content& content, const std::string& from);
  // Without waiting, where there are changes.
  std::optional<Error> flush(const Content& content, const std::string& from) {
    if (due_) due_ = now_();
    return poll(content, from);
  }
  // The work is in a file of its own, or was thrown away: nothing of it is kept aside. What is not
  // cleaned away is offered at the next start.
  void clean();

 private:
  std::optional<Error> write(const Content& content, const std::string& from);

  VisitPlaces* places_;
  Clock now_;
  VisitPlacePointer place_;          // from the first writing
  std::optional<std::int64_t> due_;  // when there are changes
  bool failed_ = false;
};

}  // namespace tolmer
