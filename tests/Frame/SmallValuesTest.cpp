#include <bit>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_set>

#include <gtest/gtest.h>

#include <Tolvanite/Frame/LowercasedStringWrapper.h>
#include <Tolvanite/Frame/MemoryAddress.h>
#include <Tolvanite/Frame/NamedAction.h>
#include <Tolvanite/Frame/NamedLink.h>
#include <Tolvanite/Frame/NamedSection.h>
#include <Tolvanite/Frame/NamedSortBlock.h>
#include <Tolvanite/Frame/NamedThingy.h>
#include <Tolvanite/Frame/Pair.h>
#include <Tolvanite/Frame/TextForm.h>

using namespace tolvanite;

namespace {

TEST(SmallValuesTest, reversedSortingInvertsTheAnswerAndNotTheArguments) {
  const NamedSortBlock<int> up{"x", [](const int& a, const int& b) { return a < b; }};
  const auto down = up.reversed();
  EXPECT_EQ(down.code, "x_reversed");
  EXPECT_TRUE(down.reverse);
  EXPECT_TRUE(down.sortBlock(2, 1) && down.sortBlock(1, 1) && !down.sortBlock(1, 2));

  const auto again = down.reversed();
  EXPECT_EQ(again.code, "x_reversed_reversed");
  EXPECT_FALSE(again.reverse);
  EXPECT_TRUE(again.sortBlock(1, 2) && !again.sortBlock(1, 1));

  const NamedSortBlock<int> other{"x", std::greater<>(), true};
  EXPECT_EQ(up, other) << "the code alone counts";
  EXPECT_NE(up, down);
  EXPECT_EQ((std::unordered_set<NamedSortBlock<int>>{up, other}).size(), 1U);
}

TEST(SmallValuesTest, compareByTheirFields) {
  EXPECT_LT(Pair<int>(1, 9), Pair<int>(2, 0));
  EXPECT_LT(Pair<int>(1, 2), Pair<int>(1, 3));
  EXPECT_EQ((std::unordered_set<Pair<int>>{{1, 2}, {2, 1}, {1, 2}}).size(), 2U);
  EXPECT_EQ(textForm(Pair<std::string>("a", "b")), "(\"a\", \"b\")");
  using Thingy = NamedThingy<int>;
  EXPECT_EQ((std::unordered_set<Thingy>{{1, "a"}, {2, "a"}, {1, "a"}, {1, "b"}}).size(), 3U);
}

TEST(SmallValuesTest, actionsLinksAndSections) {
  const TitledAction save("Save", [] {});
  EXPECT_EQ(save.code() + save.title(), "SaveSave");
  EXPECT_EQ(TitledAction("file.save", "Save", [] {}).title(), "Save");

  const NamedLink file("Manual", FileLocation("/usr/share"));
  const NamedLink web("Manual", "https://example.org/");
  EXPECT_EQ(file.urlText(), "file:///usr/share");
  EXPECT_EQ(web.urlText(), "https://example.org/");
  EXPECT_EQ((std::unordered_set<NamedLink>{file, web, file}).size(), 2U);

  const auto section = NamedSection::make("Top", {}, {{"Rewind", [] {}}});
  EXPECT_EQ(section->headerText, "Top");
  EXPECT_FALSE(section->footerText.has_value() || section->code.has_value());
  EXPECT_EQ(section->namedActions.at(0).name(), "Rewind");
}

TEST(MemoryAddressTest, printsSixteenLowerCaseDigits) {
  EXPECT_EQ(MemoryAddress(std::bit_cast<char*>(std::uintptr_t{0xABCDEF0123})).description(),
            "0x000000abcdef0123");
  const auto object = std::make_shared<int>(3);
  EXPECT_EQ(MemoryAddress(object), MemoryAddress(object.get()));
  EXPECT_EQ(MemoryAddress(std::shared_ptr<int>()).description(), "0x0000000000000000");
}

TEST(LowercasedStringWrapperTest, comparesTheLowerCaseForms) {
  const LowercasedStringWrapper upper("\u00C4BC");
  const LowercasedStringWrapper lower("\u00E4bc");
  EXPECT_EQ(upper, lower);
  EXPECT_EQ(std::hash<LowercasedStringWrapper>{}(upper),
            std::hash<LowercasedStringWrapper>{}(lower));
  EXPECT_LT(LowercasedStringWrapper("a"), LowercasedStringWrapper("B"));
  LowercasedStringWrapper partOfItself("A Text That Is Too Long To Stand In The String Itself");
  partOfItself.setString(std::string_view(partOfItself.lowercased()).substr(2));
  EXPECT_EQ(partOfItself.string(), "text that is too long to stand in the string itself");
  partOfItself.setString("XY");
  EXPECT_EQ(partOfItself.lowercased(), "xy");
}

}  // namespace
