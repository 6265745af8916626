#include <Tolvanite/Compression/detail/LzfseBlockDecoder.h>

#include <algorithm>

#include <Tolvanite/Compression/detail/BitStrings.h>

namespace tolvanite::detail::lzfse {

namespace {

using Bytes = std::span<const std::byte>;

// States lie in their tables, since the frequencies of a used table sum to the number of its
// states.

// Reads literals in groups of four.
class LiteralReader {
 public:
  static constexpr std::size_t group = 4;

  explicit LiteralReader(const LiteralEntry* table) : table_(table) {}

  bool open(const Header& header, Bytes payload) {
    state0_ = header.literalState[0];
    state1_ = header.literalState[1];
    state2_ = header.literalState[2];
    state3_ = header.literalState[3];
    return bits_.open(payload, -header.literalBits);
  }

  // False if the payload has no more bits.
  [[gnu::always_inline]] bool read(std::byte* literals) {
    // At most 40 bits.
    literals[0] = take(state0_);
    literals[1] = take(state1_);
    literals[2] = take(state2_);
    literals[3] = take(state3_);
    return bits_.refill();
  }

 private:
  [[gnu::always_inline]] std::byte take(std::uint32_t& state) {
    const LiteralEntry& entry = table_[state];
    state = entry.base + bits_.take(entry.bits);
    return entry.literal;
  }

  const LiteralEntry* table_;
  BackwardBits bits_;
  std::uint32_t state0_ = 0;
  std::uint32_t state1_ = 0;
  std::uint32_t state2_ = 0;
  std::uint32_t state3_ = 0;
};

class TripletReader {
 public:
  TripletReader(const ValueEntry* lTable, const ValueEntry* mTable, const ValueEntry* dTable)
      : lTable_(lTable), mTable_(mTable), dTable_(dTable) {}

  bool open(const Header& header, Bytes payload) {
    lState_ = header.lState;
    mState_ = header.mState;
    dState_ = header.dState;
    return bits_.open(payload, -header.tripletBits);
  }

  // False if the payload has no more bits.
  [[gnu::always_inline]] bool read(Triplet& triplet) {
    // At most 54 bits.
    triplet.l = static_cast<std::uint16_t>(take(lTable_, lState_));
    triplet.m = static_cast<std::uint16_t>(take(mTable_, mState_));
    const std::uint32_t d = take(dTable_, dState_);
    distance_ = d != 0 ? d : distance_;
    triplet.d = distance_;
    return bits_.refill();
  }

 private:
  [[gnu::always_inline]] std::uint32_t take(const ValueEntry* table, std::uint32_t& state) {
    const ValueEntry& entry = table[state];
    state = entry.stateBase + bits_.take(entry.stateBits);
    return entry.valueBase + bits_.take(entry.extraBits);
  }

  const ValueEntry* lTable_;
  const ValueEntry* mTable_;
  const ValueEntry* dTable_;
  BackwardBits bits_;
  std::uint32_t lState_ = 0;
  std::uint32_t mState_ = 0;
  std::uint32_t dState_ = 0;
  std::uint32_t distance_ = 0;
};

}  // namespace

bool BlockDecoder::open(const Header& header, Bytes block) {
  nextLiteral_ = literals_.data();
  next_ = end_ = triplets_.data();
  if (!makeTables(header) || !readPayloads(header, block)) return false;
  end_ = triplets_.data() + header.tripletCount;
  std::uint32_t literalCount = 0;
  std::uint32_t matchedCount = 0;
  for (const Triplet& triplet : std::span(next_, end_)) {
    literalCount += triplet.l;
    matchedCount += triplet.m;
  }
  return literalCount <= header.literalCount && literalCount + matchedCount == header.plainSize;
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

// Each reader waits for its tables most of the time, so both are run side by side, without a branch
// that depends on what is read.
[[gnu::always_inline]] inline bool BlockDecoder::readPayloadsInline(const Header& header,
                                                                    Bytes block) {
  const Bytes payloads = block.subspan(header.headerSize);
  LiteralReader literals(literalTable_.data());
  TripletReader triplets(lTable_.data(), mTable_.data(), dTable_.data());
  if (!literals.open(header, payloads.first(header.literalPayloadSize)) ||
      !triplets.open(header,
                     payloads.subspan(header.literalPayloadSize, header.tripletPayloadSize))) {
    return false;
  }

  std::byte* literal = literals_.data();
  const std::byte* const literalsEnd = literal + header.literalCount;
  Triplet* triplet = triplets_.data();
  const Triplet* const tripletsEnd = triplet + header.tripletCount;
  constexpr std::size_t side = 2 * LiteralReader::group;
  while (triplet != tripletsEnd && static_cast<std::size_t>(literalsEnd - literal) >= side) {
    if (!triplets.read(*triplet) || !literals.read(literal) ||
        !literals.read(literal + LiteralReader::group)) {
      return false;
    }
    ++triplet;
    literal += side;
  }
  for (; triplet != tripletsEnd; ++triplet) {
    if (!triplets.read(*triplet)) return false;
  }
  for (; literal != literalsEnd; literal += LiteralReader::group) {
    if (!literals.read(literal)) return false;
  }
  return true;
}

#if defined(__x86_64__)
// Most of the work is shifts, for which newer processors have instructions that take the count from
// any register.
[[gnu::target("bmi,bmi2")]] bool BlockDecoder::readPayloadsByBmi2(const Header& header,
                                                                  Bytes block) {
  return readPayloadsInline(header, block);
}

bool BlockDecoder::readPayloads(const Header& header, Bytes block) {
  return __builtin_cpu_supports("bmi2") != 0 ? readPayloadsByBmi2(header, block)
                                             : readPayloadsInline(header, block);
}
#else
bool BlockDecoder::readPayloads(const Header& header, Bytes block) {
  return readPayloadsInline(header, block);
}
#endif

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
