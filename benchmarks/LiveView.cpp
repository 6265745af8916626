#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <Tolvanite/DataStructures/OptionallyFilteredAlwaysSortedArray_BasedOnObservableSet.h>
#include <Tolvanite/DataStructures/OptionallyFilteredOptionallySortedArray_BasedOnKerray.h>

#include "LiveViewDriver.h"

namespace bench {
namespace {

using tolvanite::ElementArray;
using tolvanite::Int;
using Order = tolvanite::NamedSortBlock<Item>;

Order byRank() {
  return {"rank", [](const Item& a, const Item& b) { return a.rank < b.rank; }};
}
Order byName() {
  return {"name", [](const Item& a, const Item& b) { return a.name < b.name; }};
}
constexpr auto passesFirst = [](const Item& item) { return passesFirstFilter(item.group); };
constexpr auto passesSecond = [](const Item& item) { return passesSecondFilter(item.group); };

// Either view, with one observer.
template <class View>
class ObservedView {
 public:
  using Native = Item;
  static const Item& native(const Item& item) { return item; }

  ObservedView() = default;
  ObservedView(const ObservedView&) = delete;
  ObservedView& operator=(const ObservedView&) = delete;

  std::size_t viewCount() const { return static_cast<std::size_t>(view_->count()); }
  void refilter() { view_->setFilterBlock(passesSecond); }
  void resort() { view_->setSortBlock(byName()); }
  template <class F>
  void forEachViewKey(F block) const {
    for (const Item& item : *view_) block(item.key);
  }
  ViewNotes notes() const { return notes_; }

 protected:
  void show(std::shared_ptr<View> view) {
    view_ = std::move(view);
    view_->observers.createNew(owner_, [this](typename View::Observer& observer) {
      const auto hearAll = [this](View& shown) { hear(shown.count()); };
      const auto hearOne = [this](View&, Int, const Item&) { hear(1); };
      observer.sortingChanged = [this](View& shown, const auto&) { hear(shown.count()); };
      observer.filterChanged = hearAll;
      observer.inserted = hearOne;
      observer.removed = hearOne;
      observer.updated = hearOne;
      observer.moved = [this](View&, Int, Int, const Item&) { hear(1); };
      const auto hearSome = [this](View&, const std::vector<Int>&, const ElementArray<Item>& some) {
        hear(some.count());
      };
      if constexpr (requires { observer.insertedMultiple; }) {
        observer.insertedMultiple = hearSome;
      } else {
        observer.insertedMultipleDistributed = hearSome;
      }
      observer.removedMultiple = hearSome;
    });
  }

 private:
  void hear(Int rows) { notes_.hear(static_cast<std::uint64_t>(rows)); }

  std::shared_ptr<View> view_;
  ViewNotes notes_;
  tolvanite::OwnerToken owner_;
};

// A Kerray and the filtered and sorted view of it.
using KerrayView = tolvanite::OptionallyFilteredOptionallySortedArray_BasedOnKerray<Item>;

class OverKerray : public ObservedView<KerrayView> {
 public:
  explicit OverKerray(const std::vector<Item>& items)
      : items_(tolvanite::Kerray<Item>::make(items)) {}

  void build() { show(KerrayView::make(items_, passesFirst, byRank())); }
  void insert(std::size_t index, const Item& item) {
    items_->insert(item, static_cast<Int>(index));
  }
  void update(std::size_t index, double rank) {
    Item item = (*items_)[static_cast<Int>(index)];
    item.rank = rank;
    items_->update(std::move(item), static_cast<Int>(index));
  }
  void remove(std::size_t index) { items_->removeAtIndex(static_cast<Int>(index)); }
  void appendBatch(const std::vector<Item>& items) { items_->appendMultiple(items); }

 private:
  std::shared_ptr<tolvanite::Kerray<Item>> items_;
};

// A set and the filtered, always sorted view of it.
using SetView = tolvanite::OptionallyFilteredAlwaysSortedArray_BasedOnObservableSet<Item>;

class OverSet : public ObservedView<SetView> {
 public:
  explicit OverSet(const std::vector<Item>& items)
      : items_(tolvanite::ObservableSet<Item>::make(items)) {}

  void build() { show(SetView::make(items_, passesFirst, byRank())); }
  void insert(const Item& item) { items_->insert(item); }
  void update(const Item& item, double rank) {
    Item updated = item;
    updated.rank = rank;
    items_->update(std::move(updated));
  }
  void remove(const Item& item) { items_->remove(item); }
  void appendBatch(const std::vector<Item>& items) { items_->insertMultiple(items); }

 private:
  std::shared_ptr<tolvanite::ObservableSet<Item>> items_;
};

const bool registered =
    registerLiveView<OverKerray>("tolvanite") && registerLiveView<OverSet>("tolvanite_over_set");

}  // namespace
}  // namespace bench
