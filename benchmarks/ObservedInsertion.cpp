#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include <Tolvanite/DataStructures/FilterSet.h>
#include <Tolvanite/DataStructures/Kerray.h>
#include <Tolvanite/DataStructures/ObservableSet.h>
#include <Tolvanite/DataStructures/OptionallySortedUrray.h>
#include <Tolvanite/DataStructures/Serray.h>
#include <Tolvanite/DataStructures/Urray.h>

#include "Harness.h"
#include "HeapMeter.h"
#include "Workload.h"

// Single insertions into collections of 1e5 Items that 1 or 100 observers listen to. Each observer
// counts what it is told and holds on to nothing. The collections that are values hand a copy of
// themselves to their observers, which must not copy the content: beside each stands, as the floor,
// its neighbour of reference type, which hands itself. The counter `heap_bytes` says how much
// memory was asked for in an insertion, what was given back included.
namespace bench {
namespace {

template <class Collection>
auto makeCollection() {
  if constexpr (requires { Collection::make(); }) {
    return Collection::make();
  } else {
    return std::make_unique<Collection>();
  }
}

template <class Collection>
void prepare(Collection& collection) {
  if constexpr (requires { collection.setSortBlock({}); }) {
    collection.setSortBlock(tolvanite::NamedSortBlock<Item>{
        "rank", [](const Item& a, const Item& b) { return a.rank < b.rank; }});
  }
  if constexpr (requires { collection.setFilterBlock({}); }) {
    collection.setFilterBlock([](const Item& item) { return item.group % 2 == 0; });
  }
}

template <class Collection>
void insert(Collection& collection, const Item& item) {
  if constexpr (requires { collection.append(item); }) {
    collection.append(item);
  } else {
    collection.insert(item);
  }
}

constexpr std::size_t itemCount = 100'000;

template <class Collection>
Pass run(benchmark::State& state, const std::string& name, std::size_t observerCount) {
  const std::size_t operations = observerCount == 1 ? 10'000 : 2'000;
  std::uint64_t told = 0;
  tolvanite::OwnerToken owner;
  const auto collection = makeCollection<Collection>();
  prepare(*collection);
  for (const Item& item : makeItems(0xB1, itemCount)) insert(*collection, item);
  for (std::size_t i = 0; i < observerCount; ++i) {
    collection->observers.createNew(owner, [&](typename Collection::Observer& observer) {
      observer.inserted = [&](const auto&...) { ++told; };
    });
  }
  const auto items = makeItems(0xC2, operations);

  const std::uint64_t before = heapBytesAskedFor();
  const Stopwatch watch;
  for (const Item& item : items) insert(*collection, item);
  const double seconds = watch.seconds();
  const std::uint64_t heapBytes = (heapBytesAskedFor() - before) / operations;

  state.counters["heap_bytes"] = static_cast<double>(heapBytes);
  requireSame<std::uint64_t>(name, "the insertions told", told, operations * observerCount);
  requireSame(name, "the count", static_cast<std::size_t>(collection->count()),
              itemCount + operations);
  // A copy of the content is at least a pointer for each item.
  requireSame(name, "whether content is copied", heapBytes >= itemCount * sizeof(void*), false);
  return {seconds, operations, folded(told)};
}

template <class Collection>
bool registerInsertion(const std::string& contender, const std::string& row) {
  for (const std::size_t observers : {1u, 100u}) {
    const std::string name = contender + "/" + row + "/observers=" + std::to_string(observers);
    registerPass(name,
                 [=](benchmark::State& state) { return run<Collection>(state, name, observers); });
  }
  return true;
}

const std::string value = "tolvanite";
const std::string reference = "floor_reference_type";

const bool registered =
    registerInsertion<tolvanite::Urray<Item>>(value, "array") &&
    registerInsertion<tolvanite::Kerray<Item>>(reference, "array") &&
    registerInsertion<tolvanite::OptionallySortedUrray<Item>>(value, "sorted_array") &&
    registerInsertion<tolvanite::Serray<Item>>(reference, "sorted_array") &&
    registerInsertion<tolvanite::FilterSet<Item>>(value, "set") &&
    registerInsertion<tolvanite::ObservableSet<Item>>(reference, "set");

}  // namespace
}  // namespace bench
