// The hash table of boxed elements under the collections that know their elements by a key or by
// the elements themselves. Keys are not copied; they are read in the boxes. Beside each element
// stands the index that it was last seen at in its collection: a hint, which is checked before it
// is believed.
//
// It is a table of sixteen-byte slots that stand in the order of their hashes: an element goes to
// the place that its hash is a fraction of, or as little behind it as the order allows. So a lookup
// is one look into the table and one into the element, an absent key is known by a greater hash in
// its place, and growing copies from one end to the other. Little room is needed.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <memory>
#include <new>
#include <span>
#include <utility>

#include <Tolvanite/DataStructures/KeyedElement.h>
#include <Tolvanite/DataStructures/detail/Box.h>

namespace tolvanite::detail {

/// Elements known by their `key`.
template <typename T>
struct ByKey {
  using Key = KeyType<T>;
  static constexpr bool isScattered = false;
  static decltype(auto) keyOf(const T& element) { return ElementTraits<T>::key(element); }
  static bool equal(const Key& a, const Key& b) { return a == b; }
  static std::uint64_t hash(const Key& key) {
    std::uint64_t hash = std::hash<Key>{}(key);
    hash ^= hash >> 32;
    return hash * 0x9E3779B97F4A7C15u;
  }
};

/// Elements known by their own equality and hash. Sets are filled from one another, and must not
/// have one order: all elements would pile up at the front of the one that grows. So each scatters
/// its hashes in its own way.
template <typename T>
struct ByElement {
  using Key = T;
  static constexpr bool isScattered = true;
  // NOLINTNEXTLINE(bugprone-return-const-ref-from-parameter): only elements in boxes are given
  static const T& keyOf(const T& element) { return element; }
  static bool equal(const T& a, const T& b) { return ElementTraits<T>::equal(a, b); }
  static std::uint64_t hash(const T& element) {
    std::uint64_t hash = ElementTraits<T>::hash(element);
    hash = (hash ^ hash >> 32) * 0x9E3779B97F4A7C15u;
    return hash ^ hash >> 32;
  }
};

template <typename T, typename Keying>
class ElementTable {
 public:
  using Key = typename Keying::Key;

  // The rank is the inverted hash: the ranks descend, and an empty slot ranks below all.
  struct Slot {
    Box<T>* box;
    std::uint32_t rank;
    std::uint32_t lastIndex;
  };

  /// A key's spot in the table: that of its element, or where one would go. Good until the next
  /// change.
  struct Spot {
    std::size_t slot;
    std::uint32_t rank;
  };

  ElementTable() = default;
  ElementTable(const ElementTable& other)
      : slots_(other.end_ == 0 ? nullptr : allocate(other.end_, nullptr)),
        capacity_(other.capacity_),
        extra_(other.extra_),
        end_(other.end_),
        count_(other.count_),
        multiplier_(other.multiplier_) {
    for (std::size_t i = 0; i < end_; ++i) {
      slots_[i] = other.slots_[i];
      if (slots_[i].box) slots_[i].box->references.add();
    }
  }
  ElementTable(ElementTable&& other) noexcept { swap(other); }
  ElementTable& operator=(ElementTable other) noexcept {
    other.swap(*this);
    return *this;
  }
  ~ElementTable() {
    for (std::size_t i = 0; i < end_; ++i) {
      if (slots_[i].box) release<T>(slots_[i].box);
    }
  }

  Int count() const noexcept { return static_cast<Int>(count_); }

  /// The box stored for `key`, or null.
  Box<T>* find(const Key& key) const { return count_ == 0 ? nullptr : boxAt(spotOf(key)); }

  /// The slots from the first to behind the last; some of them are empty.
  std::span<const Slot> slots() const noexcept { return {slots_.get(), end_}; }

  /// Makes room for one more key.
  void reserveOne() {
    if ((count_ + 1) * 8 > capacity_ * 7) grow(capacity_ * 2, extra_ + 2);
  }
  /// Makes room for so many keys in all, and for a third more.
  void reserve(Int count) {
    const auto wanted = static_cast<std::size_t>(count);
    if (wanted * 8 > capacity_ * 7) grow(wanted + wanted / 2, extra_ + 2);
  }

  /// Where `key` stands or would go. Room for one key must have been made before.
  [[gnu::always_inline]] inline Spot spotOf(const Key& key) const {
    const std::uint32_t rank = rankOf(key);
    std::size_t i = home(rank);
    // How many slots stand before is hard to foretell; to count them costs less than to guess.
    for (std::size_t before = stride; before == stride; i += before) {
      const Slot* slot = &slots_[i];
      before = std::size_t{slot[0].rank > rank} + std::size_t{slot[1].rank > rank} +
               std::size_t{slot[2].rank > rank} + std::size_t{slot[3].rank > rank};
    }
    while (slots_[i].box && slots_[i].rank == rank &&
           !Keying::equal(Keying::keyOf(slots_[i].box->value), key)) {
      ++i;
    }
    return {i, rank};
  }
  /// The box at a place, or null if its key is absent.
  Box<T>* boxAt(Spot spot) const noexcept {
    // With another rank it is the one that an absent key would go before.
    const Slot& slot = slots_[spot.slot];
    return slot.rank == spot.rank ? slot.box : nullptr;
  }
  /// The index that the element at a spot was last seen at.
  Int lastIndexAt(Spot spot) const noexcept { return slots_[spot.slot].lastIndex; }
  void setLastIndexAt(Spot spot, Int index) const noexcept {
    slots_[spot.slot].lastIndex = static_cast<std::uint32_t>(index);
  }

  /// Stores a box at the spot of its key, which must be absent.
  void insertAt(Spot spot, Handle<T> handle, Int index) {
    Slot carried{handle.leak(), spot.rank, static_cast<std::uint32_t>(index)};
    std::size_t i = spot.slot;
    for (;; ++i) {
      std::swap(slots_[i], carried);
      if (!carried.box) break;
    }
    ++count_;
    // The slots behind the last home are used up: more of them are wanted.
    if (i + stride >= end_) grow(capacity_, extra_ * 2);
  }

  /// Stores a box in the place of the one at a spot, which it gives back.
  Handle<T> replaceAt(Spot spot, Handle<T> handle) {
    return Handle<T>::adopting(std::exchange(slots_[spot.slot].box, handle.leak()));
  }

  /// Stores a box for its element's key, in the place of what was stored for it; true when there
  /// was nothing.
  bool set(Handle<T> handle, Int index) {
    reserveOne();
    const Spot spot = spotOf(Keying::keyOf(handle->value));
    if (boxAt(spot)) {
      setLastIndexAt(spot, index);
      static_cast<void>(replaceAt(spot, std::move(handle)));
      return false;
    }
    insertAt(spot, std::move(handle), index);
    return true;
  }

  /// Removes what is stored for `key` and gives it back; absent when there was nothing.
  Handle<T> remove(const Key& key) {
    if (count_ == 0) return {};
    const Spot spot = spotOf(key);
    auto removed = Handle<T>::adopting(boxAt(spot));
    if (!removed) return {};
    // Those behind that do not stand at home move up.
    std::size_t last = spot.slot;
    while (slots_[last + 1].box && home(slots_[last + 1].rank) <= last) ++last;
    std::memmove(static_cast<void*>(&slots_[spot.slot]), &slots_[spot.slot + 1],
                 (last - spot.slot) * sizeof(Slot));
    slots_[last] = {};
    --count_;
    return removed;
  }

 private:
  static constexpr std::size_t stride = 4;

  struct Free {
    void operator()(Slot* slots) const noexcept { std::free(slots); }
  };

  std::uint32_t rankOf(const Key& key) const {
    std::uint64_t hash = Keying::hash(key);
    if constexpr (Keying::isScattered) hash *= multiplier_;
    return ~static_cast<std::uint32_t>(hash >> 32);
  }

  std::size_t home(std::uint32_t rank) const noexcept {
    const std::uint32_t hash = ~rank;
    return static_cast<std::size_t>((static_cast<std::uint64_t>(hash) * capacity_) >> 32);
  }

  void swap(ElementTable& other) noexcept {
    std::swap(slots_, other.slots_);
    std::swap(capacity_, other.capacity_);
    std::swap(extra_, other.extra_);
    std::swap(end_, other.end_);
    std::swap(count_, other.count_);
    std::swap(multiplier_, other.multiplier_);
  }

  static Slot* allocate(std::size_t count, Slot* grown) {
    auto* slots = static_cast<Slot*>(std::realloc(grown, count * sizeof(Slot)));
    if (!slots) throw std::bad_alloc();
    return slots;
  }

  // `extra` slots stand behind the last home, so that nothing wraps around; empty ones end them.
  // The table grows where it is: its slots are moved to the end of the new room and from there,
  // first to last, to their new places. No slot's place grows by more than the number of homes does
  // and two, so that none is overwritten before it was moved, and none leaves the table.
  void grow(std::size_t capacity, std::size_t extra) {
    capacity = std::max<std::size_t>(16, capacity);
    const std::size_t end = capacity + extra + stride;
    Slot* slots = allocate(end, slots_.get());
    static_cast<void>(slots_.release());
    slots_.reset(slots);
    const std::size_t moved = end - end_;
    std::memmove(static_cast<void*>(slots + moved), slots, end_ * sizeof(Slot));
    std::memset(static_cast<void*>(slots), 0, moved * sizeof(Slot));
    capacity_ = capacity;
    extra_ = extra;
    end_ = end;
    // Without a branch on whether a slot is empty, which nothing foretells: an empty one is copied
    // to where the next one goes.
    std::size_t next = 0;
    for (std::size_t from = moved; from < end; ++from) {
      const Slot slot = std::exchange(slots[from], Slot{});
      const std::size_t isUsed = slot.box != nullptr;
      const std::size_t to = isUsed ? std::max(next, home(slot.rank)) : next;
      slots[to] = slot;
      next = to + isUsed;
    }
  }

  std::unique_ptr<Slot[], Free> slots_;
  std::size_t capacity_ = 0;  // how many homes there are
  std::size_t extra_ = 32;
  std::size_t end_ = 0;  // how many slots there are
  std::size_t count_ = 0;
  std::uint64_t multiplier_ = Keying::isScattered ? nextTableMultiplier() : 1;
};

template <typename T>
using KeyIndex = ElementTable<T, ByKey<T>>;

}  // namespace tolvanite::detail
