// The base of every observer class: an object that holds its owner weakly and is called for as
// long as the owner lives.
//
//   struct ClockObserver : tolvanite::WeaklyOwnedObject {
//     using WeaklyOwnedObject::WeaklyOwnedObject;
//     tolvanite::Block<void(int hour)> struck;
//   };
#pragma once

#include <memory>

#include <Tolvanite/DataStructures/Owner.h>

namespace tolvanite {

/// Holds its owner weakly. The owner is a sign of life and nothing else: it is never passed on.
class WeaklyOwnedObject {
 public:
  /// An observer that is called for as long as `owner` lives.
  explicit WeaklyOwnedObject(const Owner& owner) : owner_(owner.reference()) {}
  WeaklyOwnedObject(const WeaklyOwnedObject&) = delete;
  WeaklyOwnedObject& operator=(const WeaklyOwnedObject&) = delete;

  /// The owner; null when it is gone.
  std::shared_ptr<const void> owner() const noexcept { return owner_.lock(); }
  /// Whether the owner still exists.
  bool isOwnerAlive() const noexcept { return !owner_.expired(); }

 protected:
  ~WeaklyOwnedObject() = default;

 private:
  std::weak_ptr<const void> owner_;
};

}  // namespace tolvanite
