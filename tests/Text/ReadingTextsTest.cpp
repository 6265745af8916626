#include <Tolvanite/Text/ReadingTexts.h>

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <Tolvanite/Text/Containment.h>
#include <Tolvanite/Text/RandomTexts.h>
#include <Tolvanite/Text/SearchTerms.h>

namespace {

using namespace tolvanite;

TEST(ReadingTextsTest, numbers) {
  EXPECT_EQ(tvInt("-12"), -12);
  EXPECT_EQ(makeInt("+0012"), 12);
  EXPECT_EQ(tvInt("-9223372036854775808"), INT64_MIN);
  EXPECT_EQ(tvDouble("-2.5e3"), -2500);
  EXPECT_EQ(makeDouble("+.5"), 0.5);
  for (const auto* none :
       {"", "+", "+-1", "--1", " 1", "1 ", "0x1", "1_0", "9223372036854775808", "1.5"}) {
    EXPECT_EQ(tvInt(none), std::nullopt) << none;
  }
  for (const auto* none : {"", "1,5", "1.5 ", "1e999", "+-1", "e", "nan", "NaN(1)", "-inf"}) {
    EXPECT_EQ(tvDouble(none), std::nullopt) << none;
  }
}

TEST(ReadingTextsTest, tristateAndUuid) {
  EXPECT_EQ(isCharacterTristate("y", "y", "n"), true);
  EXPECT_EQ(isCharacterTristate("n", "y", "n"), false);
  EXPECT_EQ(isCharacterTristate("Y", "y", "n"), std::nullopt);
  EXPECT_EQ(isCharacterTristate("Y", "y", "n", true), true);
  EXPECT_EQ(isCharacterTristate("Y", "Y", "n", true), std::nullopt);
  const std::string uuid = "00010203-0405-4607-8809-0A0b0C0D0E0F";
  EXPECT_TRUE(isUuidString(uuid) && isUuidString(tvUuidString()));
  std::string noDigit = uuid, noDash = uuid;
  noDigit[35] = 'G';
  noDash[8] = '0';
  for (const std::string& none : {uuid.substr(1), uuid + "0", noDigit, noDash, std::string()}) {
    EXPECT_FALSE(isUuidString(none)) << none;
  }
}

TEST(ContainmentTest, caseAndDiacritics) {
  struct Case {
    std::string text, substring;
    bool plain, noCase, noDiacritic, neither;
  };
  for (const Case& c : std::vector<Case>{{"abc", "bc", true, true, true, true},
                                         {"abc", "BC", false, true, false, true},
                                         {"Café", "cafe", false, false, false, true},
                                         {"Café", "Cafe", false, false, true, true},
                                         {"Cafe", "é", false, false, true, true},
                                         {"Cafe\u0301", "é", true, true, true, true},
                                         {"Straße", "STRASSE", false, true, false, true},
                                         {"ガ", "カ", false, false, false, false},
                                         {"ปู่", "ปุ", false, false, false, false},
                                         {"שָׁלוֹם", "שלום", false, false, true, true},
                                         {"x\xffÉ", "\xffÉ", true, true, true, true},
                                         {"\xffÉ", "\xfe", false, false, false, false},
                                         {"é", "", true, true, true, true},
                                         {"", "a", false, false, false, false}}) {
    SCOPED_TRACE(c.text + " for " + c.substring);
    EXPECT_EQ(tvContains(c.text, c.substring), c.plain);
    EXPECT_EQ(tvContains(c.text, c.substring, true), c.noCase);
    EXPECT_EQ(tvContains(c.text, c.substring, false, true), c.noDiacritic);
    EXPECT_EQ(tvContains(c.text, c.substring, true, true), c.neither);
  }
}

TEST(SearchTermsTest, plainAndTagged) {
  EXPECT_EQ(
      extractSearchTerms("waltz artist:Ann\tlive :x y: a:b:c\n"),
      (SearchTerms{{"waltz"}, {{"artist", "Ann\tlive"}, {"", "x"}, {"y", ""}, {"a", "b:c"}}}));
  EXPECT_EQ(extractSearchTerms("a  b"), (SearchTerms{{"a", "", "b"}, {}}));
}

}  // namespace
