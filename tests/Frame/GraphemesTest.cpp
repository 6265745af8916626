// The library's own splitting into characters, held against that of ICU.
#include <cstdint>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>
#include <unicode/brkiter.h>
#include <unicode/uchar.h>
#include <unicode/utext.h>
#include <unicode/utf8.h>

#include <Tolvanite/Frame/Unicode.h>

namespace {

using namespace tolvanite;

// The table is of one version of Unicode: another one has other characters.
bool hasOtherUnicodeVersion() {
  UVersionInfo version;
  u_getUnicodeVersion(version);
  return version[0] != 15 || version[1] != 0;
}

std::string utf8(std::uint32_t codePoint) {
  char bytes[4];
  std::int32_t length = 0;
  U8_APPEND_UNSAFE(bytes, length, codePoint);
  return {bytes, static_cast<std::size_t>(length)};
}

std::vector<std::string_view> charactersByIcu(std::string_view text) {
  UErrorCode status = U_ZERO_ERROR;
  static const std::unique_ptr<icu::BreakIterator> breaks(
      icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
  UText source = UTEXT_INITIALIZER;
  utext_openUTF8(&source, text.data(), static_cast<std::int64_t>(text.size()), &status);
  breaks->setText(&source, status);
  std::vector<std::string_view> result;
  std::int32_t start = 0;
  for (std::int32_t end = breaks->next(); end != icu::BreakIterator::DONE; end = breaks->next()) {
    result.push_back(
        text.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(end - start)));
    start = end;
  }
  utext_close(&source);
  return result;
}

// Texts before and behind which a code point shows its class: a member of each class, and what the
// longer rules need.
const std::vector<std::string>& neighbours() {
  static const std::vector<std::string> all = {
      "a",      "\r",      "\n",       "\u200b",         "\u0301",    "\u200d",  "\u0903",
      "\u0600", "🇩",       "🇩🇪",       "\u1100",         "\u1161",    "\u11a8",  "\uac00",
      "\uac01", "❤",       "👩\u200d", "👩\u0301\u200d", "क",         "क\u094d", "क\u094d\u200d",
      "\u094d", "\u094dक", "\u200dक",  "\u200d👩",       "\U000e0041"};
  return all;
}

// Splits all the texts in one, with control characters between them, and names the first that
// ICU splits otherwise.
void expectSameAsIcu(const std::vector<std::string>& texts) {
  std::string whole;
  for (const std::string& text : texts) whole += text + '\0';
  const auto ours = characters(whole), theirs = charactersByIcu(whole);
  if (ours == theirs && characterCount(whole) == static_cast<Int>(theirs.size())) return;
  for (const std::string& text : texts) {
    ASSERT_EQ(characters(text), charactersByIcu(text)) << testing::PrintToString(text);
  }
  FAIL() << "they differ only beside each other";
}

TEST(GraphemesTest, everyCodePointIsOfIcusClass) {
  if (hasOtherUnicodeVersion()) GTEST_SKIP() << "the table is of Unicode 15.0";
  for (const std::string& neighbour : neighbours()) {
    std::vector<std::string> texts;
    for (std::uint32_t codePoint = 1; codePoint < 0x110000; ++codePoint) {
      // The planes without assigned characters are seen at their edges.
      if (codePoint == 0x32400) codePoint = 0xdff80;
      if (codePoint == 0xe1080) codePoint = 0x10ff80;
      if (codePoint >= 0xd800 && codePoint < 0xe000) continue;
      const std::string text = utf8(codePoint);
      texts.push_back(neighbour + text + neighbour);
    }
    expectSameAsIcu(texts);
    if (HasFatalFailure()) return;
  }
}

TEST(GraphemesTest, randomSequencesAreSplitAsByIcu) {
  if (hasOtherUnicodeVersion()) GTEST_SKIP() << "the table is of Unicode 15.0";
  std::mt19937 random(17);
  std::vector<std::string> texts(40'000);
  for (std::string& text : texts) {
    const std::size_t pieces = random() % 12;
    for (std::size_t i = 0; i < pieces; ++i) {
      // Runs of ASCII of all lengths around that of a block, which is passed at once.
      text += random() % 4 == 0 ? std::string(random() % 20, 'x')
                                : neighbours()[random() % neighbours().size()];
    }
  }
  expectSameAsIcu(texts);
}

}  // namespace
