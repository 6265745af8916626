#include <Tolvanite/Json/detail/NumberText.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstring>
#include <string_view>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

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
  // Twice the distance to the midpoints, which are half a unit of c away, one of them maybe less.
  const std::uint64_t half = std::uint64_t{2} << h;
  const std::uint64_t center = c << (h + 2);
  const std::uint64_t below = roundToOdd(power, center - (isLowerCloser ? half / 2 : half));
  const std::uint64_t value = roundToOdd(power, center);
  const std::uint64_t above = roundToOdd(power, center + half);
  // An even number owns the midpoints to its neighbours.
  const std::uint64_t lower = below + (c & 1);
  const std::uint64_t upper = above - (c & 1);
  const std::uint64_t s = value / 4;
  // A digit less, if just one of the two numbers of so many digits is in between. All is calculated
  // and then chosen from without a jump, as the choice is as good as random.
  const std::uint64_t tens = s / 10;
  const auto bit = [](bool holds) { return std::uint64_t{holds}; };
  const std::uint64_t tenUp = bit(40 * tens + 40 <= upper);
  const std::uint64_t isTen = (bit(lower <= 40 * tens) ^ tenUp) & bit(s >= 10);
  const std::uint64_t oneUp = bit(4 * s + 4 <= upper);
  const std::uint64_t isOne = bit(lower <= 4 * s) ^ oneUp;
  // Between the two: the nearer one, of two equally near the even one.
  const std::uint64_t nearerUp = bit(value + (s & 1) > 4 * s + 2);
  const std::uint64_t one = s + ((oneUp & isOne) | (nearerUp & ~isOne));
  const std::uint64_t ten = tens + tenUp;
  return {one ^ ((one ^ ten) & -isTen), k + static_cast<int>(isTen)};
}

constexpr std::uint32_t hundredMillion = 100'000'000;
constexpr std::uint64_t tenQuadrillion = 10'000'000'000'000'000;

// The eight digits of a number below 10^8, one a byte, the first one in the lowest. All are halved
// down in one word at once: to two numbers of four digits, four of two, eight of one.
[[gnu::always_inline]] inline std::uint64_t eightDigits(std::uint32_t value) {
  const std::uint64_t fours = value / 10000 | static_cast<std::uint64_t>(value % 10000) << 32;
  const std::uint64_t hundreds = (fours * 10486 >> 20) & 0x7f'0000'007fU;
  const std::uint64_t twos = hundreds | (fours - 100 * hundreds) << 16;
  const std::uint64_t tens = (twos * 103 >> 10) & 0x000f'000f'000f'000fU;
  return tens | (twos - 10 * tens) << 8;
}

struct DigitPair {
  std::uint64_t high;
  std::uint64_t low;
};

// The digits of two numbers at once.
DigitPair sixteenDigits(std::uint32_t high, std::uint32_t low) {
#if defined(__SSE2__)
  const __m128i eights = _mm_set_epi64x(low, high);
  const __m128i tops = _mm_srli_epi64(_mm_mul_epu32(eights, _mm_set1_epi64x(0xd1b71759)), 45);
  const __m128i rests = _mm_sub_epi64(eights, _mm_mul_epu32(tops, _mm_set1_epi64x(10000)));
  const __m128i fours = _mm_or_si128(tops, _mm_slli_epi64(rests, 32));
  const __m128i hundreds = _mm_srli_epi16(_mm_mulhi_epu16(fours, _mm_set1_epi16(5243)), 3);
  const __m128i twoRests = _mm_sub_epi16(fours, _mm_mullo_epi16(hundreds, _mm_set1_epi16(100)));
  const __m128i twos = _mm_or_si128(hundreds, _mm_slli_epi32(twoRests, 16));
  const __m128i tens = _mm_mulhi_epu16(twos, _mm_set1_epi16(6554));
  const __m128i ones = _mm_sub_epi16(twos, _mm_mullo_epi16(tens, _mm_set1_epi16(10)));
  const __m128i digits = _mm_or_si128(tens, _mm_slli_epi16(ones, 8));
  return {static_cast<std::uint64_t>(_mm_cvtsi128_si64(digits)),
          static_cast<std::uint64_t>(_mm_cvtsi128_si64(_mm_unpackhi_epi64(digits, digits)))};
#else
  return {eightDigits(high), eightDigits(low)};
#endif
}

char* writeWord(char* out, std::uint64_t digits) {
  digits |= 0x3030'3030'3030'3030U;
  std::memcpy(out, &digits, sizeof digits);
  return out + sizeof digits;
}

// Writes a number below 10^8 without zeros before it.
char* writeFirst(char* out, std::uint32_t value) {
  const std::uint64_t digits = eightDigits(value);
  // The last digit counts even if it is a zero.
  const int zeros = std::countr_zero(digits | std::uint64_t{1} << 56) / 8;
  writeWord(out, digits >> 8 * zeros);
  return out + 8 - zeros;
}

char* writeWhole(char* out, std::uint64_t value) {
  if (value < hundredMillion) return writeFirst(out, static_cast<std::uint32_t>(value));
  if (value >= tenQuadrillion) {
    out = writeFirst(out, static_cast<std::uint32_t>(value / tenQuadrillion));
    value %= tenQuadrillion;
    out = writeWord(out, eightDigits(static_cast<std::uint32_t>(value / hundredMillion)));
  } else {
    out = writeFirst(out, static_cast<std::uint32_t>(value / hundredMillion));
  }
  return writeWord(out, eightDigits(static_cast<std::uint32_t>(value % hundredMillion)));
}

// The digits of a number of at most 17 digits. They stay in registers and are only stored: to load
// what was stored in other pieces takes longer than all the rest.
class Digits {
 public:
  explicit Digits(std::uint64_t number) : first_(static_cast<int>(number / tenQuadrillion)) {
    number %= tenQuadrillion;
    const auto [high, low] = sixteenDigits(static_cast<std::uint32_t>(number / hundredMillion),
                                           static_cast<std::uint32_t>(number % hundredMillion));
    const int zerosAhead =
        high != 0 ? zerosAt(std::countr_zero(high)) : 8 + zerosAt(std::countr_zero(low | lastByte));
    zerosBehind_ = low != 0 ? zerosAt(std::countl_zero(low)) : 8 + zerosAt(std::countl_zero(high));
    const int skipped = first_ != 0 ? 0 : zerosAhead;
    count_ = 16 + hasFirst() - skipped - zerosBehind_;
    // At most fifteen are skipped, since `lastByte` counts as a digit.
    // NOLINTNEXTLINE(clang-analyzer-core.BitwiseShift)
    rest_ = (Wide{low} << 64 | high) >> 8 * skipped | (Wide{asciiZeros} << 64 | asciiZeros);
  }

  // Without the zeros at their end, of which there are `zerosBehind`.
  int count() const { return count_; }
  int zerosBehind() const { return zerosBehind_; }

  char* write(char* out) const {
    char* end = out + count_;
    *out = static_cast<char>('0' + first_);
    std::memcpy(out + hasFirst(), &rest_, sizeof rest_);
    return end;
  }
  // With a point behind the first `whole` of them, which are not all.
  char* writeWithPoint(char* out, int whole) const {
    char* end = out + count_ + 1;
    *out = static_cast<char>('0' + first_);
    out += hasFirst();
    whole -= hasFirst();
    const Wide behind = rest_ >> 8 * whole;
    std::memcpy(out, &rest_, sizeof rest_);
    std::memcpy(out + whole + 1, &behind, sizeof behind);
    out[whole] = '.';
    return end;
  }

 private:
  static constexpr std::uint64_t lastByte = std::uint64_t{1} << 56;
  static int zerosAt(int bits) { return bits / 8; }
  int hasFirst() const { return first_ != 0 ? 1 : 0; }

  static constexpr std::uint64_t asciiZeros = 0x3030'3030'3030'3030U;

  int first_;  // of 17, else 0
  int count_;
  int zerosBehind_;
  Wide rest_;
};

char* writeScaled(char* out, Shortest number) {
  const Digits digits(number.digits);
  number.exponent += digits.zerosBehind();
  const int point = digits.count() + number.exponent;
  if (point > 0 && number.exponent < 0) return digits.writeWithPoint(out, point);
  if (point <= 0 && point > -5) {
    std::ranges::copy(std::string_view("0.0000"), out);
    return digits.write(out + 2 - point);
  }
  out = digits.count() == 1 ? digits.write(out) : digits.writeWithPoint(out, 1);
  const int exponent = point - 1;
  *out++ = 'e';
  *out++ = exponent < 0 ? '-' : '+';
  const auto magnitude = static_cast<std::uint32_t>(std::abs(exponent));
  if (magnitude < 10) *out++ = '0';
  return writeFirst(out, magnitude);
}

bool isExactly(Shortest number, std::uint64_t whole) {
  if (number.exponent < 0) return false;
  for (; number.exponent > 0; --number.exponent) number.digits *= 10;
  return number.digits == whole;
}

}  // namespace

char* writeNumber(char* out, std::uint64_t value) noexcept { return writeWhole(out, value); }

char* writeNumber(char* out, std::int64_t value) noexcept {
  auto magnitude = static_cast<std::uint64_t>(value);
  if (value < 0) {
    *out++ = '-';
    magnitude = -magnitude;
  }
  return writeNumber(out, magnitude);
}

char* writeNumber(char* out, double value) noexcept {
  const auto bits = std::bit_cast<std::uint64_t>(value) & ~(std::uint64_t{1} << 63);
  const auto fraction = bits & ((std::uint64_t{1} << 52) - 1);
  const auto exponentField = static_cast<int>(bits >> 52);
  const bool isNegative = std::signbit(value);
  if (exponentField == 0x7ff) {
    const std::string_view text = fraction != 0 ? "nan" : isNegative ? "-inf" : "inf";
    return std::copy(text.begin(), text.end(), out);
  }
  *out = '-';
  out += isNegative ? 1 : 0;
  const double magnitude = std::bit_cast<double>(bits);
  std::uint64_t whole = 0;
  if (magnitude < 1e17) {
    whole = static_cast<std::uint64_t>(magnitude);
    if (magnitude < 0x1p53 && static_cast<double>(whole) == magnitude) {
      return writeNumber(out, whole);
    }
  }
  const Shortest number = shortest(fraction, exponentField);
  // Whole numbers beyond that stay plain if the shortest digits are exact. Else they would read
  // back as another integer, which no double is equal to.
  if (whole >= std::uint64_t{1} << 53 && isExactly(number, whole)) return writeNumber(out, whole);
  return writeScaled(out, number);
}

}  // namespace tolvanite::detail
