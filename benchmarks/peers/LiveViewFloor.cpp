#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

#include "../LiveViewDriver.h"

// Floor of LiveView: two vectors of pointers and binary search. It knows its two filters and its
// two orders, and tells each change once: a move as from and to.
namespace bench {
namespace {

class SortedVector {
 public:
  using Native = Item;
  static const Item& native(const Item& item) { return item; }

  explicit SortedVector(const std::vector<Item>& items) {
    base_.reserve(items.size());
    for (const Item& item : items) base_.push_back(new Item(item));
    listener_ = [this](std::size_t, std::size_t, std::size_t rows) { notes_.hear(rows); };
  }
  SortedVector(const SortedVector&) = delete;
  SortedVector& operator=(const SortedVector&) = delete;
  ~SortedVector() {
    for (const Item* item : base_) delete item;
  }

  void build() { rebuild(passesFirstFilter, byRank); }
  std::size_t viewCount() const { return view_.size(); }

  void insert(std::size_t index, const Item& item) {
    Item* const added = new Item(item);
    base_.insert(at(base_, index), added);
    if (!passesFirstFilter(added->group)) return;
    const auto place = std::upper_bound(view_.begin(), view_.end(), added, byRank);
    const std::size_t row = static_cast<std::size_t>(place - view_.begin());
    view_.insert(place, added);
    listener_(row, row, 1);
  }

  void update(std::size_t index, double rank) {
    Item& item = *base_[index];
    if (!passesFirstFilter(item.group)) {
      item.rank = rank;
      return;
    }
    const std::size_t row = rowOf(&item);
    item.rank = rank;
    const Item** const first = view_.data();
    const Item** const here = first + row;
    const Item** const end = first + view_.size();
    const Item** to = here;
    if (here != first && byRank(&item, here[-1])) {
      to = std::upper_bound(first, here, &item, byRank);
      std::copy_backward(to, here, here + 1);
    } else if (here + 1 != end && byRank(here[1], &item)) {
      to = std::lower_bound(here + 1, end, &item, byRank) - 1;
      std::copy(here + 1, to + 1, here);
    }
    *to = &item;
    listener_(row, static_cast<std::size_t>(to - first), 1);
  }

  void remove(std::size_t index) {
    const auto place = at(base_, index);
    if (passesFirstFilter((*place)->group)) {
      const std::size_t row = rowOf(*place);
      view_.erase(at(view_, row));
      listener_(row, row, 1);
    }
    delete *place;
    base_.erase(place);
  }

  void refilter() { rebuild(passesSecondFilter, byRank); }

  void resort() {
    std::sort(view_.begin(), view_.end(), byName);
    listener_(0, view_.size(), view_.size());
  }

  // Sorts the new ones and merges them from behind, so that each old pointer moves once.
  void appendBatch(const std::vector<Item>& items) {
    std::vector<const Item*> fresh;
    for (const Item& item : items) {
      base_.push_back(new Item(item));
      if (passesFirstFilter(item.group)) fresh.push_back(base_.back());
    }
    std::sort(fresh.begin(), fresh.end(), byRank);
    std::size_t old = view_.size();
    view_.resize(old + fresh.size());
    std::vector<std::size_t> rows(fresh.size());
    std::size_t end = view_.size();
    for (std::size_t i = fresh.size(); i > 0; --i) {
      while (old > 0 && byRank(fresh[i - 1], view_[old - 1])) view_[--end] = view_[--old];
      view_[--end] = fresh[i - 1];
      rows[i - 1] = end;
    }
    for (const std::size_t row : rows) listener_(row, row, 1);
  }

  template <class F>
  void forEachViewKey(F block) const {
    for (const Item* item : view_) block(item->key);
  }
  ViewNotes notes() const { return notes_; }

 private:
  template <class Vector>
  static typename Vector::iterator at(Vector& vector, std::size_t index) {
    return vector.begin() + static_cast<std::ptrdiff_t>(index);
  }

  static constexpr auto byRank = [](const Item* a, const Item* b) { return a->rank < b->rank; };
  static constexpr auto byName = [](const Item* a, const Item* b) { return a->name < b->name; };

  template <class Passes, class Order>
  void rebuild(Passes passes, Order order) {
    view_.clear();
    for (const Item* item : base_) {
      if (passes(item->group)) view_.push_back(item);
    }
    std::sort(view_.begin(), view_.end(), order);
    listener_(0, view_.size(), view_.size());
  }

  std::size_t rowOf(const Item* item) const {
    auto place = std::lower_bound(view_.begin(), view_.end(), item, byRank);
    while (*place != item) ++place;
    return static_cast<std::size_t>(place - view_.begin());
  }

  std::vector<Item*> base_;  // Owned; plain pointers shift fastest.
  std::vector<const Item*> view_;
  ViewNotes notes_;
  std::function<void(std::size_t, std::size_t, std::size_t)> listener_;
};

const bool registered = registerLiveView<SortedVector>("floor_sorted_vector");

}  // namespace
}  // namespace bench
