// A symbolic path: a place on disk told as a well-known root and the components below it. It can
// be written in code, in settings or in JSON without knowing the user's home, a sandbox or how the
// program is installed, and becomes a file location only at the moment of use.
//
//   const Pascription notes("$DOCUMENTS$/notes/today.txt");
//   const Pascription same(Pascription::Base::documents, "notes", "today.txt");
//   std::ofstream(notes.vendUrl().filesystemPath()) << "Hello";
//
// The text form is "$BASE$/a/b/c". A description that can't be read or resolved is a mistake of
// the program and fatal; for texts that come from outside there is `tryParse`.
//
//   "$HD$" or "$HOME$"                   the home of the process
//   "$DESKTOP$", "$DOCUMENTS$"           the user's folders
//   "$AS$" or "$APPLICATION_SUPPORT$"    application support
//   "$CACHES$"                           caches
//   "$ASMBI$", "$CACHESMBI$"             the folder of the main bundle's identifier in these two
//   "$xHD$"                              the user's home, also within a sandbox
//   "$TEMP$"                             the temporary directory
//   "$TBRD$", "$MBRD$"                   the resources of the unit test bundle, of the main bundle
//   "$GROUP$" + identifier + "$"         the container of an application group
#pragma once

#include <compare>
#include <concepts>
#include <functional>
#include <iosfwd>
#include <ranges>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <Tolvanite/Frame/FileLocation.h>
#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

class FileManager;

namespace detail {

template <typename T>
concept PathText = std::convertible_to<const T&, std::string_view>;

template <typename T>
concept RangeOfPathTexts = !PathText<T> && std::ranges::input_range<const T> &&
                           PathText<std::ranges::range_value_t<const T>>;

}  // namespace detail

class TOLVANITE_EXPORT Pascription {
 public:
  /// The root of a path.
  class TOLVANITE_EXPORT Base {
   public:
    /// All roots there are. Their texts stand at the top of this file.
    enum class Case {
      appGroup,
      bundle,
      home,
      desktop,
      documents,
      applicationSupport,
      applicationSupport_MainBundleIdentifier,
      caches,
      caches_MainBundleIdentifier,
      systemCurrentUserHome,
      temp,
      testBundle_Resources,
      mainBundle_Resources,
      privateDocuments,
    };
    /// The cases without an identifier, so that `Base::home` can be written.
    /// @{
    static constexpr Case home = Case::home;
    static constexpr Case desktop = Case::desktop;
    static constexpr Case documents = Case::documents;
    static constexpr Case applicationSupport = Case::applicationSupport;
    static constexpr Case applicationSupport_MainBundleIdentifier =
        Case::applicationSupport_MainBundleIdentifier;
    static constexpr Case caches = Case::caches;
    static constexpr Case caches_MainBundleIdentifier = Case::caches_MainBundleIdentifier;
    static constexpr Case systemCurrentUserHome = Case::systemCurrentUserHome;
    static constexpr Case temp = Case::temp;
    static constexpr Case testBundle_Resources = Case::testBundle_Resources;
    static constexpr Case mainBundle_Resources = Case::mainBundle_Resources;
    static constexpr Case privateDocuments = Case::privateDocuments;
    /// @}

    /// The container of an application group.
    static Base appGroup(std::string identifier) { return {Case::appGroup, std::move(identifier)}; }
    /// The resources of a bundle.
    static Base bundle(std::string identifier) { return {Case::bundle, std::move(identifier)}; }

    /// A root without an identifier; fatal for the two cases that have one.
    Base(Case rootCase);

    /// Which root it is.
    Case rootCase() const noexcept { return case_; }
    /// The identifier of a group or bundle; empty for the other cases.
    const std::string& identifier() const noexcept { return identifier_; }

    /// The name of the case, with the identifier if it has one: `home`, `appGroup("abc")`.
    std::string description() const;

    friend bool operator==(const Base&, const Base&) = default;
    friend std::strong_ordering operator<=>(const Base&, const Base&) = default;
    friend TOLVANITE_EXPORT std::ostream& operator<<(std::ostream& out, const Base& base);

   private:
    Base(Case rootCase, std::string identifier)
        : case_(rootCase), identifier_(std::move(identifier)) {}

    Case case_;
    std::string identifier_;
  };

  /// A root and the components below it, of which the empty ones are left out. A "/" inside of a
  /// component stays in it.
  /// @{
  template <detail::PathText... Texts>
  explicit Pascription(Base base, const Texts&... texts)
      : Pascription(std::move(base), std::vector<std::string>{text(texts)...}) {}
  Pascription(Base base, std::vector<std::string> texts);
  /// @}

  /// Reads the text form. Each text is split at every "/", empty pieces are dropped, and the first
  /// piece that is left is the root. Fatal if none is left, or with "Unkonw RootDirDescription: "
  /// and the first piece if that is no root.
  /// @{
  template <detail::PathText... Texts>
    requires(sizeof...(Texts) > 0)
  explicit Pascription(const Texts&... texts)
      : Pascription(std::vector<std::string>{text(texts)...}) {}
  template <detail::RangeOfPathTexts Range>
  explicit Pascription(const Range& texts) : Pascription(textsOf(texts)) {}
  explicit Pascription(const std::vector<std::string>& texts);
  /// @}

  /// Reads the text form as the constructor does, but is absent where that is fatal.
  static Optional<Pascription> tryParse(std::string_view text);

  /// The container of an application group, read from "$GROUP$" + `identifier` + "$".
  static Pascription group(std::string_view identifier);

  /// A new description read from this one's components and the given ones behind them, as from
  /// the texts of the constructor.
  ///
  /// The root of this description is deliberately not carried over: the first component is read
  /// as the root. So this is for descriptions whose first component is a root's text itself;
  /// "$HOME$/a" with "b" appended stops at the unknown root "a".
  /// @{
  template <detail::PathText... Texts>
  [[nodiscard]] Pascription pascriptionByAppending(const Texts&... texts) const {
    return appending({text(texts)...});
  }
  template <detail::RangeOfPathTexts Range>
  [[nodiscard]] Pascription pascriptionByAppending(const Range& texts) const {
    return appending(textsOf(texts));
  }
  /// @}

  /// The same as `pascriptionByAppending`.
  template <typename... Texts>
  [[nodiscard]] Pascription append2(const Texts&... texts) const {
    return pascriptionByAppending(texts...);
  }

  /// The root.
  const Base& base() const noexcept { return base_; }

  /// The file location as the system's places are now. Fatal if the root can't be found. With
  /// `createDirIfNonExistant` it is made a directory, with those above it, by the file manager `fm`
  /// or the default one; if that fails, an important line is logged and the location given all
  /// the same.
  FileLocation vendUrl(const FileManager* fm = nullptr, bool createDirIfNonExistant = false) const;

  /// As "TvPathDescription(home 2 components: a,b)".
  std::string description() const;

  friend bool operator==(const Pascription&, const Pascription&) = default;
  friend std::strong_ordering operator<=>(const Pascription&, const Pascription&) = default;
  friend TOLVANITE_EXPORT std::ostream& operator<<(std::ostream& out,
                                                   const Pascription& pascription);

 private:
  static std::string text(std::string_view view) { return std::string(view); }

  template <typename Range>
  static std::vector<std::string> textsOf(const Range& range) {
    std::vector<std::string> result;
    for (const auto& element : range) result.push_back(text(element));
    return result;
  }

  Pascription appending(const std::vector<std::string>& texts) const;

  Base base_;

 public:
  /// The path below the root. What is assigned here is taken as it is, empty texts included.
  std::vector<std::string> components;
};

}  // namespace tolvanite

template <>
struct std::hash<tolvanite::Pascription> {
  TOLVANITE_EXPORT std::size_t operator()(const tolvanite::Pascription& pascription) const noexcept;
};
