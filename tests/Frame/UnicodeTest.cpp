#include <Tolvanite/Frame/Unicode.h>

#include <algorithm>
#include <array>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace {

using namespace tolvanite;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using namespace std::string_literals;

// Each text is given as its characters, and split again from the joined bytes.
const std::vector<std::pair<std::string, std::vector<std::string>>> splits = {
    {"nothing", {}},
    {"plain", {"a", "b", " ", "\0"s}},
    {"line ends", {"a", "\r\n", "\r", "\r\n", "\n", "\n", "\r", "é", "\r\n"}},
    {"marks after letters", {"e\u0301", "x", "n\u0303\u0323", "o"}},
    {"mark at the start, after line ends", {"\u0301", "\r\n", "\u0301", "a"}},
    {"a mark on ASCII between ASCII", {"a", "b\u0301", "c"}},
    {"flags in pairs", {"🇩🇪", "🇫🇷", "🇮", "a", "🇩🇪"}},
    {"emoji sequences",
     {"👩‍👩‍👧", "👍🏽", "❤️", "🏴󠁧󠁢󠁥󠁮󠁧󠁿", "a\u200d", "👩"}},
    {"hangul", {"한", "\u1112\u1161\u11ab", "각\u11a8", "가"}},
    {"devanagari", {"क्त", "नि"}},
    {"malformed, each by itself",
     {"\xff", "\xfe", "a", "\xc3", "é", "\xe2\x82", "\u0301", "\xed", "\xa0", "\x80", "\xc0",
      "\x80", "\xf0\x9f\x87", "b", "\xe4\xb8"}},
};

std::string joined(const auto& parts) {
  std::string result;
  for (const auto& part : parts) result += part;
  return result;
}

TEST(UnicodeTest, splitsIntoCharacters) {
  for (const auto& [name, expected] : splits) {
    SCOPED_TRACE(name);
    const std::string text = joined(expected);
    EXPECT_THAT(characters(text), ElementsAreArray(expected));
    EXPECT_EQ(characterCount(text), static_cast<Int>(expected.size()));
  }
}

TEST(UnicodeTest, longTextsAreSplitAtNoOtherPlaces) {
  std::string longCharacter = "中";
  std::string indicators = "x";
  for (int i = 0; i < 10'001; ++i) {
    longCharacter += "\u0301";
    indicators += "🇩🇩";
  }
  EXPECT_THAT(characters("ab" + longCharacter + "cd" + longCharacter),
              ElementsAre("a", "b", longCharacter, "c", "d", longCharacter));
  EXPECT_EQ(characterCount(indicators + "🇩"), 1 + 10'002);

  // The pair of a line end stands where a long run of ASCII would end a stretch.
  for (std::size_t blanks = 0; blanks < 40; ++blanks) {
    EXPECT_EQ(characterCount("é" + std::string(blanks, ' ') + "\r\né"),
              static_cast<Int>(blanks) + 3);
  }
}

TEST(UnicodeTest, takesAndDropsCharacters) {
  const std::string text = "🇩🇪e\u0301\r\nz";
  EXPECT_EQ(characterPrefix(text, 2), "🇩🇪e\u0301");
  EXPECT_EQ(droppingFirstCharacters(text, 2), "\r\nz");
  EXPECT_EQ(characterSuffix(text, 3), "e\u0301\r\nz");
  EXPECT_EQ(droppingLastCharacters(text, 3), "🇩🇪");
  for (const Int all : {4, 5, 1'000'000}) EXPECT_EQ(characterSuffix(text, all), text);
  EXPECT_DEATH(characterPrefix(text, -1), "Fatal error: Negative number of characters: -1: file");
}

RC_GTEST_PROP(UnicodeTest, bytesOfAnyKindKeepTogether, ()) {
  // Pieces that lie near the rules' edges, cut anywhere.
  const auto pieces = *rc::gen::container<std::vector<std::string>>(
      rc::gen::element("a"s, "\r"s, "\n"s, "\u0301"s, "🇩"s, "👩"s, "\u200d"s, "\xff"s, "\xe2"s,
                       "क"s, "्"s, "ß"s, "Σ"s, "İ"s, "                    "s));
  const std::string whole = joined(pieces);
  const std::string text = whole.substr(0, *rc::gen::inRange<std::size_t>(0, whole.size() + 1));
  const auto parts = characters(text);
  RC_ASSERT(joined(parts) == text);
  RC_ASSERT(std::ranges::count(parts, "") == 0);
  const Int count = *rc::gen::inRange<Int>(0, static_cast<Int>(parts.size()) + 2);
  RC_ASSERT(std::string(characterPrefix(text, count)) +
                std::string(droppingFirstCharacters(text, count)) ==
            text);
  RC_ASSERT(characterCount(characterSuffix(text, count)) <= count);
  const auto strays = [](const std::string& bytes) {
    return std::ranges::count(bytes, '\xff') + std::ranges::count(bytes, '\xe2');
  };
  RC_ASSERT(strays(lowercased(text)) == strays(text));
  RC_ASSERT(strays(uppercased(text)) == strays(text));
}

TEST(UnicodeTest, mapsCase) {
  EXPECT_EQ(lowercased("AZaz@[`{ 09 ÄÖÜ ΣΑΣ İ"), "azaz@[`{ 09 äöü σας i̇");
  EXPECT_EQ(uppercased("AZaz@[`{ 09"), "AZAZ@[`{ 09");
  EXPECT_EQ(uppercased("straße ŉ"), "STRASSE ʼN");
  EXPECT_EQ(lowercased("\xffÄ\xc3"), "\xffä\xc3");
  EXPECT_EQ(uppercased("ä\xe2\x82ö"), "Ä\xe2\x82Ö");
}

TEST(UnicodeTest, tellsValidUtf8) {
  for (const auto* valid : {"", "abc", "é中🇩", "\u007f\u0080\u07ff\u0800\uffff\U0010ffff"}) {
    EXPECT_TRUE(isValidUtf8(valid)) << valid;
  }
  for (const auto* invalid :
       {"\x80", "a\xc3", "\xc0\x80", "\xc1\xbf", "\xe0\x80\x80", "\xed\xa0\x80", "\xf4\x90\x80\x80",
        "\xf0\x9f\x87", "\xf8\x88\x80\x80\x80", "\xe2\x82z"}) {
    EXPECT_FALSE(isValidUtf8(invalid)) << invalid;
  }
}

TEST(UnicodeTest, worksOnSeveralThreads) {
  std::array<Int, 4> counts{};
  {
    std::vector<std::jthread> threads;
    for (Int& count : counts) {
      threads.emplace_back([&count] {
        for (int i = 0; i < 1000; ++i) count += characterCount("né🇩🇪");
      });
    }
  }
  EXPECT_THAT(counts, ::testing::Each(3000));
}

}  // namespace
