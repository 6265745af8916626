#if defined(TOLVANITE_PEER_LZ4)

#include <cstddef>
#include <string>
#include <vector>

#include <lz4.h>

#include "../CompressionDriver.h"

// LZ4 in one call and one block.
namespace bench {
namespace {

struct Lz4 {
  static std::vector<char> pack(const std::string& text) {
    const int size = static_cast<int>(text.size());
    std::vector<char> result(static_cast<std::size_t>(LZ4_compressBound(size)));
    result.resize(static_cast<std::size_t>(
        LZ4_compress_default(text.data(), result.data(), size, static_cast<int>(result.size()))));
    return result;
  }
  static std::vector<char> unpack(const std::vector<char>& packed, std::size_t size) {
    std::vector<char> result(size);
    const int read = LZ4_decompress_safe(packed.data(), result.data(),
                                         static_cast<int>(packed.size()), static_cast<int>(size));
    result.resize(static_cast<std::size_t>(read));
    return result;
  }
};

const bool registered = registerCompression<Lz4>("lz4");

}  // namespace
}  // namespace bench

#endif
