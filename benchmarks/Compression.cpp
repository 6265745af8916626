#include <Tolvanite/Compression/Compression.h>

#include <cstddef>
#include <string>

#include <Tolvanite/Frame/ByteBuffer.h>

#include "CompressionDriver.h"

namespace bench {
namespace {

using tolvanite::ByteBuffer;
using tolvanite::Compression;

template <Compression compression>
struct Contender {
  static ByteBuffer pack(const std::string& text) {
    static const ByteBuffer buffer(text);
    return *compressed(buffer, compression);
  }
  static ByteBuffer unpack(const ByteBuffer& packed, std::size_t) {
    return *uncompressed(packed, compression);
  }
};

const bool lzfse = registerCompression<Contender<Compression::lzfse>>("tolvanite_lzfse");
const bool lz4 = registerCompression<Contender<Compression::lz4>>("tolvanite_lz4");
const bool zlib = registerCompression<Contender<Compression::zlib>>("tolvanite_zlib");

}  // namespace
}  // namespace bench
