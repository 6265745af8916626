#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <unordered_map>
#include <utility>
#include <vector>

#include "../LiveViewDriver.h"

// Floors of SortedArrays: a sorted vector, binary search, and the keys in a hash table.
namespace bench {
namespace {

class Listening {
 public:
  using Native = Item;
  static const Item& native(const Item& item) { return item; }

  Listening() {
    listener_ = [this](std::size_t, std::size_t, std::size_t rows) { notes_.hear(rows); };
  }
  Listening(const Listening&) = delete;
  Listening& operator=(const Listening&) = delete;
  void build() { notes_ = {}; }
  ViewNotes notes() const { return notes_; }

 protected:
  void tell(std::size_t from, std::size_t to, std::size_t rows = 1) const {
    listener_(from, to, rows);
  }

 private:
  ViewNotes notes_;
  std::function<void(std::size_t, std::size_t, std::size_t)> listener_;
};

// Pointers in the vector; the items stand in the hash table.
class SortedPointers : public Listening {
 public:
  explicit SortedPointers(const std::vector<Item>& items) {
    for (const Item& item : items) insert(item);
  }
  std::size_t viewCount() const { return order_.size(); }

  void insert(const Item& item) {
    const auto [entry, fresh] = items_.try_emplace(item.key, item);
    if (!fresh) return;
    const Item* const added = &entry->second;
    const auto place = std::upper_bound(order_.begin(), order_.end(), added, byRank);
    const auto index = static_cast<std::size_t>(place - order_.begin());
    order_.insert(place, added);
    tell(index, index);
  }

  void update(const Item& item, double rank) {
    Item& stored = items_.find(item.key)->second;
    const std::size_t from = indexOf(&stored);
    stored.rank = rank;
    const Item** const first = order_.data();
    const Item** const here = first + from;
    const Item** const end = first + order_.size();
    const Item** to = here;
    if (here != first && byRank(&stored, here[-1])) {
      to = std::upper_bound(first, here, &stored, byRank);
      std::copy_backward(to, here, here + 1);
    } else if (here + 1 != end && byRank(here[1], &stored)) {
      to = std::lower_bound(here + 1, end, &stored, byRank) - 1;
      std::copy(here + 1, to + 1, here);
    }
    *to = &stored;
    tell(from, static_cast<std::size_t>(to - first));
  }

  void remove(const Item& item) {
    const auto entry = items_.find(item.key);
    const std::size_t index = indexOf(&entry->second);
    order_.erase(order_.begin() + static_cast<std::ptrdiff_t>(index));
    items_.erase(entry);
    tell(index, index);
  }

  void resort() {
    std::sort(order_.begin(), order_.end(),
              [](const Item* a, const Item* b) { return a->name < b->name; });
    tell(0, order_.size(), order_.size());
  }

  template <class F>
  void forEachViewKey(F block) const {
    for (const Item* item : order_) block(item->key);
  }

 private:
  static constexpr auto byRank = [](const Item* a, const Item* b) { return a->rank < b->rank; };

  std::size_t indexOf(const Item* item) const {
    auto place = std::lower_bound(order_.begin(), order_.end(), item, byRank);
    while (*place != item) ++place;
    return static_cast<std::size_t>(place - order_.begin());
  }

  std::vector<const Item*> order_;
  std::unordered_map<std::uint64_t, Item> items_;
};

const bool registered = registerSortedArray<SortedPointers>("floor_sorted_vector");

}  // namespace
}  // namespace bench
