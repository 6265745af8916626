#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <malloc.h>

#include "Harness.h"
#include "Workload.h"

// Keyed ordered container: unique keys, an order of its own, every change told by its index to one
// listener, which adds the indexes up. A move is told by where the element was and where it is.
//
// A contender is a class with
//
//   Native                              an Item in the form that the container holds
//   static Native native(const Item&)
//   Contender()                         empty, its listener in place
//   bool append(const Native&)          false when the key is there already
//   std::int64_t group(std::uint64_t key)
//   void update(std::uint64_t key, double rank)   in place
//   void remove(std::uint64_t key)
//   void move(std::size_t from, std::size_t to)   `to` is the place afterwards; never equal
//   std::uint64_t told()                sum of the indexes told so far
//   void forEachKey(block)              keys in order
namespace bench {

// How much of the work a contender is given; where an operation costs it O(n), less.
struct KeyedArrayWork {
  std::size_t updates = 100'000;
  std::size_t removals = 10'000;
  std::size_t moves = 10'000;
  bool tellsUpdatesByIndex = true;
};

namespace keyedArray {

struct Update {
  std::uint64_t key;
  double rank;
};

struct Move {
  std::size_t from;
  std::size_t to;
};

template <class Contender>
std::vector<typename Contender::Native> natives(const std::vector<Item>& items) {
  std::vector<typename Contender::Native> result;
  result.reserve(items.size());
  for (const Item& item : items) result.push_back(Contender::native(item));
  return result;
}

template <class Contender>
std::uint64_t orderHash(Contender& contender, std::optional<std::uint64_t> last = {}) {
  OrderHash hash;
  contender.forEachKey([&](std::uint64_t key) { hash.add(key); });
  if (last) hash.add(*last);
  return hash.value();
}

inline std::uint64_t keysHash(const std::vector<std::uint64_t>& keys) {
  OrderHash hash;
  for (const std::uint64_t key : keys) hash.add(key);
  return hash.value();
}

inline std::vector<std::uint64_t> keysOf(const std::vector<Item>& items) {
  std::vector<std::uint64_t> keys;
  keys.reserve(items.size());
  for (const Item& item : items) keys.push_back(item.key);
  return keys;
}

inline void moveKey(std::vector<std::uint64_t>& keys, Move move) {
  const std::uint64_t key = keys[move.from];
  keys.erase(keys.begin() + static_cast<std::ptrdiff_t>(move.from));
  keys.insert(keys.begin() + static_cast<std::ptrdiff_t>(move.to), key);
}

// The script that every contender runs: 1000 appends, a refused duplicate, and 100 rounds of
// update, remove, move. `act` is told each step with the index that it happens at.
template <class Append, class Act>
std::vector<std::uint64_t> runScript(Append append, Act act) {
  const std::vector<Item> items = makeItems(99, 1000);
  std::vector<std::uint64_t> keys = keysOf(items);
  for (const Item& item : items) append(item, true);
  append(items[500], false);
  SplitMix64 random(7);
  for (int round = 0; round < 100; ++round) {
    const std::size_t updated = random.below(keys.size());
    const double rank = random.unit();
    act.update(updated, keys[updated], rank);
    const std::size_t removed = random.below(keys.size());
    act.remove(removed, keys[removed]);
    keys.erase(keys.begin() + static_cast<std::ptrdiff_t>(removed));
    const Move move{random.below(keys.size()), random.below(keys.size())};
    if (move.from == move.to) continue;
    act.move(move);
    moveKey(keys, move);
  }
  return keys;
}

// Runs the script on a contender and, beside it, adds up what its listener must have heard.
// Returns the check value.
template <class Contender>
std::uint32_t check(const std::string& name, const KeyedArrayWork& work) {
  Contender contender;
  std::uint64_t wantedTold = 0;
  std::uint64_t appended = 0;
  const auto append = [&](const Item& item, bool fresh) {
    requireSame(name, "whether an append is taken", contender.append(Contender::native(item)),
                fresh);
    if (fresh) wantedTold += appended++;
  };
  struct Act {
    Contender& contender;
    const KeyedArrayWork& work;
    std::uint64_t& wantedTold;

    void update(std::size_t index, std::uint64_t key, double rank) {
      contender.update(key, rank);
      if (work.tellsUpdatesByIndex) wantedTold += index;
    }
    void remove(std::size_t index, std::uint64_t key) {
      contender.remove(key);
      wantedTold += index;
    }
    void move(Move step) {
      contender.move(step.from, step.to);
      wantedTold += step.from + step.to;
    }
  };
  const auto keys = runScript(append, Act{contender, work, wantedTold});
  requireSame(name, "the hash of the keys", orderHash(contender), keysHash(keys));
  requireSame<std::uint64_t>(name, "the sum of the indexes told", contender.told(), wantedTold);
  if (!work.tellsUpdatesByIndex) return 0;
  return folded(orderHash(contender, contender.told()));
}

template <class Contender>
Pass append(const std::string& name, std::size_t n) {
  const auto items = makeItems(0xB1, n);
  const auto elements = natives<Contender>(items);
  Contender contender;
  const Stopwatch watch;
  for (const auto& element : elements) contender.append(element);
  const double seconds = watch.seconds();
  const std::uint64_t hash = orderHash(contender);
  requireSame(name, "the hash of the keys", hash, keysHash(keysOf(items)));
  requireSame<std::uint64_t>(name, "the sum of the indexes", contender.told(), n * (n - 1) / 2);
  return {seconds, n, folded(hash)};
}

template <class Contender>
void fill(Contender& contender, const std::vector<Item>& items) {
  for (const Item& item : items) contender.append(Contender::native(item));
}

// A container that was just filled is in the cache to the extent that its last growth went over the
// elements, which may have been long ago. A warm one has been in use for a while.
enum class State { justFilled, warm };

template <class Contender>
void prepare(Contender& contender, const std::vector<Item>& items, State state) {
  fill(contender, items);
  if (state == State::justFilled) return;
  SplitMix64 random(0xB6);
  std::int64_t sum = 0;
  for (int i = 0; i < 1'000'000; ++i) sum += contender.group(items[random.below(items.size())].key);
  benchmark::DoNotOptimize(sum);
}

template <class Contender>
Pass lookup(const std::string& name, std::size_t n, State state) {
  const auto items = makeItems(0xB1, n);
  Contender contender;
  prepare(contender, items, state);
  SplitMix64 random(0xB2);
  std::vector<std::uint64_t> keys;
  std::int64_t wanted = 0;
  for (int i = 0; i < 100'000; ++i) {
    const Item& item = items[random.below(n)];
    keys.push_back(item.key);
    wanted += item.group;
  }
  std::int64_t sum = 0;
  const Stopwatch watch;
  for (const std::uint64_t key : keys) sum += contender.group(key);
  const double seconds = watch.seconds();
  requireSame(name, "the sum of the groups", sum, wanted);
  return {seconds, keys.size(), folded(static_cast<std::uint64_t>(sum))};
}

template <class Contender>
Pass update(const std::string& name, std::size_t n, const KeyedArrayWork& work, State state) {
  const auto items = makeItems(0xB1, n);
  Contender contender;
  prepare(contender, items, state);
  SplitMix64 random(0xB3);
  std::vector<Update> updates;
  std::uint64_t wanted = contender.told();
  for (std::size_t i = 0; i < work.updates; ++i) {
    const std::size_t place = random.below(n);
    updates.push_back({items[place].key, random.unit()});
    if (work.tellsUpdatesByIndex) wanted += place;
  }
  const Stopwatch watch;
  for (const Update& step : updates) contender.update(step.key, step.rank);
  const double seconds = watch.seconds();
  requireSame(name, "the sum of the indexes", contender.told(), wanted);
  const std::uint64_t hash = orderHash(contender);
  requireSame(name, "the hash of the keys", hash, keysHash(keysOf(items)));
  return {seconds, updates.size(), folded(hash)};
}

template <class Contender>
Pass remove(const std::string& name, std::size_t n, const KeyedArrayWork& work) {
  const auto items = makeItems(0xB1, n);
  Contender contender;
  fill(contender, items);
  SplitMix64 random(0xB4);
  auto places = distinctPlaces(random, n, work.removals);
  std::vector<std::uint64_t> keys;
  for (const std::size_t place : places) keys.push_back(items[place].key);
  const Stopwatch watch;
  for (const std::uint64_t key : keys) contender.remove(key);
  const double seconds = watch.seconds();

  std::vector<bool> removed(n, false);
  for (const std::size_t place : places) removed[place] = true;
  OrderHash wanted;
  for (std::size_t i = 0; i < n; ++i) {
    if (!removed[i]) wanted.add(items[i].key);
  }
  const std::uint64_t hash = orderHash(contender);
  requireSame(name, "the hash of the keys", hash, wanted.value());
  return {seconds, keys.size(), folded(hash)};
}

template <class Contender>
Pass move(const std::string& name, std::size_t n, const KeyedArrayWork& work) {
  const auto items = makeItems(0xB1, n);
  Contender contender;
  fill(contender, items);
  auto wanted = keysOf(items);
  std::uint64_t wantedTold = contender.told();
  SplitMix64 random(0xB5);
  std::vector<Move> moves;
  for (std::size_t i = 0; i < work.moves; ++i) {
    const std::size_t from = random.below(n);
    const std::size_t to = random.below(n);
    if (from == to) continue;
    moves.push_back({from, to});
    moveKey(wanted, moves.back());
    wantedTold += from + to;
  }
  const Stopwatch watch;
  for (const Move& step : moves) contender.move(step.from, step.to);
  const double seconds = watch.seconds();
  const std::uint64_t hash = orderHash(contender);
  requireSame(name, "the hash of the keys", hash, keysHash(wanted));
  requireSame(name, "the sum of the indexes", contender.told(), wantedTold);
  return {seconds, moves.size(), folded(hash)};
}

inline double heapBytes() {
  const struct mallinfo2 info = mallinfo2();
  return static_cast<double>(info.uordblks + info.hblkhd);
}

template <class Contender>
Pass memory(benchmark::State& state, const std::string& name, std::size_t n) {
  const auto items = makeItems(0xB1, n);
  {
    Contender warm;
    fill(warm, {items.front()});
  }
  const double before = heapBytes();
  Contender contender;
  const Stopwatch watch;
  fill(contender, items);
  const double seconds = watch.seconds();
  state.counters["bytes_per_item"] = (heapBytes() - before) / static_cast<double>(n);
  const std::uint64_t hash = orderHash(contender);
  requireSame(name, "the hash of the keys", hash, keysHash(keysOf(items)));
  return {seconds, n, folded(hash)};
}

}  // namespace keyedArray

// Rows of a contender: all, or those without removal and move.
enum class KeyedArrayRows { all, inPlace };

template <class Contender>
bool registerKeyedArray(const std::string& peer, KeyedArrayWork work = {},
                        KeyedArrayRows rows = KeyedArrayRows::all) {
  const auto add = [&](const std::string& row, std::size_t n, auto pass) {
    const std::string name = peer + "/" + row + "/n=" + std::to_string(n);
    registerPass(name, [=](benchmark::State& state) {
      const std::uint32_t script = keyedArray::check<Contender>(name, work);
      if (script != 0) state.counters["script"] = static_cast<double>(script);
      return pass(state, name, n);
    });
  };
  using Text = std::string;
  using keyedArray::State;
  for (const std::size_t n : {100'000u, 1'000'000u}) {
    add("append", n, [](benchmark::State&, const Text& name, std::size_t count) {
      return keyedArray::append<Contender>(name, count);
    });
    add("lookup", n, [](benchmark::State&, const Text& name, std::size_t count) {
      return keyedArray::lookup<Contender>(name, count, State::justFilled);
    });
  }
  const auto addUpdate = [&](const std::string& row, std::size_t n, State state) {
    add(row, n, [work, state](benchmark::State&, const Text& name, std::size_t count) {
      return keyedArray::update<Contender>(name, count, work, state);
    });
  };
  addUpdate("update", 100'000, State::justFilled);
  // Before and after hash tables grow that do so at 98,317.
  for (const std::size_t n : {95'000u, 100'000u}) {
    add("lookup_warm", n, [](benchmark::State&, const Text& name, std::size_t count) {
      return keyedArray::lookup<Contender>(name, count, State::warm);
    });
    addUpdate("update_warm", n, State::warm);
  }
  add("memory", 100'000, [](benchmark::State& state, const Text& name, std::size_t n) {
    return keyedArray::memory<Contender>(state, name, n);
  });
  if (rows == KeyedArrayRows::inPlace) return true;
  add("remove", 100'000, [work](benchmark::State&, const Text& name, std::size_t n) {
    return keyedArray::remove<Contender>(name, n, work);
  });
  add("move", 100'000, [work](benchmark::State&, const Text& name, std::size_t n) {
    return keyedArray::move<Contender>(name, n, work);
  });
  return true;
}

}  // namespace bench
