#if defined(TOLVANITE_PEER_BOOST)

#include <cstddef>
#include <cstdint>
#include <functional>

#include <boost/multi_index/hashed_index.hpp>
#include <boost/multi_index/member.hpp>
#include <boost/multi_index/random_access_index.hpp>
#include <boost/multi_index_container.hpp>

#include "../KeyedArrayDriver.h"

// Boost.MultiIndex: an order of its own and a unique hash by key. It tells nobody, so each change
// computes its index and hands it to a std::function.
namespace bench {
namespace {

namespace mi = boost::multi_index;

class MultiIndex {
 public:
  using Native = Item;
  static const Item& native(const Item& item) { return item; }

  MultiIndex() {
    listener_ = [this](std::size_t index) { told_ += index; };
  }
  MultiIndex(const MultiIndex&) = delete;
  MultiIndex& operator=(const MultiIndex&) = delete;

  bool append(const Item& item) {
    const auto [place, fresh] = order().push_back(item);
    if (fresh) tell(place);
    return fresh;
  }
  std::int64_t group(std::uint64_t key) const { return items_.get<1>().find(key)->group; }
  void update(std::uint64_t key, double rank) {
    auto& byKey = items_.get<1>();
    const auto found = byKey.find(key);
    byKey.modify(found, [=](Item& item) { item.rank = rank; });
    tell(items_.project<0>(found));
  }
  void remove(std::uint64_t key) {
    const auto place = items_.project<0>(items_.get<1>().find(key));
    const auto index = indexOf(place);
    order().erase(place);
    listener_(index);
  }
  void move(std::size_t from, std::size_t to) {
    const auto element = order().begin() + static_cast<std::ptrdiff_t>(from);
    const std::size_t before = from < to ? to + 1 : to;
    order().relocate(order().begin() + static_cast<std::ptrdiff_t>(before), element);
    listener_(from);
    listener_(to);
  }
  std::uint64_t told() const { return told_; }
  template <class F>
  void forEachKey(F block) {
    for (const Item& item : order()) block(item.key);
  }

 private:
  using Items = mi::multi_index_container<
      Item, mi::indexed_by<mi::random_access<>,
                           mi::hashed_unique<mi::member<Item, std::uint64_t, &Item::key>>>>;
  using Order = Items::nth_index<0>::type;

  Order& order() { return items_.get<0>(); }
  std::size_t indexOf(Order::const_iterator place) {
    return static_cast<std::size_t>(place - order().begin());
  }
  void tell(Order::const_iterator place) { listener_(indexOf(place)); }

  Items items_;
  std::uint64_t told_ = 0;
  std::function<void(std::size_t)> listener_;
};

const bool registered =
    registerKeyedArray<MultiIndex>("boost_multi_index", {.removals = 2000, .moves = 2000});

}  // namespace
}  // namespace bench

#endif
