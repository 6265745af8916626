#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

// The data that every benchmark works on: a seeded generator, the element that the collections
// hold, and the check value that all contenders of a row must agree on. Nothing here depends on
// the machine or on a library, so a row means the same work for everybody.
namespace bench {

// splitmix64: small, seedable, and the same everywhere.
class SplitMix64 {
 public:
  explicit SplitMix64(std::uint64_t seed) : state_(seed) {}

  std::uint64_t next() {
    state_ += 0x9E3779B97F4A7C15u;
    std::uint64_t z = state_;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
    return z ^ (z >> 31);
  }

  // 0 to n - 1.
  std::uint64_t below(std::uint64_t n) { return next() % n; }

  // 0 to 1, the upper end excluded.
  double unit() { return static_cast<double>(next() >> 11) * 0x1.0p-53; }

  // Letters a to z, eight from each draw, lowest byte first.
  std::string word(std::size_t length) {
    std::string text(length, 'a');
    std::uint64_t bits = 0;
    for (std::size_t i = 0; i < length; ++i) {
      bits = i % 8 == 0 ? next() : bits >> 8;
      text[i] = static_cast<char>('a' + (bits & 0xFFu) % 26);
    }
    return text;
  }

 private:
  std::uint64_t state_;
};

// The element of the collections. Names are longer than any small-string buffer. Two items are
// equal when their keys are: what changes in place must not be part of the identity.
struct Item {
  std::uint64_t key = 0;
  std::string name;
  double rank = 0;
  std::int64_t group = 0;

  friend bool operator==(const Item& a, const Item& b) { return a.key == b.key; }
};

inline Item makeItem(SplitMix64& random) {
  Item item;
  item.key = random.next();
  const std::size_t length = 16 + random.below(9);
  item.name = random.word(length);
  item.rank = random.unit();
  item.group = static_cast<std::int64_t>(random.below(1000));
  return item;
}

inline std::vector<Item> makeItems(std::uint64_t seed, std::size_t count) {
  SplitMix64 random(seed);
  std::vector<Item> items;
  items.reserve(count);
  for (std::size_t i = 0; i < count; ++i) items.push_back(makeItem(random));
  return items;
}

// A hash of a sequence of keys that depends on their order.
class OrderHash {
 public:
  void add(std::uint64_t key) { sum_ += ++position_ * (key | 1u); }
  std::uint64_t value() const { return sum_; }
  std::uint64_t count() const { return position_; }

 private:
  std::uint64_t sum_ = 0;
  std::uint64_t position_ = 0;
};

inline std::uint32_t folded(std::uint64_t value) {
  return static_cast<std::uint32_t>(value ^ (value >> 32));
}

// The first `count` of a Fisher-Yates shuffle of 0 to n - 1.
inline std::vector<std::size_t> distinctPlaces(SplitMix64& random, std::size_t n,
                                               std::size_t count) {
  std::vector<std::size_t> places(n);
  for (std::size_t i = 0; i < n; ++i) places[i] = i;
  for (std::size_t i = 0; i < count; ++i) std::swap(places[i], places[i + random.below(n - i)]);
  places.resize(count);
  return places;
}

}  // namespace bench

template <>
struct std::hash<bench::Item> {
  std::size_t operator()(const bench::Item& item) const noexcept {
    return std::hash<std::uint64_t>{}(item.key);
  }
};
