#include <Tolvanite/Json/detail/TapeReader.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <new>
#include <span>
#include <vector>

#include <Tolvanite/Json/JSONSerialization.h>
#include <Tolvanite/Json/detail/Hashing.h>
#include <Tolvanite/Json/detail/Nodes.h>

// The tape, as simdjson documents it: one word an element with its type in the highest byte. A
// number's value is in the word behind it; a string's word has the place of its length (4 bytes)
// and bytes; the word that opens a container has the place behind the container in its lower 32
// bits, and in the 24 bits above them the number of elements, if it is less than all ones.

namespace tolvanite::detail {

namespace {

struct TooDeep {};

constexpr std::uint64_t payloadMask = 0x00ff'ffff'ffff'ffffU;
constexpr std::uint64_t countMask = 0xff'ffffU;

// What of two words of eight bytes belongs to a text of a given length.
struct ShortTextMasks {
  std::array<std::uint64_t, Cell::longestShortText + 1> low{};
  std::array<std::uint64_t, Cell::longestShortText + 1> high{};

  constexpr ShortTextMasks() {
    for (std::size_t i = 0; i < low.size(); ++i) {
      low[i] = i >= 8 ? ~std::uint64_t{0} : (std::uint64_t{1} << 8 * i) - 1;
      high[i] = i <= 8 ? 0 : (std::uint64_t{1} << 8 * (i - 8)) - 1;
    }
  }
};
constexpr ShortTextMasks masks;

struct ReleaseArena {
  void operator()(Arena* arena) const noexcept { arena->release(); }
};

class TapeReader {
 public:
  TapeReader(const std::uint64_t* tape, const std::uint8_t* strings)
      : tape_(tape), strings_(strings), arena_(Arena::make(estimatedRoom())) {}

  Cell document() {
    Cell result;
    try {
      value(&result);
    } catch (...) {
      result.forget();  // the arena goes by itself
      throw;
    }
    // The cell's reference to a node in the arena is the one that the arena began with.
    // NOLINTNEXTLINE(bugprone-unused-return-value)
    if (result.hasNode()) static_cast<void>(arena_.release());
    return result;
  }

 private:
  struct Guess {
    Shape* shape = nullptr;
    const Cell* keys = nullptr;
    std::size_t count = 0;
  };
  static constexpr std::size_t guessCount = 128;

  // Most values take as much room as on the tape.
  std::size_t estimatedRoom() const {
    const std::uint64_t words = tape_[0] & payloadMask;
    return static_cast<std::size_t>(words) * 9 + 64;
  }

  static Cell* put(Cell* out, std::uint64_t low, std::uint64_t high) {
    return new (out) Cell(low, high);
  }
  static Cell* put(Cell* out, CellTag tag, CellNode* node) { return new (out) Cell(tag, node); }
  static Cell* put(Cell* out, CellTag tag, std::uint64_t word) { return new (out) Cell(tag, word); }

  // NOLINTBEGIN(misc-no-recursion): no deeper than the greatest depth.
  void value(Cell* out) {
    const std::uint64_t word = tape_[at_++];
    switch (word >> 56) {
      case '"':
        text(out, word & payloadMask);
        return;
      case 'l':
        put(out, CellTag::signedInteger, tape_[at_++]);
        return;
      case 'd':
        put(out, CellTag::real, tape_[at_++]);
        return;
      case 'u':
        put(out, CellTag::unsignedInteger, tape_[at_++]);
        return;
      case 't':
        put(out, CellTag::boolean, std::uint64_t{1});
        return;
      case 'f':
        put(out, CellTag::boolean, std::uint64_t{0});
        return;
      case '[':
        list(out, word);
        return;
      case '{':
        dictionary(out, word);
        return;
      default:
        new (out) Cell();
        return;
    }
  }

  void list(Cell* out, std::uint64_t word) {
    const std::size_t count = elementCount(word, 1);
    enter();
    if (count == 0) {
      put(out, CellTag::list, std::uint64_t{0});
    } else {
      auto* node =
          static_cast<ListNode*>(arena_->allocate(sizeof(ListNode) + count * sizeof(Cell)));
      node->count = static_cast<std::uint32_t>(count);
      put(out, CellTag::list, node);
      Cell* elements = node->elements();
      for (std::size_t i = 0; i < count; ++i) value(elements + i);
    }
    --depth_;
    ++at_;
  }

  void dictionary(Cell* out, std::uint64_t word) {
    const std::size_t count = elementCount(word, 2);
    enter();
    if (count == 0) {
      put(out, CellTag::dictionary, std::uint64_t{0});
      --depth_;
      ++at_;
      return;
    }
    auto* node = static_cast<DictionaryNode*>(
        arena_->allocate(sizeof(DictionaryNode) + count * sizeof(Cell)));
    node->count = static_cast<std::uint32_t>(count);
    put(out, CellTag::dictionary, node);
    Cell* values = node->values();
    Guess& guess = guesses_[guessPlace(count)];
    const Guess guessed = guess;
    std::size_t known = 0;
    if (guessed.count == count) {
      while (known < count && isNextKey(guessed.keys[known])) {
        ++at_;
        value(values + known++);
      }
    }
    if (known == count) {
      node->shape = guessed.shape;
    } else {
      collectRest(*node, {guessed.keys, known}, guess);
    }
    --depth_;
    ++at_;
  }

  // Reads a dictionary on behind keys that are known, and finds or makes its shape.
  void collectRest(DictionaryNode& node, std::span<const Cell> known, Guess& guess) {
    const std::size_t base = keys_.size();
    keys_.insert(keys_.end(), known.begin(), known.end());
    for (std::size_t i = known.size(); i < node.count; ++i) {
      keys_.push_back(Cell::text(string(tape_[at_++] & payloadMask)));
      value(node.values() + i);
    }
    const std::span<const Cell> keys = std::span(keys_).subspan(base);
    node.shape = shapeOfKeys(keys, node);
    if (node.count == keys.size()) guess = {node.shape, node.shape->keys().data(), keys.size()};
    keys_.resize(base);
  }
  // NOLINTEND(misc-no-recursion)

  // A shape that this document has already, else a new one. Of repeated keys the last value stays.
  Shape* shapeOfKeys(std::span<const Cell> keys, DictionaryNode& node) {
    std::uint64_t hash = 0;
    for (const Cell& key : keys) hash = Shape::hashWith(hash, key);
    Shape*& slot = shapes_[hash % shapes_.size()];
    if (slot != nullptr && slot->hash() == hash &&
        std::ranges::equal(slot->keys(), keys, isSameText)) {
      return slot;
    }
    Shape* shape = Shape::make(keys.size());
    arena_->keep(shape);
    Cell* values = node.values();
    for (std::size_t i = 0; i < keys.size(); ++i) {
      std::size_t place = shape->find(keys[i]);
      if (place == Shape::absent) {
        place = shape->keys().size();
        shape->append(keys[i]);
      }
      put(values + place, values[i].low(), values[i].high());
    }
    node.count = static_cast<std::uint32_t>(shape->keys().size());
    if (node.count == keys.size()) slot = shape;
    return shape;
  }

  void text(Cell* out, std::uint64_t place) {
    const std::string_view text = string(place);
    if (text.size() <= Cell::longestShortText) {
      const auto [low, high] = shortWords(text);
      put(out, low, high);
      return;
    }
    const std::size_t room = (text.size() + textBlock - 1) / textBlock * textBlock;
    CellNode* node = arena_->allocate(sizeof(CellNode) + room);
    node->count = static_cast<std::uint32_t>(text.size());
    // Whole blocks: there is room on both sides.
    auto* bytes = reinterpret_cast<char*>(node + 1);
    for (std::size_t i = 0; i < text.size(); i += textBlock) {
      std::memcpy(bytes + i, text.data() + i, textBlock);
    }
    put(out, CellTag::longText, node);
  }

  std::string_view string(std::uint64_t place) const {
    std::uint32_t length = 0;
    std::memcpy(&length, strings_ + place, sizeof length);
    return {reinterpret_cast<const char*>(strings_ + place + sizeof length), length};
  }

  // The buffer of the strings has room for a block behind the last one.
  static std::pair<std::uint64_t, std::uint64_t> shortWords(std::string_view text) {
    std::uint64_t words[2];
    std::memcpy(words, text.data(), sizeof words);
    return {words[0] & masks.low[text.size()],
            (words[1] & masks.high[text.size()]) | static_cast<std::uint64_t>(text.size()) << 56};
  }

  bool isNextKey(const Cell& key) const {
    const std::string_view text = string(tape_[at_] & payloadMask);
    if (text.size() <= Cell::longestShortText) {
      const auto [low, high] = shortWords(text);
      return low == key.low() && high == key.high();
    }
    return !key.isShortText() && key.textView() == text;
  }

  // By the number of keys and the first of them, which is next on the tape.
  std::size_t guessPlace(std::size_t count) const {
    std::uint64_t words[2];
    std::memcpy(words, strings_ + (tape_[at_] & payloadMask), sizeof words);
    return (mixed(words[0], count) >> 32) % guessCount;
  }

  // `perElement`: how many values on the tape make an element.
  std::size_t elementCount(std::uint64_t word, std::size_t perElement) const {
    const std::uint64_t count = word >> 32 & countMask;
    if (count < countMask) return static_cast<std::size_t>(count);
    std::size_t values = 0;
    const std::uint64_t end = (word & 0xffff'ffffU) - 1;
    for (std::uint64_t i = at_; i < end; ++values) {
      switch (tape_[i] >> 56) {
        case '{':
        case '[':
          i = tape_[i] & 0xffff'ffffU;
          break;
        case 'l':
        case 'u':
        case 'd':
          i += 2;
          break;
        default:
          ++i;
      }
    }
    return values / perElement;
  }

  void enter() {
    if (++depth_ > JSONSerialization::greatestDepth) throw TooDeep();
  }

  const std::uint64_t* tape_;
  const std::uint8_t* strings_;
  std::size_t at_ = 1;  // behind the word of the root
  int depth_ = 0;
  std::unique_ptr<Arena, ReleaseArena> arena_;
  // The keys of the dictionaries around the current place whose shape was not guessed.
  std::vector<Cell> keys_;
  std::array<Guess, guessCount> guesses_;
  std::array<Shape*, guessCount> shapes_{};
};

}  // namespace

Optional<Cell> readTape(const std::uint64_t* tape, const std::uint8_t* strings) {
  try {
    return TapeReader(tape, strings).document();
  } catch (const TooDeep&) {
    return {};
  }
}

}  // namespace tolvanite::detail
