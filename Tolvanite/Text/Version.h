// A semantic version: it reads from text and prints back the same, compares by precedence, hashes,
// and names its neighbours.
//
//   const Optional<Version> read = Version::fromText("1.2.3-alpha.1+build.5");
//   read->prereleaseIdentifiers()       // "alpha", "1"
//   read->buildMetadataIdentifier()     // "build.5"
//   if (*read < Version(1, 2, 3)) std::cout << *read << " is older\n";
//   Version(1, 2, 3, {"beta"}).successor()                   // 1.2.4
//
// Mind that `==` looks at everything and the order at less: it leaves the metadata out, and two
// identifiers such as "01" and "1" are one number to it. Two versions can be unequal while neither
// stands below the other.
#pragma once

#include <compare>
#include <cstddef>
#include <functional>
#include <iosfwd>
#include <memory>
#include <source_location>
#include <string>
#include <string_view>
#include <vector>

#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// A semantic version. Copies are made in constant time.
class TOLVANITE_EXPORT Version {
 public:
  /// 0.0.0.
  Version() noexcept = default;
  /// From its parts. A negative number is fatal: "Version(1, -2, 3) has a negative number".
  Version(Int major, Int minor, Int patch, std::vector<std::string> prereleaseIdentifiers = {},
          Optional<std::string> buildMetadataIdentifier = {},
          std::source_location location = std::source_location::current());

  /// Reads three numbers between dots, then maybe "-" and prerelease identifiers between dots, then
  /// maybe "+" and metadata. The numbers are decimal digits, and leading zeros count for nothing;
  /// identifiers and metadata are any text, even empty. Absent for any other text, and for a number
  /// that an `Int` can't hold. Deliberately absent is also metadata with a "-" where no prerelease
  /// stands before it, as in "1.2.3+build-5": the first "-" always begins the identifiers.
  static Optional<Version> fromText(std::string_view text);

  /// The three numbers, never negative.
  /// @{
  Int major() const noexcept { return major_; }
  Int minor() const noexcept { return minor_; }
  Int patch() const noexcept { return patch_; }
  /// @}
  /// What stands between the dots behind the "-"; empty for a release.
  const std::vector<std::string>& prereleaseIdentifiers() const noexcept {
    return texts().prereleaseIdentifiers;
  }
  /// What stands behind the "+", dots included.
  const Optional<std::string>& buildMetadataIdentifier() const noexcept {
    return texts().buildMetadataIdentifier;
  }

  /// The release with the next patch number. One beyond the largest `Int` is fatal.
  Version successor(std::source_location location = std::source_location::current()) const;
  /// The release with the patch number before this one. Before patch 0 comes the largest `Int`, of
  /// the minor number before, and likewise before minor 0: the predecessor of 1.0.0 is far above
  /// any real 0.x.y, deliberately. Fatal for 0.0.0: "Version 0.0.0 has no predecessor".
  Version predecessor(std::source_location location = std::source_location::current()) const;

  /// The form that `fromText` reads: "1.2.3-alpha.1+build.5".
  std::string description() const;

  /// By the numbers, the identifiers as texts, and the metadata, with a multiplication for each.
  Int hashValue() const noexcept;

  /// Whether all parts are the same texts and numbers.
  friend TOLVANITE_EXPORT bool operator==(const Version& a, const Version& b) noexcept;
  /// By the three numbers; then a prerelease stands below the release; then the first pair of
  /// identifiers that are not the same text decides: numbers, which may have any number of digits
  /// and a "-", by their value and below texts, texts by their bytes; then fewer identifiers stand
  /// below more. Metadata is left out.
  ///
  /// Equivalent are also versions whose deciding identifiers are one number, as "01" and "1":
  /// what follows them is not looked at. That is not transitive, and why the order is a partial
  /// one.
  friend TOLVANITE_EXPORT std::partial_ordering operator<=>(const Version& a,
                                                            const Version& b) noexcept;
  friend TOLVANITE_EXPORT std::ostream& operator<<(std::ostream& out, const Version& version);

 private:
  struct Texts {
    std::vector<std::string> prereleaseIdentifiers;
    Optional<std::string> buildMetadataIdentifier;

    friend bool operator==(const Texts&, const Texts&) = default;
  };

  const Texts& texts() const noexcept { return texts_ ? *texts_ : noTexts; }

  static const Texts noTexts;

  Int major_ = 0;
  Int minor_ = 0;
  Int patch_ = 0;
  // What follows the numbers, shared between copies. Absent where nothing does: most versions are
  // three numbers, which are quick to make and to move.
  std::shared_ptr<const Texts> texts_;
};

}  // namespace tolvanite

template <>
struct std::hash<tolvanite::Version> {
  std::size_t operator()(const tolvanite::Version& version) const noexcept {
    return static_cast<std::size_t>(version.hashValue());
  }
};
