#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <Tolvanite/Compression/Compression.h>
#include <Tolvanite/Compression/detail/BitStrings.h>

#include <tests/Compression/Samples.h>

namespace {

using namespace tolvanite;
using namespace tolvanite::testing;

const std::string endBlock = "bvx$";

// The plain text of a stream, or "refused".
std::string decoded(std::string_view stream) {
  const Optional<ByteBuffer> result = uncompressed(ByteBuffer(stream), Compression::lzfse);
  return result ? std::string(result->text()) : "refused";
}

std::string encoded(std::string_view text) {
  return std::string(compressed(ByteBuffer(text), Compression::lzfse)->text());
}

std::string little(std::uint64_t number, std::size_t size) {
  std::string result;
  for (; size > 0; --size, number >>= 8) result += static_cast<char>(number & 0xff);
  return result;
}

std::string stored(std::string_view text) {
  return "bvx-" + little(text.size(), 4) + std::string(text);
}

std::string lzvn(std::size_t plainSize, std::string_view digits) {
  const std::string payload = bytesOf(digits);
  return "bvxn" + little(plainSize, 4) + little(payload.size(), 4) + payload;
}

// What the fields of a "bvx1" block of the fruit text hold.
struct PlainTablesBlock {
  std::size_t plainSize = 53;
  std::size_t literalCount = 36;
  std::size_t tripletCount = 3;
  std::size_t literalPayloadSize = 13;
  std::size_t tripletPayloadSize = 10;
  std::size_t literalBits = static_cast<std::size_t>(-4);
  std::size_t tripletBits = 0;
  std::vector<std::size_t> literalStates = {662, 376, 822, 414};
  std::vector<std::size_t> tripletStates = {48, 47, 123};
  std::vector<std::pair<std::size_t, std::size_t>> l = {{9, 43}, {16, 21}};
  std::vector<std::pair<std::size_t, std::size_t>> literal = {
      {0x00, 57},  {0x20, 171}, {0x21, 28}, {0x2c, 28},  {0x3b, 28},
      {0x61, 314}, {0x62, 85},  {0x64, 57}, {0x6e, 228}, {0x73, 28}};

  static std::string table(std::size_t count,
                           const std::vector<std::pair<std::size_t, std::size_t>>& frequencies) {
    std::string result(2 * count, '\0');
    for (const auto& [symbol, value] : frequencies) result.replace(2 * symbol, 2, little(value, 2));
    return result;
  }

  std::string bytes() const {
    std::string result = "bvx1";
    for (const std::size_t field :
         {plainSize, literalPayloadSize + tripletPayloadSize, literalCount, tripletCount,
          literalPayloadSize, tripletPayloadSize, literalBits}) {
      result += little(field, 4);
    }
    for (const std::size_t state : literalStates) result += little(state, 2);
    result += little(tripletBits, 4);
    for (const std::size_t state : tripletStates) result += little(state, 2);
    result += table(20, l) + table(20, {{0, 22}, {5, 21}, {14, 21}}) +
              table(64, {{1, 86}, {9, 85}, {10, 85}}) + table(256, literal) + "??";
    return result + fruitStream.substr(fruitStream.size() - 27);
  }
};

TEST(Lzfse, ReadsEveryKindOfBlock) {
  EXPECT_EQ(decoded(endBlock), "");
  EXPECT_EQ(decoded(stored("null") + endBlock), "null");
  EXPECT_EQ(decoded(wordsStream), wordsText);
  EXPECT_EQ(decoded(fruitStream), fruitText);
  EXPECT_EQ(decoded(PlainTablesBlock().bytes()), fruitText);

  // All kinds in a stream, with matches into the blocks before and bytes behind the end.
  const std::string fruit = fruitStream.substr(0, fruitStream.size() - 4);
  const std::string back = lzvn(10, "38 35 06 00 00 00 00 00 00 00");
  const std::string plainTables = PlainTablesBlock().bytes();
  EXPECT_EQ(decoded(stored("") + fruit + back + plainTables.substr(0, plainTables.size() - 4) +
                    stored("!") + wordsStream + fruitStream),
            std::string(fruitText) + std::string(fruitText).substr(0, 10) + std::string(fruitText) +
                "!" + std::string(wordsText));
}

TEST(Lzfse, RefusesStreamsThatEndEarly) {
  for (const std::string& stream :
       {wordsStream, fruitStream, PlainTablesBlock().bytes(), encoded(jsonText(3000, 9))}) {
    for (std::size_t size = 0; size < stream.size(); ++size) {
      EXPECT_EQ(decoded(std::string_view(stream).substr(0, size)), "refused") << size;
    }
  }
}

TEST(Lzfse, RefusesWrongFields) {
  const auto edited = [](auto edit) {
    PlainTablesBlock block;
    edit(block);
    return decoded(block.bytes());
  };
  using B = PlainTablesBlock;
  EXPECT_EQ(edited([](B& b) { b.plainSize = 52; }), "refused");
  EXPECT_EQ(edited([](B& b) { b.plainSize = 54; }), "refused");
  EXPECT_EQ(edited([](B& b) { b.plainSize = 0xffffffff; }), "refused");
  EXPECT_EQ(edited([](B& b) { b.literalCount = 35; }), "refused");
  EXPECT_EQ(edited([](B& b) { b.literalCount = 32; }), "refused");
  EXPECT_EQ(edited([](B& b) { b.literalCount = 40000; }), "refused");
  EXPECT_EQ(edited([](B& b) { b.literalCount = 40004; }), "refused");
  EXPECT_EQ(edited([](B& b) { b.tripletCount = 2; }), "refused");
  EXPECT_EQ(edited([](B& b) { b.tripletCount = 10000; }), "refused");
  EXPECT_EQ(edited([](B& b) { b.tripletCount = 10001; }), "refused");
  EXPECT_EQ(edited([](B& b) { b.literalPayloadSize = 0xfffffff0; }), "refused");
  EXPECT_EQ(edited([](B& b) { b.tripletPayloadSize = 7; }), "refused");
  EXPECT_EQ(edited([](B& b) { b.literalBits = static_cast<std::size_t>(-7); }), "refused");
  EXPECT_EQ(edited([](B& b) { b.literalBits = static_cast<std::size_t>(-8); }), "refused");
  EXPECT_EQ(edited([](B& b) { b.tripletBits = 0x7fffffff; }), "refused");
  EXPECT_EQ(edited([](B& b) { b.literalStates[3] = 1024; }), "refused");
  EXPECT_EQ(edited([](B& b) { b.tripletStates[0] = 64; }), "refused");
  EXPECT_EQ(edited([](B& b) { b.tripletStates[1] = 64; }), "refused");
  EXPECT_EQ(edited([](B& b) { b.tripletStates[2] = 256; }), "refused");
  EXPECT_EQ(edited([](B& b) { b.l[0].second = 42; }), "refused");
  EXPECT_EQ(edited([](B& b) { b.l[0].second = 44; }), "refused");
  EXPECT_EQ(edited([](B& b) { b.literal[0].second = 65535; }), "refused");

  // Of the coded form: a header of 31 bytes, one that misses a byte of its tables or has one more,
  // one without tables, an unknown magic.
  for (const std::size_t size : {31, 32, 145, 147, 0x7fffffff}) {
    EXPECT_EQ(decoded(std::string(fruitStream).replace(24, 4, little(size, 4))), "refused") << size;
  }
  EXPECT_EQ(decoded("bvx3" + fruitStream.substr(4)), "refused");
  EXPECT_EQ(decoded("bvx-" + little(5, 4) + endBlock), "refused");
}

// Bytes are cut off where a payload starts, which is where reading it ends. Several texts, so that
// the payloads end together and one long before the other.
TEST(Lzfse, RefusesPayloadsThatRunOutOfBits) {
  for (unsigned seed = 0; seed < 20; ++seed) {
    const std::string text = jsonText(20000, seed) + randomBytes(1000 * seed, seed);
    const std::string stream = encoded(text);
    const auto word = [&stream](std::size_t place) {
      std::uint64_t result = 0;
      std::memcpy(&result, stream.data() + place, sizeof result);
      return result;
    };
    const std::size_t literals = word(24) & 0xffffffff;
    const std::size_t triplets = literals + (word(8) >> 20 & 0xfffff);
    const auto without = [&](std::size_t cut, std::size_t start, std::size_t place, int shift) {
      const std::uint64_t sizes = word(place) - (std::uint64_t{cut} << shift);
      return decoded(std::string(stream).replace(place, 8, little(sizes, 8)).erase(start, cut));
    };
    for (const std::size_t cut : {1, 8, 9, 50, 500}) {
      EXPECT_TRUE(without(cut, literals, 8, 20) == "refused") << seed << " " << cut;
      // 8 bytes of padding come first.
      EXPECT_TRUE(without(cut, triplets, 16, 40) == (cut <= 8 ? text : "refused"))
          << seed << " " << cut;
    }
  }
}

TEST(Lzfse, RefusesWrongInstructions) {
  const std::string end = "06 00000000000000";
  const std::vector<std::pair<std::string, std::string>> payloads = {
      {"match before the start", "e4 61626364 07 05 00" + end},
      {"distance 0", "e4 61626364 00 00" + end},
      {"match without a distance", "e4 61626364 f3" + end},
      {"same distance without one", "e4 61626364 46 62" + end},
      {"undefined", "e4 61626364 1e" + end},
      {"undefined high", "e4 61626364 70 01" + end},
      {"more than promised", "e4 61626364 f9 00 08 04" + end},
      {"no end", "e4 61626364 00 04"},
      {"short end", "e4 61626364 00 04 06 00"},
      {"bytes behind the end", "e4 61626364 00 04" + end + "00"},
      {"literals beyond the payload", "ef 61626364"},
      {"opcode cut", "e4 61626364 a0 00"},
      {"nothing", ""}};
  for (const auto& [name, payload] : payloads) {
    EXPECT_EQ(decoded(lzvn(7, payload) + endBlock), "refused") << name;
  }
  EXPECT_EQ(decoded(lzvn(7, "e4 61626364 00 04" + end) + endBlock), "abcdabc");
  EXPECT_EQ(decoded(lzvn(8, "e4 61626364 00 04" + end) + endBlock), "refused");
  EXPECT_EQ(decoded(lzvn(0, end) + endBlock), "refused");
}

// Whatever a changed byte makes of a stream, reading it ends, and gives nothing that is not there.
TEST(Lzfse, SurvivesChangedBytes) {
  for (const std::string& stream :
       {wordsStream, fruitStream, PlainTablesBlock().bytes(), encoded(jsonText(4200, 10))}) {
    const std::size_t size = decoded(stream).size();
    for (std::size_t place = 4; place < stream.size() - 4; ++place) {
      for (const int change : {1, 0x10, 0x80, 0xff}) {
        std::string changed = stream;
        changed[place] = static_cast<char>(changed[place] ^ change);
        const std::string text = decoded(changed);
        EXPECT_TRUE(text == "refused" || text.size() == size) << place << " " << change;
      }
    }
  }
}

// Only one of them reads, as the processor is.
TEST(Lzfse, BitsAreMaskedAlikeByAllMachines) {
  using namespace detail::lzfse;
  const std::uint64_t word = 0xfedcba9876543210;
  for (std::uint64_t count = 0; count < lowBits.size(); ++count) {
    const std::uint64_t entry = count | 0xabcdef00;
    EXPECT_EQ(PlainMachine::lowest(word, entry), word % (std::uint64_t{1} << count)) << count;
#if defined(__x86_64__)
    if (__builtin_cpu_supports("bmi2") == 0) continue;
    EXPECT_EQ(Bmi2Machine::lowest(word, entry), PlainMachine::lowest(word, entry)) << count;
#endif
  }
}

TEST(Lzfse, WritesTheShortestKind) {
  EXPECT_EQ(encoded("null"), stored("null") + endBlock);
  EXPECT_EQ(encoded(std::string(wordsText)).substr(0, 4), "bvxn");
  const std::string noise = randomBytes(30000, 7);
  EXPECT_EQ(encoded(noise), stored(noise) + endBlock);
  const std::string text = encoded(jsonText(30000, 8));
  EXPECT_EQ(text.substr(0, 4), "bvx2");
  EXPECT_LT(text.size(), 30000U / 4);
}

// Streams of the form's first writer, and sizes that it reaches. They are no part of the sources;
// the environment tells where they are.
class LzfseDataTest : public ::testing::Test {
 protected:
  void SetUp() override {
    const char* place = std::getenv("TOLVANITE_TEST_DATA");
    if (place == nullptr) GTEST_SKIP() << "TOLVANITE_TEST_DATA names no folder";
    folder_ = place;
  }

  std::string content(const std::filesystem::path& name) const {
    std::ifstream stream(folder_ / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }

  // The rows of a table, without its heading.
  std::vector<std::vector<std::string>> rows(const std::filesystem::path& name) const {
    std::vector<std::vector<std::string>> result;
    std::ifstream stream(folder_ / name);
    for (std::string line; std::getline(stream, line);) {
      auto& row = result.emplace_back(1);
      for (const char character : line) {
        if (character == '\t')
          row.emplace_back();
        else
          row.back() += character;
      }
    }
    EXPECT_GT(result.size(), 1U) << name;
    if (!result.empty()) result.erase(result.begin());
    return result;
  }

 private:
  std::filesystem::path folder_;
};

TEST_F(LzfseDataTest, GoodStreamsAreRead) {
  for (const auto& row : rows("lzfse/MANIFEST.tsv")) {
    const std::string text = decoded(content("lzfse/" + row[0] + ".lzfse"));
    EXPECT_EQ(std::to_string(text.size()), row[1]) << row[0];
    if (row[5] == "kept") {
      EXPECT_TRUE(text == content("lzfse/" + row[0] + ".bin")) << row[0];
    }
  }
}

TEST_F(LzfseDataTest, HostileStreamsAreRefused) {
  for (const auto& row : rows("lzfse/hostile/HOSTILE.tsv")) {
    EXPECT_EQ(decoded(content("lzfse/hostile/" + row[0] + ".lzfse")), "refused") << row[0];
  }
}

TEST_F(LzfseDataTest, DocumentsShrinkAsMuchAsElsewhere) {
  for (const auto& row : rows("json/SIZES.tsv")) {
    const std::string text = content("json/" + row[0] + ".json");
    EXPECT_TRUE(decoded(content("json/" + row[0] + ".jzip")) == text) << row[0];
    const std::string packed = encoded(text);
    EXPECT_TRUE(decoded(packed) == text) << row[0];
    EXPECT_LE(static_cast<double>(packed.size()), std::stod(row[2]) * 1.03) << row[0];
  }
}

}  // namespace
