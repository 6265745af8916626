// How a view follows its base: as an observer in the registry, called in its turn like any other,
// but told of the boxes and not of the elements in them. So a view shares its elements with the
// base, and learns of an update also what the element was before.
#pragma once

#include <cstdint>
#include <memory>

#include <Tolvanite/DataStructures/WeaklyOwnedObject.h>
#include <Tolvanite/DataStructures/WeaklyOwnedObjectsSphere.h>
#include <Tolvanite/DataStructures/detail/KeptDuringPasses.h>

namespace tolvanite::detail {

/// The part of a view that hears of the changes of its base. Each kind of base adds its events.
class Follower {
 public:
  /// Comes before each of the events, with the running number of the change: a gap in the numbers
  /// tells that a later change was heard of first.
  virtual void baseChanged(std::uint64_t /*change*/) {}
  /// Comes when a block has thrown in an event.
  virtual void baseChangeFailed() noexcept {}

 protected:
  ~Follower() = default;
};

/// The root of the observers of a collection that views can follow.
template <typename CollectionFollower>
class FollowingObserver : public WeaklyOwnedObject {
 public:
  using WeaklyOwnedObject::WeaklyOwnedObject;

 private:
  template <typename Collection, typename Observer, typename OfCollection>
  friend class Followed;

  // A view in the place of the blocks. It is the owner, too, so it exists while the owner does.
  CollectionFollower* follower_ = nullptr;
  KeptDuringPasses* view_ = nullptr;
};

/// The root of the collections that views can follow.
template <typename Collection, typename Observer, typename CollectionFollower>
class Followed : public KeptDuringPasses {
 public:
  /// The registry of whoever wants to hear of changes.
  WeaklyOwnedObjectsSphere<Observer> observers;

 protected:
  // Calls `event` of all observers with these arguments, views through `tellFollower`.
  template <typename Event, typename TellFollower, typename... Arguments>
  [[gnu::always_inline]] inline void tell(Event Observer::* event, const TellFollower& tellFollower,
                                          const Arguments&... arguments) {
    const std::uint64_t change = ++changes_;
    if (observers.isEmpty()) return;
    const Pass pass(*this);
    observers.forEach([&](Observer& observer) __attribute__((always_inline)) {
      if (observer.follower_) {
        // The view may be let go by one of its own observers.
        const Pass passOfView(*observer.view_);
        observer.follower_->baseChanged(change);
        try {
          tellFollower(*observer.follower_);
        } catch (...) {
          observer.follower_->baseChangeFailed();
          throw;
        }
      } else if (const Event& block = observer.*event) {
        block(static_cast<Collection&>(*this), arguments...);
      }
    });
  }

  // Registers a view.
  template <typename View>
  void addFollower(const std::shared_ptr<View>& view, CollectionFollower& follower) {
    observers.createNew(view, [&](Observer& observer) {
      observer.follower_ = &follower;
      observer.view_ = view.get();
    });
  }

  // Numbers the changes that are told.
  std::uint64_t changes_ = 0;
};

}  // namespace tolvanite::detail
