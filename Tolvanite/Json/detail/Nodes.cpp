#include <Tolvanite/Json/detail/Nodes.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <new>
#include <utility>

#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Json/detail/Hashing.h>
#include <Tolvanite/Json/detail/Numbers.h>
#include <Tolvanite/Platform/MemoryHints.h>

namespace tolvanite::detail {

namespace {

// Stands right before a node of its own.
struct Prefix {
  SharedCount references;
  std::uint32_t capacity;
};
static_assert(sizeof(Prefix) == 8 && sizeof(CellNode) == 8 && sizeof(DictionaryNode) == 16);

Prefix& prefixOf(CellNode* node) noexcept { return reinterpret_cast<Prefix*>(node)[-1]; }

void requireCount(std::size_t count) {
  if (count > std::numeric_limits<std::uint32_t>::max()) fatalOverflow();
}

// Memory for a node of so many bytes, with one reference.
CellNode* allocateNode(std::size_t bytes, std::size_t capacity) {
  void* memory = std::malloc(sizeof(Prefix) + bytes);
  if (memory == nullptr) throw std::bad_alloc();
  auto* prefix = new (memory) Prefix{SharedCount(1), static_cast<std::uint32_t>(capacity)};
  return reinterpret_cast<CellNode*>(prefix + 1);
}

void freeNode(CellNode* node) noexcept { std::free(&prefixOf(node)); }

std::size_t headerSize(CellTag tag) {
  return tag == CellTag::list ? sizeof(ListNode) : sizeof(DictionaryNode);
}

Cell* cellsOf(CellTag tag, CellNode* node) {
  return reinterpret_cast<Cell*>(reinterpret_cast<char*>(node) + headerSize(tag));
}

CellNode* allocateContainer(CellTag tag, std::size_t capacity) {
  requireCount(capacity);
  CellNode* node = allocateNode(headerSize(tag) + capacity * sizeof(Cell), capacity);
  node->count = 0;
  node->place = 0;
  if (tag == CellTag::dictionary) static_cast<DictionaryNode*>(node)->shape = Shape::empty();
  return node;
}

// Frees nodes without recursion, so that no depth is too much: those to be freed are chained
// through the words before them, each with its kind in the lowest bits.
class Destruction {
 public:
  void add(CellTag tag, CellNode* node) noexcept {
    std::memcpy(static_cast<void*>(&prefixOf(node)), &next_, sizeof next_);
    next_ = reinterpret_cast<std::uintptr_t>(node) |
            (static_cast<std::uintptr_t>(tag) - static_cast<std::uintptr_t>(CellTag::longText));
  }

  void run() noexcept {
    while (next_ != 0) {
      // NOLINTNEXTLINE(performance-no-int-to-ptr): the low bits of the address tell the kind
      auto* node = reinterpret_cast<CellNode*>(next_ & ~kindBits);
      const auto tag =
          static_cast<CellTag>((next_ & kindBits) + static_cast<std::uintptr_t>(CellTag::longText));
      std::memcpy(&next_, static_cast<const void*>(&prefixOf(node)), sizeof next_);
      empty(tag, node);
      freeNode(node);
    }
  }

 private:
  static constexpr std::uintptr_t kindBits = 7;

  void empty(CellTag tag, CellNode* node) noexcept {
    if (tag == CellTag::list || tag == CellTag::dictionary) {
      Cell* cells = cellsOf(tag, node);
      for (std::uint32_t i = 0; i < node->count; ++i) drop(cells[i]);
      if (tag == CellTag::dictionary) static_cast<DictionaryNode*>(node)->shape->release();
    } else if (tag == CellTag::other) {
      static_cast<OtherNode*>(node)->~OtherNode();
    }
  }

  void drop(const Cell& cell) noexcept {
    if (!cell.hasNode()) return;
    CellNode* node = cell.node();
    if (node->place != 0) {
      Arena::of(*node).release();
    } else if (prefixOf(node).references.drop()) {
      add(cell.tag(), node);
    }
  }

  std::uintptr_t next_ = 0;
};

// Moves a container's elements into a node with more room, if it is the only one to refer to them,
// else copies them.
void renewNode(Cell& container, std::size_t capacity, bool isOnlyOwner) {
  const CellTag tag = container.tag();
  requireCount(capacity);
  if (isOnlyOwner) {
    void* memory = std::realloc(&prefixOf(container.node()),
                                sizeof(Prefix) + headerSize(tag) + capacity * sizeof(Cell));
    if (memory == nullptr) throw std::bad_alloc();
    auto* prefix = static_cast<Prefix*>(memory);
    prefix->capacity = static_cast<std::uint32_t>(capacity);
    container.forget();
    container = Cell(tag, reinterpret_cast<CellNode*>(prefix + 1));
    return;
  }
  CellNode* old = container.node();
  CellNode* node = allocateNode(headerSize(tag) + capacity * sizeof(Cell), capacity);
  node->count = old->count;
  node->place = 0;
  if (tag == CellTag::dictionary) {
    Shape* shape = shapeOf(container);
    shape->retain();
    static_cast<DictionaryNode*>(node)->shape = shape;
  }
  std::uninitialized_copy_n(cellsOf(tag, old), old->count, cellsOf(tag, node));
  container = Cell(tag, node);
}

std::size_t grown(std::size_t count) { return count < 4 ? 4 : count + count / 2 + 1; }

// Makes the shape of a changeable dictionary one with a further key.
void extendShape(DictionaryNode& node, const Cell& key) {
  Shape* shape = node.shape;
  const std::span<const Cell> keys = shape->keys();
  ShapeMemory& memory = ShapeMemory::ofThisThread();
  bool isWanted = false;
  if (keys.size() < ShapeMemory::mostKeys) {
    const std::uint64_t hash = Shape::hashWith(shape->hash(), key);
    if (Shape* known = memory.find(hash, keys, key)) {
      known->retain();
      node.shape = known;
      shape->release();
      return;
    }
    isWanted = memory.wants(hash);
  }
  if (isWanted || shape->isShared()) {
    node.shape = Shape::copy(*shape, keys.size());
    shape->release();
  }
  node.shape->append(key);
  if (isWanted) memory.remember(*node.shape);
}

}  // namespace

namespace {

std::size_t roomOfText(std::string_view text) {
  requireCount(text.size());
  return sizeof(CellNode) + (text.size() + textBlock - 1) / textBlock * textBlock;
}

CellNode* fillText(CellNode* node, std::string_view text) {
  node->count = static_cast<std::uint32_t>(text.size());
  std::memcpy(node + 1, text.data(), text.size());
  return node;
}

}  // namespace

Cell Cell::makeLongText(std::string_view text) {
  Arena* arena = Arena::ofThisThread();
  CellNode* node = arena == nullptr ? nullptr : arena->allocateWithinLimit(roomOfText(text));
  if (node == nullptr) return makeOwnLongText(text);
  arena->retainHere();
  return {CellTag::longText, fillText(node, text)};
}

Cell Cell::makeOwnLongText(std::string_view text) {
  CellNode* node = allocateNode(roomOfText(text), 0);
  node->place = 0;
  return {CellTag::longText, fillText(node, text)};
}

void Cell::retain(CellNode* node) noexcept {
  if (node->place != 0) {
    Arena::of(*node).retain();
  } else {
    prefixOf(node).references.add();
  }
}

void Cell::release(Cell& cell) noexcept {
  CellNode* node = cell.node();
  if (node->place != 0) {
    Arena::of(*node).release();
  } else if (prefixOf(node).references.drop()) {
    Destruction destruction;
    destruction.add(cell.tag(), node);
    destruction.run();
  }
}

Cell makeDecimal(const Decimal& decimal) {
  CellNode* node = allocateNode(sizeof(DecimalNode), 0);
  new (node) DecimalNode{{0, 0}, decimal};
  return {CellTag::decimal, node};
}

Cell makeOther(std::any value, const OtherKind& kind) {
  CellNode* node = allocateNode(sizeof(OtherNode), 0);
  new (node) OtherNode{{0, 0}, std::move(value), &kind};
  return {CellTag::other, node};
}

void makeChangeable(Cell& container, std::size_t capacity) {
  if (container.low() == 0) {
    if (capacity > 0) {
      container = Cell(container.tag(), allocateContainer(container.tag(), capacity));
    }
    return;
  }
  CellNode* node = container.node();
  const bool isOnlyOwner = node->place == 0 && prefixOf(node).references.value() == 1;
  if (isOnlyOwner && prefixOf(node).capacity >= capacity) return;
  renewNode(container, std::max<std::size_t>(capacity, node->count), isOnlyOwner);
}

void appendTo(Cell& list, Cell element) {
  const std::size_t count = list.elementCount();
  const bool isFull =
      list.low() == 0 || list.node()->place != 0 || prefixOf(list.node()).capacity == count;
  if (isFull || prefixOf(list.node()).references.value() != 1) {
    makeChangeable(list, isFull ? grown(count) : count + 1);
  }
  auto* node = static_cast<ListNode*>(list.node());
  new (node->elements() + node->count) Cell(std::move(element));
  ++node->count;
}

void setIn(Cell& dictionary, const Cell& key, Cell value) {
  const Shape* shape = shapeOf(dictionary);
  const std::size_t place = shape == nullptr ? Shape::absent : shape->find(key);
  const std::size_t count = dictionary.elementCount();
  if (place != Shape::absent) {
    makeChangeable(dictionary, count);
    valuesOf(dictionary)[place] = std::move(value);
    return;
  }
  const bool isFull = dictionary.low() == 0 || dictionary.node()->place != 0 ||
                      prefixOf(dictionary.node()).capacity == count;
  makeChangeable(dictionary, isFull ? grown(count) : count + 1);
  auto* node = static_cast<DictionaryNode*>(dictionary.node());
  extendShape(*node, key);
  new (node->values() + node->count) Cell(std::move(value));
  ++node->count;
}

void eraseFrom(Cell& container, std::size_t place) {
  makeChangeable(container, container.elementCount());
  CellNode* node = container.node();
  if (container.tag() == CellTag::dictionary) {
    auto& dictionary = *static_cast<DictionaryNode*>(node);
    if (dictionary.shape->isShared()) {
      Shape* own = Shape::copy(*dictionary.shape, node->count);
      std::exchange(dictionary.shape, own)->release();
    }
    dictionary.shape->erase(place);
  }
  Cell* cells = cellsOf(container.tag(), node);
  std::move(cells + place + 1, cells + node->count, cells + place);
  cells[--node->count].~Cell();
}

Cell* startDictionary(Cell& dictionary, Shape& shape) {
  const std::size_t count = shape.keys().size();
  CellNode* memory = allocateNode(sizeof(DictionaryNode) + count * sizeof(Cell), count);
  shape.retain();
  auto* node = new (memory) DictionaryNode{{static_cast<std::uint32_t>(count), 0}, &shape};
  dictionary = Cell(CellTag::dictionary, node);
  return node->values();
}

bool adoptContainer(Cell& container, Arena& arena) {
  const CellTag tag = container.tag();
  CellNode* old = container.node();
  CellNode* node = arena.allocateWithinLimit(headerSize(tag) + old->count * sizeof(Cell));
  if (node == nullptr) return false;
  node->count = old->count;
  if (tag == CellTag::dictionary) {
    Shape* shape = shapeOf(container);
    static_cast<DictionaryNode*>(node)->shape = shape;
    arena.keepAlso(*shape);
    shape->release();
  }
  for (std::uint32_t i = 0; i < old->count; ++i) {
    putAdopted(cellsOf(tag, node) + i, std::move(cellsOf(tag, old)[i]), arena);
  }
  freeNode(old);
  container.forget();
  arena.retainHere();
  container = Cell(tag, node);
  return true;
}

namespace {

bool isOwnContainer(const Cell& cell) {
  const bool isContainer = cell.tag() == CellTag::list || cell.tag() == CellTag::dictionary;
  return isContainer && prefixOf(cell.node()).references.value() == 1;
}

// NOLINTNEXTLINE(misc-no-recursion): only so many levels deep
bool adopt(Cell& cell, Arena& arena, int levels) {
  if (!cell.hasNode()) return true;
  if (cell.node()->place != 0) return &Arena::of(*cell.node()) == &arena;
  if (levels == 0 || !isOwnContainer(cell)) return false;
  Cell* elements = cellsOf(cell.tag(), cell.node());
  for (std::uint32_t i = 0; i < cell.node()->count; ++i) {
    if (!adopt(elements[i], arena, levels - 1)) return false;
  }
  return adoptContainer(cell, arena);
}

}  // namespace

bool adoptNode(Cell& cell, Arena& arena) {
  constexpr int mostLevels = 8;
  return adopt(cell, arena, mostLevels);
}

namespace {

bool isEqualDictionary(const Cell& a, const Cell& b) noexcept {
  const std::span<const Cell> keys = keysOf(a);
  const std::span<const Cell> values = valuesOf(a);
  if (shapeOf(a) == shapeOf(b)) {
    const std::span<const Cell> others = valuesOf(b);
    return std::equal(values.begin(), values.end(), others.begin(), others.end(), isEqual);
  }
  if (values.size() != b.elementCount()) return false;
  for (std::size_t i = 0; i < values.size(); ++i) {
    const Cell* other = findIn(b, keys[i]);
    if (other == nullptr || !isEqual(values[i], *other)) return false;
  }
  return true;
}

}  // namespace

bool isEqual(const Cell& a, const Cell& b) noexcept {
  if (a.isNumber()) return b.isNumber() && compareNumbers(a, b) == 0;
  if (a.isText()) return isSameText(a, b);
  if (a.tag() != b.tag()) return false;
  if (a.hasSameWords(b)) return true;
  if (a.tag() == CellTag::dictionary) return isEqualDictionary(a, b);
  if (a.tag() == CellTag::other) {
    return otherOf(a).kind->isEqual(otherOf(a).value, otherOf(b).value);
  }
  const std::span<const Cell> elements = elementsOf(a);
  const std::span<const Cell> others = elementsOf(b);
  return std::equal(elements.begin(), elements.end(), others.begin(), others.end(), isEqual);
}

std::size_t hashOf(const Cell& cell) noexcept {
  if (cell.isNumber()) return hashOfNumber(cell);
  if (cell.isText()) return hashOfText(cell);
  auto hash = static_cast<std::uint64_t>(cell.tag());
  if (cell.tag() == CellTag::list) {
    for (const Cell& element : elementsOf(cell)) hash = mixed(hash, hashOf(element));
  } else if (cell.tag() == CellTag::dictionary) {
    const std::span<const Cell> keys = keysOf(cell);
    const std::span<const Cell> values = valuesOf(cell);
    // A sum, as the order of the keys does not matter.
    for (std::size_t i = 0; i < keys.size(); ++i) {
      hash += mixed(hashOfText(keys[i]), hashOf(values[i]));
    }
  }
  return hash;
}

Arena* Arena::make(std::size_t firstRoom) {
  auto* arena = new Arena;
  arena->nextRoom_ = firstRoom;
  return arena;
}

Arena* Arena::make(std::size_t step, std::size_t limit) {
  Arena* arena = make(step);
  arena->hasEqualSteps_ = true;
  arena->limit_ = limit;
  return arena;
}

[[gnu::tls_model("initial-exec")]] thread_local Arena* Arena::current_ = nullptr;

void Arena::reuse() noexcept {
  if (chunks_ == nullptr || references_.value() != spare_ + 1) return;
  next_ = reinterpret_cast<char*>(chunks_ + 1);
  constexpr std::size_t mostShapes = 256;
  if (shapes_.size() < mostShapes) return;
  for (Shape* shape : shapes_) shape->release();
  shapes_.clear();
  known_ = {};
}

Arena::~Arena() {
  while (chunks_ != nullptr) std::free(std::exchange(chunks_, chunks_->previous));
  for (Shape* shape : shapes_) shape->release();
}

void Arena::addChunk(std::size_t bytes) {
  const std::size_t size = sizeof(Chunk) + std::max(bytes, nextRoom_);
  void* memory = std::malloc(size);
  if (memory == nullptr) throw std::bad_alloc();
  preferLargePages(memory, size);
  chunks_ = new (memory) Chunk{this, chunks_};
  next_ = reinterpret_cast<char*>(chunks_ + 1);
  end_ = next_ + std::max(bytes, nextRoom_);
  if (hasEqualSteps_) {
    limit_ -= nextRoom_;
    return;
  }
  // What the last chunk wastes stays a small part of the whole.
  constexpr std::size_t leastRoom = 4096;
  constexpr std::size_t mostRoom = 16 << 20;
  nextRoom_ = std::clamp(nextRoom_ / 4, leastRoom, mostRoom);
}

}  // namespace tolvanite::detail
