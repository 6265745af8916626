#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include <Tolvanite/Compression/detail/FseTables.h>
#include <Tolvanite/Compression/detail/LzfseHeader.h>
#include <Tolvanite/Compression/detail/WideCopy.h>

namespace tolvanite::detail::lzfse {

// Reads a block of matches: first all its literals and triplets, then the output in pieces as large
// as there is room.
class BlockDecoder {
 public:
  // Reads the block's payloads, which `block` holds behind its header. False if they are damaged
  // where reading can tell.
  bool open(const Header& header, std::span<const std::byte> block);

  bool isFinished() const { return next_ == end_; }

  // The room that the next step of `write` may need.
  static constexpr std::size_t mostStep = mostL + mostM + copySlack;

  // Writes from `place` on, until the block is finished or less than `mostStep` is left before
  // `limit`, and moves `place` to the end of what it wrote. Output of before stands from `history`
  // up to `place`. False if literals run out, a match reaches back too far, or it is not the size
  // that was promised.
  bool write(const std::byte* history, std::byte*& place, const std::byte* limit);

 private:
  bool makeTables(const Header& header);
  bool readPayloads(const Header& header, std::span<const std::byte> block);
  bool readPayloadsByBmi2(const Header& header, std::span<const std::byte> block);
  template <typename Machine>
  bool readPayloadsInline(const Header& header, std::span<const std::byte> block);

  alignas(64) std::array<LiteralEntry, literalStates> literalTable_{};
  std::array<ValueEntry, lengthStates> lTable_{};
  std::array<ValueEntry, lengthStates> mTable_{};
  std::array<ValueEntry, distanceStates> dTable_{};
  std::array<std::byte, mostLiterals + mostL + copySlack> literals_;
  std::array<Triplet, mostTriplets> triplets_;
  const std::byte* nextLiteral_ = nullptr;
  const std::byte* literalsEnd_ = nullptr;
  const Triplet* next_ = nullptr;
  const Triplet* end_ = nullptr;
  std::size_t plainLeft_ = 0;
};

}  // namespace tolvanite::detail::lzfse
