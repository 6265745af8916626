#if defined(TOLVANITE_PEER_ZSTD)

#include <cstddef>
#include <string>
#include <vector>

#include <zstd.h>

#include "../CompressionDriver.h"

// Zstandard in one call, at its fastest usual level and at the one that it takes by itself.
namespace bench {
namespace {

template <int level>
struct Zstd {
  static std::vector<char> pack(const std::string& text) {
    std::vector<char> result(ZSTD_compressBound(text.size()));
    result.resize(ZSTD_compress(result.data(), result.size(), text.data(), text.size(), level));
    return result;
  }
  static std::vector<char> unpack(const std::vector<char>& packed, std::size_t size) {
    std::vector<char> result(size);
    result.resize(ZSTD_decompress(result.data(), size, packed.data(), packed.size()));
    return result;
  }
};

const bool fastest = registerCompression<Zstd<1>>("zstd_1");
const bool usual = registerCompression<Zstd<3>>("zstd_3");

}  // namespace
}  // namespace bench

#endif
