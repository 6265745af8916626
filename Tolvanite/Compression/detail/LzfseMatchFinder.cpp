#include <Tolvanite/Compression/detail/LzfseMatchFinder.h>

#include <algorithm>
#include <bit>
#include <cstring>

#include <Tolvanite/Compression/detail/LittleEndian.h>

namespace tolvanite::detail::lzfse {

namespace {

// As many sets as a short text can fill, and no more than a second-level cache holds.
constexpr int leastSetBits = 6;
constexpr int mostSetBits = 14;

int setBitsFor(std::size_t textSize) {
  return std::clamp(static_cast<int>(std::bit_width(textSize)) - 2, leastSetBits, mostSetBits);
}

// Places are hashed by the lower six of the eight bytes that stand there. That finds fewer matches
// of four and five bytes, of which most do not pay, and more of the long ones.
constexpr int unhashedBits = 16;

// At the last places of a text, no match is looked for, so that eight bytes can be read.
constexpr std::size_t unsearchedEnd = 8;

// Of the places that a match covers, one in so many is entered.
constexpr std::size_t coveredStep = 2;

// A match as long as that is taken without looking for a better one.
constexpr std::size_t goodCount = 16;

// Costs in eighths of a bit: of a literal in an ordinary text; of L, M and the symbol of D; of a
// distance that is that of the match before.
constexpr int usualLiteralCost = 40;
constexpr int matchCost = 64;
constexpr int sameDistanceCost = 48;
constexpr int laterCost = 8;  // of a literal more before a match

// How many bytes are equal from two places on, of which `later` is the later, up to `end`.
std::size_t equalCount(const std::byte* earlier, const std::byte* later, const std::byte* end) {
  const std::byte* const start = later;
  while (end - later >= 8) {
    const auto difference = loadLittle<std::uint64_t>(earlier) ^ loadLittle<std::uint64_t>(later);
    if (difference != 0) {
      return static_cast<std::size_t>(later - start + std::countr_zero(difference) / 8);
    }
    earlier += 8;
    later += 8;
  }
  while (later != end && *earlier == *later) {
    ++earlier;
    ++later;
  }
  return static_cast<std::size_t>(later - start);
}

}  // namespace

MatchFinder::MatchFinder(std::span<const std::byte> text)
    : text_(text),
      end_(text.size() < unsearchedEnd ? 0 : text.size() - unsearchedEnd),
      literalCost_(usualLiteralCost),
      setShift_(64 - setBitsFor(text.size())),
      sets_(std::size_t{1} << (64 - setShift_)) {}

inline MatchFinder::Set& MatchFinder::setAt(std::uint64_t bytes) {
  return sets_[((bytes << unhashedBits) * 0x9E3779B97F4A7C15U) >> setShift_];
}

inline void MatchFinder::enter(Set& set, std::uint32_t bytes, Place place) {
  static_assert(ways == 4);
  set = {std::uint64_t{bytes} << 32 | place, set[0], set[1], set[2]};
}

inline void MatchFinder::enter(std::size_t place) {
  const auto bytes = loadLittle<std::uint64_t>(text_.data() + place);
  enter(setAt(bytes), static_cast<std::uint32_t>(bytes), static_cast<Place>(place));
}

// Makes the match at `distance` the best one if there is one that gains more.
inline void MatchFinder::consider(Match& best, std::size_t place, std::size_t distance) const {
  const std::byte* const here = text_.data() + place;
  // Places are considered in the order of their costs, so another has to give a longer match.
  if (place + best.count == text_.size() || here[best.count] != (here - distance)[best.count])
    return;
  const std::size_t count = equalCount(here - distance, here, text_.data() + text_.size());
  const int cost = distance == distance_
                       ? sameDistanceCost
                       : matchCost + 8 * static_cast<int>(std::bit_width(distance));
  const int gain = static_cast<int>(std::min<std::size_t>(count, 65536)) * literalCost_ - cost;
  if (gain > best.gain) best = {place, count, distance, gain};
}

// Looks for a better match among those places whose first four bytes are `first`.
void MatchFinder::lookIn(const Set& set, std::size_t place, std::uint32_t first,
                         Match& best) const {
  const auto farthest = static_cast<std::uint32_t>(std::min<std::size_t>(place, mostD));
  for (const std::uint64_t entry : set) {
    const std::uint32_t distance = static_cast<Place>(place) - static_cast<Place>(entry);
    if (entry >> 32 == first && distance - 1 < farthest) consider(best, place, distance);
  }
}

// The best match at a place, which is entered.
inline MatchFinder::Match MatchFinder::best(std::size_t place) {
  const auto bytes = loadLittle<std::uint64_t>(text_.data() + place);
  const auto first = static_cast<std::uint32_t>(bytes);
  Set& set = setAt(bytes);
  Match result;
  if (distance_ != 0 && loadLittle<std::uint32_t>(text_.data() + place - distance_) == first) {
    consider(result, place, distance_);
  }
  // Most places have no candidate, so that is found out without a branch for each entry.
  if ((set[0] >> 32 == first) | (set[1] >> 32 == first) | (set[2] >> 32 == first) |
      (set[3] >> 32 == first)) {
    lookIn(set, place, first, result);
  }
  enter(set, first, static_cast<Place>(place));
  return result;
}

MatchFinder::Match MatchFinder::extendedBackward(Match match, std::size_t start) const {
  while (match.place > start && match.place > match.distance &&
         text_[match.place - 1] == text_[match.place - 1 - match.distance]) {
    --match.place;
    ++match.count;
  }
  return match;
}

void MatchFinder::next(Sequence& sequence) {
  const std::size_t start = place_;
  Match match;
  std::size_t place = start;
  for (; place < end_; ++place) {
    const Match found = best(place);
    if (found.gain > match.gain + (match.gain > 0 ? laterCost : 0)) {
      match = found;
      if (match.count >= goodCount) break;
    } else if (match.gain > 0) {
      break;
    }
  }
  if (match.gain == 0) {
    place_ = text_.size();
    sequence = {place_ - start, 0, 0};
    return;
  }
  const std::size_t covered = std::min(match.place + match.count, end_);
  for (++place; place < covered; place += coveredStep) enter(place);
  match = extendedBackward(match, start);
  place_ = match.place + match.count;
  distance_ = match.distance;
  sequence.literalCount = match.place - start;
  sequence.count = match.count;
  sequence.distance = match.distance;
}

}  // namespace tolvanite::detail::lzfse
