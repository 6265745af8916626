#include <Tolvanite/Compression/detail/LzvnBlock.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

#include <Tolvanite/Compression/detail/LittleEndian.h>

namespace tolvanite::detail::lzfse {

namespace {

using Bytes = std::span<const std::byte>;

// The end instruction: this opcode, and bytes that mean nothing up to its size.
constexpr std::uint8_t endOpcode = 0x06;
constexpr std::size_t endSize = 8;

constexpr std::size_t mostShortDistance = 1535;
constexpr std::size_t mostMediumDistance = 16383;
constexpr std::size_t mostMediumCount = 34;
constexpr std::size_t mostOfLong = 271;  // a long run of literals or match
constexpr std::size_t mostOfShort = 15;  // a short one
constexpr std::size_t leastOfMatch = 3;  // a match with a distance of its own

enum class Kind : std::uint8_t {
  undefined,
  end,
  noOperation,
  shortDistance,
  mediumDistance,
  longDistance,
  sameDistance,
  longLiterals,
  shortLiterals,
  longMatch,
  shortMatch,
};

// How many bytes the opcode and its operands take.
constexpr std::size_t sizeOf(Kind kind) {
  switch (kind) {
    case Kind::end:
      return endSize;
    case Kind::mediumDistance:
    case Kind::longDistance:
      return 3;
    case Kind::shortDistance:
    case Kind::longLiterals:
    case Kind::longMatch:
      return 2;
    default:
      return 1;
  }
}

constexpr Kind kindOf(unsigned opcode) {
  const unsigned row = opcode >> 3;
  if (row >= 30) return opcode == 0xf0 ? Kind::longMatch : Kind::shortMatch;
  if (row >= 28) return opcode == 0xe0 ? Kind::longLiterals : Kind::shortLiterals;
  if (row >= 20 && row <= 23) return Kind::mediumDistance;
  if (row == 14 || row == 15 || row >= 26) return Kind::undefined;
  if ((opcode & 7) == 7) return Kind::longDistance;
  if ((opcode & 7) != 6) return Kind::shortDistance;
  if (row == 0) return Kind::end;
  if (row <= 2) return Kind::noOperation;
  return row <= 7 ? Kind::undefined : Kind::sameDistance;
}

constexpr auto kinds = [] {
  std::array<Kind, 256> result{};
  for (unsigned opcode = 0; opcode < result.size(); ++opcode) result[opcode] = kindOf(opcode);
  return result;
}();

struct Instruction {
  std::size_t literals = 0;
  std::size_t count = 0;
  std::size_t distance = 0;
};

// Reads an instruction of `sizeOf(kind)` bytes. `distance` is that of the match before.
Instruction instructionOf(Kind kind, const std::byte* place, std::size_t distance) {
  const auto opcode = std::to_integer<std::size_t>(place[0]);
  const auto operand = [place] { return std::to_integer<std::size_t>(place[1]); };
  const auto wide = [place]() -> std::size_t { return loadLittle<std::uint16_t>(place + 1); };
  const std::size_t literals = opcode >> 6;
  const std::size_t count = (opcode >> 3 & 7) + leastOfMatch;
  switch (kind) {
    case Kind::shortDistance:
      return {literals, count, (opcode & 7) << 8 | operand()};
    case Kind::mediumDistance:
      return {opcode >> 3 & 3, ((opcode & 7) << 2 | (wide() & 3)) + leastOfMatch, wide() >> 2};
    case Kind::longDistance:
      return {literals, count, wide()};
    case Kind::sameDistance:
      return {literals, count, distance};
    case Kind::longLiterals:
      return {operand() + 16, 0, distance};
    case Kind::shortLiterals:
      return {opcode & 15, 0, distance};
    case Kind::longMatch:
      return {0, operand() + 16, distance};
    case Kind::shortMatch:
      return {0, opcode & 15, distance};
    default:
      return {0, 0, distance};
  }
}

}  // namespace

bool LzvnDecoder::open(Bytes payload, std::size_t plainSize) {
  payload_ = payload;
  plainLeft_ = plainSize;
  distance_ = 0;
  return !payload.empty() && plainSize > 0;
}

bool LzvnDecoder::write(const std::byte* history, std::byte*& place, const std::byte* limit) {
  while (static_cast<std::size_t>(limit - place) >= mostStep) {
    const Kind kind = kinds[std::to_integer<std::size_t>(payload_[0])];
    const std::size_t size = sizeOf(kind);
    if (kind == Kind::undefined || size > payload_.size()) return false;
    if (kind == Kind::end) {
      if (size != payload_.size() || plainLeft_ != 0) return false;
      payload_ = {};
      return true;
    }
    const Instruction instruction = instructionOf(kind, payload_.data(), distance_);
    // Behind each instruction there is one more byte at least.
    if (size + instruction.literals >= payload_.size()) return false;
    if (instruction.literals + instruction.count > plainLeft_) return false;
    plainLeft_ -= instruction.literals + instruction.count;
    std::memcpy(place, payload_.data() + size, instruction.literals);
    place += instruction.literals;
    payload_ = payload_.subspan(size + instruction.literals);
    distance_ = instruction.distance;
    if (kind == Kind::longLiterals || kind == Kind::shortLiterals || kind == Kind::noOperation) {
      continue;
    }
    if (distance_ == 0 || distance_ > static_cast<std::size_t>(place - history)) return false;
    copyMatch(place, distance_, instruction.count);
    place += instruction.count;
  }
  return true;
}

bool LzvnWriter::put(std::initializer_list<std::size_t> bytes, Bytes literals) {
  if (bytes.size() + literals.size() > room_.size()) return false;
  auto to = room_.begin();
  for (const std::size_t byte : bytes) *to++ = static_cast<std::byte>(byte);
  std::ranges::copy(literals, to);
  room_ = room_.subspan(bytes.size() + literals.size());
  return true;
}

// An opcode of 0 to 3 literals and the part of the match that it can hold.
bool LzvnWriter::addOpcode(Bytes literals, std::size_t& count, std::size_t distance) {
  const std::size_t whole = count;
  const std::size_t part = std::min(whole, 10 - 2 * literals.size());
  const std::size_t opcode = literals.size() << 6 | (part - leastOfMatch) << 3;
  count -= part;
  if (distance == distance_) {
    return literals.empty() ? put({0xf0 | part}) : put({opcode | 6}, literals);
  }
  if (distance <= mostShortDistance) {
    return put({opcode | distance >> 8, distance & 0xff}, literals);
  }
  if (distance > mostMediumDistance || count == 0 || whole > mostMediumCount) {
    return put({opcode | 7, distance & 0xff, distance >> 8}, literals);
  }
  count = 0;
  const std::size_t coded = whole - leastOfMatch;
  return put({0xa0 | literals.size() << 3 | coded >> 2, (distance << 2 & 0xff) | (coded & 3),
              distance >> 6},
             literals);
}

bool LzvnWriter::add(Bytes literals, std::size_t count, std::size_t distance) {
  while (literals.size() > mostOfShort) {
    const std::size_t part = std::min(literals.size(), mostOfLong);
    if (!put({0xe0, part - 16}, literals.first(part))) return false;
    literals = literals.subspan(part);
  }
  if (!literals.empty() && (literals.size() > 3 || count == 0)) {
    if (!put({0xe0 | literals.size()}, literals)) return false;
    literals = {};
  }
  if (count == 0) return true;
  if (!addOpcode(literals, count, distance)) return false;
  distance_ = distance;
  while (count > mostOfShort) {
    const std::size_t part = std::min(count, mostOfLong);
    if (!put({0xf0, part - 16})) return false;
    count -= part;
  }
  return count == 0 || put({0xf0 | count});
}

std::size_t LzvnWriter::finish() {
  if (!put({endOpcode, 0, 0, 0, 0, 0, 0, 0})) return 0;
  return static_cast<std::size_t>(room_.data() - begin_);
}

}  // namespace tolvanite::detail::lzfse
