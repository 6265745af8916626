#include <cstdint>
#include <memory>

#include <Tolvanite/DataStructures/WeaklyOwnedObjectsSphere.h>

#include "NotificationDriver.h"

namespace bench {
namespace {

struct ChangeObserver : tolvanite::WeaklyOwnedObject {
  using WeaklyOwnedObject::WeaklyOwnedObject;
  tolvanite::Block<void(std::uint32_t)> changed;
};

// The observer registry. It has no unsubscribing: a subscription ends with its listener.
template <class Sum>
class Registry {
 public:
  using Owner = std::shared_ptr<Sum>;

  Owner makeListener() { return std::make_shared<Sum>(); }
  std::shared_ptr<ChangeObserver> subscribe(Owner& owner) {
    auto observer = observers_.createNew(owner);
    observer->changed = [listener = owner.get()](std::uint32_t p) { listener->receive(p); };
    return observer;
  }
  void fire(std::uint32_t payload) {
    observers_.forEach([=](ChangeObserver& observer) {
      if (observer.changed) observer.changed(payload);
    });
  }
  static std::uint64_t sum(const Owner& owner) { return owner->sum; }

 private:
  tolvanite::WeaklyOwnedObjectsSphere<ChangeObserver> observers_;
};

const bool registered = registerNotification<Registry>("tolvanite");

}  // namespace
}  // namespace bench
