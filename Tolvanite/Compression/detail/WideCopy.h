#pragma once

#include <cstddef>
#include <cstring>

// Copies in wide steps, which write and read some bytes beyond what is asked for.
namespace tolvanite::detail {

inline constexpr std::size_t copyStep = 16;

// So many bytes behind the last one must be there to be read and to be overwritten.
inline constexpr std::size_t copySlack = 3 * copyStep;

inline void copyOneStep(std::byte* to, const std::byte* from) { std::memcpy(to, from, copyStep); }

// From another buffer. Most runs are short, so two steps are made before the length is looked at.
inline void copyRun(std::byte* to, const std::byte* from, std::size_t count) {
  copyOneStep(to, from);
  copyOneStep(to + copyStep, from + copyStep);
  for (std::size_t done = 2 * copyStep; done < count; done += copyStep) {
    copyOneStep(to + done, from + done);
  }
}

// Repeats what stands `distance`, 1 or more, before `to`, byte by byte in effect: where the
// distance is less than the count, the copy repeats what it has written itself.
inline void copyMatch(std::byte* to, std::size_t distance, std::size_t count) {
  const std::byte* const from = to - distance;
  if (distance >= copyStep) {
    copyRun(to, from, count);
    return;
  }
  for (std::size_t i = 0; i < copyStep; ++i) to[i] = from[i];
  if (count <= copyStep) return;
  // The smallest multiple of the period that is no less than a step.
  const std::size_t multiple = (copyStep + distance - 1) / distance * distance;
  for (std::size_t done = copyStep; done < count; done += copyStep) {
    copyOneStep(to + done, to + done - multiple);
  }
}

}  // namespace tolvanite::detail
