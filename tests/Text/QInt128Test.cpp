#include <Tolvanite/Text/QInt128.h>

#include <algorithm>
#include <array>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <Tolvanite/Frame/TextForm.h>

namespace {

using namespace tolvanite;

const QInt128 counting(0x08090a0b0c0d0e0f, 0x0001020304050607);

TEST(QInt128Test, prints) {
  EXPECT_EQ(textForm(counting), "000102030405060708090a0b0c0d0e0f");
  EXPECT_EQ(counting.asUuidString(), "00010203-0405-0607-0809-0A0B0C0D0E0F");
  const QInt128 letters(1, 0xabcdef0123456789);
  EXPECT_EQ(letters.asCompactString(), "abcdef01");
  EXPECT_EQ(letters.asUuidShortstring(), "ABCDEF01");
  const std::vector<QInt128> both = {counting, letters};
  EXPECT_EQ(joinedUuidSubstrings(both), "00010203,ABCDEF01");
  EXPECT_EQ(joinedUuidStrings(both),
            "00010203-0405-0607-0809-0A0B0C0D0E0F,ABCDEF01-2345-6789-0000-000000000001");
  EXPECT_EQ(joinedUuidStrings(std::vector<QInt128>()), "");
  std::ostringstream out;
  out << QInt128(1, 0);
  EXPECT_EQ(out.str(), std::string(31, '0') + "1");
}

TEST(QInt128Test, bytesStandHighestFirst) {
  std::array<std::byte, 16> bytes{};
  for (std::size_t i = 0; i < 16; ++i) bytes[i] = static_cast<std::byte>(i);
  EXPECT_EQ(counting.asUuid(), bytes);
  EXPECT_EQ(counting.asData(), ByteBuffer(std::span<const std::byte>(bytes)));
  EXPECT_EQ(QInt128(bytes), counting);
  EXPECT_EQ(QInt128(counting.asUuid_t()), counting);
  EXPECT_EQ(QInt128::fromNsUuid(bytes), counting);
  EXPECT_EQ(QInt128::fromBytes(counting.asBytes()), counting);
  EXPECT_EQ(QInt128::fromData(counting.asData()), counting);
  const std::vector<std::uint8_t> tooMany(17);
  EXPECT_FALSE(QInt128::fromBytes(std::span(bytes).first(15)).has_value());
  EXPECT_FALSE(QInt128::fromBytes(tooMany).has_value());
}

RC_GTEST_PROP(QInt128Test, readsWhatItPrints, (std::uint64_t low, std::uint64_t high)) {
  const QInt128 value(low, high);
  RC_ASSERT(QInt128::fromText(value.asString()) == value);
  RC_ASSERT(QInt128::fromUuidString(value.asUuidString()) == value);
  std::string text = value.asUuidString();
  std::erase(text, '-');
  RC_ASSERT(QInt128::forced(text) == value);
  // One wrong character anywhere, among them the neighbours of the digits.
  const auto place = *rc::gen::inRange<std::size_t>(0, 32);
  text[place] = *rc::gen::element('/', ':', '@', 'G', '`', 'g', ' ', '-', '+', '\0', '\xff');
  RC_ASSERT(!QInt128::fromText(text).has_value());
}

TEST(QInt128Test, refusesOtherTexts) {
  const std::string digits(31, 'a');
  for (const auto& text : {std::string(), digits, digits + "aa", "0x" + digits.substr(1) + "x"}) {
    EXPECT_FALSE(QInt128::fromText(text).has_value()) << text;
  }
  for (const auto* text :
       {"", "000102030405060708090a0b0c0d0e0f", "00010203-0405-0607-0809-0A0B0C0D0E0",
        "{0010203-0405-0607-0809-0A0B0C0D0E0}", "0001020-30405-0607-0809-0A0B0C0D0E0F",
        "00010203-0405-0607-0809-0A0B0C0D0E0G", "00010203-0405-0607-0809+0A0B0C0D0E0F"}) {
    EXPECT_FALSE(QInt128::fromUuidString(text).has_value()) << text;
  }
}

TEST(QInt128Test, orderAndHash) {
  EXPECT_GT(QInt128(0, 1), QInt128(~std::uint64_t{0}, 0));
  EXPECT_LT(QInt128(1, 7), QInt128(std::uint64_t{1} << 63, 7)) << "without a sign";
  EXPECT_EQ(QInt128(4, 2).hashValue(), 6);
  EXPECT_EQ(QInt128(~std::uint64_t{0}, 0).hashValue(), -1);
  EXPECT_EQ((Set<QInt128>{counting, counting, QInt128()}).size(), 2U);
}

TEST(QInt128Test, newUuidsAreOfVersionFour) {
  Set<QInt128> seen;
  QInt128 varying;
  for (int i = 0; i < 200; ++i) {
    const auto value = QInt128::createNewUuid();
    const std::string text = value.asUuidString();
    EXPECT_EQ(text[14], '4') << text;
    EXPECT_NE(std::string("89AB").find(text[19]), std::string::npos) << text;
    seen.insert(value);
    varying.low |= value.low;
    varying.high |= value.high;
  }
  EXPECT_EQ(seen.size(), 200U);
  EXPECT_EQ(varying.asString(), "ffffffffffff4fffbfffffffffffffff");
}

TEST(QInt128DeathTest, forcedTexts) {
  EXPECT_DEATH(QInt128::forced("abc"), "Fatal error: abc is not a uuid! Length is not 32\\.: file");
  const std::string zeros(16, '0');
  EXPECT_DEATH(QInt128::forced(zeros + "x\u00e9" + zeros.substr(2)),
               "Fatal error: 0+x\u00e90+ is not a uuid! Could not UInt64\\(0{16}\\) or "
               "UInt64\\(x\u00e90{14}\\): file .*QInt128Test.cpp");
  EXPECT_DEATH(QInt128::fromUuidStringForced("0-0"),
               "Fatal error: Invalid uuid string: 0-0: file .*QInt128Test.cpp");
}

}  // namespace
