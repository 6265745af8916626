#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include <Tolvanite/Compression/detail/LzfseFormat.h>

namespace tolvanite::detail::lzfse {

// Literals, and a match behind them, which has no length when the text ends first.
struct Sequence {
  std::size_t literalCount = 0;
  std::size_t count = 0;
  std::size_t distance = 0;
};

// Cuts a text into literals and matches, from its start to its end. A match is taken when it is
// thought to cost fewer bits than its bytes would as literals, and only after a look whether one
// that starts a little later saves more.
class MatchFinder {
 public:
  explicit MatchFinder(std::span<const std::byte> text);

  bool isFinished() const { return place_ == text_.size(); }

  // The next sequence, which has 1 byte or more; there must be something left.
  void next(Sequence& sequence);

  // What a literal is thought to cost from now on, in eighths of a bit.
  void setLiteralCost(int cost) { literalCost_ = cost; }

 private:
  // Places are counted modulo 2^32, which is good enough since the text is looked at in any case.
  using Place = std::uint32_t;

  // The newest places whose first six bytes hash alike, newest first; in the upper half of each,
  // the first four of these bytes.
  static constexpr std::size_t ways = 4;
  using Set = std::array<std::uint64_t, ways>;

  struct Match {
    std::size_t place = 0;
    std::size_t count = 0;
    std::size_t distance = 0;
    int gain = 0;  // in eighths of a bit; 0 if there is no match
  };

  Match best(std::size_t place);
  void lookIn(const Set& set, std::size_t place, std::uint32_t first, Match& best) const;
  Match extendedBackward(Match match, std::size_t start) const;
  void consider(Match& best, std::size_t place, std::size_t distance) const;
  Set& setAt(std::uint64_t bytes);
  void enter(std::size_t place);
  static void enter(Set& set, std::uint32_t bytes, Place place);

  std::span<const std::byte> text_;
  std::size_t place_ = 0;     // where the next sequence starts
  std::size_t end_;           // no match starts here or behind
  std::size_t distance_ = 0;  // of the match before
  int literalCost_;
  int setShift_;  // leaves of a hash of 64 bits what numbers the sets
  std::vector<Set> sets_;
};

}  // namespace tolvanite::detail::lzfse
