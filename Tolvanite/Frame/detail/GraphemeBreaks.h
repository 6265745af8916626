// Where user-perceived characters end: the rules for extended grapheme clusters as a table of
// classes of code points and a small automaton over the classes. The rules are those of Unicode's
// annex 29, and with them the conjuncts of six Indic scripts, as ICU's own rules have them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace tolvanite::detail {

/// What the rules know of a code point. The numbers stand in the generated table.
enum class GraphemeClass : std::uint8_t {
  other,
  carriageReturn,
  lineFeed,
  control,
  extend,
  linkingExtend,  // An extender that may stand within an Indic conjunct.
  linker,         // The virama that makes an Indic conjunct.
  joiner,         // Zero width joiner.
  spacingMark,
  prepend,
  regionalIndicator,
  hangulL,
  hangulV,
  hangulT,
  hangulLV,
  hangulLVT,
  pictograph,
  consonant,  // One that may be part of an Indic conjunct.
};
inline constexpr std::size_t graphemeClassCount = 18;

// The table has blocks of 128 code points. Behind the first two planes come the tags and variation
// selectors of plane 14; every other code point is of class `other`.
inline constexpr unsigned graphemeBlockBits = 7;
inline constexpr std::uint32_t graphemePlanesEnd = 0x20000;
inline constexpr std::uint32_t graphemeTagsStart = 0xE0000;
inline constexpr std::uint32_t graphemeTagsEnd = 0xE1000;

// In GraphemeTable.cpp, which tools/writeGraphemeTable.cpp writes.
extern const std::uint8_t graphemeBlockIndexes[];
extern const std::uint8_t graphemeBlocks[];

inline GraphemeClass graphemeClass(std::uint32_t codePoint) {
  if (codePoint >= graphemePlanesEnd) {
    if (codePoint < graphemeTagsStart || codePoint >= graphemeTagsEnd) return GraphemeClass::other;
    codePoint = codePoint - graphemeTagsStart + graphemePlanesEnd;
  }
  const std::size_t block = graphemeBlockIndexes[codePoint >> graphemeBlockBits];
  const std::size_t place = codePoint & ((1U << graphemeBlockBits) - 1);
  return static_cast<GraphemeClass>(graphemeBlocks[(block << graphemeBlockBits) + place]);
}

/// What of the text before a code point decides whether a character ends between the two.
enum class GraphemeState : std::uint8_t {
  any,  // A character ends here whatever follows.
  carriageReturn,
  other,
  prepend,
  oddIndicators,
  hangulL,
  hangulV,
  hangulT,
  pictograph,
  joinedPictograph,
  consonant,
  linkedConsonant,
};
inline constexpr std::size_t graphemeStateCount = 12;

/// A step of the automaton.
struct GraphemeStep {
  GraphemeState next;
  bool breaks;  // Whether a character ends before the code point.
};

// The state behind a code point that nothing before it has a hold on.
constexpr GraphemeState stateBehind(GraphemeClass next) {
  using enum GraphemeClass;
  switch (next) {
    case carriageReturn:
      return GraphemeState::carriageReturn;
    case lineFeed:
    case control:
      return GraphemeState::any;
    case prepend:
      return GraphemeState::prepend;
    case regionalIndicator:
      return GraphemeState::oddIndicators;
    case hangulL:
      return GraphemeState::hangulL;
    case hangulV:
    case hangulLV:
      return GraphemeState::hangulV;
    case hangulT:
    case hangulLVT:
      return GraphemeState::hangulT;
    case pictograph:
      return GraphemeState::pictograph;
    case consonant:
      return GraphemeState::consonant;
    default:
      return GraphemeState::other;
  }
}

// The state behind an extender or a joiner that belongs to the character before it.
constexpr GraphemeState stateBehindExtender(GraphemeState state, GraphemeClass next) {
  using enum GraphemeState;
  if (state == pictograph) return next == GraphemeClass::joiner ? joinedPictograph : pictograph;
  if (state != consonant && state != linkedConsonant) return other;
  if (next == GraphemeClass::extend) return other;
  return next == GraphemeClass::linker ? linkedConsonant : state;
}

constexpr GraphemeStep graphemeStep(GraphemeState state, GraphemeClass next) {
  using enum GraphemeClass;
  const GraphemeState behind = stateBehind(next);
  if (state == GraphemeState::any) return {behind, true};
  if (state == GraphemeState::carriageReturn) return {behind, next != lineFeed};
  switch (next) {
    case carriageReturn:
    case lineFeed:
    case control:
      return {behind, true};
    case extend:
    case linkingExtend:
    case linker:
    case joiner:
      return {stateBehindExtender(state, next), false};
    case spacingMark:
      return {GraphemeState::other, false};
    default:
      break;
  }
  const bool isSyllable = next == hangulLV || next == hangulLVT;
  switch (state) {
    case GraphemeState::prepend:
      return {behind, false};
    case GraphemeState::oddIndicators:
      if (next == regionalIndicator) return {GraphemeState::other, false};
      break;
    case GraphemeState::hangulL:
      return {behind, next != hangulL && next != hangulV && !isSyllable};
    case GraphemeState::hangulV:
      return {behind, next != hangulV && next != hangulT};
    case GraphemeState::hangulT:
      return {behind, next != hangulT};
    case GraphemeState::joinedPictograph:
      return {behind, next != pictograph};
    case GraphemeState::linkedConsonant:
      return {behind, next != consonant};
    default:
      break;
  }
  return {behind, true};
}

// All steps, each in a byte: the state, and a bit for the break.
inline constexpr std::uint8_t graphemeBreakBit = 0x80;
inline constexpr std::size_t graphemeStepRow = 32;
inline constexpr auto graphemeSteps = [] {
  std::array<std::uint8_t, graphemeStateCount * graphemeStepRow> steps{};
  for (std::size_t state = 0; state < graphemeStateCount; ++state) {
    for (std::size_t next = 0; next < graphemeClassCount; ++next) {
      const GraphemeStep step =
          graphemeStep(static_cast<GraphemeState>(state), static_cast<GraphemeClass>(next));
      const int bits = static_cast<int>(step.next) | (step.breaks ? graphemeBreakBit : 0);
      steps[state * graphemeStepRow + next] = static_cast<std::uint8_t>(bits);
    }
  }
  return steps;
}();

}  // namespace tolvanite::detail
