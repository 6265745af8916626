#include <Tolvanite/Compression/detail/LzfseBlockDecoder.h>

#include <Tolvanite/Compression/detail/BitStrings.h>

namespace tolvanite::detail::lzfse {

namespace {

using Bytes = std::span<const std::byte>;

// A state lies in its table, since a used table's frequencies sum to the number of its states.
inline std::uint32_t takeValue(const ValueEntry& entry, BitWindow& bits, std::uint32_t& state) {
  const std::uint32_t both = bits.take(entry.bits);
  state = entry.stateBase + (both >> entry.extraBits);
  return static_cast<std::uint32_t>(entry.valueBase) +
         (both & ((std::uint32_t{1} << entry.extraBits) - 1));
}

}  // namespace

bool BlockDecoder::open(const Header& header, Bytes block) {
  nextLiteral_ = literals_.data();
  next_ = end_ = triplets_.data();
  const Bytes literals = block.subspan(header.headerSize, header.literalPayloadSize);
  const Bytes triplets =
      block.subspan(header.headerSize + header.literalPayloadSize, header.tripletPayloadSize);
  return makeTables(header) && readLiterals(header, literals) && readTriplets(header, triplets);
}

bool BlockDecoder::makeTables(const Header& header) {
  const Frequencies& frequencies = header.frequencies;
  const auto isSum = [](std::span<const std::uint16_t> table, std::size_t states, bool isUsed) {
    const std::uint32_t sum = sumOf(table);
    return sum == states || (sum < states && !isUsed);
  };
  const bool hasTriplets = header.tripletCount > 0;
  if (!isSum(frequencies.literal, literalStates, header.literalCount > 0) ||
      !isSum(frequencies.l, lengthStates, hasTriplets) ||
      !isSum(frequencies.m, lengthStates, hasTriplets) ||
      !isSum(frequencies.d, distanceStates, hasTriplets)) {
    return false;
  }
  makeLiteralTable(frequencies.literal, literalTable_);
  makeValueTable(frequencies.l, codeOfL, lTable_);
  makeValueTable(frequencies.m, codeOfM, mTable_);
  makeValueTable(frequencies.d, codeOfD, dTable_);
  return true;
}

bool BlockDecoder::readLiterals(const Header& header, Bytes payload) {
  BackwardBits bits;
  if (!bits.open(payload, -header.literalBits)) return false;
  std::array<std::uint32_t, 4> state{};
  for (std::size_t i = 0; i < 4; ++i) state[i] = header.literalState[i];
  std::byte* const literals = literals_.data();
  for (std::size_t i = 0; i < header.literalCount; i += 4) {
    // At most 40 bits.
    BitWindow window = bits.window();
    const LiteralEntry entry0 = literalTable_[state[0]];
    const LiteralEntry entry1 = literalTable_[state[1]];
    const LiteralEntry entry2 = literalTable_[state[2]];
    const LiteralEntry entry3 = literalTable_[state[3]];
    literals[i] = std::byte{entry0.literal};
    literals[i + 1] = std::byte{entry1.literal};
    literals[i + 2] = std::byte{entry2.literal};
    literals[i + 3] = std::byte{entry3.literal};
    state[0] = entry0.base + window.take(entry0.bits);
    state[1] = entry1.base + window.take(entry1.bits);
    state[2] = entry2.base + window.take(entry2.bits);
    state[3] = entry3.base + window.take(entry3.bits);
    const unsigned count = unsigned{entry0.bits} + entry1.bits + entry2.bits + entry3.bits;
    if (!bits.consume(count)) return false;
  }
  return true;
}

bool BlockDecoder::readTriplets(const Header& header, Bytes payload) {
  BackwardBits bits;
  if (!bits.open(payload, -header.tripletBits)) return false;
  std::uint32_t lState = header.lState;
  std::uint32_t mState = header.mState;
  std::uint32_t dState = header.dState;
  std::uint32_t distance = 0;
  std::uint32_t literalCount = 0;
  std::uint32_t matchedCount = 0;
  for (std::uint32_t i = 0; i < header.tripletCount; ++i) {
    // At most 54 bits.
    BitWindow window = bits.window();
    const ValueEntry lEntry = lTable_[lState];
    const ValueEntry mEntry = mTable_[mState];
    const ValueEntry dEntry = dTable_[dState];
    const std::uint32_t l = takeValue(lEntry, window, lState);
    const std::uint32_t m = takeValue(mEntry, window, mState);
    const std::uint32_t d = takeValue(dEntry, window, dState);
    distance = d != 0 ? d : distance;
    triplets_[i] = {static_cast<std::uint16_t>(l), static_cast<std::uint16_t>(m), distance};
    literalCount += l;
    matchedCount += m;
    if (!bits.consume(unsigned{lEntry.bits} + mEntry.bits + dEntry.bits)) return false;
  }
  end_ = triplets_.data() + header.tripletCount;
  return literalCount <= header.literalCount && literalCount + matchedCount == header.plainSize;
}

bool BlockDecoder::write(const std::byte* history, std::byte*& place, const std::byte* limit) {
  std::byte* to = place;
  const std::byte* literal = nextLiteral_;
  const Triplet* next = next_;
  while (next != end_ && static_cast<std::size_t>(limit - to) >= mostStep) {
    const Triplet triplet = *next++;
    copyRun(to, literal, triplet.l);
    literal += triplet.l;
    to += triplet.l;
    // A distance of 0, where no triplet had one yet, becomes the largest number.
    if (std::size_t{triplet.d} - 1 >= static_cast<std::size_t>(to - history)) return false;
    copyMatch(to, triplet.d, triplet.m);
    to += triplet.m;
  }
  place = to;
  nextLiteral_ = literal;
  next_ = next;
  return true;
}

}  // namespace tolvanite::detail::lzfse
