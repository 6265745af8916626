#include <Tolvanite/Compression/detail/LzfseBlockDecoder.h>

#include <algorithm>

#include <Tolvanite/Compression/detail/BitStrings.h>

namespace tolvanite::detail::lzfse {

namespace {

using Bytes = std::span<const std::byte>;

// States lie in their tables, since the frequencies of a used table sum to the number of its
// states.

// Reads literals in groups of four.
template <typename Machine>
class LiteralReader {
 public:
  static constexpr std::size_t group = 4;

  explicit LiteralReader(const LiteralEntry* table) : table_(table) {}

  bool open(const Header& header, Bytes payload) {
    entry0_ = table_[header.literalState[0]];
    entry1_ = table_[header.literalState[1]];
    entry2_ = table_[header.literalState[2]];
    entry3_ = table_[header.literalState[3]];
    return bits_.open(payload, -header.literalBits);
  }

  // False if the payload has no more bits.
  [[gnu::always_inline]] bool read(std::byte* literals) {
    literals[0] = take(entry0_);
    literals[1] = take(entry1_);
    literals[2] = take(entry2_);
    literals[3] = take(entry3_);
    return bits_.refill();
  }

  // How many times reading is sure to find enough bits. A literal takes 10 at most.
  std::size_t sureReads() const { return bits_.sureRefills(group * 10); }

 private:
  [[gnu::always_inline]] std::byte take(std::uint64_t& entry) {
    const auto literal = static_cast<std::byte>(entry >> 8);
    entry = table_[(entry >> 16) + bits_.take(entry)];
    return literal;
  }

  const LiteralEntry* table_;
  BackwardBits<Machine> bits_;
  // Of the four states. In 64 bits, to need no widening.
  std::uint64_t entry0_ = 0;
  std::uint64_t entry1_ = 0;
  std::uint64_t entry2_ = 0;
  std::uint64_t entry3_ = 0;
};

template <typename Machine>
class TripletReader {
 public:
  TripletReader(const ValueEntry* lTable, const ValueEntry* mTable, const ValueEntry* dTable)
      : lTable_(lTable), mTable_(mTable), dTable_(dTable) {}

  bool open(const Header& header, Bytes payload) {
    lEntry_ = lTable_[header.lState];
    mEntry_ = mTable_[header.mState];
    dEntry_ = dTable_[header.dState];
    return bits_.open(payload, -header.tripletBits);
  }

  // False if the payload has no more bits.
  [[gnu::always_inline]] bool read(Triplet& triplet) {
    triplet.l = static_cast<std::uint16_t>(take(lTable_, lEntry_));
    triplet.m = static_cast<std::uint16_t>(take(mTable_, mEntry_));
    const std::uint32_t d = take(dTable_, dEntry_);
    distance_ = d != 0 ? d : distance_;
    triplet.d = distance_;
    return bits_.refill();
  }

  // How many times reading is sure to find enough bits, of which an L, M and D take so many at
  // most.
  std::size_t sureReads() const { return bits_.sureRefills(14 + 17 + 23); }

 private:
  [[gnu::always_inline]] std::uint32_t take(const ValueEntry* table, ValueEntry& entry) {
    const ValueEntry taken = entry;
    const ValueEntry extraBits = taken >> 8;
    const std::uint64_t bits = bits_.take(taken);
    entry = table[(taken >> 48) + (bits >> (extraBits & 63))];
    return static_cast<std::uint32_t>(taken >> 16) +
           static_cast<std::uint32_t>(Machine::lowest(bits, extraBits));
  }

  const ValueEntry* lTable_;
  const ValueEntry* mTable_;
  const ValueEntry* dTable_;
  BackwardBits<Machine> bits_;
  ValueEntry lEntry_ = 0;
  ValueEntry mEntry_ = 0;
  ValueEntry dEntry_ = 0;
  std::uint32_t distance_ = 0;
};

}  // namespace

bool BlockDecoder::open(const Header& header, Bytes block) {
  nextLiteral_ = literals_.data();
  next_ = end_ = triplets_.data();
  if (!makeTables(header) || !readPayloads(header, block)) return false;
  literalsEnd_ = nextLiteral_ + header.literalCount;
  end_ = next_ + header.tripletCount;
  plainLeft_ = header.plainSize;
  return next_ != end_ || plainLeft_ == 0;
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
template <typename Machine>
[[gnu::always_inline]] inline bool BlockDecoder::readPayloadsInline(const Header& header,
                                                                    Bytes block) {
  const Bytes payloads = block.subspan(header.headerSize);
  LiteralReader<Machine> literals(literalTable_.data());
  TripletReader<Machine> triplets(lTable_.data(), mTable_.data(), dTable_.data());
  if (!literals.open(header, payloads.first(header.literalPayloadSize)) ||
      !triplets.open(header,
                     payloads.subspan(header.literalPayloadSize, header.tripletPayloadSize))) {
    return false;
  }

  constexpr std::size_t group = LiteralReader<Machine>::group;
  std::byte* literal = literals_.data();
  Triplet* triplet = triplets_.data();
  std::size_t groupsLeft = header.literalCount / group;
  std::size_t tripletsLeft = header.tripletCount;
  // While neither can run out of bits, which need not be looked at then: a step of two triplets and
  // four groups. The sure ones become more as bits are left over.
  while (const std::size_t steps = std::min({tripletsLeft / 2, groupsLeft / 4,
                                             triplets.sureReads() / 2, literals.sureReads() / 4})) {
    for (std::size_t step = 0; step < steps; ++step, triplet += 2, literal += 4 * group) {
      triplets.read(triplet[0]);
      triplets.read(triplet[1]);
      literals.read(literal);
      literals.read(literal + group);
      literals.read(literal + 2 * group);
      literals.read(literal + 3 * group);
    }
    tripletsLeft -= 2 * steps;
    groupsLeft -= 4 * steps;
  }
  for (; tripletsLeft > 0; --tripletsLeft, ++triplet) {
    if (!triplets.read(*triplet)) return false;
  }
  for (; groupsLeft > 0; --groupsLeft, literal += group) {
    if (!literals.read(literal)) return false;
  }
  return true;
}

#if defined(__x86_64__)
// Most of the work is shifts, for which newer processors have instructions that take the count from
// any register.
[[gnu::target("bmi,bmi2")]] bool BlockDecoder::readPayloadsByBmi2(const Header& header,
                                                                  Bytes block) {
  return readPayloadsInline<Bmi2Machine>(header, block);
}

bool BlockDecoder::readPayloads(const Header& header, Bytes block) {
  return __builtin_cpu_supports("bmi2") != 0 ? readPayloadsByBmi2(header, block)
                                             : readPayloadsInline<PlainMachine>(header, block);
}
#else
bool BlockDecoder::readPayloads(const Header& header, Bytes block) {
  return readPayloadsInline<PlainMachine>(header, block);
}
#endif

bool BlockDecoder::write(const std::byte* history, std::byte*& place, const std::byte* limit) {
  std::byte* to = place;
  const std::byte* literal = nextLiteral_;
  const std::byte* const literalsEnd = literalsEnd_;
  const Triplet* next = next_;
  const Triplet* const end = end_;
  while (next != end && static_cast<std::size_t>(limit - to) >= mostStep) {
    const Triplet triplet = *next++;
    if (triplet.l > literalsEnd - literal) return false;
    copyRun(to, literal, triplet.l);
    literal += triplet.l;
    to += triplet.l;
    // A distance of 0, where no triplet had one yet, becomes the largest number.
    if (std::size_t{triplet.d} - 1 >= static_cast<std::size_t>(to - history)) return false;
    copyMatch(to, triplet.d, triplet.m);
    to += triplet.m;
  }
  const auto written = static_cast<std::size_t>(to - place);
  if (written > plainLeft_) return false;
  plainLeft_ -= written;
  place = to;
  nextLiteral_ = literal;
  next_ = next;
  return !isFinished() || plainLeft_ == 0;
}

}  // namespace tolvanite::detail::lzfse
