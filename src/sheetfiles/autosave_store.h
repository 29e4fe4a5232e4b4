// Work written aside in a store that somebody else keeps, as a browser does for its pages.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "sheetfiles/autosave_places.h"

namespace tolmer {

// Whole works by name. A work that the store finds is one program's at a time.
class VisitStore {
 public:
  virtual ~VisitStore() = default;
  virtual std::optional<Error> write(const std::string& name, std::string_view bytes) = 0;
  virtual void remove(const std::string& name) = 0;
  // A file of the user's own.
  virtual void handOver(const std::string& file, std::string_view bytes) = 0;
};

struct StoredVisit {
  std::string name;
  std::int64_t written = 0;  // seconds since 1970
  std::string bytes;
};

class StoredVisits : public VisitPlaces {
 public:
  // What was found in the store when the program started is this program's. The store outlives it.
  StoredVisits(VisitStore& store, std::vector<StoredVisit> found)
      : store_(store), found_(std::move(found)) {}

  Result<VisitPlacePointer> take() override;
  std::vector<VisitPlacePointer> lost() override;

 private:
  class Place;
  VisitStore& store_;
  std::vector<StoredVisit> found_;  // and not held by anybody
};

}  // namespace tolmer
