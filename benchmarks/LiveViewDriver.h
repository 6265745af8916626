#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>
#include <vector>

#include "Harness.h"
#include "Workload.h"

// Live filtered and sorted view: over a base of Items the view lets pass an even group and orders
// by rank. One listener on the view. The timed part holds the change of the base and everything
// that the view does until it is right again.
//
// A contender is a class with
//
//   Native                              an Item in the form that the base holds
//   static Native native(const Item&)
//   explicit Contender(const std::vector<Item>&)   fills the base
//   void build()                        makes the view and its listener
//   std::size_t viewCount()
//   void insert(std::size_t index, const Native&)  index in the base, its count for the end
//   void update(std::size_t index, double rank)    of the item at an index of the base
//   void remove(std::size_t index)                 at an index of the base
//   void refilter()                     let pass a group below 500 instead
//   void resort()                       order by name instead, bytewise
//   void appendBatch(std::vector<Native>&)         at the end of the base, in one call
//   void forEachViewKey(block)          keys in the view's order
//   ViewNotes notes()
//
// A contender whose base is a set takes the items themselves, as they were at first, in the place
// of the indexes:
//
//   void insert(const Native&)
//   void update(const Item&, double rank)
//   void remove(const Item&)
namespace bench {

template <class Contender>
concept TakesItems = requires(Contender& contender, const Item& item) { contender.remove(item); };

// What the listener of a view heard.
struct ViewNotes {
  std::uint64_t count = 0;  // notifications
  std::uint64_t rows = 0;   // rows they name; a replaced range names its removed and added rows

  void hear(std::uint64_t namedRows) {
    ++count;
    rows += namedRows;
  }
};

// How many operations a contender is given in each row; where an operation costs it O(n), less.
struct LiveViewWork {
  std::size_t insertionsAtEnd = 10'000;
  std::size_t insertionsAnywhere = 10'000;
  std::size_t movingUpdates = 10'000;
  std::size_t stayingUpdates = 10'000;
  std::size_t removals = 1'000;
};

inline bool passesFirstFilter(std::int64_t group) { return group % 2 == 0; }
inline bool passesSecondFilter(std::int64_t group) { return group < 500; }
inline bool passesNoFilter(std::int64_t) { return true; }

namespace liveView {

// The base as it must be, and from it the view as it must be.
class Model {
 public:
  explicit Model(const std::vector<Item>& items) {
    for (const Item& item : items) base_.push_back({&item, item.rank});
  }
  std::size_t size() const { return base_.size(); }
  void insert(std::size_t index, const Item& item) {
    base_.insert(base_.begin() + static_cast<std::ptrdiff_t>(index), {&item, item.rank});
  }
  void update(std::size_t index, double rank) { base_[index].rank = rank; }
  const Item& remove(std::size_t index) {
    const Item& item = *base_[index].item;
    base_.erase(base_.begin() + static_cast<std::ptrdiff_t>(index));
    return item;
  }
  std::uint32_t check(bool (*filter)(std::int64_t) = passesFirstFilter, bool byName = false) const {
    std::vector<Entry> view;
    std::copy_if(base_.begin(), base_.end(), std::back_inserter(view),
                 [=](const Entry& entry) { return filter(entry.item->group); });
    std::stable_sort(view.begin(), view.end(), [=](const Entry& a, const Entry& b) {
      return byName ? a.item->name < b.item->name : a.rank < b.rank;
    });
    OrderHash hash;
    for (const Entry& entry : view) hash.add(entry.item->key);
    return folded(hash.value() + hash.count());
  }

 private:
  struct Entry {
    const Item* item;
    double rank;
  };
  std::vector<Entry> base_;
};

template <class Contender>
std::uint32_t check(Contender& contender) {
  OrderHash hash;
  contender.forEachViewKey([&](std::uint64_t key) { hash.add(key); });
  return folded(hash.value() + contender.viewCount());
}

// One run: a filled base, its view (made outside of the timed part unless told otherwise), and the
// same changes applied to the model. `filter` is the one that the contender begins with.
template <class Contender>
class Run {
 public:
  using Native = typename Contender::Native;

  Run(benchmark::State& state, const std::string& name, std::size_t n,
      bool (*filter)(std::int64_t) = passesFirstFilter)
      : state_(state),
        name_(name),
        filter_(filter),
        items_(makeItems(0xC1, n)),
        model_(items_),
        contender_(items_) {}

  Pass build() {
    const Stopwatch watch;
    contender_.build();
    const std::size_t count = contender_.viewCount();
    const double seconds = watch.seconds();
    benchmark::DoNotOptimize(count);
    return finish(seconds, 1, {}, model_.check(filter_));
  }

  Pass insertAtEnd(std::size_t operations) {
    std::vector<std::size_t> places;
    for (std::size_t i = 0; i < operations; ++i) places.push_back(items_.size() + i);
    return insertAt(places);
  }

  Pass insertAnywhere(std::size_t operations) {
    SplitMix64 random(0xC3);
    std::vector<std::size_t> places;
    for (std::size_t i = 0; i < operations; ++i) {
      places.push_back(random.below(items_.size() + i + 1));
    }
    return insertAt(places);
  }

  Pass updateMoving(std::size_t operations) {
    SplitMix64 random(0xC4);
    const auto passing = passingPlaces();
    std::vector<Update> updates;
    for (std::size_t i = 0; i < operations; ++i) {
      const std::size_t place = passing[random.below(passing.size())];
      updates.push_back({place, random.unit()});
    }
    return update(updates);
  }

  Pass updateStaying(std::size_t operations) {
    SplitMix64 random(0xC5);
    const auto passing = passingPlaces();
    std::vector<Update> updates;
    for (std::size_t i = 0; i < operations; ++i) {
      const std::size_t place = passing[random.below(passing.size())];
      updates.push_back({place, std::nextafter(items_[place].rank, 2.0)});
    }
    return update(updates);
  }

  Pass remove(std::size_t operations) {
    SplitMix64 random(0xC6);
    std::vector<std::size_t> places;
    std::vector<const Item*> removed;
    for (std::size_t i = 0; i < operations; ++i) {
      places.push_back(random.below(model_.size()));
      removed.push_back(&model_.remove(places.back()));
    }
    return timed(operations, model_.check(filter_), [&] {
      for (std::size_t i = 0; i < operations; ++i) {
        if constexpr (TakesItems<Contender>) {
          contender_.remove(*removed[i]);
        } else {
          contender_.remove(places[i]);
        }
      }
    });
  }

  Pass refilter() {
    return timed(1, model_.check(passesSecondFilter), [&] { contender_.refilter(); });
  }

  Pass resort() {
    return timed(1, model_.check(filter_, true), [&] { contender_.resort(); });
  }

  Pass appendBatch() {
    const auto fresh = makeItems(0xC2, 10'000);
    for (const Item& item : fresh) model_.insert(model_.size(), item);
    auto elements = natives(fresh);
    return timed(fresh.size(), model_.check(filter_), [&] { contender_.appendBatch(elements); });
  }

 private:
  struct Update {
    std::size_t place;
    double rank;
  };

  static std::vector<Native> natives(const std::vector<Item>& items) {
    std::vector<Native> result;
    result.reserve(items.size());
    for (const Item& item : items) result.push_back(Contender::native(item));
    return result;
  }

  std::vector<std::size_t> passingPlaces() const {
    std::vector<std::size_t> places;
    for (std::size_t i = 0; i < items_.size(); ++i) {
      if (filter_(items_[i].group)) places.push_back(i);
    }
    return places;
  }

  Pass insertAt(const std::vector<std::size_t>& places) {
    const auto fresh = makeItems(0xC2, places.size());
    const auto elements = natives(fresh);
    for (std::size_t i = 0; i < places.size(); ++i) model_.insert(places[i], fresh[i]);
    return timed(places.size(), model_.check(filter_), [&] {
      for (std::size_t i = 0; i < places.size(); ++i) {
        if constexpr (TakesItems<Contender>) {
          contender_.insert(elements[i]);
        } else {
          contender_.insert(places[i], elements[i]);
        }
      }
    });
  }

  Pass update(const std::vector<Update>& updates) {
    for (const Update& step : updates) model_.update(step.place, step.rank);
    return timed(updates.size(), model_.check(filter_), [&] {
      for (const Update& step : updates) {
        if constexpr (TakesItems<Contender>) {
          contender_.update(items_[step.place], step.rank);
        } else {
          contender_.update(step.place, step.rank);
        }
      }
    });
  }

  template <class Changes>
  Pass timed(std::size_t operations, std::uint32_t wanted, Changes changes) {
    contender_.build();
    const ViewNotes before = contender_.notes();
    const Stopwatch watch;
    changes();
    const double seconds = watch.seconds();
    return finish(seconds, operations, before, wanted);
  }

  Pass finish(double seconds, std::size_t operations, ViewNotes before, std::uint32_t wanted) {
    const ViewNotes after = contender_.notes();
    state_.counters["notes"] = static_cast<double>(after.count - before.count);
    state_.counters["rows"] = static_cast<double>(after.rows - before.rows);
    const std::uint32_t got = check(contender_);
    requireSame(name_, "the view's check value", got, wanted);
    return {seconds, operations, got};
  }

  benchmark::State& state_;
  std::string name_;
  bool (*filter_)(std::int64_t);
  std::vector<Item> items_;
  Model model_;
  Contender contender_;
};

}  // namespace liveView

// Registers the rows of a contender; `large` is its work where the base has 1e5 items.
template <class Contender>
bool registerLiveView(const std::string& peer, LiveViewWork large = {}) {
  using Run = liveView::Run<Contender>;
  for (const std::size_t n : {10'000u, 100'000u}) {
    const LiveViewWork work = n == 10'000 ? LiveViewWork{} : large;
    const auto add = [&](const std::string& row, auto pass) {
      const std::string name = peer + "/" + row + "/n=" + std::to_string(n);
      registerPass(name, [=](benchmark::State& state) {
        Run run(state, name, n);
        return pass(run);
      });
    };
    add("build", [](Run& run) { return run.build(); });
    add("insert_end", [=](Run& run) { return run.insertAtEnd(work.insertionsAtEnd); });
    if constexpr (!TakesItems<Contender>) {  // A set has no places to choose from.
      add("insert_random", [=](Run& run) { return run.insertAnywhere(work.insertionsAnywhere); });
    }
    add("update_moves", [=](Run& run) { return run.updateMoving(work.movingUpdates); });
    add("update_stays", [=](Run& run) { return run.updateStaying(work.stayingUpdates); });
    add("remove", [=](Run& run) { return run.remove(work.removals); });
    add("refilter", [](Run& run) { return run.refilter(); });
    add("resort", [](Run& run) { return run.resort(); });
    add("append_batch", [](Run& run) { return run.appendBatch(); });
  }
  return true;
}

// The same changes on a collection that is sorted by itself: its own base, without a filter.
template <class Contender>
bool registerSortedArray(const std::string& contender) {
  using Run = liveView::Run<Contender>;
  const auto add = [&](const std::string& row, auto pass) {
    const std::string name = contender + "/" + row + "/n=100000";
    registerPass(name, [=](benchmark::State& state) {
      Run run(state, name, 100'000, passesNoFilter);
      return pass(run);
    });
  };
  constexpr LiveViewWork work;
  add("insert", [=](Run& run) { return run.insertAtEnd(work.insertionsAtEnd); });
  add("update_moves", [=](Run& run) { return run.updateMoving(work.movingUpdates); });
  add("update_stays", [=](Run& run) { return run.updateStaying(work.stayingUpdates); });
  add("remove", [=](Run& run) { return run.remove(work.removals); });
  add("resort", [](Run& run) { return run.resort(); });
  return true;
}

}  // namespace bench
