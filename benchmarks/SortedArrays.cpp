#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include <Tolvanite/DataStructures/OptionallySortedUrray.h>
#include <Tolvanite/DataStructures/Serray.h>

#include "LiveViewDriver.h"

// The arrays that stand in order by themselves, on the changes of LiveView.
namespace bench {
namespace {

using tolvanite::Int;
using Order = tolvanite::NamedSortBlock<Item>;
using Serray = tolvanite::Serray<Item>;
using SortedUrray = tolvanite::OptionallySortedUrray<Item>;

// Either, with one observer, which is told of `Told`. They are filled before it is there.
template <class Array, class Told>
class Sorted {
 public:
  using Native = Item;
  static const Item& native(const Item& item) { return item; }

  Sorted(std::shared_ptr<Array> array, const std::vector<Item>& items) : array_(std::move(array)) {
    array_->setSortBlock(
        Order{"rank", [](const Item& a, const Item& b) { return a.rank < b.rank; }});
    for (const Item& item : items) insert(item);
  }
  Sorted(const Sorted&) = delete;
  Sorted& operator=(const Sorted&) = delete;

  void build() {
    array_->observers.createNew(owner_, [this](typename Array::Observer& observer) {
      const auto hear = [this](Told&, const auto&...) { notes_.hear(1); };
      observer.sortingChanged = [this](Told& array, const auto&) {
        notes_.hear(static_cast<std::uint64_t>(array.count()));
      };
      observer.inserted = hear;
      observer.updated = hear;
      observer.moved = hear;
      observer.removed = hear;
    });
  }
  std::size_t viewCount() const { return static_cast<std::size_t>(array_->count()); }
  void insert(const Item& item) {
    if constexpr (requires { array_->append(item); }) {
      array_->append(item);
    } else {
      array_->insert(item);
    }
  }
  void update(const Item& item, double rank) {
    Item updated = item;
    updated.rank = rank;
    array_->update(std::move(updated));
  }
  void remove(const Item& item) { array_->remove(item); }
  void resort() {
    array_->setSortBlock(
        Order{"name", [](const Item& a, const Item& b) { return a.name < b.name; }});
  }
  template <class F>
  void forEachViewKey(F block) const {
    for (const Item& item : *array_) block(item.key);
  }
  ViewNotes notes() const { return notes_; }

 private:
  std::shared_ptr<Array> array_;
  ViewNotes notes_;
  tolvanite::OwnerToken owner_;
};

class SortedReference : public Sorted<Serray, Serray> {
 public:
  explicit SortedReference(const std::vector<Item>& items) : Sorted(Serray::make(), items) {}
};

class SortedValue : public Sorted<SortedUrray, const SortedUrray> {
 public:
  explicit SortedValue(const std::vector<Item>& items)
      : Sorted(std::make_shared<SortedUrray>(), items) {}
};

const bool registered = registerSortedArray<SortedReference>("tolvanite_serray") &&
                        registerSortedArray<SortedValue>("tolvanite_sorted_urray");

}  // namespace
}  // namespace bench
