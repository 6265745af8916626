#include <Tolvanite/Platform/StandardPlaces.h>

#include <mutex>
#include <utility>

namespace tolvanite {

namespace {

struct PlacesInUse {
  std::mutex mutex;
  std::shared_ptr<const StandardPlaces> places;
};

// Never destroyed, so that it serves to the very end of the process.
PlacesInUse& placesInUse() {
  static auto& result = *new PlacesInUse;
  return result;
}

}  // namespace

StandardPlaces::~StandardPlaces() = default;

std::shared_ptr<const StandardPlaces> standardPlaces() {
  PlacesInUse& inUse = placesInUse();
  const std::lock_guard lock(inUse.mutex);
  if (!inUse.places) inUse.places = detail::systemStandardPlaces();
  return inUse.places;
}

void setStandardPlaces(std::shared_ptr<const StandardPlaces> places) {
  PlacesInUse& inUse = placesInUse();
  // Swapped, so that the places before end only after the lock is free again.
  const std::lock_guard lock(inUse.mutex);
  inUse.places.swap(places);
}

}  // namespace tolvanite
