#pragma once

#include <array>
#include <cinttypes>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>

#include "Workload.h"

// A large JSON text for benchmarks: a compact array of records with the kinds of members that
// documents have.
namespace bench {

inline void appendRecord(std::string& text, SplitMix64& random, std::size_t id) {
  const Item item = makeItem(random);
  const double x = random.unit() * 2000 - 1000;
  const double y = random.unit() * 2000 - 1000;
  std::array<char, 512> record;
  const int length = std::snprintf(
      record.data(), record.size(),
      "%s{\"id\":%zu,\"key\":\"%016" PRIx64 "\",\"name\":\"%s\",\"rank\":%.17g,\"group\":%" PRId64
      ",\"active\":%s,\"note\":null,\"tags\":[\"%s\",\"%s\",\"%s\"],\"pos\":{\"x\":%.17g,\"y\":"
      "%.17g}}",
      id == 0 ? "" : ",", id, item.key, item.name.c_str(), item.rank, item.group,
      item.group % 2 != 0 ? "true" : "false", item.name.substr(0, 4).c_str(),
      item.name.substr(4, 5).c_str(), item.name.substr(9, 6).c_str(), x, y);
  text.append(record.data(), static_cast<std::size_t>(length));
}

// At least `size` bytes.
inline std::string recordsText(std::size_t size) {
  SplitMix64 random(0xD1);
  std::string text = "[";
  for (std::size_t id = 0; text.size() < size; ++id) appendRecord(text, random, id);
  return text + "]";
}

}  // namespace bench
