// The namespace `q`: switches that keep both sides of a branch in the code while one of them is
// tried out, and a plain sleep.
//
//   if (q::alwaysTrue()) drawNew(); else drawOld();
#pragma once

#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// Switches and a sleep.
struct TOLVANITE_EXPORT q {
  q() = delete;

  /// Blocks the calling thread for that many seconds. What is not above zero returns at once.
  static void sleep(double seconds);

  /// Always true, or always false, for a branch to be switched by hand.
  /// @{
  static bool trueVar() { return true; }
  static bool falseVar() { return false; }
  static bool t() { return true; }
  static bool f() { return false; }
  static bool alwaysTrue() { return true; }
  static bool alwaysFalse() { return false; }
  /// @}

  /// Whether a value was given.
  static bool methodHasParameter(const Optional<Int>& value = std::nullopt) {
    return value.isSome();
  }
};

/// A value that can be made anywhere and is worth nothing but its number.
struct qkill {
  /// 2912.
  Int value;

  constexpr qkill() : value(2912) {}
};

/// Drops a value, so that a result can be discarded visibly.
template <typename T>
constexpr void qignore(T&&) noexcept {}

}  // namespace tolvanite
