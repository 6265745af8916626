#include <Tolvanite/Text/Composing.h>

#include <map>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <Tolvanite/Text/Replacing.h>
#include <Tolvanite/Text/SourceLiterals.h>

namespace {

using namespace tolvanite;
using MaybeText = Optional<std::string>;

TEST(ComposingTest, wrapsAndJoins) {
  EXPECT_EQ(wrapIn("b", "<", ">") + wrapIn("c", "*") + wrapInQuotes("d"), "<b>*c*\"d\"");
  EXPECT_EQ(appending("a", "b", true) + appending("a", "b", false), "aba");
  EXPECT_EQ(stringWhenNotEmpty(""), std::nullopt);
  EXPECT_EQ(stringWhenNotEmpty(" "), " ");
  EXPECT_EQ(stringWhenMoreThan("🇩🇪e\u0301", 2), std::nullopt);
  EXPECT_EQ(stringWhenMoreThan("🇩🇪e\u0301x", 2), "🇩🇪e\u0301x");
  const MaybeText absent, a = "a", b = "b";
  EXPECT_EQ(combineTwoOptionals(a, b, ", "), "a, b");
  EXPECT_EQ(combineTwoOptionals(absent, b, ", "), "b");
  EXPECT_EQ(combineTwoOptionals(a, absent, ", "), "a");
  EXPECT_EQ(combineTwoOptionals(absent, absent, ", "), std::nullopt);
  EXPECT_EQ(tvFromOptional(Optional<Int>(3), "none") + tvFromOptional(Optional<Int>(), "none"),
            "3none");
  EXPECT_EQ(tvCount(MaybeText("e\u0301")), 1);
  EXPECT_EQ(tvCount(absent), std::nullopt);
}

TEST(ComposingTest, formats) {
  EXPECT_EQ(withFormat("%d|%5.2f|%-4s|%04x|%c|100%%", -7, 2.5, "ab", 255U, 'z'),
            "-7| 2.50|ab  |00ff|z|100%");
  EXPECT_EQ(withFormat("%@ %@ %s", std::vector<int>{1, 2}, 1.0, true),
            "[1, 2] " + textForm(1.0) + " true");
  EXPECT_EQ(withFormat("%2$s %1$ld", 1L, "x") + withFormat("%*d", 3, 9), "x 1  9");
  EXPECT_EQ(withFormat("%.1f %lld", 3, Int{1} << 62), "3.0 4611686018427387904");
  EXPECT_EQ(withFormat("%4s|%-3@|%.2s|%2.1s|%*s|%.*s", "e\u0301", "🇩🇪",
                       "👩‍👩‍👧\xf0\x9f!", "中x", -3, "\xff", -1, "abc"),
            "   e\u0301|🇩🇪  |👩‍👩‍👧\xf0\x9f| 中|\xff  |abc");
  EXPECT_EQ(withFormat("none", 1), "none");
  EXPECT_DEATH(withFormat("%d %d", 1),
               "Fatal error: Format %d %d: an argument is missing: file "
               ".*ComposingTest");
  EXPECT_DEATH(withFormat("%d", "x"), "Format %d: \"d\" does not take x");
  EXPECT_DEATH(withFormat("50%", 1), "Format 50%: there is no conversion");
  EXPECT_DEATH(withFormat("%0$d", 1), "positions start at 1");
  EXPECT_DEATH(withFormat("%99999999999s", 1), "Format %99999999999s: number is too big");
}

TEST(ReplacingTest, replacesFromLeftToRight) {
  EXPECT_EQ(stringByReplacingOccurrences("aaaaa", "aa", "b"), "bba");
  EXPECT_EQ(stringByReplacingOccurrences("a-b-", "-", "→→"), "a→→b→→");
  EXPECT_EQ(stringByReplacingOccurrences("abc", "", "x"), "abc");
  EXPECT_EQ(stringByReplacingOccurrences("ab", {{"a", "b"}, {"b", "c"}}), "cc");
  const std::map<std::string, std::string> map{{"x", ""}, {"y", "z"}};
  EXPECT_EQ(stringByReplacingOccurrences("xyx\xff", map), "z\xff");
}

TEST(SourceLiteralsTest, escapes) {
  EXPECT_EQ(stringLiteralEncoded(R"(a\b\\"n)"), R"(a\\b\\\\"n)");
  EXPECT_EQ(stringPreparedForStringLiteral("\"\\\n\r\té"), R"(\"\\\n\r\té)");
}

}  // namespace
