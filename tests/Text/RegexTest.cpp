#include <Tolvanite/Text/Regex.h>

#include <array>
#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <Tolvanite/Frame/TextForm.h>
#include <Tolvanite/Text/PatternMatching.h>

namespace {

using namespace tolvanite;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Options = RegexOptions;

TEST(RegexTest, findsTheTextsOfAllMatches) {
  const struct {
    std::string pattern;
    Options options;
    std::string text;
    std::vector<std::string> expected;
  } cases[] = {
      {R"(\d+)", Options::none, "20x30, 5", {"20", "30", "5"}},
      {"x*", Options::none, "ébx", {"", "", "x", ""}},
      {R"(\p{Lu}\p{L}*)", Options::none, "Äpfel und Öl", {"Äpfel", "Öl"}},
      {R"((?<=é)\w|(?<!é)!)", Options::none, "éa! é! ab", {"a", "!"}},
      {R"(\Ga)", Options::none, "aab a", {"a", "a"}},
      {R"((?<c>.)\k<c>)", Options::none, "aab😀😀", {"aa", "😀😀"}},
      {"straße", Options::caseInsensitive, "STRASSE Straße", {"STRASSE", "Straße"}},
      {"a b # c", Options::allowCommentsAndWhitespace, "ab a b", {"ab"}},
      {"a.c", Options::ignoreMetacharacters, "abc a.c", {"a.c"}},
      {"a.c", Options::dotMatchesLineSeparators, "a\nc", {"a\nc"}},
      {"^a$", Options::anchorsMatchLines | Options::useUnixLineSeparators, "a\na\r", {"a"}},
      {R"(\b[^ ]+?\b)", Options::useUnicodeWordBoundaries, "can't", {"can't"}},
      {"(?<=é).", Options::none, "é\xff\xc3 é\xe4\xb8", {"\xff", "\xe4\xb8"}},
      {"", Options::none, "", {""}},
  };
  for (const auto& [pattern, options, text, expected] : cases) {
    const Regex regex(pattern, options);
    EXPECT_EQ(regex.matchingsOf(text), expected) << pattern;
    EXPECT_TRUE(regex.match(text)) << pattern;
  }
  EXPECT_THAT(Regex("a").matchingsOf("aab", RegexMatchOptions::anchored), ElementsAre("a"));
  EXPECT_FALSE(Regex("b").match("ab", RegexMatchOptions::anchored));
  EXPECT_THAT(Regex("c").matchingsOf("ab"), IsEmpty());
  EXPECT_NE(Regex("c"), Regex("c", Options::caseInsensitive));
}

TEST(RegexTest, groups) {
  const Regex regex("(?<left>a)|(?<right>b)");
  EXPECT_EQ(textForm(regex.matchingGroupsOf("ab")), R"([["a", "a", nil], ["b", nil, "b"]])");
  EXPECT_EQ(textForm(regex.groupsOfFirstMatch("cb")), R"(["b", nil, "b"])");
  EXPECT_THAT(regex.groupsOfFirstMatch("c"), IsEmpty());
  EXPECT_EQ(regex.groupNumber("right"), 2);
  for (const auto* name : {"", "middle", "\xff"}) EXPECT_FALSE(regex.groupNumber(name)) << name;
}

TEST(RegexTest, errorsNameThePatternAndTheOffset) {
  const struct {
    std::string pattern;
    Int offset;
  } cases[] = {{"(", 1},      {"é[b-a]", 6}, {"a\n\né(", 6}, {"a\r\n\u2028é)", 9},
               {"a\xff(", 1}, {"\\", 1},     {"(?<=a*)", 7}};
  for (const auto& [pattern, offset] : cases) {
    try {
      const Regex regex(pattern);
      ADD_FAILURE() << pattern;
    } catch (const RegexError& error) {
      EXPECT_EQ(error.pattern(), pattern);
      EXPECT_EQ(error.offset(), offset) << error.what();
      const auto start =
          "The pattern \"" + pattern + "\" is wrong at offset " + std::to_string(offset) + ": ";
      EXPECT_TRUE(error.description().starts_with(start)) << error.what();
    }
  }
  EXPECT_DEATH("a("_regex, "Fatal error: The pattern \"a\\(\" is wrong at offset 2: ");
}

TEST(RegexTest, stopsASearchWithoutEnd) {
  const Regex regex("b|(a+)+c");
  try {
    const auto found = regex.matchingsOf("bb" + std::string(100, 'a'));
    ADD_FAILURE();
  } catch (const RegexError& error) {
    EXPECT_EQ(error.description(),
              "The search for the pattern \"b|(a+)+c\" at offset 2 was stopped: it takes too long");
  }
  // Many matches take long together, but each is quick; and deep ones need much memory.
  EXPECT_EQ(Regex("(?:a|c)b").matchingsOf(std::string(1 << 20, 'a') + "ab").size(), 1U);
  EXPECT_TRUE(Regex("^(?:a|b)*$").match(std::string(1 << 19, 'a')));
}

TEST(RegexTest, copiesShareWhatThreadsUseAtOnce) {
  const Regex original(R"((\w)\1)");
  std::vector<std::jthread> threads;
  std::array<std::size_t, 4> counts{};
  for (std::size_t& count : counts) {
    threads.emplace_back([&count, copy = original] {
      for (int i = 0; i < 200; ++i) count += copy.matchingsOf("aab cc dé éé").size();
    });
  }
  threads.clear();
  EXPECT_THAT(counts, ::testing::Each(600U));

  Regex unusable;
  EXPECT_FALSE(unusable.hasMatcher() || unusable.match("") || unusable.groupNumber("a"));
  EXPECT_THAT(unusable.matchingsOf(""), IsEmpty());
  unusable = original;
  EXPECT_EQ(unusable, original);
  EXPECT_EQ(std::hash<Regex>()(unusable), std::hash<Regex>()(original));
}

TEST(PatternMatchingTest, firstMatch) {
  EXPECT_EQ(tvMatchSingle("1: 20 mm, 30 mm", R"((\d+) mm)"), "20");
  EXPECT_EQ(textForm(tvMatch("x20", R"((\d)(\d)(\D)?)")), R"(["2", "0", nil])");
  for (const auto* pattern : {"b", "a", "(b)?a"}) EXPECT_FALSE(tvMatchSingle("a", pattern));
  EXPECT_THAT(tvMatch("a", "b"), IsEmpty());
  EXPECT_THROW(tvMatch("a", "("), RegexError);
}

TEST(PatternMatchingTest, links) {
  EXPECT_THAT(extractHttpLinksCustomRegEx("(http://a.b/c). https: HTTP://x xhttp://d"),
              ElementsAre("http://a.b/c).", "https:", "http://d"));
  EXPECT_THAT(
      extractHttpLinks("See www.example.org (or https://example.com/a_(b)). \"HTTP://x.y/?q=1,2\", "
                       "xwww.n a@www.b.c http:// é http://ö.de/ü! http://[::1]:80/ http://\xff"),
      ElementsAre("http://www.example.org", "https://example.com/a_(b)", "HTTP://x.y/?q=1,2",
                  "http://ö.de/ü", "http://[::1]:80/"));
}

}  // namespace
