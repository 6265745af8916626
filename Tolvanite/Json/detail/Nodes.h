// The nodes that cells refer to: how they lie in memory, and how they are made, shared and changed.
#pragma once

#include <any>
#include <array>
#include <cstddef>
#include <cstdint>
#include <new>
#include <span>
#include <utility>
#include <vector>

#include <Tolvanite/Json/detail/Cell.h>
#include <Tolvanite/Json/detail/Decimal.h>
#include <Tolvanite/Json/detail/OtherKind.h>
#include <Tolvanite/Json/detail/Shape.h>
#include <Tolvanite/Platform/SharedCount.h>

namespace tolvanite::detail {

// A text node is followed by its bytes, with room up to the next multiple of 16, so that whole
// blocks can be read.
inline constexpr std::size_t textBlock = 16;

struct ListNode : CellNode {
  Cell* elements() noexcept { return reinterpret_cast<Cell*>(this + 1); }
};

struct DictionaryNode : CellNode {
  Shape* shape;
  Cell* values() noexcept { return reinterpret_cast<Cell*>(this + 1); }
};

struct DecimalNode : CellNode {
  Decimal decimal;
};

/// A value of a kind that JSON does not have.
struct OtherNode : CellNode {
  std::any value;
  const OtherKind* kind;
};

inline std::span<Cell> elementsOf(const Cell& list) noexcept {
  if (list.low() == 0) return {};
  auto* node = static_cast<ListNode*>(list.node());
  return {node->elements(), node->count};
}

/// The values of a dictionary in the order of the keys of its shape.
inline std::span<Cell> valuesOf(const Cell& dictionary) noexcept {
  if (dictionary.low() == 0) return {};
  auto* node = static_cast<DictionaryNode*>(dictionary.node());
  return {node->values(), node->count};
}

/// Null for a dictionary without a node.
inline Shape* shapeOf(const Cell& dictionary) noexcept {
  return dictionary.low() == 0 ? nullptr : static_cast<DictionaryNode*>(dictionary.node())->shape;
}

inline std::span<const Cell> keysOf(const Cell& dictionary) noexcept {
  const Shape* shape = shapeOf(dictionary);
  return shape == nullptr ? std::span<const Cell>() : shape->keys();
}

/// The value under a key; null when missing.
template <typename Key>
const Cell* findIn(const Cell& dictionary, const Key& key) noexcept {
  const Shape* shape = shapeOf(dictionary);
  const std::size_t place = shape == nullptr ? Shape::absent : shape->find(key);
  return place == Shape::absent ? nullptr : &valuesOf(dictionary)[place];
}

inline const Decimal& decimalOf(const Cell& cell) noexcept {
  return static_cast<const DecimalNode*>(cell.node())->decimal;
}
inline OtherNode& otherOf(const Cell& cell) noexcept {
  return *static_cast<OtherNode*>(cell.node());
}

Cell makeDecimal(const Decimal& decimal);
Cell makeOther(std::any value, const OtherKind& kind);

/// Makes a container's node one that only this cell refers to, with room for so many elements. A
/// node in an arena and one that is shared are copied, their elements are not.
void makeChangeable(Cell& container, std::size_t capacity);

void appendTo(Cell& list, Cell element);
/// Sets the value under a key, which is added when it is new.
void setIn(Cell& dictionary, const Cell& key, Cell value);
void eraseFrom(Cell& container, std::size_t place);
/// Makes `dictionary` a new one of a known shape. The caller puts as many values as there are keys
/// to the place that this gives.
Cell* startDictionary(Cell& dictionary, Shape& shape);

/// Equality by content: numbers by value whatever their kind, truth values as 1 and 0,
/// dictionaries in any order.
bool isEqual(const Cell& a, const Cell& b) noexcept;
std::size_t hashOf(const Cell& cell) noexcept;

/// Memory of a document that is read or mapped: nodes are put behind one another and freed at once.
/// They refer to nodes of the same arena only, and do not count those references.
class Arena {
 public:
  /// An arena with one reference, for the caller, that begins with room for so many bytes.
  static Arena* make(std::size_t firstRoom);
  /// One that gets room in equal steps, up to so many bytes in all.
  static Arena* make(std::size_t step, std::size_t limit);

  /// Where this thread puts nodes that it makes at the moment; null if each has its own memory.
  /// @{
  static Arena* ofThisThread() noexcept { return current_; }
  static void setOfThisThread(Arena* arena) noexcept { current_ = arena; }
  /// @}

  Arena(const Arena&) = delete;
  Arena& operator=(const Arena&) = delete;

  void retain() noexcept { references_.add(); }
  void release() noexcept {
    if (references_.drop()) delete this;
  }
  /// The same for the thread that puts nodes here, and for a reference that is not the last one:
  /// it has some to spare, so that threads need not agree on each.
  /// @{
  void retainHere() noexcept {
    constexpr std::uint32_t many = 1 << 16;
    if (spare_ == 0) {
      references_.add(many);
      spare_ = many;
    }
    --spare_;
  }
  void releaseHere() noexcept { ++spare_; }
  /// @}
  /// Gives back what is spare, and a reference.
  void leave() noexcept {
    if (references_.drop(std::exchange(spare_, 0) + 1)) delete this;
  }

  /// A node of so many bytes with its place filled in.
  CellNode* allocate(std::size_t bytes) {
    bytes = (bytes + 7) & ~std::size_t{7};
    if (static_cast<std::size_t>(end_ - next_) < bytes) addChunk(bytes);
    auto* node = reinterpret_cast<CellNode*>(next_);
    node->place = static_cast<std::uint32_t>((next_ - reinterpret_cast<char*>(chunks_)) / 8);
    next_ += bytes;
    return node;
  }

  /// The same within the limit of the arena; null beyond it.
  CellNode* allocateWithinLimit(std::size_t bytes) {
    const bool isFull = static_cast<std::size_t>(end_ - next_) < bytes + 7 &&
                        (limit_ < nextRoom_ || bytes + 7 > nextRoom_);
    return isFull ? nullptr : allocate(bytes);
  }
  /// Forgets all nodes if nobody refers to them any more.
  void reuse() noexcept;

  /// Keeps a shape as long as the arena. Takes over a reference.
  void keep(Shape* shape) { shapes_.push_back(shape); }
  /// The same for a shape that may be kept already. Takes a reference of its own.
  void keepAlso(Shape& shape) {
    Shape*& known = known_[reinterpret_cast<std::uintptr_t>(&shape) / 64 % known_.size()];
    if (known == &shape) return;
    shapes_.push_back(&shape);
    shape.retain();
    known = &shape;
  }

  static Arena& of(const CellNode& node) noexcept {
    const char* chunk = reinterpret_cast<const char*>(&node) - std::size_t{node.place} * 8;
    return *reinterpret_cast<const Chunk*>(chunk)->arena;
  }

 private:
  struct Chunk {
    Arena* arena;
    Chunk* previous;
  };

  Arena() = default;
  ~Arena();
  void addChunk(std::size_t bytes);

  // Found without a call, as it is asked for with each text and dictionary.
  [[gnu::tls_model("initial-exec")]] static thread_local Arena* current_;

  SharedCount references_{1};
  std::uint32_t spare_ = 0;
  Chunk* chunks_ = nullptr;
  char* next_ = nullptr;
  char* end_ = nullptr;
  std::size_t nextRoom_ = 0;
  std::size_t limit_ = 0;  // of further room, where there is one
  bool hasEqualSteps_ = false;
  std::vector<Shape*> shapes_;
  std::array<Shape*, 16> known_{};
};

/// Puts what a cell refers to into an arena, so that another node there can hold it; false if it
/// has to stay outside. Containers that nobody else refers to move; other nodes stay.
/// @{
bool adoptNode(Cell& cell, Arena& arena);
inline bool adopt(Cell& cell, Arena& arena) {
  if (!cell.hasNode()) return true;
  return cell.node()->place != 0 ? &Arena::of(*cell.node()) == &arena : adoptNode(cell, arena);
}
/// @}
/// The same for a container with a node of its own whose elements were adopted.
bool adoptContainer(Cell& container, Arena& arena);

/// Moves a cell that was adopted by an arena to a place in a node there.
inline void putAdopted(Cell* place, Cell&& cell, Arena& arena) noexcept {
  new (place) Cell(cell.low(), cell.high());
  if (cell.hasNode()) arena.releaseHere();
  cell.forget();
}

/// `startDictionary` in an arena, for values that were adopted; null when that is full.
inline Cell* startDictionary(Cell& dictionary, Shape& shape, Arena& arena) {
  const std::size_t count = shape.keys().size();
  CellNode* memory = arena.allocateWithinLimit(sizeof(DictionaryNode) + count * sizeof(Cell));
  if (memory == nullptr) return nullptr;
  arena.keepAlso(shape);
  arena.retainHere();
  auto* node = static_cast<DictionaryNode*>(memory);
  node->count = static_cast<std::uint32_t>(count);
  node->shape = &shape;
  dictionary = Cell(CellTag::dictionary, node);
  return node->values();
}

}  // namespace tolvanite::detail
