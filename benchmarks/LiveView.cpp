#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <Tolvanite/DataStructures/OptionallyFilteredOptionallySortedArray_BasedOnKerray.h>

#include "LiveViewDriver.h"

namespace bench {
namespace {

using tolvanite::ElementArray;
using tolvanite::Int;

// A Kerray and the filtered and sorted view of it, with one observer.
class KerrayView {
 public:
  using Native = Item;
  static const Item& native(const Item& item) { return item; }

  explicit KerrayView(const std::vector<Item>& items)
      : items_(tolvanite::Kerray<Item>::make(items)) {}
  KerrayView(const KerrayView&) = delete;
  KerrayView& operator=(const KerrayView&) = delete;

  void build() {
    view_ = View::make(
        items_, [](const Item& item) { return passesFirstFilter(item.group); },
        Order{"rank", [](const Item& a, const Item& b) { return a.rank < b.rank; }});
    view_->observers.createNew(owner_, [this](View::Observer& observer) { listen(observer); });
  }
  std::size_t viewCount() const { return static_cast<std::size_t>(view_->count()); }
  void insert(std::size_t index, const Item& item) {
    items_->insert(item, static_cast<Int>(index));
  }
  void update(std::size_t index, double rank) {
    Item item = (*items_)[static_cast<Int>(index)];
    item.rank = rank;
    items_->update(std::move(item), static_cast<Int>(index));
  }
  void remove(std::size_t index) { items_->removeAtIndex(static_cast<Int>(index)); }
  void refilter() {
    view_->setFilterBlock([](const Item& item) { return passesSecondFilter(item.group); });
  }
  void resort() {
    view_->setSortBlock(
        Order{"name", [](const Item& a, const Item& b) { return a.name < b.name; }});
  }
  void appendBatch(const std::vector<Item>& items) { items_->appendMultiple(items); }
  template <class F>
  void forEachViewKey(F block) const {
    for (const Item& item : *view_) block(item.key);
  }
  ViewNotes notes() const { return notes_; }

 private:
  using View = tolvanite::OptionallyFilteredOptionallySortedArray_BasedOnKerray<Item>;
  using Order = tolvanite::NamedSortBlock<Item>;

  void listen(View::Observer& observer) {
    const auto hearAll = [this](View& view) { hear(view.count()); };
    const auto hearOne = [this](View&, Int, const Item&) { hear(1); };
    const auto hearSome = [this](View&, const std::vector<Int>&, const ElementArray<Item>& some) {
      hear(some.count());
    };
    observer.sortingChanged = [this](View& view, const tolvanite::Optional<std::string>&) {
      hear(view.count());
    };
    observer.filterChanged = hearAll;
    observer.inserted = hearOne;
    observer.insertedMultipleDistributed = hearSome;
    observer.removed = hearOne;
    observer.removedMultiple = hearSome;
    observer.updated = hearOne;
    observer.moved = [this](View&, Int, Int, const Item&) { hear(1); };
  }
  void hear(Int rows) { notes_.hear(static_cast<std::uint64_t>(rows)); }

  std::shared_ptr<tolvanite::Kerray<Item>> items_;
  std::shared_ptr<View> view_;
  ViewNotes notes_;
  tolvanite::OwnerToken owner_;
};

const bool registered = registerLiveView<KerrayView>("tolvanite");

}  // namespace
}  // namespace bench
