#include <Tolvanite/Text/Padding.h>

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <Tolvanite/Text/Affixes.h>

namespace {

using namespace tolvanite;

TEST(PaddingTest, toAWidth) {
  struct Case {
    std::string text;
    Int length;
    std::string pad, left, right, both;
  };
  for (const Case& c : std::vector<Case>{{"12", 5, "0", "00012", "12000", "01200"},
                                         {"123456", 5, "0", "123456", "123456", "123456"},
                                         {"", 3, "ab", "aba", "aba", "aab"},
                                         {"e\u0301", 3, "→", "→→e\u0301", "e\u0301→→", "→e\u0301→"},
                                         {"x", 5, "🇩🇪-", "🇩🇪-🇩🇪-x", "x🇩🇪-🇩🇪-", "🇩🇪-x🇩🇪-"},
                                         {"\xff", 2, ".", ".\xff", "\xff.", "\xff."},
                                         {"x", 5, "", "x", "x", "x"},
                                         {"x", -5, ".", "x", "x", "x"}}) {
    SCOPED_TRACE(c.text + " with " + c.pad);
    EXPECT_EQ(paddedLeft(c.text, c.length, c.pad), c.left);
    EXPECT_EQ(paddedRight(c.text, c.length, c.pad), c.right);
    EXPECT_EQ(paddedBoth(c.text, c.length, c.pad), c.both);
    EXPECT_EQ(tvStringPadToLength(c.text, c.length, c.pad), c.right);
    EXPECT_EQ(tvStringPadToLength(c.text, c.length, c.pad, false), c.left);
  }
}

TEST(PaddingTest, fieldsAreOverwritten) {
  EXPECT_EQ(paddedLeft("12", "####"), "##12");
  EXPECT_EQ(tvStringPaddedLeftWith("12345", "###"), "345");
  EXPECT_EQ(overwritten("a🇩🇪c", "xé"), "xéc");
  EXPECT_EQ(overwritten("a🇩🇪c", "xé", false), "axé");
  EXPECT_EQ(overwritten("abc", "12345"), "123");
  EXPECT_EQ(overwritten("abc", "12345", false), "345");
  EXPECT_EQ(overwritten(4, "12"), "12  ");
  EXPECT_EQ(overwritten(4, "12", false), "  12");
  EXPECT_EQ(overwritten(1, "12", false), "2");
  EXPECT_DEATH(overwritten(-1, "x"), "Fatal error: Negative width: -1: file");
}

TEST(AffixesTest, areDroppedAndEnsured) {
  struct Case {
    std::string text, affix, dropped, ensured;
  };
  for (const Case& c : std::vector<Case>{{"~/a", "~/", "a", "~/a"},
                                         {"a", "~/", "a", "~/a"},
                                         {"~/~/a", "~/", "~/a", "~/~/a"},
                                         {"ab", "ab", "", "ab"},
                                         {"ab", "", "ab", "ab"}}) {
    std::string text = c.text;
    dropPrefix(text, c.affix);
    EXPECT_EQ(text, c.dropped);
    EXPECT_EQ(droppingPrefix(c.text, c.affix), c.dropped);
    EXPECT_EQ(tvStringByRemovingPrefix(c.text, c.affix), c.dropped);
    ensurePrefix(text = c.text, c.affix);
    EXPECT_EQ(text, c.ensured);
    EXPECT_EQ(ensuringPrefix(c.text, c.affix), c.ensured);
  }
  std::string name = "a.txt.txt";
  dropSuffix(name, std::string_view(name).substr(5));
  EXPECT_EQ(name, "a.txt");
  ensureSuffix(name, ".txt");
  EXPECT_EQ(name, "a.txt");
  EXPECT_EQ(droppingSuffix(name, ".txt"), "a");
  EXPECT_EQ(tvStringByRemovingSuffix(name, ".md"), "a.txt");
  EXPECT_EQ(ensuringSuffix(name, "!"), "a.txt!");
}

TEST(AffixesTest, commonPrefixByCharacters) {
  EXPECT_EQ(hasCommonPrefix("notebook", "notes"), (CommonPrefix{"note", "book", "s"}));
  EXPECT_EQ(hasCommonPrefix("ab", "ab"), (CommonPrefix{"ab", "", ""}));
  EXPECT_EQ(hasCommonPrefix("ae\u0301", "ae\u0302"), (CommonPrefix{"a", "e\u0301", "e\u0302"}));
  EXPECT_EQ(hasCommonPrefix("xe", "xe\u0301"), (CommonPrefix{"x", "e", "e\u0301"}));
  EXPECT_EQ(hasCommonPrefix("🇩🇪🇫🇷", "🇩🇪🇫🇮"), (CommonPrefix{"🇩🇪", "🇫🇷", "🇫🇮"}));
  EXPECT_EQ(hasCommonPrefix("e\u0301", "e\u0302"), std::nullopt);
  EXPECT_EQ(hasCommonPrefix("", "a"), std::nullopt);
}

TEST(AffixesTest, orderAndFirstLetters) {
  EXPECT_TRUE(lessThen("The Abba", "Beatles", "The "));
  EXPECT_FALSE(lessThen("The Cure", "The Beatles", "The "));
  EXPECT_TRUE(lessThen("The Cure", "Dylan", "The ", 4));
  EXPECT_FALSE(lessThen("x", "x", "x"));
  for (auto* capitalized : {capitalizingFirstLetter, capitalizedFirstCharacterString}) {
    EXPECT_EQ(capitalized("e\u0301lan"), "E\u0301lan");
    EXPECT_EQ(capitalized("ßa"), "SSa");
    EXPECT_EQ(capitalized(""), "");
  }
  for (auto* lower : {lowercasingFirstLetter, lowercasedFirstCharacterString}) {
    EXPECT_EQ(lower("ÉLAN"), "éLAN");
  }
  EXPECT_EQ(firstLetterString("🇩🇪x") + firstLetterString(""), "🇩🇪");
}

}  // namespace
