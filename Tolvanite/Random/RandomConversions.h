// Floating-point numbers from 64 random bits, of which the lowest are used.
//
//   halfOpenDoubleFrom64(generator.random64())    // 0 <= x < 1
#pragma once

#include <cstdint>

namespace tolvanite {

namespace detail {

// By way of a signed number, which the processor converts in one step.
constexpr double lowBits(std::uint64_t bits, std::uint64_t mask) {
  return static_cast<double>(static_cast<std::int64_t>(bits & mask));
}

}  // namespace detail

/// A number from 0, included, to 1, not included, in steps of 2^-53.
constexpr double halfOpenDoubleFrom64(std::uint64_t bits) {
  return detail::lowBits(bits, 0x1FFFFFFFFFFFFF) * 1.1102230246251565e-16;
}

/// A number from 0 to 1, both included, in steps of 1 / (2^53 - 1).
constexpr double closedDoubleFrom64(std::uint64_t bits) {
  return detail::lowBits(bits, 0x1FFFFFFFFFFFFF) * 1.1102230246251568e-16;
}

/// A number above 0 and below 0.5, but for the one in 2^52 that rounds to 0.5: 52 bits at the scale
/// of 53, deliberately, as other scales would give other streams.
constexpr double openDoubleFrom64(std::uint64_t bits) {
  return (detail::lowBits(bits, 0xFFFFFFFFFFFFF) + 0.5) * 1.1102230246251568e-16;
}

}  // namespace tolvanite
