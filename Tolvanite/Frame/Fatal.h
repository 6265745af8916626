// How the library ends the process: for programmers' mistakes and impossible states, with the
// message and the place on standard error, and without any chance of recovery.
//
//   if (index < 0) tolvanite::fatalFailure("index is negative");
#pragma once

#include <source_location>
#include <string_view>

#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// Writes "Fatal error: MESSAGE: file FILE, line LINE" and a line feed to standard error and
/// aborts the process. An empty message is left out together with its colon.
[[noreturn]] TOLVANITE_EXPORT void fatalFailure(
    std::string_view message, std::source_location location = std::source_location::current());

/// The fatal failure of an index that a sequence does not have: "Index INDEX out of range, COUNT
/// elements".
[[noreturn]] TOLVANITE_EXPORT void fatalIndexOutOfRange(
    Int index, Int count, std::source_location location = std::source_location::current());

/// The fatal failure of integer arithmetic that leaves its type: "Arithmetic overflow".
[[noreturn]] TOLVANITE_EXPORT void fatalOverflow(
    std::source_location location = std::source_location::current());

/// `a + b`, `a - b`, `a * b`; overflow is fatal.
/// @{
template <typename Integer>
constexpr Integer checkedAdd(Integer a, Integer b,
                             std::source_location location = std::source_location::current()) {
  Integer result;
  if (__builtin_add_overflow(a, b, &result)) fatalOverflow(location);
  return result;
}
template <typename Integer>
constexpr Integer checkedSubtract(Integer a, Integer b,
                                  std::source_location location = std::source_location::current()) {
  Integer result;
  if (__builtin_sub_overflow(a, b, &result)) fatalOverflow(location);
  return result;
}
template <typename Integer>
constexpr Integer checkedMultiply(Integer a, Integer b,
                                  std::source_location location = std::source_location::current()) {
  Integer result;
  if (__builtin_mul_overflow(a, b, &result)) fatalOverflow(location);
  return result;
}
/// @}

}  // namespace tolvanite
