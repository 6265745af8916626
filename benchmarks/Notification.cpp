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
template <class Sum, class Listener>
class Registry {
 public:
  std::shared_ptr<ChangeObserver> subscribe(const Listener& listener) {
    auto observer = observers_.createNew(Listener::ownerOf(listener));
    observer->changed = [sum = &listener.sum()](std::uint32_t p) { sum->receive(p); };
    return observer;
  }
  void fire(std::uint32_t payload) {
    observers_.forEach([=](ChangeObserver& observer) {
      if (observer.changed) observer.changed(payload);
    });
  }
  static std::uint64_t sum(const Listener& listener) { return listener.sum().sum; }

 private:
  tolvanite::WeaklyOwnedObjectsSphere<ChangeObserver> observers_;
};

// A listener with a token as its member.
template <class Sum>
class WithToken {
 public:
  Sum& sum() const { return content_->sum; }
  static const tolvanite::OwnerToken& ownerOf(const WithToken& listener) {
    return listener.content_->owner;
  }

 private:
  struct Content {
    Sum sum;
    tolvanite::OwnerToken owner;
  };
  std::unique_ptr<Content> content_ = std::make_unique<Content>();
};

// A listener that lives in a shared pointer.
template <class Sum>
class Shared {
 public:
  Sum& sum() const { return *sum_; }
  static const std::shared_ptr<Sum>& ownerOf(const Shared& listener) { return listener.sum_; }

 private:
  std::shared_ptr<Sum> sum_ = std::make_shared<Sum>();
};

template <class Sum>
struct ByToken : Registry<Sum, WithToken<Sum>> {
  using Owner = WithToken<Sum>;
  Owner makeListener() { return {}; }
};

template <class Sum>
struct BySharedPointer : Registry<Sum, Shared<Sum>> {
  using Owner = Shared<Sum>;
  Owner makeListener() { return {}; }
};

const bool registered = registerNotification<ByToken>("tolvanite") &&
                        registerNotification<BySharedPointer>("tolvanite_shared_ptr");

}  // namespace
}  // namespace bench
