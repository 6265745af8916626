#include <Tolvanite/Compression/detail/LzfseBlockWriter.h>

#include <algorithm>
#include <bit>
#include <cstring>

#include <Tolvanite/Compression/detail/BitStrings.h>
#include <Tolvanite/Compression/detail/LittleEndian.h>
#include <Tolvanite/Compression/detail/LzvnBlock.h>

namespace tolvanite::detail::lzfse {

namespace {

using Bytes = std::span<const std::byte>;

// A literal takes 10 bits at most, a triplet 54.
constexpr std::size_t mostBlockSize =
    mostHeaderSize + mostLiterals * 10 / 8 + tripletPadding + mostTriplets * 54 / 8;

// What writing may overwrite behind its end.
constexpr std::size_t writerSlack = 16;

// Blocks up to this size are tried as LZVN as well.
constexpr std::size_t mostLzvnSize = 4096;

template <std::size_t count, std::uint32_t most>
constexpr auto symbolsOf(const ValueCode<count>& code) {
  std::array<std::uint8_t, most + 1> result{};
  for (std::size_t symbol = 0; symbol < count; ++symbol) {
    const std::size_t first = code.base[symbol];
    for (std::size_t i = 0; i < std::size_t{1} << code.extraBits[symbol]; ++i) {
      result[first + i] = static_cast<std::uint8_t>(symbol);
    }
  }
  return result;
}

constexpr auto symbolsOfL = symbolsOf<lengthSymbols, mostL>(codeOfL);
constexpr auto symbolsOfM = symbolsOf<lengthSymbols, mostM>(codeOfM);

std::size_t symbolOfD(std::uint32_t d) {
  // Of d + 4, the bits below the leading one tell the symbol and the extra bits.
  const std::uint32_t shifted = d + 4;
  const auto extraBits = static_cast<unsigned>(std::bit_width(shifted)) - 3;
  return extraBits * 4 + (shifted >> extraBits & 3);
}

inline void encode(BitWriter& bits, std::uint32_t& state, const EncoderEntry& entry) {
  const std::uint32_t count = (state + entry.bitsStep) >> 16;
  bits.add(state & lowBits[count], count);
  state = (state >> count) + entry.stateStep;
}

template <std::size_t count>
void encodeValue(BitWriter& bits, std::uint32_t& state, std::uint32_t value, std::size_t symbol,
                 const ValueCode<count>& code, const std::array<EncoderEntry, count>& table) {
  bits.add(value - code.base[symbol], code.extraBits[symbol]);
  encode(bits, state, table[symbol]);
}

void replace(std::vector<std::byte>& bytes, std::size_t first, Bytes by) {
  bytes.resize(first);
  bytes.insert(bytes.end(), by.begin(), by.end());
}

}  // namespace

void BlockWriter::start(const std::byte* text) {
  text_ = text;
  plainSize_ = literalCount_ = tripletCount_ = 0;
}

bool BlockWriter::addTriplet(std::size_t l, std::size_t m, std::size_t d) {
  if (tripletCount_ == mostTriplets || literalCount_ + l > mostLiterals) return false;
  std::memcpy(literals_.data() + literalCount_, text_ + plainSize_, l);
  triplets_[tripletCount_++] = {static_cast<std::uint16_t>(l), static_cast<std::uint16_t>(m),
                                static_cast<std::uint32_t>(d)};
  literalCount_ += l;
  plainSize_ += l + m;
  return true;
}

bool BlockWriter::add(Sequence& sequence) {
  while (sequence.literalCount > 0 || sequence.count > 0) {
    const std::size_t l = std::min<std::size_t>(sequence.literalCount, mostL);
    const std::size_t m =
        l == sequence.literalCount ? std::min<std::size_t>(sequence.count, mostM) : 0;
    // Without a match, the distance that needs the fewest bits; 1 is always there to go back.
    const std::size_t before = tripletCount_ > 0 ? triplets_[tripletCount_ - 1].d : 1;
    if (!addTriplet(l, m, m > 0 ? sequence.distance : before)) return false;
    sequence.literalCount -= l;
    sequence.count -= m;
  }
  return true;
}

void BlockWriter::write(std::vector<std::byte>& output) {
  const std::size_t first = output.size();
  output.resize(first + mostBlockSize + writerSlack);
  output.resize(first + writeMatches(output.data() + first));

  if (plainSize_ <= mostLzvnSize) {
    std::array<std::byte, mostLzvnSize> block;
    const std::size_t size = writeLzvn(std::span(block).first(plainSize_));
    if (size > 0 && size < output.size() - first) replace(output, first, Bytes(block).first(size));
  }
  if (output.size() - first >= storedHeaderSize + plainSize_) {
    std::array<std::byte, storedHeaderSize> header;
    storeLittle(header.data(), storedMagic);
    storeLittle(header.data() + 4, static_cast<std::uint32_t>(plainSize_));
    replace(output, first, header);
    output.insert(output.end(), text_, text_ + plainSize_);
  }
}

std::size_t BlockWriter::writeLzvn(std::span<std::byte> room) const {
  if (room.size() < lzvnHeaderSize) return 0;
  LzvnWriter writer(room.subspan(lzvnHeaderSize));
  const std::byte* literal = literals_.data();
  for (const Triplet& triplet : std::span(triplets_).first(tripletCount_)) {
    constexpr std::size_t mostLzvnDistance = 65535;
    if (triplet.d > mostLzvnDistance) return 0;
    if (!writer.add({literal, triplet.l}, triplet.m, triplet.d)) return 0;
    literal += triplet.l;
  }
  const std::size_t payloadSize = writer.finish();
  if (payloadSize == 0) return 0;
  storeLittle(room.data(), lzvnMagic);
  storeLittle(room.data() + 4, static_cast<std::uint32_t>(plainSize_));
  storeLittle(room.data() + 8, static_cast<std::uint32_t>(payloadSize));
  return lzvnHeaderSize + payloadSize;
}

// Makes the header's frequencies and the tables. A distance of before is coded as 0.
void BlockWriter::countSymbols() {
  std::array<std::uint32_t, lengthSymbols> l{};
  std::array<std::uint32_t, lengthSymbols> m{};
  std::array<std::uint32_t, distanceSymbols> d{};
  std::array<std::uint32_t, literalSymbols> literal{};
  std::uint32_t before = 0;
  for (const Triplet& triplet : std::span(triplets_).first(tripletCount_)) {
    ++l[symbolsOfL[triplet.l]];
    ++m[symbolsOfM[triplet.m]];
    ++d[triplet.d == before ? 0 : symbolOfD(triplet.d)];
    before = triplet.d;
  }
  for (const std::byte byte : std::span(literals_).first(literalCount_)) {
    ++literal[std::to_integer<std::size_t>(byte)];
  }
  Frequencies& frequencies = header_.frequencies;
  scaleToStates(l, lengthStates, frequencies.l);
  scaleToStates(m, lengthStates, frequencies.m);
  scaleToStates(d, distanceStates, frequencies.d);
  scaleToStates(literal, literalStates, frequencies.literal);
  makeEncoderTable(frequencies.l, lengthStates, lTable_);
  makeEncoderTable(frequencies.m, lengthStates, mTable_);
  makeEncoderTable(frequencies.d, distanceStates, dTable_);
  makeEncoderTable(frequencies.literal, literalStates, literalTable_);
}

std::size_t BlockWriter::writeMatches(std::byte* place) {
  while (literalCount_ % 4 != 0) literals_[literalCount_++] = std::byte{0};
  countSymbols();
  header_.plainSize = static_cast<std::uint32_t>(plainSize_);
  header_.literalCount = static_cast<std::uint32_t>(literalCount_);
  header_.tripletCount = static_cast<std::uint32_t>(tripletCount_);

  // The header's size follows from the frequencies alone, so it is written twice.
  std::byte* const literals = place + writeCodedTablesHeader(header_, place);
  std::byte* const triplets = writeLiterals(literals);
  std::byte* const end = writeTriplets(triplets);
  header_.literalPayloadSize = static_cast<std::uint32_t>(triplets - literals);
  header_.tripletPayloadSize = static_cast<std::uint32_t>(end - triplets);
  // The second time, the 8 bytes behind the header are to stay.
  const auto behind = loadLittle<std::uint64_t>(literals);
  writeCodedTablesHeader(header_, place);
  storeLittle(literals, behind);
  if (literalCount_ > 0) {
    literalCost_ = static_cast<int>(std::size_t{header_.literalPayloadSize} * 64 / literalCount_);
  }
  return static_cast<std::size_t>(end - place);
}

std::byte* BlockWriter::writeLiterals(std::byte* place) {
  BitWriter bits(place);
  std::array<std::uint32_t, 4> state;
  state.fill(literalStates);
  for (std::size_t i = literalCount_; i > 0; i -= 4) {
    for (std::size_t j = 4; j-- > 0;) {
      encode(bits, state[j], literalTable_[std::to_integer<std::size_t>(literals_[i - 4 + j])]);
    }
    bits.flush();
  }
  header_.literalBits = -bits.finish();
  for (std::size_t j = 0; j < 4; ++j)
    header_.literalState[j] = static_cast<std::uint16_t>(state[j] - literalStates);
  return bits.place();
}

std::byte* BlockWriter::writeTriplets(std::byte* place) {
  storeLittle(place, std::uint64_t{0});
  BitWriter bits(place + tripletPadding);
  std::uint32_t lState = lengthStates;
  std::uint32_t mState = lengthStates;
  std::uint32_t dState = distanceStates;
  for (std::size_t i = tripletCount_; i-- > 0;) {
    const Triplet& triplet = triplets_[i];
    const std::uint32_t d = i > 0 && triplets_[i - 1].d == triplet.d ? 0 : triplet.d;
    encodeValue(bits, dState, d, symbolOfD(d), codeOfD, dTable_);
    encodeValue(bits, mState, triplet.m, symbolsOfM[triplet.m], codeOfM, mTable_);
    encodeValue(bits, lState, triplet.l, symbolsOfL[triplet.l], codeOfL, lTable_);
    bits.flush();
  }
  header_.tripletBits = -bits.finish();
  header_.lState = static_cast<std::uint16_t>(lState - lengthStates);
  header_.mState = static_cast<std::uint16_t>(mState - lengthStates);
  header_.dState = static_cast<std::uint16_t>(dState - distanceStates);
  return bits.place();
}

}  // namespace tolvanite::detail::lzfse
