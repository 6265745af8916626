#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "../NotificationDriver.h"

// Floors of Notification: what the language gives without a library.
namespace bench {
namespace {

// A vector of std::function that does not know when a listener dies.
template <class Sum>
class Untracked {
 public:
  using Owner = std::unique_ptr<Sum>;
  using Handle = std::size_t;

  Owner makeListener() { return std::make_unique<Sum>(); }
  Handle subscribe(Owner& owner) {
    slots_.emplace_back([listener = owner.get()](std::uint32_t p) { listener->receive(p); });
    return slots_.size() - 1;
  }
  void unsubscribe(Handle handle) {
    slots_.erase(slots_.begin() + static_cast<std::ptrdiff_t>(handle));
  }
  void fire(std::uint32_t payload) {
    for (const auto& slot : slots_) slot(payload);
  }
  void forgetAll() { slots_.clear(); }
  static std::uint64_t sum(const Owner& owner) { return owner->sum; }

 private:
  std::vector<std::function<void(std::uint32_t)>> slots_;
};

// A vector of weak pointer and std::function, the pointer locked for each call.
template <class Sum>
class WeakPointers {
 public:
  using Owner = std::shared_ptr<Sum>;
  using Handle = const Sum*;

  Owner makeListener() { return std::make_shared<Sum>(); }
  Handle subscribe(Owner& owner) {
    slots_.push_back(
        {owner, [listener = owner.get()](std::uint32_t p) { listener->receive(p); }, owner.get()});
    return owner.get();
  }
  void unsubscribe(Handle handle) {
    slots_.erase(std::find_if(slots_.begin(), slots_.end(),
                              [=](const Slot& slot) { return slot.listener == handle; }));
  }
  void fire(std::uint32_t payload) {
    for (const auto& slot : slots_) {
      if (const auto alive = slot.owner.lock()) slot.block(payload);
    }
  }
  static std::uint64_t sum(const Owner& owner) { return owner->sum; }

 private:
  struct Slot {
    std::weak_ptr<Sum> owner;
    std::function<void(std::uint32_t)> block;
    const Sum* listener;
  };
  std::vector<Slot> slots_;
};

const bool registered = registerNotification<Untracked>("floor_untracked") &&
                        registerNotification<WeakPointers>("floor_weak_ptr");

}  // namespace
}  // namespace bench
