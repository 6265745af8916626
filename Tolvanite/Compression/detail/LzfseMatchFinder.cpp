#include <Tolvanite/Compression/detail/LzfseMatchFinder.h>

#include <algorithm>
#include <bit>

#include <Tolvanite/Compression/detail/LittleEndian.h>

namespace tolvanite::detail::lzfse {

namespace {

constexpr int setBits = 14;

// Matches are found by their first four bytes. At the last places of a text, none is looked for, so
// that eight bytes can be read.
constexpr std::size_t leastCount = 4;
constexpr std::size_t unsearchedEnd = 8;

// A match as long as that is taken without looking for a better one.
constexpr std::size_t goodCount = 40;

// Costs in eighths of a bit: of a literal in an ordinary text; of L, M and the symbol of D; of a
// distance that is that of the match before.
constexpr int usualLiteralCost = 40;
constexpr int matchCost = 64;
constexpr int sameDistanceCost = 48;
constexpr int laterCost = 8;

// How many bytes are equal from two places on, of which `later` is the later, up to `end`.
std::size_t equalCount(const std::byte* earlier, const std::byte* later, const std::byte* end) {
  const std::byte* const start = later;
  while (end - later >= 8) {
    const auto difference =
        loadLittle<std::uint64_t>(earlier) ^ loadLittle<std::uint64_t>(later);
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
      sets_(std::size_t{1} << setBits) {}

MatchFinder::Set& MatchFinder::setAt(std::size_t place) {
  const auto bytes = loadLittle<std::uint32_t>(text_.data() + place);
  return sets_[(bytes * 2654435761U) >> (32 - setBits)];
}

void MatchFinder::enter(Set& set, std::size_t place) {
  for (std::size_t i = ways - 1; i > 0; --i) set[i] = set[i - 1];
  set[0] = static_cast<std::uint32_t>(place);
}

// Makes the match at `distance` the best one if there is one that gains more.
void MatchFinder::consider(Match& best, std::size_t place, std::size_t distance) const {
  const std::byte* const here = text_.data() + place;
  if (loadLittle<std::uint32_t>(here) != loadLittle<std::uint32_t>(here - distance)) return;
  const std::size_t count = equalCount(here - distance, here, text_.data() + text_.size());
  const int cost = distance == distance_
                       ? sameDistanceCost
                       : matchCost + 8 * static_cast<int>(std::bit_width(distance));
  const int gain = static_cast<int>(std::min<std::size_t>(count, 65536)) * literalCost_ - cost;
  if (gain > best.gain) best = {place, count, distance, gain};
}

// The best match at a place, which is entered.
MatchFinder::Match MatchFinder::best(std::size_t place) {
  Match result;
  const auto newest = static_cast<std::uint32_t>(place);
  const auto farthest = static_cast<std::uint32_t>(std::min<std::size_t>(place, mostD));
  if (distance_ != 0) consider(result, place, distance_);
  Set& set = setAt(place);
  for (const std::uint32_t earlier : set) {
    const std::uint32_t distance = newest - earlier;
    if (distance - 1 < farthest) consider(result, place, distance);
  }
  enter(set, place);
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

Sequence MatchFinder::next() {
  const std::size_t start = place_;
  std::size_t place = start;
  while (place < end_) {
    Match match = best(place++);
    if (match.gain == 0) continue;
    while (match.count < goodCount && place < end_) {
      const Match later = best(place++);
      if (later.gain <= match.gain + laterCost) break;
      match = later;
    }
    match = extendedBackward(match, start);
    place_ = match.place + match.count;
    for (const std::size_t end = std::min(place_, end_); place < end; ++place) enter(place);
    distance_ = match.distance;
    return {match.place - start, match.count, match.distance};
  }
  place_ = text_.size();
  return {place_ - start, 0, 0};
}

}  // namespace tolvanite::detail::lzfse
