// Where the editor's visits write their work aside, so that a crash or a kill costs seconds.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/error.h"

namespace tolmer {

// A visit's own. Dropping it leaves its work to be found again.
class VisitPlace {
 public:
  virtual ~VisitPlace() = default;

  // In place of what lies there; whole or not at all. nullopt is success.
  virtual std::optional<Error> write(std::string_view bytes) = 0;
  virtual Result<std::string> read() const = 0;
  // When it was written last, in seconds since 1970.
  virtual std::int64_t written() const = 0;
  // The work goes; the place is free for the next.
  virtual void remove() = 0;
  // For work that cannot be read: it stays under this name and is found no more.
  virtual std::string keptName() const = 0;
  virtual void keepAside() = 0;
};
using VisitPlacePointer = std::unique_ptr<VisitPlace>;

class VisitPlaces {
 public:
  virtual ~VisitPlaces() = default;

  virtual Result<VisitPlacePointer> take() = 0;
  // All work whose visits are gone, the newest first. Nobody else finds it while it is held.
  virtual std::vector<VisitPlacePointer> lost() = 0;
};

}  // namespace tolmer
