#include <Tolvanite/Foundation/Pascription.h>

#include <array>
#include <filesystem>
#include <iterator>
#include <ostream>

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <Tolvanite/Frame/Assertions.h>
#include <Tolvanite/Frame/Error.h>
#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/FileManager.h>
#include <Tolvanite/Frame/TextForm.h>
#include <Tolvanite/Frame/Unicode.h>
#include <Tolvanite/Platform/StandardPlaces.h>

namespace tolvanite {

namespace {

using Base = Pascription::Base;
using Texts = std::vector<std::string>;

struct NamedCase {
  std::string_view name;
  std::array<std::string_view, 2> tokens;  // Empty where there is none.
};

// In the order of the cases. The two cases without tokens can be made in code only.
constexpr std::array<NamedCase, 14> namedCases = {{
    {"appGroup", {}},
    {"bundle", {}},
    {"home", {"$HD$", "$HOME$"}},
    {"desktop", {"$DESKTOP$"}},
    {"documents", {"$DOCUMENTS$"}},
    {"applicationSupport", {"$AS$", "$APPLICATION_SUPPORT$"}},
    {"applicationSupport_MainBundleIdentifier", {"$ASMBI$"}},
    {"caches", {"$CACHES$"}},
    {"caches_MainBundleIdentifier", {"$CACHESMBI$"}},
    {"systemCurrentUserHome", {"$xHD$"}},
    {"temp", {"$TEMP$"}},
    {"testBundle_Resources", {"$TBRD$"}},
    {"mainBundle_Resources", {"$MBRD$"}},
    {"privateDocuments", {}},
}};

constexpr std::string_view groupStart = "$GROUP$";

// Splits at each "/" and keeps the empty pieces.
Texts piecesOf(std::string_view text) {
  Texts result;
  for (std::size_t start = 0;;) {
    const std::size_t end = text.find('/', start);
    result.emplace_back(text.substr(start, end - start));
    if (end == std::string_view::npos) return result;
    start = end + 1;
  }
}

void removeEmpty(Texts& texts) {
  std::erase_if(texts, [](const std::string& text) { return text.empty(); });
}

Texts nonEmptyPiecesOf(const Texts& texts) {
  Texts result;
  for (const std::string& text : texts)
    std::ranges::move(piecesOf(text), std::back_inserter(result));
  removeEmpty(result);
  return result;
}

// Whether the piece begins with "$GROUP$" and ends with "$", by characters: a sign that a mark is
// joined to is another one.
bool looksLikeGroup(std::string_view piece) {
  return characterPrefix(piece, std::ssize(groupStart)) == groupStart &&
         characterSuffix(piece, 1) == "$";
}

// The root that a piece names, absent if it names none.
Optional<Base> tryParseBase(const std::string& piece) {
  for (std::size_t i = 0; i < namedCases.size(); ++i) {
    for (const std::string_view token : namedCases[i].tokens) {
      if (!token.empty() && piece == token) return Base(static_cast<Base::Case>(i));
    }
  }
  if (piece == groupStart || !looksLikeGroup(piece)) return {};
  return Base::appGroup(std::string(
      droppingFirstCharacters(droppingLastCharacters(piece, 1), std::ssize(groupStart))));
}

Base parseBaseString(const std::string& piece) {
  Optional<Base> base = tryParseBase(piece);
  if (base) return *std::move(base);
  if (piece == groupStart) {
    fatalFailure(fmt::format("Inverted range: characters 7 to 6 of \"{}\"", piece));
  }
  fatalFailure("Unkonw RootDirDescription: " + piece);
}

FileLocation resources(const std::optional<std::filesystem::path>& path,
                       std::string_view missingText) {
  if (!path) fatalFailure(missingText);
  return FileLocation::directory(*path);
}

FileLocation bundleResources(const StandardPlaces& places, const std::string& identifier) {
  const auto bundle = places.bundle(identifier);
  if (!bundle) fatalFailure(fmt::format("There is no bundle \"{}\"", identifier));
  return resources(bundle->resources,
                   fmt::format("NSBundle(identifier: \"{}\")!.resourceURL is nil)", identifier));
}

FileLocation testBundleResources(const StandardPlaces& places) {
  const Texts identifiers = places.bundleIdentifiers();
  for (const std::string& identifier : identifiers) {
    if (identifier.find("UnitTests") == std::string::npos) continue;
    const auto bundle = places.bundle(identifier);
    return resources(bundle ? bundle->resources : std::nullopt,
                     fmt::format("The test bundle \"{}\" has no resources", identifier));
  }
  fatalFailure("Cannot find testBundle! " + textForm(identifiers));
}

FileLocation groupContainer(const StandardPlaces& places, const std::string& identifier) {
  const auto container = places.groupContainer(identifier);
  if (container) return FileLocation::directory(*container);
  fatalFailure(fmt::format("Can't get containerURLForSecurityApplicationGroupIdentifier(\"{}\")",
                           identifier));
}

FileLocation standardDirectory(const StandardPlaces& places, StandardDirectory code) {
  const auto directory = places.standardDirectory(code);
  if (directory) return FileLocation::directory(*directory);
  fatalFailure(
      fmt::format("The user has no standard directory of code {}", static_cast<int>(code)));
}

FileLocation folderOfMainBundle(const StandardPlaces& places, StandardDirectory code) {
  const FileLocation directory = standardDirectory(places, code);
  const auto identifier = places.mainBundleIdentifier();
  if (!identifier) fatalFailure("The main bundle has no identifier");
  return directory.appendingPathComponent(*identifier, true);
}

// The first three pieces of the home, as in "/Users/me". Homes of two pieces, as "/root", have no
// answer here, deliberately: what they would give is no user's home.
FileLocation currentUserHome(const StandardPlaces& places) {
  const std::string home = places.homeDirectory().native();
  Texts pieces = piecesOf(home);
  if (pieces.size() < 3) fatalFailure(fmt::format("The home \"{}\" has fewer than 3 pieces", home));
  pieces.resize(3);
  return FileLocation::directory(fmt::format("{}", fmt::join(pieces, "/")));
}

FileLocation resolved(const Base& base) {
  using enum Base::Case;
  const auto shared = standardPlaces();
  const StandardPlaces& places = *shared;
  switch (base.rootCase()) {
    case appGroup:
      return groupContainer(places, base.identifier());
    case bundle:
      return bundleResources(places, base.identifier());
    case home:
      return FileLocation::directory(places.homeDirectory());
    case desktop:
      return standardDirectory(places, StandardDirectory::desktop);
    case documents:
      return standardDirectory(places, StandardDirectory::documents);
    case applicationSupport:
      return standardDirectory(places, StandardDirectory::applicationSupport);
    case applicationSupport_MainBundleIdentifier:
      return folderOfMainBundle(places, StandardDirectory::applicationSupport);
    case caches:
      return standardDirectory(places, StandardDirectory::caches);
    case caches_MainBundleIdentifier:
      return folderOfMainBundle(places, StandardDirectory::caches);
    case systemCurrentUserHome:
      return currentUserHome(places);
    case temp:
      return FileLocation::directory(places.temporaryDirectory());
    case testBundle_Resources:
      return testBundleResources(places);
    case mainBundle_Resources:
      return resources(places.mainBundleResources(), "The main bundle has no resources");
    case privateDocuments:
      return standardDirectory(places, StandardDirectory::library)
          .appendingPathComponent("PrivateDocuments", true);
  }
  fatalFailure("Impossible root of a Pascription");
}

}  // namespace

Pascription::Base::Base(Case rootCase) : case_(rootCase) {
  if (rootCase == Case::appGroup || rootCase == Case::bundle) {
    fatalFailure("Pascription::Base needs an identifier: " + description());
  }
}

std::string Pascription::Base::description() const {
  const std::string_view name = namedCases[static_cast<std::size_t>(case_)].name;
  if (case_ != Case::appGroup && case_ != Case::bundle) return std::string(name);
  return fmt::format("{}(\"{}\")", name, identifier_);
}

std::ostream& operator<<(std::ostream& out, const Pascription::Base& base) {
  return out << base.description();
}

Pascription::Pascription(Base base, Texts texts)
    : base_(std::move(base)), components(std::move(texts)) {
  removeEmpty(components);
}

Pascription::Pascription(const Texts& texts)
    : base_(Base::home), components(nonEmptyPiecesOf(texts)) {
  if (components.empty()) fatalFailure("A path description without a first element");
  base_ = parseBaseString(components.front());
  components.erase(components.begin());
}

Optional<Pascription> Pascription::tryParse(std::string_view text) {
  Texts pieces = nonEmptyPiecesOf({std::string(text)});
  if (pieces.empty()) return {};
  Optional<Base> base = tryParseBase(pieces.front());
  if (!base) return {};
  pieces.erase(pieces.begin());
  return Pascription(*std::move(base), std::move(pieces));
}

Pascription Pascription::group(std::string_view identifier) {
  return Pascription(fmt::format("{}{}$", groupStart, identifier));
}

Pascription Pascription::appending(const Texts& texts) const {
  Texts all = components;
  all.insert(all.end(), texts.begin(), texts.end());
  return Pascription(all);
}

FileLocation Pascription::vendUrl(const FileManager* fm, bool createDirIfNonExistant) const {
  FileLocation result = resolved(base_);
  for (const std::string& component : components) {
    result = result.appendingPathComponent(component);
  }
  if (!createDirIfNonExistant) return result;
  try {
    (fm != nullptr ? *fm : Fm).createDirectory(result.filesystemPath());
  } catch (const Error& error) {
    TolvaniteCoding::importantLog(
        fmt::format("Couldn't create dir {}: {}", result.path(), textForm(error)));
  }
  return result;
}

std::string Pascription::description() const {
  return fmt::format("TvPathDescription({} {} components: {})", base_.description(),
                     components.size(), fmt::join(components, ","));
}

std::ostream& operator<<(std::ostream& out, const Pascription& pascription) {
  return out << pascription.description();
}

}  // namespace tolvanite

std::size_t std::hash<tolvanite::Pascription>::operator()(
    const tolvanite::Pascription& pascription) const noexcept {
  const std::hash<std::string> hashOf;
  auto result = static_cast<std::size_t>(pascription.base().rootCase());
  result = result * 31 + hashOf(pascription.base().identifier());
  for (const std::string& component : pascription.components)
    result = result * 31 + hashOf(component);
  return result;
}
