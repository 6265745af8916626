// The keys of a dictionary apart from its values: dictionaries with the same keys in the same order
// share one shape, so that a list of a million records holds its keys once, and sorts them once.
#pragma once

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include <Tolvanite/Json/detail/Cell.h>
#include <Tolvanite/Platform/SharedCount.h>

namespace tolvanite::detail {

class Shape {
 public:
  static constexpr std::size_t absent = ~std::size_t{0};

  /// A shape of no keys, with one reference for the caller: a new one with room for some keys, or
  /// the one that all share.
  /// @{
  static Shape* make(std::size_t room);
  static Shape* empty() noexcept;
  /// @}
  /// A shape that begins with the keys of another one.
  static Shape* copy(const Shape& other, std::size_t count);

  Shape(const Shape&) = delete;
  Shape& operator=(const Shape&) = delete;

  void retain() noexcept { references_.add(); }
  void release() noexcept {
    if (references_.drop()) delete this;
  }
  bool isShared() const noexcept { return references_.value() > 1; }

  std::span<const Cell> keys() const noexcept { return keys_; }
  /// A hash of the keys in their order.
  std::uint64_t hash() const noexcept { return hash_; }
  static std::uint64_t hashWith(std::uint64_t hash, const Cell& key) noexcept;
  static std::uint64_t hashWith(std::uint64_t hash, std::string_view key) noexcept;

  /// The place of a key; `absent` without it. Constant.
  std::size_t find(const Cell& key) const noexcept;
  std::size_t find(std::string_view key) const noexcept;

  /// Adds a key that it does not have. Only while unshared.
  void append(const Cell& key);
  /// Takes a key out. Only while unshared. Linear.
  void erase(std::size_t place);

  /// The places of the keys in ascending order of the keys' bytes. Sorted at the first call.
  std::span<const std::uint32_t> ascending() const;

 private:
  using Order = std::vector<std::uint32_t>;

  Shape() = default;
  ~Shape() { delete ascending_.load(std::memory_order_relaxed); }

  template <typename Equals>
  std::size_t findWith(std::uint64_t hash, Equals equals) const noexcept;
  void addToIndex(std::size_t place) noexcept;
  void rebuildIndex();

  SharedCount references_{1};
  std::vector<Cell> keys_;
  std::uint64_t hash_ = 0;
  // An open hash table of places plus 1, 0 where free; empty for few keys, which are compared one
  // by one.
  std::vector<std::uint32_t> index_;
  mutable std::atomic<const Order*> ascending_ = nullptr;
};

/// Whether two cells are the same text.
inline bool isSameText(const Cell& a, const Cell& b) noexcept {
  return a.hasSameWords(b) || (a.tag() == CellTag::longText && b.tag() == CellTag::longText &&
                               a.textView() == b.textView());
}

/// Finds shapes again by their keys, so that dictionaries that are filled alike come to share one.
/// Each thread has one.
class ShapeMemory {
 public:
  static ShapeMemory& ofThisThread() {
    return current_ != nullptr ? *current_ : makeOfThisThread();
  }

  ~ShapeMemory();

  /// The known shape of exactly these keys and one more, of exactly the keys of these entries,
  /// without a reference for the caller; null if there is none.
  /// @{
  Shape* find(std::uint64_t hash, std::span<const Cell> keys, const Cell& lastKey) noexcept;
  template <typename Entries>
  Shape* find(const Entries& entries) noexcept {
    if (entries.size() == 0) return nullptr;
    // Entries that one line of a program lists have the same keys each time.
    const auto place = reinterpret_cast<std::uintptr_t>(entries.begin()->key.data());
    std::uint8_t& guess = guesses_[(place + place / slotCount + entries.size()) % slotCount];
    if (hasKeys(slots_[guess].shape, entries)) return slots_[guess].shape;
    std::uint64_t hash = 0;
    for (const auto& entry : entries) hash = Shape::hashWith(hash, entry.key);
    const Slot& slot = slotOf(hash);
    if (slot.hash != hash || !hasKeys(slot.shape, entries)) return nullptr;
    guess = static_cast<std::uint8_t>(&slot - slots_);
    return slot.shape;
  }
  /// @}

  /// Asks whether to remember a shape of this hash: only one that was wanted before.
  bool wants(std::uint64_t hash) noexcept;
  void remember(Shape& shape) noexcept;

  static constexpr std::size_t mostKeys = 32;

 private:
  static constexpr std::size_t slotCount = 256;
  struct Slot {
    std::uint64_t hash = 0;
    Shape* shape = nullptr;
  };
  static ShapeMemory& makeOfThisThread();
  Slot& slotOf(std::uint64_t hash) noexcept { return slots_[hash >> 56]; }

  template <typename Entries>
  static bool hasKeys(const Shape* shape, const Entries& entries) noexcept {
    if (shape == nullptr) return false;
    const std::span<const Cell> keys = shape->keys();
    const auto isKeyOf = [](const Cell& key, const auto& entry) {
      return entry.key.size() <= Cell::longestShortText
                 ? key.hasSameWords(Cell::shortText(entry.key))
                 : key.textView() == entry.key;
    };
    return std::equal(keys.begin(), keys.end(), entries.begin(), entries.end(), isKeyOf);
  }

  // Found without a call, as each dictionary asks for it.
  [[gnu::tls_model("initial-exec")]] static thread_local ShapeMemory* current_;

  Slot slots_[slotCount];
  std::uint8_t guesses_[slotCount] = {};
};

}  // namespace tolvanite::detail
