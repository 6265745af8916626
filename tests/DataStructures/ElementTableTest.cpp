// The key index against a map.
#include <Tolvanite/DataStructures/detail/ElementTable.h>

#include <compare>
#include <unordered_map>

#include <gtest/gtest.h>

#include "tests/DataStructures/Items.h"

// Keys whose hashes collide: all of them, most of them, hardly any; here and there in the range.
template <std::size_t hashes>
struct CollidingKey {
  int number;
  auto operator<=>(const CollidingKey&) const = default;
  static inline std::size_t salt = 0;
};

template <std::size_t hashes>
struct std::hash<CollidingKey<hashes>> {
  std::size_t operator()(const CollidingKey<hashes>& key) const {
    return static_cast<std::size_t>(key.number) % hashes + CollidingKey<hashes>::salt;
  }
};

namespace tolvanite::detail {
namespace {

using testing::draw;

template <std::size_t hashes>
struct Keyed {
  CollidingKey<hashes> key;
  int content;
};

template <std::size_t hashes>
void expectThatItDoesWhatAMapDoes(std::size_t salt, int steps) {
  CollidingKey<hashes>::salt = salt;
  testing::Random random(salt);
  KeyIndex<Keyed<hashes>> index;
  std::unordered_map<int, int> expected;
  for (int i = 0; i < steps; ++i) {
    const Int keys = hashes == 1 ? 80 : i / 4000 % 2 == 0 ? 3000 : 100;
    const CollidingKey<hashes> key{static_cast<int>(draw(random, keys))};
    const CollidingKey<hashes> any{static_cast<int>(draw(random, keys))};
    if (draw(random, 5) < 3) {
      auto handle = Handle<Keyed<hashes>>::make(Keyed<hashes>{key, i});
      index.reserveOne();
      const auto spot = index.spotOf(key);
      ASSERT_EQ(index.boxAt(spot) != nullptr, expected.contains(key.number));
      if (!index.boxAt(spot) && draw(random, 2) == 0) {
        index.insertAt(spot, std::move(handle), i);
        expected[key.number] = i;
      } else {
        ASSERT_EQ(index.set(std::move(handle), i), expected.insert_or_assign(key.number, i).second);
      }
      ASSERT_EQ(index.lastIndexAt(index.spotOf(key)), i);
    } else {
      const auto removed = index.remove(key);
      ASSERT_EQ(removed ? removed->value.content : -1,
                expected.contains(key.number) ? expected.at(key.number) : -1);
      expected.erase(key.number);
    }
    ASSERT_EQ(index.count(), static_cast<Int>(expected.size()));
    ASSERT_EQ(index.find(any) != nullptr, expected.contains(any.number));
    if (i % 500 != 0) continue;
    if (i % 1500 == 0) index.reserve(index.count() + draw(random, 300));
    auto moved = std::move(index);
    index = std::move(moved);
    for (const auto& [number, content] : expected) {
      ASSERT_EQ(index.find({number})->value.content, content);
    }
  }
}

TEST(KeyIndexTest, doesWhatAMapDoes) {
  testing::Random random(1);
  for (int i = 0; i < 16; ++i) {
    expectThatItDoesWhatAMapDoes<1>(random(), 1500);
    expectThatItDoesWhatAMapDoes<7>(random(), 1500);
  }
  expectThatItDoesWhatAMapDoes<1000003>(0, 30000);
}

}  // namespace
}  // namespace tolvanite::detail
