// Texts and streams for the tests of compression.
#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include <Tolvanite/Frame/ByteBuffer.h>

namespace tolvanite::testing {

/// The bytes that a text of hexadecimal digits tells; blanks are skipped.
inline std::string bytesOf(std::string_view digits) {
  std::string result;
  std::string pair;
  for (const char digit : digits) {
    if (digit == ' ') continue;
    pair += digit;
    if (pair.size() < 2) continue;
    result += static_cast<char>(std::stoi(pair, nullptr, 16));
    pair.clear();
  }
  return result;
}

inline std::string randomBytes(std::size_t count, unsigned seed) {
  std::mt19937 random(seed);
  std::string result(count, '\0');
  for (char& byte : result) byte = static_cast<char>(random());
  return result;
}

/// An array of records, of `size` bytes or a few more.
inline std::string jsonText(std::size_t size, unsigned seed) {
  std::mt19937 random(seed);
  std::string result = "[";
  while (result.size() < size) {
    result += "{\"id\":" + std::to_string(random() % 1000000) +
              ",\"visible\":" + (random() % 4 == 0 ? "true" : "false") + ",\"name\":\"n" +
              std::to_string(random() % 50) + "\"},";
  }
  return result + "{}]";
}

/// Texts of all sorts, among them those at the limits of the block forms.
inline std::vector<std::string> sampleTexts() {
  std::vector<std::string> result;
  for (const std::size_t size : {1, 7, 8, 9, 100, 4095, 4096, 4097, 8192, 150000}) {
    result.push_back(jsonText(size, 1).substr(0, size));
    result.push_back(randomBytes(size, 2));
    result.push_back(std::string(size, 'z'));
  }
  for (std::size_t period = 2; period <= 40; ++period) {
    const std::string unit = randomBytes(period, 3);
    while (result.back().size() < 700 * period) result.back() += unit;
  }
  // A match from as far as there can be one, and one from farther.
  const std::string unit = randomBytes(3000, 4);
  result.push_back(unit + std::string(262139 - 3000, '-') + unit + std::string(5, '+') + unit);
  // More literals than a block holds, then more triplets, then a match of a block's length.
  result.push_back(randomBytes(100000, 5) + jsonText(600000, 6) + std::string(30000000, 'x'));
  return result;
}

// Streams of other writers, with what they hold.
inline constexpr std::string_view wordsText =
    "tick tock, tick tock, tick-tick tick tock; tock tick tock, tick-tick";
inline const std::string wordsStream = bytesOf(
    "6276786e 44000000 24000000 eb 74 69 63 6b 20 74 6f 63 6b 2c 20 38 0b f5 58 10 2d 28 15 50 06"
    "3b 38 25 fa e1 6b 06 00 00 00 00 00 00 00 62767824");

inline constexpr std::string_view fruitText =
    "banana bandana, banana bandana; and an ananas banana!";
inline const std::string fruitStream = bytesOf(
    "62767832350000002400d0000003003096e265b3670a00709200000030bcb0070000fc0400700d9c035c"
    "03005c03c0fb00007c0fdf03000000000000000000000000001f0200000000000000f0933c010000f004"
    "000000c013000000000000000000c08bf43df0210000f0cc003c01000000000000000000000000000000"
    "000000000000000000000000000000000000000000c0b16355ed67dc21307b9002000000000000000008"
    "8b62767824");

}  // namespace tolvanite::testing
