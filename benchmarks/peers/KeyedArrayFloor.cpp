#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

#include "../KeyedArrayDriver.h"

// Floors of KeyedArray: what a careful hand writes with the standard containers.
namespace bench {
namespace {

// One listener that adds up the indexes it is told.
class Listening {
 public:
  Listening() {
    listener_ = [this](std::size_t index) { told_ += index; };
  }
  Listening(const Listening&) = delete;
  Listening& operator=(const Listening&) = delete;
  std::uint64_t told() const { return told_; }

 protected:
  void tell(std::size_t index) const { listener_(index); }

 private:
  std::uint64_t told_ = 0;
  std::function<void(std::size_t)> listener_;
};

// Items in a vector and, by key, where each stands; the places are renumbered when items shift.
class VectorIndex : public Listening {
 public:
  using Native = Item;
  static const Item& native(const Item& item) { return item; }

  bool append(const Item& item) {
    if (!places_.try_emplace(item.key, items_.size()).second) return false;
    items_.push_back(item);
    tell(items_.size() - 1);
    return true;
  }
  std::int64_t group(std::uint64_t key) const { return items_[places_.find(key)->second].group; }
  void update(std::uint64_t key, double rank) {
    const std::size_t place = places_.find(key)->second;
    items_[place].rank = rank;
    tell(place);
  }
  void remove(std::uint64_t key) {
    const auto found = places_.find(key);
    const std::size_t place = found->second;
    places_.erase(found);
    items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(place));
    renumber(place, items_.size());
    tell(place);
  }
  void move(std::size_t from, std::size_t to) {
    const auto first = items_.begin();
    const auto low = static_cast<std::ptrdiff_t>(std::min(from, to));
    const auto high = static_cast<std::ptrdiff_t>(std::max(from, to)) + 1;
    std::rotate(first + low, from < to ? first + low + 1 : first + high - 1, first + high);
    renumber(static_cast<std::size_t>(low), static_cast<std::size_t>(high));
    tell(from);
    tell(to);
  }
  template <class F>
  void forEachKey(F block) const {
    for (const Item& item : items_) block(item.key);
  }

 private:
  void renumber(std::size_t first, std::size_t end) {
    for (std::size_t i = first; i < end; ++i) places_.find(items_[i].key)->second = i;
  }

  std::vector<Item> items_;
  std::unordered_map<std::uint64_t, std::size_t> places_;
};

// Pointers in a vector, the items in the map; the place is found by a scan over the pointers.
class VectorPointer : public Listening {
 public:
  using Native = Item;
  static const Item& native(const Item& item) { return item; }

  bool append(const Item& item) {
    const auto [entry, fresh] = items_.try_emplace(item.key, item);
    if (!fresh) return false;
    order_.push_back(&entry->second);
    tell(order_.size() - 1);
    return true;
  }
  std::int64_t group(std::uint64_t key) const { return items_.find(key)->second.group; }
  void update(std::uint64_t key, double rank) {
    Item& item = items_.find(key)->second;
    item.rank = rank;
    tell(placeOf(&item));
  }
  void remove(std::uint64_t key) {
    const auto found = items_.find(key);
    const std::size_t place = placeOf(&found->second);
    order_.erase(order_.begin() + static_cast<std::ptrdiff_t>(place));
    items_.erase(found);
    tell(place);
  }
  void move(std::size_t from, std::size_t to) {
    Item* const item = order_[from];
    Item** const base = order_.data();
    if (from < to) {
      std::copy(base + from + 1, base + to + 1, base + from);
    } else {
      std::copy_backward(base + to, base + from, base + from + 1);
    }
    order_[to] = item;
    tell(from);
    tell(to);
  }
  template <class F>
  void forEachKey(F block) const {
    for (const Item* item : order_) block(item->key);
  }

 private:
  std::size_t placeOf(const Item* item) const {
    return static_cast<std::size_t>(std::find(order_.begin(), order_.end(), item) - order_.begin());
  }

  std::vector<Item*> order_;
  std::unordered_map<std::uint64_t, Item> items_;
};

const bool registered =
    registerKeyedArray<VectorIndex>("floor_vector_index", {.removals = 500, .moves = 500}) &&
    registerKeyedArray<VectorPointer>("floor_vector_pointer", {.updates = 10'000});

}  // namespace
}  // namespace bench
