#include <Tolvanite/Text/CharacterFiltering.h>

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <Tolvanite/Text/PathTexts.h>

namespace {

using namespace tolvanite;
using ::testing::ElementsAre;

TEST(CharacterSetTest, membersAndAlgebra) {
  const CharacterSet set("aé👩a");
  EXPECT_THAT(set.ranges(),
              ElementsAre(CharacterSet::Range{'a', 'a'}, CharacterSet::Range{0xE9, 0xE9},
                          CharacterSet::Range{0x1F469, 0x1F469}));
  const CharacterSet joined = CharacterSet{{'b', 'd'}, {0x70, 0x90}} | CharacterSet("aeé");
  EXPECT_THAT(joined.ranges(),
              ElementsAre(CharacterSet::Range{'a', 'e'}, CharacterSet::Range{0x70, 0x90},
                          CharacterSet::Range{0xE9, 0xE9}));
  const CharacterSet others = joined.inverted();
  for (const char32_t c :
       {U'`', U'a', U'e', U'f', U'\x7f', U'\x80', U'\x90', U'\x91', U'é', U'中'}) {
    EXPECT_NE(joined.contains(c), others.contains(c)) << static_cast<int>(c);
  }
  EXPECT_EQ(others.inverted(), joined);
  EXPECT_EQ(CharacterSet().inverted().ranges().front().last, 0x10FFFFU);
  EXPECT_TRUE(CharacterSet({{'b', 'a'}}).ranges().empty());
  EXPECT_EQ(CharacterSet({{0x80, 0xFFFFFFFF}, {0x90, 0x110000}, {0x110000, 0x110001}}).inverted(),
            CharacterSet({{0, 0x7F}}));
}

TEST(CharacterFilteringTest, replacesStripsAndTests) {
  const CharacterSet set("-é");
  const std::string text = "-a-é-\xc3\xff-";
  EXPECT_THAT(rangesOfCharacters(text, set),
              ElementsAre(IndexRange(0, 1), IndexRange(2, 3), IndexRange(3, 5), IndexRange(5, 6),
                          IndexRange(8, 9)));
  EXPECT_EQ(stringByReplacingCharacterFromSet(text, set, "→"), "→a→→→\xc3\xff→");
  EXPECT_EQ(stringByReplacingContinuousCharacterFromSet(text, set, "_"), "_a_\xc3\xff_");
  EXPECT_EQ(tvStringByStrippingCharactersInSet(text, set), "a\xc3\xff");
  EXPECT_EQ(tvStringByKeepingCharactersInSet(text, set), "--é--");
  EXPECT_EQ(trimmed(text, set), "a-é-\xc3\xff");
  EXPECT_EQ(trimmed("--é", set), "");
  EXPECT_TRUE(containsOnlyCharacters("é--", set) && containsOnlyCharacters("", set));
  EXPECT_FALSE(containsOnlyCharacters("-\xff", set) ||
               containsOnlyCharacters("\xff", set.inverted()));
  EXPECT_TRUE(containsNoCharacters("a\xc3", set));
  EXPECT_FALSE(containsNoCharacters("aé", set));
  EXPECT_TRUE(isBase32("abYZ27"));
  EXPECT_FALSE(isBase32("ab1") || isBase32("ab8") || isBase32("é"));
}

TEST(CharacterFilteringTest, fileNames) {
  EXPECT_EQ(tvSanetizeFilename("a(b):c"), "a_b__c");
  EXPECT_EQ(tvSanetizeFilenameWeaker("a(b):c"), "a(b)_c");
  EXPECT_EQ(tvSanetizeFilenameWeaker_Old("a(b):c"), "a(b)c");
  EXPECT_EQ(tvSanetizeFilename("():/\\%|\"<>?+&é.-"), std::string(13, '_') + "é.-");
  EXPECT_EQ(tvSanetizeFilenameWeaker("():/\\%|\"<>?+&"), "()___%______&");
  const auto& allowed = CharacterSet::URLTolvaniteAllCombinedAllowed();
  EXPECT_EQ(tvStringByKeepingCharactersInSet("a%z ^é\"~[]#?", allowed), "az~#?");
  EXPECT_FALSE(CharacterSet::tvPortableForFilesystemCharacterSet().contains('.'));
}

TEST(PathTextsTest, replacesParts) {
  struct Case {
    std::string path, last, extension, suffixed, lower;
  };
  for (const Case& c : std::vector<Case>{
           {"a/b.TXT", "a/c", "a/b.md", "a/b-2.TXT", "a/b.txt"},
           {"/b", "/c", "/b.md", "/b-2", "/b"},
           {"b.tar.GZ", "c", "b.tar.md", "b.tar-2.GZ", "b.tar.gz"},
           {"x.y/.profile", "x.y/c", "x.y/.profile.md", "x.y/.profile-2", "x.y/.profile"},
           {"a/b/", "a/c", "a/b.md", "a/b-2", "a/b"},
           {"", "c", ".md", "-2", ""},
           {"a/B\xff.\xffÄ", "a/c", "a/B\xff.md", "a/B\xff-2.\xffÄ", "a/B\xff.\xffä"}}) {
    SCOPED_TRACE(c.path);
    EXPECT_EQ(stringByReplacingLastPathComponentWith(c.path, "c"), c.last);
    EXPECT_EQ(tvStringByReplacingPathExtension(c.path, "md"), c.extension);
    EXPECT_EQ(tvAppendSuffixAtEndOfNameAndBeforeExtension(c.path, "-2"), c.suffixed);
    EXPECT_EQ(tvStringWithLowercasedExtension(c.path), c.lower);
  }
  EXPECT_EQ(stringByReplacingLastPathComponentWith("/", "c"), "/c");
  EXPECT_EQ(tvStringByReplacingPathExtension("a.txt", ""), "a");
  EXPECT_EQ(tvStringByAppendingPathComponents("/a/", {"b", "/c/d/", "", "/"}), "/a/b/c/d");
  EXPECT_EQ(tvStringByAppendingPathComponents("", {"b"}), "b");
  EXPECT_EQ(tvStringByAppendingPathComponents("/", {"b"}), "/b");
}

TEST(PathTextsTest, sixLetterSuffix) {
  const auto parts = extractBaseNameAndSixLetterSuffixAndExtension;
  EXPECT_EQ(parts("photo_ABCDEF.jpg"), (FileNameParts{"photo", "ABCDEF", "jpg"}));
  EXPECT_EQ(parts("_ABCDEF"), (FileNameParts{"", "ABCDEF", {}}));
  EXPECT_EQ(parts("a_b_ABCDEF"), (FileNameParts{"a_b", "ABCDEF", {}}));
  for (const std::string name :
       {"photo_ABCDE", "photo_ABCDEFG", "photoABCDEF", "a_ABCDEf", "ABCDEF"}) {
    EXPECT_EQ(parts(name + ".jpg"), (FileNameParts{name, {}, "jpg"}));
  }
}

}  // namespace
