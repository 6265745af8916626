#include <Tolvanite/DataStructures/detail/BitWords.h>

#include <bit>

namespace tolvanite::detail {

namespace {

template <typename Words>
[[gnu::always_inline]] inline Int sumOfCounts(Words words) noexcept {
  Int result = 0;
  for (const BitWord word : words) result += std::popcount(word);
  return result;
}

#if defined(__x86_64__)
[[gnu::target("popcnt")]] Int countByInstruction(std::span<const BitWord> words) noexcept {
  return sumOfCounts(words);
}
#endif

}  // namespace

Int countOfSetBits(std::span<const BitWord> words) noexcept {
#if defined(__x86_64__)
  // The oldest processors of the kind lack the instruction, so the compiler does not use it
  // unasked.
  if (__builtin_cpu_supports("popcnt")) return countByInstruction(words);
#endif
  return sumOfCounts(words);
}

}  // namespace tolvanite::detail
