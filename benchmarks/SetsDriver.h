#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "Harness.h"
#include "Workload.h"

// Unordered sets of Items: an item is found by an equal one, and an update puts a whole new item in
// the place of its equal. One listener is told the key of every change and adds the keys up.
//
// Plain sets (`registerSet`) are measured on insertion, look-up, update and removal. Filtered ones
// (`registerFilteredSet`) keep apart the items that pass a filter, those of a rank below a half,
// and tell of these alone; each of their updates crosses over to the other side.
//
// A contender is a class with
//
//   Contender()                        empty, its listener in place
//   bool insert(const Item&)           false when an equal item is there already
//   void update(const Item&)           of an item that is there
//   void remove(const Item&)           of an item that is there
//   std::uint64_t told()               sum of the keys told so far
//   void forEach(block)                all items in any order
//
// and a plain one with
//
//   std::int64_t group(const Item&)    of the stored item that equals this one
//
// or a filtered one with
//
//   void forEachPassing(block)         the items that pass
namespace bench {

inline bool passesFilter(const Item& item) { return item.rank < 0.5; }

namespace sets {

template <class Contender>
concept Filtered = requires(Contender& contender) { contender.forEachPassing([](const Item&) {}); };

// A hash of items in any order.
class ContentHash {
 public:
  void add(const Item& item) {
    sum_ += SplitMix64(item.key ^ std::bit_cast<std::uint64_t>(item.rank)).next();
  }
  std::uint64_t value() const { return sum_; }

 private:
  std::uint64_t sum_ = 0;
};

// What must be in the set and what must be told, beside the contender.
template <class Contender>
class Model {
 public:
  explicit Model(std::vector<Item> items) : items_(std::move(items)) {}

  std::size_t size() const { return items_.size(); }
  const std::vector<Item>& items() const { return items_; }

  void insertAll() {
    isPresent_.assign(items_.size(), true);
    for (const Item& item : items_) tell(item);
  }
  // Gives the item with its new rank, which is on the other side of the filter.
  Item update(std::size_t place, double unit) {
    Item& item = items_[place];
    item.rank = passesFilter(item) ? 0.5 + unit / 2 : unit / 2;
    told_ += item.key;
    return item;
  }
  void remove(std::size_t place) {
    isPresent_[place] = false;
    tell(items_[place]);
  }
  // Compares and gives the check value.
  std::uint32_t check(const std::string& name, Contender& contender) const {
    ContentHash wanted;
    ContentHash wantedPassing;
    for (std::size_t i = 0; i < items_.size(); ++i) {
      if (!isPresent_[i]) continue;
      wanted.add(items_[i]);
      if (passesFilter(items_[i])) wantedPassing.add(items_[i]);
    }
    ContentHash got;
    contender.forEach([&](const Item& item) { got.add(item); });
    requireSame(name, "the hash of the items", got.value(), wanted.value());
    requireSame(name, "the sum of the keys told", contender.told(), told_);
    if constexpr (Filtered<Contender>) {
      ContentHash passing;
      contender.forEachPassing([&](const Item& item) { passing.add(item); });
      requireSame(name, "the hash of the passing items", passing.value(), wantedPassing.value());
    }
    return folded(got.value());
  }

 private:
  void tell(const Item& item) {
    if (!Filtered<Contender> || passesFilter(item)) told_ += item.key;
  }

  std::vector<Item> items_;
  std::vector<bool> isPresent_;
  std::uint64_t told_ = 0;
};

constexpr std::size_t operations = 100'000;

// An empty contender, its model, and the rows; each is one pass.
template <class Contender>
class Run {
 public:
  Run(const std::string& name, std::size_t n) : name_(name), model_(makeItems(0xB1, n)) {}

  Pass insert() {
    const Stopwatch watch;
    for (const Item& item : model_.items()) contender_.insert(item);
    const double seconds = watch.seconds();
    model_.insertAll();
    requireSame(name_, "whether an equal item is taken", contender_.insert(model_.items()[0]),
                false);
    return finish(seconds, model_.size());
  }

  Pass find() {
    fill();
    SplitMix64 random(0xB2);
    std::vector<const Item*> sought;
    std::int64_t wanted = 0;
    for (std::size_t i = 0; i < operations; ++i) {
      sought.push_back(&model_.items()[random.below(model_.size())]);
      wanted += sought.back()->group;
    }
    // Nothing but the key is looked at; and that is not to be fetched in the timed part.
    std::vector<Item> probes(operations);
    for (std::size_t i = 0; i < operations; ++i) probes[i].key = sought[i]->key;
    std::int64_t sum = 0;
    const Stopwatch watch;
    for (const Item& probe : probes) sum += contender_.group(probe);
    const double seconds = watch.seconds();
    requireSame(name_, "the sum of the groups", sum, wanted);
    return finish(seconds, operations);
  }

  Pass update() {
    fill();
    SplitMix64 random(0xB3);
    std::vector<Item> updated;
    updated.reserve(operations);
    for (std::size_t i = 0; i < operations; ++i) {
      const std::size_t place = random.below(model_.size());
      updated.push_back(model_.update(place, random.unit()));
    }
    const Stopwatch watch;
    for (const Item& item : updated) contender_.update(item);
    return finish(watch.seconds(), operations);
  }

  Pass remove() {
    fill();
    SplitMix64 random(0xB4);
    const auto places = distinctPlaces(random, model_.size(), model_.size() / 2);
    std::vector<Item> removed;
    removed.reserve(places.size());
    for (const std::size_t place : places) {
      removed.push_back(model_.items()[place]);
      model_.remove(place);
    }
    const Stopwatch watch;
    for (const Item& item : removed) contender_.remove(item);
    return finish(watch.seconds(), removed.size());
  }

 private:
  void fill() {
    for (const Item& item : model_.items()) contender_.insert(item);
    model_.insertAll();
  }
  Pass finish(double seconds, std::size_t count) {
    return {seconds, count, model_.check(name_, contender_)};
  }

  std::string name_;
  Model<Contender> model_;
  Contender contender_;
};

template <class Contender, class Body>
void registerRow(const std::string& contender, const std::string& row, std::size_t n, Body body) {
  const std::string name = contender + "/" + row + "/n=" + std::to_string(n);
  registerPass(name, [=](benchmark::State&) {
    Run<Contender> run(name, n);
    return body(run);
  });
}

}  // namespace sets

template <class Contender>
bool registerSet(const std::string& contender) {
  using Run = sets::Run<Contender>;
  for (const std::size_t n : {100'000u, 1'000'000u}) {
    const auto add = [&](const std::string& row, auto body) {
      sets::registerRow<Contender>(contender, row, n, body);
    };
    add("insert", [](Run& run) { return run.insert(); });
    add("find", [](Run& run) { return run.find(); });
    add("update", [](Run& run) { return run.update(); });
    add("remove", [](Run& run) { return run.remove(); });
  }
  return true;
}

// `kind` is the kind of filtered set that the contender is, or stands for.
template <class Contender>
bool registerFilteredSet(const std::string& contender, const std::string& kind) {
  using Run = sets::Run<Contender>;
  const auto add = [&](const std::string& row, auto body) {
    sets::registerRow<Contender>(contender, kind + "/" + row, 100'000, body);
  };
  add("insert", [](Run& run) { return run.insert(); });
  add("update_crosses", [](Run& run) { return run.update(); });
  add("remove", [](Run& run) { return run.remove(); });
  return true;
}

}  // namespace bench
