#include <cstddef>
#include <cstdint>
#include <functional>
#include <unordered_set>
#include <utility>

#if defined(TOLVANITE_PEER_BOOST)
#include <boost/unordered/unordered_flat_set.hpp>
#endif

#include "../SetsDriver.h"

// Floors of Sets: bare hash sets and a listener.
namespace bench {
namespace {

class Listening {
 public:
  Listening() {
    listener_ = [this](const Item& item) { told_ += item.key; };
  }
  Listening(const Listening&) = delete;
  Listening& operator=(const Listening&) = delete;
  std::uint64_t told() const { return told_; }

 protected:
  void tell(const Item& item) const { listener_(item); }

 private:
  std::uint64_t told_ = 0;
  std::function<void(const Item&)> listener_;
};

// Puts the new content in the place of the old; the key, which the set goes by, is the same.
Item replaced(const Item& stored, Item item) {
  return std::exchange(const_cast<Item&>(stored), std::move(item));
}

template <class Items>
class Plain : public Listening {
 public:
  bool insert(const Item& item) {
    if (!items_.insert(item).second) return false;
    tell(item);
    return true;
  }
  std::int64_t group(const Item& item) const { return items_.find(item)->group; }
  void update(const Item& item) {
    const Item old = replaced(*items_.find(item), item);
    benchmark::DoNotOptimize(&old);
    tell(item);
  }
  void remove(const Item& item) {
    items_.erase(item);
    tell(item);
  }
  template <class F>
  void forEach(F block) const {
    for (const Item& item : items_) block(item);
  }

 private:
  Items items_;
};

using Items = std::unordered_set<Item>;

// The items that pass in one set, the others in another.
class TwoSides : public Listening {
 public:
  bool insert(const Item& item) {
    const bool isIn = passesFilter(item);
    if (!(isIn ? in_ : out_).insert(item).second) return false;
    if (isIn) tell(item);
    return true;
  }
  void update(const Item& item) {
    const bool isIn = passesFilter(item);
    auto node = (isIn ? out_ : in_).extract(item);
    if (!node) {
      replaced(*(isIn ? in_ : out_).find(item), item);
      if (isIn) tell(item);
      return;
    }
    const Item old = std::exchange(node.value(), item);
    benchmark::DoNotOptimize(&old);
    (isIn ? in_ : out_).insert(std::move(node));
    tell(item);
  }
  void remove(const Item& item) {
    if (in_.erase(item) > 0) {
      tell(item);
    } else {
      out_.erase(item);
    }
  }
  template <class F>
  void forEach(F block) const {
    for (const Item& item : in_) block(item);
    for (const Item& item : out_) block(item);
  }
  template <class F>
  void forEachPassing(F block) const {
    for (const Item& item : in_) block(item);
  }

 private:
  Items in_;
  Items out_;
};

// All items in one set, and in another pointers to those that pass.
class BaseAndPassing : public Listening {
 public:
  bool insert(const Item& item) {
    const auto [stored, fresh] = base_.insert(item);
    if (!fresh) return false;
    if (passesFilter(item)) {
      passing_.insert(&*stored);
      tell(item);
    }
    return true;
  }
  void update(const Item& item) {
    const Item& stored = *base_.find(item);
    const Item old = replaced(stored, item);
    const bool passes = passesFilter(item);
    if (passes == passesFilter(old)) {
      if (passes) tell(item);
      return;
    }
    if (passes) {
      passing_.insert(&stored);
    } else {
      passing_.erase(&stored);
    }
    tell(item);
  }
  void remove(const Item& item) {
    const auto stored = base_.find(item);
    if (passesFilter(*stored)) {
      passing_.erase(&*stored);
      tell(item);
    }
    base_.erase(stored);
  }
  template <class F>
  void forEach(F block) const {
    for (const Item& item : base_) block(item);
  }
  template <class F>
  void forEachPassing(F block) const {
    for (const Item* item : passing_) block(*item);
  }

 private:
  struct HashOfPointee {
    std::size_t operator()(const Item* item) const { return std::hash<Item>{}(*item); }
  };

  Items base_;
  // The items stay where they are, so they are told by their addresses.
  std::unordered_set<const Item*, HashOfPointee> passing_;
};

#if defined(TOLVANITE_PEER_BOOST)
const bool boostRegistered =
    registerSet<Plain<boost::unordered_flat_set<Item, std::hash<Item>>>>("floor_boost_flat_set");
#endif
const bool registered =
    registerSet<Plain<Items>>("floor_unordered_set") &&
    registerFilteredSet<TwoSides>("floor_unordered_set", "filter_set") &&
    registerFilteredSet<BaseAndPassing>("floor_unordered_set", "view_of_set") &&
    registerFilteredSet<BaseAndPassing>("floor_unordered_set", "view_of_kerray");

}  // namespace
}  // namespace bench
