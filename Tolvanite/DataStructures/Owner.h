// Owners: what a subscription lives and dies with. Whoever wants to hear about changes names an
// object as its owner; the thing observed holds it only weakly, so nobody ever has to unsubscribe.
//
//   class Controller {                       // lives on the stack or inside of another object
//    public:
//     explicit Controller(tolvanite::ObservableProperty<int>& volume) {
//       volume.fountain().add(owner_, [this](int value) { show(value); });
//     }
//    private:
//     void show(int value);
//     tolvanite::OwnerToken owner_;          // last member: it ends first
//   };
//
// An object that lives in a `std::shared_ptr` is an owner as it is: `fountain.add(controller,
// ...)`.
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>

#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// A member that makes its host an owner of subscriptions: they end when the host is destroyed.
/// Every token is an owner of its own. A copy of the host, and a host that another one was moved
/// into, starts without subscriptions, since the blocks of the first refer to the first.
class OwnerToken {
 public:
  OwnerToken() = default;
  /// Starts without subscriptions.
  OwnerToken(const OwnerToken& /*other*/) noexcept {}
  OwnerToken& operator=(const OwnerToken& /*other*/) noexcept { return *this; }
  ~OwnerToken() = default;

  /// Ends all subscriptions of this owner at once; later ones count anew.
  void endSubscriptions() noexcept { life_.reset(); }

  /// How many lives of tokens have ended in this process: while the number stays, every token that
  /// has subscriptions lives.
  static std::uint64_t endedCount() noexcept { return endedLives_.load(std::memory_order_acquire); }

 private:
  friend class Owner;

  // Its end comes after the references to it have expired, so that whoever reads the number first
  // and finds a life afterwards knows that it lasts while the number stays.
  struct Life {
    Life() = default;
    Life(const Life&) = delete;
    Life& operator=(const Life&) = delete;
    ~Life() { endedLives_.fetch_add(1, std::memory_order_release); }
  };

  // Made at the first subscription: a host that never subscribes pays nothing.
  const std::shared_ptr<const void>& life() const {
    if (!life_) life_ = std::make_shared<Life>();
    return life_;
  }

  TOLVANITE_EXPORT static std::atomic<std::uint64_t> endedLives_;

  mutable std::shared_ptr<const void> life_;
};

/// A weak reference to any object, made from any shared or weak pointer or from an `OwnerToken`.
/// Without an argument it is absent. Two owners are the same when they share one control block.
class Owner {
 public:
  Owner() = default;
  /// The object that these point to, or the host of the token.
  /// @{
  template <typename T>
  Owner(const std::shared_ptr<T>& object) : object_(object) {}
  template <typename T>
  Owner(const std::weak_ptr<T>& object) : object_(object) {}
  Owner(const OwnerToken& token) : object_(token.life()), isToken_(true) {}
  /// @}

  /// Whether the object still exists: one load, no lock.
  bool isAlive() const noexcept { return !object_.expired(); }

  /// The object, kept alive for as long as the result is; null when it is gone.
  std::shared_ptr<const void> lock() const noexcept { return object_.lock(); }

  /// The weak reference itself.
  const std::weak_ptr<const void>& reference() const noexcept { return object_; }

  /// Whether it was made from an `OwnerToken`.
  bool isToken() const noexcept { return isToken_; }

  /// Whether both refer to one object. An absent owner is the same as none.
  bool isSame(const Owner& other) const noexcept {
    const std::weak_ptr<const void> none;
    return !object_.owner_before(other.object_) && !other.object_.owner_before(object_) &&
           (object_.owner_before(none) || none.owner_before(object_));
  }

 private:
  std::weak_ptr<const void> object_;
  bool isToken_ = false;
};

}  // namespace tolvanite
