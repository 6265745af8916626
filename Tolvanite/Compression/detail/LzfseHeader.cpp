#include <Tolvanite/Compression/detail/LzfseHeader.h>

#include <algorithm>

#include <Tolvanite/Compression/detail/LittleEndian.h>

namespace tolvanite::detail::lzfse {

namespace {

using Bytes = std::span<const std::byte>;

// `count` bits of a word, from bit `first`.
constexpr std::uint32_t bitsOf(std::uint64_t word, unsigned first, unsigned count) {
  return static_cast<std::uint32_t>((word >> first) & ((std::uint64_t{1} << count) - 1));
}

// Visits the four tables in their order in the stream.
template <typename Tables, typename Visit>
void forEachTable(Tables& tables, Visit visit) {
  visit(tables.l);
  visit(tables.m);
  visit(tables.d);
  visit(tables.literal);
}

// The code of a frequency: the number of ones it begins with, from the lowest bit, tells its
// length.
struct FrequencyCode {
  std::uint32_t bits;
  unsigned length;
};

constexpr FrequencyCode codeOf(std::uint32_t frequency) {
  if (frequency < 2) return {frequency << 1, 2};
  if (frequency < 4) return {((frequency - 2) << 2) | 0b01, 3};
  if (frequency < 8) return {((frequency - 4) << 3) | 0b011, 5};
  if (frequency < 24) return {((frequency - 8) << 4) | 0b0111, 8};
  return {((frequency - 24) << 4) | 0b1111, 14};
}

// The frequency that the low bits of `bits` begin with, and the length of its code.
constexpr FrequencyCode frequencyOf(std::uint32_t bits) {
  if ((bits & 0b1) == 0) return {bitsOf(bits, 1, 1), 2};
  if ((bits & 0b10) == 0) return {2 + bitsOf(bits, 2, 1), 3};
  if ((bits & 0b100) == 0) return {4 + bitsOf(bits, 3, 2), 5};
  if ((bits & 0b1000) == 0) return {8 + bitsOf(bits, 4, 4), 8};
  return {24 + bitsOf(bits, 4, 10), 14};
}

// False if a code passes the end or a whole byte is left behind the last one.
bool readFrequencies(Bytes coded, Frequencies& frequencies) {
  std::size_t next = 0;
  std::uint32_t bits = 0;
  unsigned held = 0;
  bool isWhole = true;
  forEachTable(frequencies, [&](auto& table) {
    for (std::uint16_t& frequency : table) {
      while (held < 16 && next < coded.size()) {
        bits |= std::to_integer<std::uint32_t>(coded[next++]) << held;
        held += 8;
      }
      const FrequencyCode read = frequencyOf(bits);
      isWhole = isWhole && read.length <= held;
      if (!isWhole) return;
      frequency = static_cast<std::uint16_t>(read.bits);
      bits >>= read.length;
      held -= read.length;
    }
  });
  return isWhole && held < 8 && next == coded.size();
}

bool isInRange(const Header& header) {
  const auto isBits = [](std::int32_t bits) { return -7 <= bits && bits <= 0; };
  const auto hasBits = [](std::uint32_t size, std::int32_t bits) { return size > 0 || bits == 0; };
  return header.literalCount <= mostLiterals && header.tripletCount <= mostTriplets &&
         header.literalCount % 4 == 0 && isBits(header.literalBits) && isBits(header.tripletBits) &&
         hasBits(header.literalPayloadSize, header.literalBits) &&
         header.tripletPayloadSize >= tripletPadding &&
         std::ranges::all_of(header.literalState,
                             [](std::uint16_t state) { return state < literalStates; }) &&
         header.lState < lengthStates && header.mState < lengthStates &&
         header.dState < distanceStates;
}

}  // namespace

bool readPlainTablesHeader(Bytes block, Header& header) {
  if (block.size() < plainTablesHeaderSize) return false;
  const std::byte* next = block.data() + 4;
  const auto take = [&next]<typename Number>(Number& number) {
    number = loadLittle<Number>(next);
    next += sizeof number;
  };
  std::uint32_t sumOfPayloadSizes = 0;  // of no use, since both are there
  take(header.plainSize);
  take(sumOfPayloadSizes);
  take(header.literalCount);
  take(header.tripletCount);
  take(header.literalPayloadSize);
  take(header.tripletPayloadSize);
  take(header.literalBits);
  for (std::uint16_t& state : header.literalState) take(state);
  take(header.tripletBits);
  take(header.lState);
  take(header.mState);
  take(header.dState);
  forEachTable(header.frequencies, [&](auto& table) {
    for (std::uint16_t& frequency : table) take(frequency);
  });
  header.headerSize = plainTablesHeaderSize;
  return header.blockSize() <= block.size() && isInRange(header);
}

bool readCodedTablesHeader(Bytes block, Header& header) {
  if (block.size() < fixedHeaderSize) return false;
  header.plainSize = loadLittle<std::uint32_t>(block.data() + 4);
  const auto first = loadLittle<std::uint64_t>(block.data() + 8);
  const auto second = loadLittle<std::uint64_t>(block.data() + 16);
  const auto third = loadLittle<std::uint64_t>(block.data() + 24);
  header.literalCount = bitsOf(first, 0, 20);
  header.literalPayloadSize = bitsOf(first, 20, 20);
  header.tripletCount = bitsOf(first, 40, 20);
  header.literalBits = static_cast<std::int32_t>(bitsOf(first, 60, 3)) - 7;
  for (unsigned i = 0; i < 4; ++i) {
    header.literalState[i] = static_cast<std::uint16_t>(bitsOf(second, 10 * i, 10));
  }
  header.tripletPayloadSize = bitsOf(second, 40, 20);
  header.tripletBits = static_cast<std::int32_t>(bitsOf(second, 60, 3)) - 7;
  header.headerSize = bitsOf(third, 0, 32);
  header.lState = static_cast<std::uint16_t>(bitsOf(third, 32, 10));
  header.mState = static_cast<std::uint16_t>(bitsOf(third, 42, 10));
  header.dState = static_cast<std::uint16_t>(bitsOf(third, 52, 10));
  header.frequencies = {};
  if (header.headerSize < fixedHeaderSize || header.blockSize() > block.size()) return false;
  // A header without tables has frequencies of 0 only.
  const Bytes coded = block.subspan(fixedHeaderSize, header.headerSize - fixedHeaderSize);
  return isInRange(header) && (coded.empty() || readFrequencies(coded, header.frequencies));
}

std::size_t writeCodedTablesHeader(const Header& header, std::byte* place) {
  std::byte* next = place + fixedHeaderSize;
  std::uint64_t bits = 0;
  unsigned held = 0;
  forEachTable(header.frequencies, [&](const auto& table) {
    for (const std::uint16_t frequency : table) {
      const FrequencyCode code = codeOf(frequency);
      bits |= std::uint64_t{code.bits} << held;
      held += code.length;
      storeLittle(next, bits);
      next += held / 8;
      bits >>= held / 8 * 8;
      held %= 8;
    }
  });
  if (held > 0) ++next;
  const auto headerSize = static_cast<std::size_t>(next - place);

  const auto paddingOf = [](std::int32_t field) -> std::uint64_t {
    return static_cast<std::uint32_t>(field + 7);
  };
  std::uint64_t second =
      std::uint64_t{header.tripletPayloadSize} << 40 | paddingOf(header.tripletBits) << 60;
  for (unsigned i = 0; i < 4; ++i) second |= std::uint64_t{header.literalState[i]} << (10 * i);
  storeLittle(place, codedTablesMagic);
  storeLittle(place + 4, header.plainSize);
  storeLittle(place + 8,
              std::uint64_t{header.literalCount} | std::uint64_t{header.literalPayloadSize} << 20 |
                  std::uint64_t{header.tripletCount} << 40 | paddingOf(header.literalBits) << 60);
  storeLittle(place + 16, second);
  storeLittle(place + 24, std::uint64_t{headerSize} | std::uint64_t{header.lState} << 32 |
                              std::uint64_t{header.mState} << 42 |
                              std::uint64_t{header.dState} << 52);
  return headerSize;
}

bool readSizes(Bytes block, std::uint64_t& blockSize, std::uint64_t& plainSize) {
  if (block.size() < fixedHeaderSize) return false;
  plainSize = loadLittle<std::uint32_t>(block.data() + 4);
  if (loadLittle<std::uint32_t>(block.data()) == plainTablesMagic) {
    blockSize = plainTablesHeaderSize +
                std::uint64_t{loadLittle<std::uint32_t>(block.data() + 20)} +
                loadLittle<std::uint32_t>(block.data() + 24);
  } else {
    const std::uint64_t headerSize = loadLittle<std::uint32_t>(block.data() + 24);
    if (headerSize < fixedHeaderSize) return false;
    blockSize = headerSize + bitsOf(loadLittle<std::uint64_t>(block.data() + 8), 20, 20) +
                bitsOf(loadLittle<std::uint64_t>(block.data() + 16), 40, 20);
  }
  return true;
}

}  // namespace tolvanite::detail::lzfse
