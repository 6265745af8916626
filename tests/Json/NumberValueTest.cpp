#include <Tolvanite/Json/NumberValue.h>

#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace tolvanite {
namespace {

using Order = NumberValue::Order;

constexpr std::int64_t highest = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t lowest = std::numeric_limits<std::int64_t>::min();
constexpr std::uint64_t highestUnsigned = std::numeric_limits<std::uint64_t>::max();
constexpr double infinity = std::numeric_limits<double>::infinity();
const double notANumber = std::nan("");

NumberValue decimal(std::string_view text) { return NumberValue::decimal(text).forced(text); }

TEST(NumberValue, OrdersExactlyAcrossKinds) {
  // Each group is of equal numbers, and before the next one.
  const std::vector<std::vector<NumberValue>> groups = {
      {notANumber, -notANumber},
      {-infinity},
      {-1e300},
      {decimal("-9223372036854775809")},
      {lowest, -0x1p63, decimal("-9223372036854775808")},
      {lowest + 1},
      {-1, -1.0, decimal("-1.00")},
      {-0.5, decimal("-0.5")},
      {0, 0U, -0.0, false, decimal("0e7")},
      {5e-324},
      {decimal("0.1")},  // the double 0.1 is a little larger
      {0.1},
      {1, 1.0, true, std::uint64_t{1}, decimal("1")},
      {std::int64_t{1} << 53, 0x1p53},
      {(std::int64_t{1} << 53) + 1},  // no double has this value
      {(std::int64_t{1} << 53) + 2, 0x1p53 + 2},
      {highest, static_cast<std::uint64_t>(highest), decimal("9223372036854775807")},
      {0x1p63, static_cast<std::uint64_t>(highest) + 1},
      {highestUnsigned},
      {0x1p64, decimal("18446744073709551616")},
      {decimal("18446744073709551616.5")},
      {decimal("1e300")},  // the double is a little larger
      {1e300},
      {infinity},
  };
  for (std::size_t a = 0; a < groups.size(); ++a) {
    for (std::size_t b = 0; b < groups.size(); ++b) {
      for (const NumberValue& left : groups[a]) {
        for (const NumberValue& right : groups[b]) {
          const Order wanted = a < b ? Order::ascending : a > b ? Order::descending : Order::same;
          EXPECT_EQ(left.compare(right), wanted) << left << " and " << right;
          if (a == b) {
            EXPECT_EQ(std::hash<NumberValue>()(left), std::hash<NumberValue>()(right)) << left;
          }
        }
      }
    }
  }
}

TEST(NumberValue, HasTheShortestTextThatReadsBack) {
  const std::vector<std::pair<NumberValue, std::string>> cases = {
      {0, "0"},
      {lowest, "-9223372036854775808"},
      {highestUnsigned, "18446744073709551615"},
      {true, "true"},
      {false, "false"},
      {1.0, "1"},
      {-0.0, "-0"},
      {0.1, "0.1"},
      {100000.0, "100000"},
      {1e16, "10000000000000000"},
      {1.5e17, "1.5e+17"},
      // Plain digits would read back as another integer.
      {46744073709551608.0, "4.674407370955161e+16"},
      {9007199254740996.0, "9007199254740996"},
      {1e-5, "0.00001"},
      {1.25e-6, "1.25e-06"},
      {123.456, "123.456"},
      {1e23, "1e+23"},
      {5e-324, "5e-324"},
      {std::numeric_limits<double>::max(), "1.7976931348623157e+308"},
      {9007199254740993.0, "9007199254740992"},
      {2.2250738585072014e-308, "2.2250738585072014e-308"},
      {infinity, "inf"},
      {-infinity, "-inf"},
      {notANumber, "nan"},
      {0.1F, "0.10000000149011612"},
      {decimal("12345678901234567890123456789012345678"), "12345678901234567890123456789012345678"},
      {decimal("+0012.500"), "12.5"},
      {decimal("-.5e-3"), "-0.0005"},
      {decimal("1e400"), "1e+400"},
      // Rounded to 38 digits, a half to the even one.
      {decimal("1234567890123456789012345678901234567850"),
       "1234567890123456789012345678901234567800"},
      {decimal("123456789012345678901234567890123456795"),
       "123456789012345678901234567890123456800"},
      {decimal("0.99999999999999999999999999999999999999999"), "1"},
  };
  for (const auto& [number, text] : cases) EXPECT_EQ(number.stringValue(), text);

  // The digits are those of the standard library's shortest form.
  const auto digitsOf = [](std::string text) {
    text.erase(std::min(text.find('e'), text.size()));
    std::erase_if(text, [](char byte) { return byte < '0' || byte > '9'; });
    text.erase(0, text.find_first_not_of('0'));
    text.erase(text.find_last_not_of('0') + 1);
    return text;
  };
  std::mt19937_64 random(42);
  for (int i = 0; i < 50000; ++i) {
    const double bits = std::bit_cast<double>(random());
    const double number =
        i % 2 == 0 ? bits : std::ldexp(1.0, static_cast<int>(random() % 2098) - 1074);
    if (!std::isfinite(number)) continue;
    const std::string text = NumberValue(number).description();
    char wanted[64];
    *std::to_chars(wanted, std::end(wanted), number, std::chars_format::scientific).ptr = '\0';
    EXPECT_EQ(std::strtod(text.c_str(), nullptr), number) << text;
    EXPECT_EQ(digitsOf(text), digitsOf(wanted)) << text;
  }
}

TEST(NumberValue, NarrowsAsDescribed) {
  EXPECT_EQ(NumberValue(0x1ff).charValue(), -1);
  EXPECT_EQ(NumberValue(-1).unsignedShortValue(), 0xffff);
  EXPECT_EQ(NumberValue(highestUnsigned).longLongValue(), -1);
  EXPECT_EQ(NumberValue(std::int64_t{1} << 32 | 7).intValue(), 7);
  EXPECT_EQ(NumberValue(300.9).unsignedCharValue(), 255);
  EXPECT_EQ(NumberValue(-300.9).charValue(), -128);
  EXPECT_EQ(NumberValue(-2.9).intValue(), -2);
  EXPECT_EQ(NumberValue(1e300).longLongValue(), highest);
  EXPECT_EQ(NumberValue(-1e300).longLongValue(), lowest);
  EXPECT_EQ(NumberValue(1e300).unsignedLongLongValue(), highestUnsigned);
  EXPECT_EQ(NumberValue(-1.0).unsignedIntValue(), 0U);
  EXPECT_EQ(NumberValue(notANumber).intValue(), 0);
  EXPECT_EQ(decimal("1e30").intValue(), std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(decimal("-7.9").integerValue(), -7);
  EXPECT_EQ(decimal("18446744073709551615").unsignedIntegerValue(), highestUnsigned);
  EXPECT_EQ(decimal("0.1").doubleValue(), 0.1);
  EXPECT_EQ(decimal("1e9000").doubleValue(), infinity);
  // Just above the middle between two floats, but not as a double.
  EXPECT_EQ(NumberValue((std::int64_t{1} << 54) + (1 << 30) + 1).floatValue(), 0x1.000002p54F);
  EXPECT_EQ(decimal("18014399583223809").floatValue(), 0x1.000002p54F);
  EXPECT_TRUE(NumberValue(0.5).boolValue());
  EXPECT_FALSE(decimal("0.0").boolValue());
}

TEST(NumberValue, KeepsItsKindAndReadsDecimalsAsAWhole) {
  using Kind = NumberValue::Kind;
  EXPECT_EQ(NumberValue(true).kind(), Kind::boolean);
  EXPECT_EQ(NumberValue(1).kind(), Kind::signedInteger);
  EXPECT_EQ(NumberValue(1U).kind(), Kind::unsignedInteger);
  EXPECT_EQ(NumberValue(1.0F).kind(), Kind::real);
  EXPECT_EQ(decimal("1").kind(), Kind::decimal);
  EXPECT_TRUE(NumberValue::sharedTrue().isBool() && !NumberValue(1).isBool());
  for (const char* text : {"", "-", ".", "1 ", " 1", "1e", "1e+-3", "0x10", "1.2.3", "nan",
                           "1e99999", "1,5", "e5", "--1"}) {
    EXPECT_TRUE(NumberValue::decimal(text).isNone()) << text;
  }
  EXPECT_EQ(decimal("1e-99999"), NumberValue(0));
  EXPECT_EQ(decimal("1."), NumberValue(1));
}

}  // namespace
}  // namespace tolvanite
