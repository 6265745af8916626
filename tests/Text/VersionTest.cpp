#include <Tolvanite/Text/Version.h>

#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <Tolvanite/Frame/TextForm.h>

namespace {

using namespace tolvanite;

constexpr Int largest = std::numeric_limits<Int>::max();

Version read(std::string_view text) { return Version::fromText(text).forced(text); }

TEST(VersionTest, readsAndPrintsBackTheSame) {
  const struct {
    std::string text;
    Version version;
  } cases[] = {
      {"1.2.3", {1, 2, 3}},
      {"0.0.9223372036854775807", {0, 0, largest}},
      {"1.2.3-alpha.1+build.5", {1, 2, 3, {"alpha", "1"}, "build.5"}},
      {"1.2.3--a-b+c+d-e", {1, 2, 3, {"-a-b"}, "c+d-e"}},
      {"1.2.3+build+5.x", {1, 2, 3, {}, "build+5.x"}},
      {"1.2.3-", {1, 2, 3, {""}}},
      {"1.2.3-.a..+", {1, 2, 3, {"", "a", "", ""}, ""}},
      {"1.2.3-\xff.\xc3+\xf0\x9f", {1, 2, 3, {"\xff", "\xc3"}, "\xf0\x9f"}},
  };
  for (const auto& [text, version] : cases) {
    const auto result = Version::fromText(text);
    ASSERT_TRUE(result) << text;
    EXPECT_EQ(*result, version) << text;
    EXPECT_EQ(textForm(version), text);
    EXPECT_EQ(std::hash<Version>()(*result), std::hash<Version>()(version)) << text;
  }
  EXPECT_EQ(read("01.002.0000000000000000000000000003"), Version(1, 2, 3));
  for (const auto* text : {"",
                           "1",
                           "1.2",
                           "1.2.",
                           ".1.2",
                           "1..3",
                           "1.2.3.4",
                           "1.2.3 ",
                           " 1.2.3",
                           "1.2.x",
                           "1.2.3x",
                           "-1.2.3",
                           "1.-2.3",
                           "+1.2.3",
                           "1.2.+3",
                           "1.2-3",
                           "0x1.2.3",
                           "1.2.9223372036854775808",
                           "1.2.92233720368547758070",
                           "99999999999999999999.0.0",
                           "1.2.٣"}) {
    EXPECT_FALSE(Version::fromText(text)) << text;
  }
}

TEST(VersionTest, ordersByPrecedence) {
  const std::vector<std::string> ascending = {"0.9.10",
                                              "1.0.0--10",
                                              "1.0.0--9",
                                              "1.0.0-0",
                                              "1.0.0-2",
                                              "1.0.0-10",
                                              "1.0.0-18446744073709551616",
                                              "1.0.0-018446744073709551617",
                                              "1.0.0-",
                                              "1.0.0-.0",
                                              "1.0.0-A",
                                              "1.0.0-alpha",
                                              "1.0.0-alpha.1",
                                              "1.0.0-alpha.beta",
                                              "1.0.0-\xff",
                                              "1.0.0",
                                              "1.0.1-0",
                                              "1.10.0"};
  for (std::size_t i = 0; i < ascending.size(); ++i) {
    for (std::size_t j = 0; j < ascending.size(); ++j) {
      EXPECT_EQ(read(ascending[i]) < read(ascending[j]), i < j)
          << ascending[i] << ' ' << ascending[j];
    }
  }
}

// Unequal, and yet neither stands below the other.
TEST(VersionTest, orderLeavesOutWhatEqualityTells) {
  const std::vector<std::pair<std::string, std::string>> pairs = {{"1.0.0+a", "1.0.0+b"},
                                                                  {"1.0.0-a+1", "1.0.0-a"},
                                                                  {"1.0.0-01", "1.0.0-1"},
                                                                  {"1.0.0--0", "1.0.0-0"},
                                                                  {"1.0.0-01.5", "1.0.0-1.7"}};
  for (const auto& [a, b] : pairs) {
    EXPECT_NE(read(a), read(b));
    EXPECT_TRUE((read(a) <=> read(b)) == 0) << a << ' ' << b;
    EXPECT_NE(read(a).hashValue(), read(b).hashValue());
  }
}

TEST(VersionTest, hashMixesInOrder) {
  constexpr std::uint64_t factor = 0x9ddfea08eb382d69;
  std::uint64_t expected = (1 * factor ^ 2) * factor ^ 3;
  EXPECT_EQ(static_cast<std::uint64_t>(Version(1, 2, 3).hashValue()), expected);
  expected =
      (expected * factor ^ std::hash<std::string>()("a")) * factor ^ std::hash<std::string>()("b");
  EXPECT_EQ(static_cast<std::uint64_t>(read("1.2.3-a+b").hashValue()), expected);
}

TEST(VersionTest, neighbours) {
  EXPECT_EQ(read("1.2.3-beta+5").successor(), Version(1, 2, 4));
  EXPECT_EQ(read("1.2.3-beta+5").predecessor(), Version(1, 2, 2));
  EXPECT_EQ(Version(1, 2, 0).predecessor(), Version(1, 1, largest));
  EXPECT_EQ(Version(1, 0, 0).predecessor(), Version(0, largest, largest));
  EXPECT_DEATH(Version(1, 0, largest).successor(), "Fatal error: Arithmetic overflow");
  EXPECT_DEATH(read("0.0.0-a").predecessor(), "Fatal error: Version 0.0.0-a has no predecessor");
  EXPECT_DEATH(Version(1, -2, 3), "Version\\(1, -2, 3\\) has a negative number");
}

}  // namespace
