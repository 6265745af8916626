#include <Tolvanite/Compression/Compression.h>

#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <Tolvanite/Frame/TextForm.h>

#include <tests/Compression/Samples.h>

namespace {

using namespace tolvanite;
using namespace tolvanite::testing;

const std::vector<Compression> all = {Compression::lz4, Compression::zlib, Compression::lzma,
                                      Compression::lzfse};

std::string decoded(std::string_view stream, Compression compression) {
  const Optional<ByteBuffer> result = uncompressed(ByteBuffer(stream), compression);
  return result ? std::string(result->text()) : "refused";
}

TEST(Compression, GivesBackWhatWasCompressed) {
  for (const std::string& text : sampleTexts()) {
    for (const Compression compression : all) {
      // Slow by nature, and the size changes nothing in it.
      if (compression == Compression::lzma && text.size() > 1000000) continue;
      const auto packed = compressed(ByteBuffer(text), compression);
      ASSERT_TRUE(packed) << compression;
      EXPECT_TRUE(decoded(packed->text(), compression) == text) << compression << text.size();
    }
  }
}

TEST(Compression, UsesTheFormsOfThePlatform) {
  EXPECT_EQ(decoded(bytesOf("4b4c4a0600"), Compression::zlib), "abc");
  EXPECT_EQ(decoded("bv4-" + bytesOf("03000000") + "abcbv4$", Compression::lz4), "abc");
  // A match of 8 bytes, 3 back, that begins in the block before; and the block's last literals.
  EXPECT_EQ(decoded("bv4-" + bytesOf("03000000") + "abc" + "bv41" +
                        bytesOf("0d000000 09000000 04 0300 50") + "xyzab" + "bv4$",
                    Compression::lz4),
            "abcabcabcabxyzab");

  const ByteBuffer text("{\"a\":1}");
  EXPECT_EQ(compressed(text, Compression::lz4)->text(),
            "bv4-" + bytesOf("07000000") + "{\"a\":1}bv4$");
  EXPECT_TRUE(compressed(text, Compression::lzma)->text().starts_with(bytesOf("fd377a585a00")));
  EXPECT_EQ(textForm(Compression::lzfse), "lzfse");
}

TEST(Compression, RefusesWhatIsNoWholeStream) {
  const std::string text = jsonText(9000, 1);
  for (const Compression compression : all) {
    EXPECT_FALSE(compressed(ByteBuffer(), compression)) << compression;
    EXPECT_FALSE(uncompressed(ByteBuffer(), compression)) << compression;
    EXPECT_EQ(decoded("\x07 no stream of any kind", compression), "refused") << compression;
    const ByteBuffer packed = *compressed(ByteBuffer(text), compression);
    for (std::size_t size = 1; size < packed.size(); size += 1 + packed.size() / 500) {
      EXPECT_EQ(decoded(packed.text().substr(0, size), compression), "refused")
          << compression << " " << size;
    }
    // What stands behind the end is of no concern.
    EXPECT_EQ(decoded(std::string(packed.text()) + "more", compression), text) << compression;
  }
}

TEST(Compression, RefusesWrongLz4Blocks) {
  const auto packed = [](std::string_view digits) {
    return decoded("bv41" + bytesOf(digits) + "bv4$", Compression::lz4);
  };
  EXPECT_EQ(packed("03000000 04000000 30 616263"), "abc");
  EXPECT_EQ(packed("02000000 04000000 30 616263"), "refused");
  EXPECT_EQ(packed("04000000 04000000 30 616263"), "refused");
  EXPECT_EQ(packed("ffffffff 04000000 30 616263"), "refused");
  EXPECT_EQ(packed("ffffff7f 04000000 30 616263"), "refused");
  EXPECT_EQ(packed("03000000 ff000000 30 616263"), "refused");
  EXPECT_EQ(packed("0c000000 09000000 00 0900 50 78797a6162"), "refused");  // before the start
}

TEST(Compression, TellsItsProgress) {
  const ByteBuffer text(jsonText(500000, 3));
  for (const Compression compression : all) {
    std::vector<Int> told;
    const auto note = [&told](Int taken) { told.push_back(taken); };
    const ByteBuffer packed = *compressed(text, compression, note);
    ASSERT_FALSE(told.empty()) << compression;
    EXPECT_GE(told.front(), 0) << compression;
    EXPECT_LE(told.back(), text.count()) << compression;
    told.clear();
    EXPECT_EQ(uncompressed(packed, compression, note), text);
    EXPECT_GT(told.size(), 100U) << compression;
    EXPECT_TRUE(std::ranges::is_sorted(told)) << compression;
    EXPECT_LE(told.back(), packed.count()) << compression;
  }
}

}  // namespace
