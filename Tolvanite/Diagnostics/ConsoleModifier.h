// A set of ways in which a terminal shows a text, beside its colour.
//
//   ConsoleModifier loud = ConsoleModifier::bold | ConsoleModifier::underscored;
#pragma once

#include <cstddef>
#include <functional>
#include <ostream>
#include <string>

#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// A set of bold, blinking, inversed and underscored.
class TOLVANITE_EXPORT ConsoleModifier {
 public:
  /// The sets of one member.
  /// @{
  static const ConsoleModifier bold, blinking, inversed, underscored;
  /// @}

  /// The empty set.
  constexpr ConsoleModifier() = default;
  /// The set of the bits of `rawValue`; unknown bits are kept and show nothing.
  constexpr explicit ConsoleModifier(Int rawValue) : rawValue_(rawValue) {}

  /// The bits of the members: 1, 2, 4 and 8 in the order of their declaration.
  constexpr Int rawValue() const { return rawValue_; }
  /// Whether there is no member.
  constexpr bool isEmpty() const { return rawValue_ == 0; }
  /// Whether every member of `other` is in this set.
  constexpr bool contains(ConsoleModifier other) const {
    return (rawValue_ & other.rawValue_) == other.rawValue_;
  }

  /// The ANSI fragments of the members, in the order bold, blinking, inversed, underscored.
  std::string fragments() const;
  /// The names of the members in that order: "[bold, underscored]".
  std::string description() const;

  /// The members of either set.
  friend constexpr ConsoleModifier operator|(ConsoleModifier a, ConsoleModifier b) {
    return ConsoleModifier(a.rawValue_ | b.rawValue_);
  }
  /// The members of both sets.
  friend constexpr ConsoleModifier operator&(ConsoleModifier a, ConsoleModifier b) {
    return ConsoleModifier(a.rawValue_ & b.rawValue_);
  }
  constexpr ConsoleModifier& operator|=(ConsoleModifier other) { return *this = *this | other; }
  constexpr ConsoleModifier& operator&=(ConsoleModifier other) { return *this = *this & other; }
  constexpr bool operator==(const ConsoleModifier&) const = default;
  friend std::ostream& operator<<(std::ostream& out, const ConsoleModifier& modifier) {
    return out << modifier.description();
  }

 private:
  Int rawValue_ = 0;
};

inline constexpr ConsoleModifier ConsoleModifier::bold{1};
inline constexpr ConsoleModifier ConsoleModifier::blinking{2};
inline constexpr ConsoleModifier ConsoleModifier::inversed{4};
inline constexpr ConsoleModifier ConsoleModifier::underscored{8};

}  // namespace tolvanite

template <>
struct std::hash<tolvanite::ConsoleModifier> {
  std::size_t operator()(const tolvanite::ConsoleModifier& modifier) const noexcept {
    return std::hash<tolvanite::Int>{}(modifier.rawValue());
  }
};
