#include <Tolvanite/Text/Substrings.h>

#include <random>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <Tolvanite/Text/Splitting.h>
#include <Tolvanite/Text/detail/TextSearch.h>

namespace {

using namespace tolvanite;
using ::testing::ElementsAre;
using Strings = std::vector<std::string>;
using TextPair = std::pair<std::string, std::string>;

const std::string mixed = "e\u0301🇩🇪x\r\n\xff👩‍👩‍👧";  // 6 characters

TEST(SubstringsTest, pieceByCharacterOffsets) {
  EXPECT_EQ(tvSubstringFrom(mixed, 1, 3), "🇩🇪x\r\n");
  EXPECT_EQ(tvStringFrom(mixed, 0, 6), mixed);
  EXPECT_EQ(tvSubstringFrom(mixed, 6, 0), "");
  EXPECT_EQ(tvSubstringAt(mixed, 4), "\xff");
  EXPECT_EQ(tvStringAt(mixed, 5), "👩‍👩‍👧");
  EXPECT_DEATH(tvSubstringFrom(mixed, 4, 3), "Fatal error: Index 3 out of range, 2 elements: file");
  EXPECT_DEATH(tvSubstringAt(mixed, -1), "Fatal error: Negative offset: -1: file");

  EXPECT_EQ(subscriptRange(mixed, {0, 2}), "e\u0301🇩🇪");
  EXPECT_EQ(subscriptRange(mixed, {6, 6}), "");
  for (const IndexRange& outside : {IndexRange(-1, 2), IndexRange(5, 7), IndexRange(7, 7)}) {
    EXPECT_EQ(subscriptRange(mixed, outside), std::nullopt) << outside;
  }
  EXPECT_EQ(subscriptRangeForced("abc", {1, 2}), "b");
  EXPECT_DEATH(subscriptRangeForced("abc", {2, 4}), "Fatal error: Range 2..<4 out of bounds: file");
}

TEST(SubstringsTest, beforeAndBehindAnOccurrence) {
  struct Case {
    std::string text, s;
    Int startOffset;
    std::string before, behind;
  };
  for (const Case& c : std::vector<Case>{{"a=b=c", "=", 0, "a", "b=c"},
                                         {"a=b=c", "=", 2, "b", "c"},
                                         {"ää=b", "=", 1, "ä", "b"},
                                         {"abc", "=", 0, "abc", ""},
                                         {"abc", "=", 2, "c", ""},
                                         {"abc", "", 0, "abc", ""},
                                         {"a=", "=", 2, "", ""},
                                         {"", "=", 0, "", ""},
                                         {"a→→b", "→→", 0, "a", "b"}}) {
    SCOPED_TRACE(c.text + " at " + c.s);
    EXPECT_EQ(tvSubstringUpToFirstOccurrenceOf(c.text, c.s, c.startOffset), c.before);
    EXPECT_EQ(tvStringUpTo(c.text, c.s, c.startOffset), c.before);
    EXPECT_EQ(tvSubstringAfterFirstOccurrenceOf(c.text, c.s, c.startOffset), c.behind);
    EXPECT_EQ(tvStringAfter(c.text, c.s, c.startOffset), c.behind);
    if (c.startOffset == 0) {
      EXPECT_EQ(tvSubstringToString(c.text, c.s), c.before);
    }
  }
  EXPECT_DEATH(tvStringAfter("ab", "b", 3), "Fatal error: Index 3 out of range, 2 elements: file");
}

TEST(SplittingTest, intoComponents) {
  struct Case {
    std::string text, separator;
    Strings components;
  };
  for (const Case& c : std::vector<Case>{{"a,b,,c", ",", {"a", "b", "", "c"}},
                                         {"", ",", {""}},
                                         {",", ",", {"", ""}},
                                         {"abc", "", {"abc"}},
                                         {"aaaaa", "aa", {"", "", "a"}},
                                         {"x◊y", "◊", {"x", "y"}},
                                         {"\xff,\xc3", ",", {"\xff", "\xc3"}}}) {
    SCOPED_TRACE(c.text + " at " + c.separator);
    EXPECT_EQ(componentsSeparatedBy(c.text, c.separator), c.components);
    const auto views = split(c.text, c.separator);
    EXPECT_EQ(Strings(views.begin(), views.end()), c.components);
    Strings kept;
    for (const auto& component : c.components) {
      if (!kept.empty()) kept.push_back(c.separator);
      kept.push_back(component);
    }
    EXPECT_EQ(componentsSeparatedByKeeping(c.text, c.separator), kept);
    const auto count = static_cast<Int>(c.components.size());
    EXPECT_EQ(componentsSeparatedBy(c.text, c.separator, count), c.components);
    EXPECT_EQ(componentsSeparatedBy(c.text, c.separator, count - 1), std::nullopt);
  }
  EXPECT_THAT(componentsSeparatedByStringTrimmed(" a ;\tb c\n; ", ";",
                                                 CharacterSet::whitespacesAndNewlines()),
              ElementsAre("a", "b c", ""));
  const std::string all = "a◊b,c d, e\nf";
  EXPECT_THAT(componentsByD(all), ElementsAre("a", "b,c d, e\nf"));
  EXPECT_THAT(componentsByC(all), ElementsAre("a◊b", "c d", " e\nf"));
  EXPECT_THAT(componentsByS(all), ElementsAre("a◊b,c", "d,", "e\nf"));
  EXPECT_THAT(componentsByCS(all), ElementsAre("a◊b,c d", "e\nf"));
  EXPECT_THAT(splitByCS(all), ElementsAre("a◊b,c d", "e\nf"));
  EXPECT_THAT(componentsByNL(all), ElementsAre("a◊b,c d, e", "f"));
}

TEST(SplittingTest, inTwoAndByLines) {
  EXPECT_EQ(componentsSeparatedByIntoTwoPartsNilIfNotFound("a=b=c", "="), TextPair("a", "b=c"));
  EXPECT_EQ(componentsSeparatedByIntoTwoPartsNilIfNotFound("abc", "="), std::nullopt);
  EXPECT_TRUE(splitDividedAt("k=", "=").isSome());
  EXPECT_TRUE(splitDividedAt("k", "=").isNone());
  for (auto* divide :
       {componentsSeparatedByIntoTwoParts, componentsDividedAt, tvSplitAtFirstOccurrenceOf}) {
    EXPECT_EQ(divide("a=b=c", "="), TextPair("a", "b=c"));
    EXPECT_EQ(divide("abc", "="), TextPair("abc", ""));
  }
  EXPECT_EQ(numberOfLines("") * 10 + numberOfNonEmptyLines(""), 10);
  EXPECT_EQ(numberOfLines("a\n\nb\n") * 10 + numberOfNonEmptyLines("a\n\nb\n"), 42);
  EXPECT_FALSE(hasMultipleLines("a"));
  EXPECT_TRUE(hasMultipleLines("a\n"));
}

// The blocks of the search against the plain one of the standard library.
TEST(TextSearchTest, findsWhatThePlainSearchFinds) {
  std::mt19937 random(5);
  const auto letters = [&](std::size_t size) {
    std::string text(size, 'a');
    for (char& letter : text) letter = static_cast<char>('a' + random() % 2);
    return text;
  };
  for (int i = 0; i < 20'000; ++i) {
    const std::string text = letters(random() % 200);
    const std::string wanted = letters(random() % (i % 3 == 0 ? 90 : 6));
    std::vector<std::size_t> expected, found;
    for (std::size_t at = text.find(wanted); at != std::string::npos && !wanted.empty();
         at = text.find(wanted, at + wanted.size())) {
      expected.push_back(at);
    }
    detail::visitOccurrences(text, wanted, 0, [&](std::size_t place) {
      found.push_back(place);
      return true;
    });
    ASSERT_EQ(found, expected) << text << " for " << wanted;
    ASSERT_EQ(detail::countOccurrences(text, wanted), expected.size());
  }
}

}  // namespace
