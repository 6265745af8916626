#include <Tolvanite/Json/JSONSerialization.h>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <memory>

#include <simdjson.h>

#include <Tolvanite/Json/detail/TapeReader.h>
#include <Tolvanite/Json/detail/TextReader.h>
#include <Tolvanite/Platform/MemoryHints.h>

namespace tolvanite {

namespace {

using detail::Cell;
using detail::CellTag;

constexpr std::string_view byteOrderMark = "\xef\xbb\xbf";

// The parser of a thread. Its buffers, of which a text uses some four times its size, are kept for
// the next text. Those for a large text are kept only if the text before was large, too: a host
// that reads a large document now and then gets its memory back, and one that reads many need not
// wait for fresh memory each time. Their pages are for the system to take back, and buffers for
// very large texts are freed.
class Parser {
 public:
  static Parser& ofThisThread() {
    thread_local Parser parser;
    return parser;
  }

  // Absent if simdjson refuses the text, rightly or because of a number that it can't hold.
  Optional<Cell> parse(std::string_view text) {
    Optional<Cell> result;
    if (makeRoom(text.size()) && simdjsonParse(text)) {
      result = detail::readTape(parser_->doc.tape.get(), parser_->doc.string_buf.get());
    }
    const bool isLarge = text.size() > mostResident;
    const std::size_t limit = isLarge && wasLarge_ ? mostKept : mostResident;
    if (parser_ != nullptr && parser_->capacity() > limit) parser_.reset();
    if (isLarge) adviseOnBuffers(offerBack);
    wasLarge_ = isLarge;
    return result;
  }

 private:
  static constexpr std::size_t leastRoom = 4096;
  static constexpr std::size_t mostResident = 2 << 20;
  static constexpr std::size_t mostKept = 64 << 20;

  bool makeRoom(std::size_t size) {
    if (parser_ == nullptr) parser_ = std::make_unique<simdjson::dom::parser>();
    if (parser_->capacity() >= size) return true;
    if (size > simdjson::SIMDJSON_MAXSIZE_BYTES) return false;
    const std::size_t capacity =
        size > mostResident ? size : std::bit_ceil(std::max(size, leastRoom));
    if (parser_->allocate(capacity) != simdjson::SUCCESS) return false;
    if (parser_->doc.allocate(capacity) != simdjson::SUCCESS) return false;
    adviseOnBuffers(preferLargePages);
    return true;
  }

  void adviseOnBuffers(void (*advise)(void*, std::size_t)) const {
    if (parser_ == nullptr) return;
    const std::size_t capacity = parser_->capacity();
    advise(parser_->doc.tape.get(), capacity * sizeof(std::uint64_t));
    advise(parser_->doc.string_buf.get(), capacity);
    advise(parser_->implementation->structural_indexes.get(), capacity * sizeof(std::uint32_t));
  }

  bool simdjsonParse(std::string_view text) {
    // Reading a little beyond the text is harmless within the page of its last byte: such memory
    // is always there. Elsewhere the text is copied to where there is room.
    constexpr std::uintptr_t page = 4096;
    const std::uintptr_t last = reinterpret_cast<std::uintptr_t>(text.data()) + text.size() - 1;
    const bool hasRoom = last / page == (last + simdjson::SIMDJSON_PADDING) / page;
    return parser_->parse(text.data(), text.size(), !hasRoom).error() == simdjson::SUCCESS;
  }

  std::unique_ptr<simdjson::dom::parser> parser_;
  bool wasLarge_ = false;
};

}  // namespace

ManagedObject JSONSerialization::JSONObjectWithData(std::string_view text, ReadingOptions options) {
  std::string_view body = text;
  if (body.starts_with(byteOrderMark)) body.remove_prefix(byteOrderMark.size());
  Optional<Cell> result;
  if (!body.empty()) result = Parser::ofThisThread().parse(body);
  if (result.isNone()) result = detail::readText(text, text.size() - body.size());
  const bool isContainer = result->tag() == CellTag::list || result->tag() == CellTag::dictionary;
  if (!isContainer && !contains(options, ReadingOptions::allowFragments)) {
    throw Errur::malformedText("the text is neither an array nor an object",
                               static_cast<Int>(text.find_first_not_of(" \t\r\n")));
  }
  return ManagedObject(*std::move(result));
}

JSONSerialization::Errur JSONSerialization::Errur::malformedText(std::string_view what,
                                                                 Int byteOffset) {
  return {Case::malformedText,
          "Malformed JSON at byte " + std::to_string(byteOffset) + ": " + std::string(what),
          byteOffset};
}

JSONSerialization::Errur JSONSerialization::Errur::unwritableObject(std::string_view what) {
  return {Case::unwritableObject, "JSON can't hold this: " + std::string(what), 0};
}

JSONSerialization::Errur::~Errur() = default;

}  // namespace tolvanite
