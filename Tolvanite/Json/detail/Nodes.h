// The nodes that cells refer to: how they lie in memory, and how they are made, shared and changed.
#pragma once

#include <any>
#include <cstddef>
#include <cstdint>
#include <span>
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

/// Memory of a document that was read: nodes are put behind one another and freed at once.
class Arena {
 public:
  /// An arena with one reference, for the caller, that begins with room for so many bytes.
  static Arena* make(std::size_t firstRoom);

  Arena(const Arena&) = delete;
  Arena& operator=(const Arena&) = delete;

  void retain() noexcept { references_.add(); }
  void release() noexcept {
    if (references_.drop()) delete this;
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

  /// Keeps a shape as long as the arena. Takes over a reference.
  void keep(Shape* shape) { shapes_.push_back(shape); }

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

  SharedCount references_{1};
  Chunk* chunks_ = nullptr;
  char* next_ = nullptr;
  char* end_ = nullptr;
  std::size_t nextRoom_ = 0;
  std::vector<Shape*> shapes_;
};

}  // namespace tolvanite::detail
