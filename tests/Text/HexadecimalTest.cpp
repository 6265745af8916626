#include <Tolvanite/Text/Hexadecimal.h>

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <Tolvanite/Text/RandomTexts.h>
#include <Tolvanite/Text/UnicodeNames.h>

#include <tests/Support/ScriptedRandom.h>

namespace {

using namespace tolvanite;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(HexadecimalTest, formsOfATextAndBack) {
  const std::string text = "aé中👩";
  const HexadecimalForm form{.uppercase = true, .prefix = "0x", .separator = ","};
  EXPECT_EQ(utf8HexStringRepresentation("é\xff"), "c3a9ff");
  EXPECT_EQ(utf8HexStringRepresentation("é", form), "0xC3,0xA9");
  EXPECT_EQ(utf16HexStringRepresentation(text, form), "0x0061,0x00E9,0x4E2D,0xD83D,0xDC69");
  EXPECT_EQ(utf16HexStringRepresentation("a\xff"), "0061fffd");
  EXPECT_EQ(scalarsHexRepresentation(text, form), "0x0061,0x00E9,0x4E2D,0x1F469");
  EXPECT_EQ(asScalarsHexString(text, {.separator = " "}), "0061 00e9 4e2d 1f469");
  EXPECT_EQ(stringFromScalarsHexString("61 E9 4e2d 1f469", " "), text);
  EXPECT_EQ(stringFromScalarsHexString(scalarsHexRepresentation(text, form), ",", "0x"), text);
  EXPECT_EQ(stringFromScalarsHexString("", ","), "");
  for (const auto* wrong : {"61,,62", "61, 62", "g", "-61", "0x61", "100000000", "61,"}) {
    EXPECT_TRUE(uint32sFromHexString(wrong, ",").isNone()) << wrong;
  }
  EXPECT_THAT(*uint32sFromHexString("ffffffff,d800", ","), ElementsAre(0xFFFFFFFFU, 0xD800U));
  EXPECT_EQ(stringFromScalarsHexString("d800", ","), std::nullopt);
  EXPECT_EQ(fromUint32s({0x61, 0x110000}), std::nullopt);
  EXPECT_EQ(fromUint32s({0x61, 0x10FFFF, 0xE000, 0x7FF}, "-"), "a-\U0010ffff-\ue000-\u07ff");
}

TEST(HexadecimalTest, numbersAndCodes) {
  EXPECT_EQ(stringWithOffset(2912, 6) + stringWithOffset(2912, 2, true) + stringWithOffset(0, 0),
            "0x000b600xB600x0");
  EXPECT_EQ(stringWithOffset(-1, 0), "0xffffffffffffffff");
  EXPECT_EQ(stringWithAddress(0x7F00AB, true), "0x00000000007F00AB");
  EXPECT_EQ(stringWithAscii(65) + stringWithAscii(0xE9), "Aé");
}

TEST(UnicodeNamesTest, namesOfScalars) {
  EXPECT_EQ(unicodeName(U'é'), "LATIN SMALL LETTER E WITH ACUTE");
  EXPECT_EQ(unicodeName("a\xff中\t"),
            "LATIN SMALL LETTER A,REPLACEMENT CHARACTER,CJK UNIFIED IDEOGRAPH-4E2D,<control-0009>");
  EXPECT_EQ(unicodeName(U'\U0010ffff') + unicodeName(char32_t{0x110000}), "<noncharacter-10FFFF>");
  const std::string_view prefixes[] = {"LATIN", "DIGIT"};
  EXPECT_THAT(unicodeNames("a1!", prefixes), ElementsAre("EXCLAMATION MARK"));
  EXPECT_THAT(unicodeNamesEmojiFiltered("🇩🇪"), IsEmpty());
  EXPECT_THAT(unicodeNamesEmojiFiltered("👩🏽‍🚀❤️"),
              ElementsAre("WOMAN", "ROCKET", "HEAVY BLACK HEART"));
}

TEST(RandomTextsTest, drawsFromThePool) {
  test::ScriptedRandom script({1, 0, 61, 25, 31, 26, 0});
  EXPECT_EQ(tvRandomAlphanumericString("🇩🇪e\u0301", 2), "e\u0301🇩🇪");
  EXPECT_EQ(tvRandomAlphanumericString(1), "9");
  EXPECT_EQ(tvRandomAlphanumericStringWithLength(1), "z");
  EXPECT_EQ(randomBase32(1), "7");
  EXPECT_EQ(randomBase32WithLength(2), "2A");
  EXPECT_THAT(script.bounds, ElementsAre(2, 2, 62, 62, 32, 32, 32));
  EXPECT_EQ(tvRandomAlphanumericString("", 0), "");
  EXPECT_DEATH(tvRandomAlphanumericString("", 1), "Fatal error: No letters to draw from: file");
  EXPECT_DEATH(randomBase32(-1), "Fatal error: Negative length: -1: file");
  EXPECT_NE(tvUuidString(), tvUuidString());
}

}  // namespace
