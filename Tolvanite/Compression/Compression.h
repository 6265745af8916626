// Compressed bytes: four algorithms in the stream forms in which files on the platform hold them.
//
//   const ByteBuffer text("to be or not to be, that is the question");
//   const ByteBuffer packed = *compressed(text, Compression::lzfse);
//   const Optional<ByteBuffer> same = uncompressed(packed, Compression::lzfse);
//   same == text                                        true
//   uncompressed(ByteBuffer("?"), Compression::lzfse)   absent
//
//   lz4     LZ4 blocks, each behind "bv41" or "bv4-", and "bv4$" at the end
//   zlib    a raw DEFLATE stream, without header and checksum
//   lzma    an xz container
//   lzfse   LZFSE blocks, each behind "bvx2" or the like, and "bvx$" at the end
//
// Bytes are never sniffed: the caller knows the algorithm. Any number of calls may run at once.
#pragma once

#include <iosfwd>

#include <Tolvanite/Frame/ByteBuffer.h>
#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// An algorithm, with the stream form that goes with it.
enum class Compression : int { lz4, zlib, lzma, lzfse };

/// Writes the name of the case, as "lzfse".
TOLVANITE_EXPORT std::ostream& operator<<(std::ostream& out, Compression compression);

/// Told from time to time, for long work, how many bytes of the source have been taken.
using CompressionProgress = Block<void(Int taken)>;

/// The bytes that were compressed. Absent if `source` is empty, is not of this algorithm's form, is
/// damaged where that can be seen, or ends before its form does; bytes behind that end are ignored.
/// LZFSE, LZ4 and DEFLATE have no checksum, so damage may go unseen. There is no limit on the
/// result, and a few bytes can stand for very many: a caller that reads what strangers wrote should
/// look at the size of the source first.
TOLVANITE_EXPORT Optional<ByteBuffer> uncompressed(const ByteBuffer& source,
                                                   Compression compression,
                                                   const CompressionProgress& progress = {});

/// The bytes in compressed form, which `uncompressed` reads back. Absent if `source` is empty.
TOLVANITE_EXPORT Optional<ByteBuffer> compressed(const ByteBuffer& source, Compression compression,
                                                 const CompressionProgress& progress = {});

}  // namespace tolvanite
