#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include <Tolvanite/Compression/detail/FseTables.h>
#include <Tolvanite/Compression/detail/LzfseHeader.h>
#include <Tolvanite/Compression/detail/LzfseMatchFinder.h>

namespace tolvanite::detail::lzfse {

// Gathers the sequences of one block and writes it in the kind that makes it shortest.
class BlockWriter {
 public:
  // Starts a block at this place of the text.
  void start(const std::byte* text);

  // Takes as much of a sequence as there is room for and leaves the rest in it. True if nothing is
  // left; else the block is full.
  bool add(Sequence& sequence);

  std::size_t plainSize() const { return plainSize_; }
  bool isEmpty() const { return plainSize_ == 0; }

  // Writes the block behind `output`.
  void write(std::vector<std::byte>& output);

  // What a literal of the block last written with tables cost on average, in eighths of a bit; 0 if
  // there is none.
  int literalCost() const { return literalCost_; }

 private:
  bool addTriplet(std::size_t l, std::size_t m, std::size_t d);
  std::size_t writeMatches(std::byte* place);
  std::size_t writeLzvn(std::span<std::byte> room) const;
  void countSymbols();
  std::byte* writeLiterals(std::byte* place);
  std::byte* writeTriplets(std::byte* place);

  const std::byte* text_ = nullptr;
  std::size_t plainSize_ = 0;
  std::size_t literalCount_ = 0;
  std::size_t tripletCount_ = 0;
  int literalCost_ = 0;
  std::array<std::byte, mostLiterals> literals_;
  std::array<Triplet, mostTriplets> triplets_;  // with all distances
  Header header_;
  std::array<EncoderEntry, lengthSymbols> lTable_;
  std::array<EncoderEntry, lengthSymbols> mTable_;
  std::array<EncoderEntry, distanceSymbols> dTable_;
  std::array<EncoderEntry, literalSymbols> literalTable_;
};

}  // namespace tolvanite::detail::lzfse
