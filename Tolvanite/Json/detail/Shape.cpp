#include <Tolvanite/Json/detail/Shape.h>

#include <algorithm>
#include <bit>
#include <chrono>
#include <cstring>
#include <numeric>

#include <Tolvanite/Json/detail/Hashing.h>

namespace tolvanite::detail {

namespace {

constexpr std::size_t mostKeysWithoutIndex = 12;

// The place of this process in memory and in time are as good as a draw here.
const std::uint64_t processSeed = [] {
  static const char place = 0;
  const auto now = std::chrono::steady_clock::now().time_since_epoch().count();
  return mixed(reinterpret_cast<std::uintptr_t>(&place), static_cast<std::uint64_t>(now));
}();

}  // namespace

std::uint64_t hashSeed() noexcept { return processSeed; }

std::uint64_t hashOfLongText(std::string_view text) noexcept {
  std::uint64_t hash = mixed(processSeed, text.size());
  while (text.size() > 16) {
    std::uint64_t words[2];
    std::memcpy(words, text.data(), sizeof words);
    hash = mixed(words[0] ^ hash, words[1]);
    text.remove_prefix(16);
  }
  std::uint64_t words[2] = {};
  std::memcpy(words, text.data(), text.size());
  return mixed(words[0] ^ hash, words[1]);
}

Shape* Shape::make(std::size_t room) {
  auto* shape = new Shape;
  shape->keys_.reserve(room);
  return shape;
}

Shape* Shape::empty() noexcept {
  // Never freed, as dictionaries may outlive what is destroyed at the end of the process.
  static Shape* const shape = make(0);
  shape->retain();
  return shape;
}

Shape* Shape::copy(const Shape& other, std::size_t count) {
  Shape* shape = make(count + 1);
  for (const Cell& key : other.keys_) {
    if (shape->keys_.size() < count) shape->append(key);
  }
  return shape;
}

std::uint64_t Shape::hashWith(std::uint64_t hash, const Cell& key) noexcept {
  return mixed(hash, hashOfText(key));
}

std::uint64_t Shape::hashWith(std::uint64_t hash, std::string_view key) noexcept {
  return mixed(hash, key.size() <= Cell::longestShortText ? hashOfText(Cell::shortText(key))
                                                          : hashOfLongText(key));
}

template <typename Equals>
std::size_t Shape::findWith(std::uint64_t hash, Equals equals) const noexcept {
  const std::size_t mask = index_.size() - 1;
  for (std::size_t slot = hash & mask; index_[slot] != 0; slot = (slot + 1) & mask) {
    const std::size_t place = index_[slot] - 1;
    if (equals(keys_[place])) return place;
  }
  return absent;
}

std::size_t Shape::find(const Cell& key) const noexcept {
  if (!index_.empty()) {
    return findWith(hashOfText(key), [&](const Cell& other) { return isSameText(key, other); });
  }
  for (std::size_t place = 0; place < keys_.size(); ++place) {
    if (isSameText(keys_[place], key)) return place;
  }
  return absent;
}

std::size_t Shape::find(std::string_view key) const noexcept {
  if (key.size() <= Cell::longestShortText) return find(Cell::shortText(key));
  const auto equals = [&](const Cell& other) {
    return !other.isShortText() && other.textView() == key;
  };
  if (!index_.empty()) return findWith(hashOfLongText(key), equals);
  const auto found = std::ranges::find_if(keys_, equals);
  return found == keys_.end() ? absent : static_cast<std::size_t>(found - keys_.begin());
}

void Shape::addToIndex(std::size_t place) noexcept {
  const std::size_t mask = index_.size() - 1;
  std::size_t slot = hashOfText(keys_[place]) & mask;
  while (index_[slot] != 0) slot = (slot + 1) & mask;
  index_[slot] = static_cast<std::uint32_t>(place + 1);
}

void Shape::rebuildIndex() {
  index_.clear();
  if (keys_.size() <= mostKeysWithoutIndex) return;
  std::size_t size = 4 * mostKeysWithoutIndex;
  while (size < 3 * keys_.size()) size *= 2;
  index_.resize(std::bit_ceil(size));
  for (std::size_t place = 0; place < keys_.size(); ++place) addToIndex(place);
}

void Shape::append(const Cell& key) {
  delete ascending_.exchange(nullptr, std::memory_order_relaxed);
  // A key in an arena would keep that, which may keep this shape.
  const bool isInArena = key.hasNode() && key.node()->place != 0;
  keys_.push_back(isInArena ? Cell::ownText(key.textView()) : key);
  hash_ = hashWith(hash_, key);
  if (keys_.size() <= mostKeysWithoutIndex) return;
  if (keys_.size() * 3 > index_.size() * 2) {
    rebuildIndex();
  } else {
    addToIndex(keys_.size() - 1);
  }
}

void Shape::erase(std::size_t place) {
  delete ascending_.exchange(nullptr, std::memory_order_relaxed);
  keys_.erase(keys_.begin() + static_cast<std::ptrdiff_t>(place));
  hash_ = 0;
  for (const Cell& key : keys_) hash_ = hashWith(hash_, key);
  rebuildIndex();
}

std::span<const std::uint32_t> Shape::ascending() const {
  const Order* known = ascending_.load(std::memory_order_acquire);
  if (known != nullptr) return *known;
  auto* order = new Order(keys_.size());
  std::iota(order->begin(), order->end(), 0U);
  std::ranges::sort(*order, {}, [&](std::uint32_t place) { return keys_[place].textView(); });
  // Of two threads that sort at once one comes too late.
  if (ascending_.compare_exchange_strong(known, order, std::memory_order_acq_rel)) return *order;
  delete order;
  return *known;
}

ShapeMemory& ShapeMemory::makeOfThisThread() {
  static thread_local ShapeMemory memory;
  current_ = &memory;
  return memory;
}

[[gnu::tls_model("initial-exec")]] thread_local ShapeMemory* ShapeMemory::current_ = nullptr;

ShapeMemory::~ShapeMemory() {
  for (Slot& slot : slots_) {
    if (slot.shape != nullptr) slot.shape->release();
    slot.shape = nullptr;
  }
}

Shape* ShapeMemory::find(std::uint64_t hash, std::span<const Cell> keys,
                         const Cell& lastKey) noexcept {
  const Slot& slot = slotOf(hash);
  if (slot.hash != hash || slot.shape == nullptr) return nullptr;
  const std::span<const Cell> known = slot.shape->keys();
  if (known.size() != keys.size() + 1 || !isSameText(known.back(), lastKey)) return nullptr;
  const bool isKnown = std::equal(keys.begin(), keys.end(), known.begin(), isSameText);
  return isKnown ? slot.shape : nullptr;
}

bool ShapeMemory::wants(std::uint64_t hash) noexcept {
  Slot& slot = slotOf(hash);
  if (slot.hash == hash) return slot.shape == nullptr;
  if (slot.shape != nullptr) slot.shape->release();
  slot = {hash, nullptr};
  return false;
}

void ShapeMemory::remember(Shape& shape) noexcept {
  Slot& slot = slotOf(shape.hash());
  shape.retain();
  if (slot.shape != nullptr) slot.shape->release();
  slot = {shape.hash(), &shape};
}

}  // namespace tolvanite::detail
