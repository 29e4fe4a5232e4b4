#include "sheetfiles/autosave_store.h"

#include <algorithm>
#include <chrono>
#include <random>
#include <utility>

namespace tolmer {
namespace {

std::int64_t secondsNow() {
  return std::chrono::duration_cast<std::chrono::seconds>(
             std::chrono::system_clock::now().time_since_epoch())
      .count();
}

}  // namespace

class StoredVisits::Place : public VisitPlace {
 public:
  Place(StoredVisits& visits, StoredVisit visit) : visits_(visits), visit_(std::move(visit)) {}
  // What was not removed can be found again.
  ~Place() override {
    if (!visit_.bytes.empty()) visits_.found_.push_back(std::move(visit_));
  }
  Place(const Place&) = delete;
  Place& operator=(const Place&) = delete;

  std::optional<Error> write(std::string_view bytes) override {
    if (auto error = visits_.store_.write(visit_.name, bytes)) return error;
    visit_.bytes = bytes;
    visit_.written = secondsNow();
    return std::nullopt;
  }
  Result<std::string> read() const override { return visit_.bytes; }
  std::int64_t written() const override { return visit_.written; }
  void remove() override {
    if (visit_.bytes.empty()) return;
    visits_.store_.remove(visit_.name);
    visit_.bytes.clear();
  }
  std::string keptName() const override { return visit_.name + ".zmm"; }
  void keepAside() override {
    visits_.store_.handOver(keptName(), visit_.bytes);
    remove();
  }

 private:
  StoredVisits& visits_;
  StoredVisit visit_;
};

// The store is that of other programs, too, which may have begun in the same second.
Result<VisitPlacePointer> StoredVisits::take() {
  const std::string name =
      "visit-" + std::to_string(secondsNow()) + '-' + std::to_string(std::random_device{}());
  return VisitPlacePointer(std::make_unique<Place>(*this, StoredVisit{name, 0, {}}));
}

std::vector<VisitPlacePointer> StoredVisits::lost() {
  std::ranges::sort(found_, std::ranges::greater(), &StoredVisit::written);
  std::vector<VisitPlacePointer> places;
  for (StoredVisit& visit : std::exchange(found_, {}))
    places.push_back(std::make_unique<Place>(*this, std::move(visit)));
  return places;
}

}  // namespace tolmer
