// The key index against a map.
#include <Tolvanite/DataStructures/detail/KeyIndex.h>

#include <compare>
#include <functional>
#include <unordered_map>
#include <utility>

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
using testing::Random;

template <std::size_t hashes>
struct Keyed {
  CollidingKey<hashes> key;
  int content;
};

template <std::size_t hashes>
void expectThatItDoesWhatAMapDoes(std::size_t salt, int steps) {
  using Element = Keyed<hashes>;
  CollidingKey<hashes>::salt = salt;
  Random random(salt);
  KeyIndex<Element> index;
  std::unordered_map<int, int> expected;
  for (int i = 0; i < steps; ++i) {
    const Int keys = hashes == 1 ? 80 : i / 4000 % 2 == 0 ? 3000 : 100;
    const CollidingKey<hashes> key{static_cast<int>(draw(random, keys))};
    if (draw(random, 5) < 3) {
      auto handle = Handle<Element>::make(Element{key, i});
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
    const CollidingKey<hashes> any{static_cast<int>(draw(random, keys))};
    ASSERT_EQ(index.find(any) != nullptr, expected.contains(any.number));
    if (i % 500 == 0) {
      if (i % 1500 == 0) index.reserve(index.count() + draw(random, 300));
      auto moved = std::move(index);
      index = std::move(moved);
      for (const auto& [number, content] : expected) {
        ASSERT_EQ(index.find({number})->value.content, content);
      }
    }
  }
}

TEST(KeyIndexTest, doesWhatAMapDoes) {
  Random random(1);
  for (int i = 0; i < 16; ++i) {
    expectThatItDoesWhatAMapDoes<1>(random(), 1500);
    expectThatItDoesWhatAMapDoes<7>(random(), 1500);
  }
  expectThatItDoesWhatAMapDoes<1000003>(0, 30000);
}

TEST(KeyIndexTest, holdsOneReferenceToWhatItHolds) {
  using Element = Keyed<7>;
  auto handle = Handle<Element>::make(Element{{1}, 1});
  {
    KeyIndex<Element> index;
    index.set(handle, 0);
    index.set(handle, 0);
    EXPECT_EQ(handle->references.value(), 2u);
    for (int i = 2; i < 100; ++i) index.set(Handle<Element>::make(Element{{i}, i}), i);
    EXPECT_EQ(handle->references.value(), 2u);
    index.set(Handle<Element>::make(Element{{1}, 2}), 0);
    EXPECT_EQ(handle->references.value(), 1u);
    index.set(handle, 0);
  }
  EXPECT_EQ(handle->references.value(), 1u);
}

}  // namespace
}  // namespace tolvanite::detail
