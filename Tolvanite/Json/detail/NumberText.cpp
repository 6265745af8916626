#include <Tolvanite/Json/detail/NumberText.h>

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>

// Floating-point numbers go the way of Raffaele Giulietti's "The Schubfach way to render doubles"
// (2020): one 128-bit power of ten, three products, and the shortest decimal between the
// midpoints to the neighbours is found without a loop.

namespace tolvanite::detail {

namespace {

__extension__ using Wide = unsigned __int128;

struct PowerOfTen {
  std::uint64_t high;
  std::uint64_t low;
};

constexpr int lowestPower = -292;
constexpr int highestPower = 324;
using Powers = std::array<PowerOfTen, highestPower - lowestPower + 1>;

// A natural number of enough bits for 10^324, and for 2^1216 divided by 10^292 in 128 bits.
class Natural {
 public:
  static constexpr int words = 40;

  constexpr explicit Natural(int exponentOfTwo) {
    words_[exponentOfTwo / 32] = 1U << exponentOfTwo % 32;
  }

  constexpr void multiplyByTen() {
    std::uint64_t carry = 0;
    for (auto& word : words_) {
      carry += std::uint64_t{word} * 10;
      word = static_cast<std::uint32_t>(carry);
      carry >>= 32;
    }
  }
  // Rounds down, and so does any row of such divisions as a whole.
  constexpr void divideByTen() {
    std::uint64_t rest = 0;
    for (int i = words - 1; i >= 0; --i) {
      rest = rest << 32 | words_[i];
      words_[i] = static_cast<std::uint32_t>(rest / 10);
      rest %= 10;
    }
  }
  // The highest 128 bits, rounded down and increased by 1 as the method wants it, with the first of
  // them set.
  constexpr PowerOfTen top() const {
    int last = words - 1;
    while (words_[last] == 0) --last;
    const int shift = std::countl_zero(words_[last]);
    const auto word = [&](int back) {
      const int at = last - back;
      const std::uint64_t here = at >= 0 ? words_[at] : 0;
      const std::uint64_t below = at >= 1 ? words_[at - 1] : 0;
      return static_cast<std::uint32_t>((here << 32 | below) >> (32 - shift));
    };
    PowerOfTen result{std::uint64_t{word(0)} << 32 | word(1),
                      std::uint64_t{word(2)} << 32 | word(3)};
    if (++result.low == 0) ++result.high;
    return result;
  }

 private:
  std::uint32_t words_[words] = {};
};

constexpr Powers makePowers() {
  Powers powers{};
  Natural large(0);
  for (int k = 0; k <= highestPower; ++k, large.multiplyByTen()) {
    powers[static_cast<std::size_t>(k - lowestPower)] = large.top();
  }
  Natural small(Natural::words * 32 - 1);
  for (int k = -1; k >= lowestPower; --k) {
    small.divideByTen();
    powers[static_cast<std::size_t>(k - lowestPower)] = small.top();
  }
  return powers;
}

constexpr Powers powers = makePowers();

constexpr int floorLog10OfPowerOfTwo(int e) { return (e * 1262611) >> 22; }
constexpr int floorLog10OfThreeQuartersOfPowerOfTwo(int e) { return (e * 1262611 - 524031) >> 22; }
constexpr int floorLog2OfPowerOfTen(int e) { return (e * 1741647) >> 19; }

// The upper 64 bits of a product of 192, with the lowest of them set if any of the rest is.
std::uint64_t roundToOdd(PowerOfTen power, std::uint64_t factor) {
  const Wide low = Wide{power.low} * factor;
  const Wide high = Wide{power.high} * factor + static_cast<std::uint64_t>(low >> 64);
  return static_cast<std::uint64_t>(high >> 64) | (static_cast<std::uint64_t>(high) > 1 ? 1U : 0U);
}

struct Shortest {
  std::uint64_t digits;
  int exponent;
};

// Of a finite double above 0 that is no integer below 2^53, by the fields of its bits.
Shortest shortest(std::uint64_t fraction, int exponentField) {
  constexpr int bias = 1075;
  const std::uint64_t c = exponentField == 0 ? fraction : fraction | std::uint64_t{1} << 52;
  const int q = exponentField == 0 ? 1 - bias : exponentField - bias;
  // At a power of two the neighbour below is nearer than the one above.
  const bool isLowerCloser = fraction == 0 && exponentField > 1;
  const int k =
      isLowerCloser ? floorLog10OfThreeQuartersOfPowerOfTwo(q) : floorLog10OfPowerOfTwo(q);
  const int h = q + floorLog2OfPowerOfTen(-k) + 1;
  const PowerOfTen power = powers[static_cast<std::size_t>(-k - lowestPower)];
  const std::uint64_t below = roundToOdd(power, (4 * c - 2 + (isLowerCloser ? 1 : 0)) << h);
  const std::uint64_t value = roundToOdd(power, (4 * c) << h);
  const std::uint64_t above = roundToOdd(power, (4 * c + 2) << h);
  // An even number owns the midpoints to its neighbours.
  const std::uint64_t lower = below + (c & 1);
  const std::uint64_t upper = above - (c & 1);
  const std::uint64_t s = value / 4;
  if (s >= 10) {
    const std::uint64_t tens = s / 10;
    const bool isDownInside = lower <= 40 * tens;
    const bool isUpInside = 40 * tens + 40 <= upper;
    if (isDownInside != isUpInside) return {tens + (isUpInside ? 1 : 0), k + 1};
  }
  const bool isDownInside = lower <= 4 * s;
  const bool isUpInside = 4 * s + 4 <= upper;
  if (isDownInside != isUpInside) return {s + (isUpInside ? 1 : 0), k};
  const std::uint64_t middle = 4 * s + 2;
  const bool roundsUp = value > middle || (value == middle && (s & 1) != 0);
  return {s + (roundsUp ? 1 : 0), k};
}

constexpr std::array<char, 200> makePairs() {
  std::array<char, 200> pairs{};
  for (std::size_t i = 0; i < 100; ++i) {
    pairs[2 * i] = static_cast<char>('0' + i / 10);
    pairs[2 * i + 1] = static_cast<char>('0' + i % 10);
  }
  return pairs;
}
constexpr std::array<char, 200> pairs = makePairs();

void writePair(char* out, std::uint32_t value) { std::memcpy(out, &pairs[2 * value], 2); }

void writeEight(char* out, std::uint32_t value) {
  const std::uint32_t high = value / 10000;
  const std::uint32_t low = value % 10000;
  writePair(out, high / 100);
  writePair(out + 2, high % 100);
  writePair(out + 4, low / 100);
  writePair(out + 6, low % 100);
}

int digitCount(std::uint64_t value) {
  constexpr auto bounds = [] {
    std::array<std::uint64_t, 20> result{};
    std::uint64_t power = 1;
    for (std::size_t i = 1; i < result.size(); ++i) result[i] = power *= 10;
    return result;
  }();
  const int guess = (64 - std::countl_zero(value | 1)) * 1233 >> 12;
  return guess + (value >= bounds[static_cast<std::size_t>(guess)] || guess == 0 ? 1 : 0);
}

// Writes exactly `count` digits, which the number has.
void writeDigits(char* out, std::uint64_t value, int count) {
  constexpr std::uint32_t hundredMillion = 100'000'000;
  while (count > 8) {
    count -= 8;
    writeEight(out + count, static_cast<std::uint32_t>(value % hundredMillion));
    value /= hundredMillion;
  }
  auto rest = static_cast<std::uint32_t>(value);
  for (; count >= 2; rest /= 100) writePair(out + (count -= 2), rest % 100);
  if (count == 1) *out = static_cast<char>('0' + rest);
}

char* fill(char* out, char byte, int count) {
  std::memset(out, byte, static_cast<std::size_t>(count));
  return out + count;
}

// The digits with a point behind the first `whole` of them. Copies a fixed number of bytes, more
// than needed: that is a few instructions, and there is room.
char* writeWithPoint(char* out, std::uint64_t digits, int count, int whole) {
  constexpr std::size_t mostDigits = 24;
  char text[mostDigits + 8 + 17];
  writeDigits(text, digits, count);
  std::memcpy(out, text, mostDigits);
  out[whole] = '.';
  std::memcpy(out + whole + 1, text + whole, mostDigits);
  return out + count + 1;
}

char* writeScaled(char* out, Shortest number) {
  while (number.digits % 10 == 0) {
    number.digits /= 10;
    ++number.exponent;
  }
  const int count = digitCount(number.digits);
  const int point = count + number.exponent;
  if (point > 0 && point <= 17) {
    if (number.exponent >= 0) {
      writeDigits(out, number.digits, count);
      return fill(out + count, '0', number.exponent);
    }
    return writeWithPoint(out, number.digits, count, point);
  }
  if (point <= 0 && point > -5) {
    *out++ = '0';
    *out++ = '.';
    out = fill(out, '0', -point);
    writeDigits(out, number.digits, count);
    return out + count;
  }
  if (count == 1) {
    *out++ = static_cast<char>('0' + number.digits);
  } else {
    out = writeWithPoint(out, number.digits, count, 1);
  }
  const int exponent = point - 1;
  *out++ = 'e';
  *out++ = exponent < 0 ? '-' : '+';
  const auto magnitude = static_cast<std::uint32_t>(std::abs(exponent));
  if (magnitude >= 100) *out++ = static_cast<char>('0' + magnitude / 100);
  writePair(out, magnitude % 100);
  return out + 2;
}

}  // namespace

char* writeNumber(char* out, std::uint64_t value) noexcept {
  const int count = digitCount(value);
  writeDigits(out, value, count);
  return out + count;
}

char* writeNumber(char* out, std::int64_t value) noexcept {
  auto magnitude = static_cast<std::uint64_t>(value);
  if (value < 0) {
    *out++ = '-';
    magnitude = -magnitude;
  }
  return writeNumber(out, magnitude);
}

char* writeNumber(char* out, double value) noexcept {
  if (std::signbit(value) && !std::isnan(value)) *out++ = '-';
  const auto bits = std::bit_cast<std::uint64_t>(value) & ~(std::uint64_t{1} << 63);
  const auto fraction = bits & ((std::uint64_t{1} << 52) - 1);
  const auto exponentField = static_cast<int>(bits >> 52);
  if (exponentField == 0x7ff) {
    std::memcpy(out, fraction == 0 ? "inf" : "nan", 3);
    return out + 3;
  }
  const double magnitude = std::bit_cast<double>(bits);
  if (magnitude < 0x1p53) {
    const auto whole = static_cast<std::uint64_t>(magnitude);
    if (static_cast<double>(whole) == magnitude) return writeNumber(out, whole);
  }
  return writeScaled(out, shortest(fraction, exponentField));
}

}  // namespace tolvanite::detail
