#include <Tolvanite/Text/PathTexts.h>

#include <algorithm>

#include <Tolvanite/Frame/Unicode.h>
#include <Tolvanite/Frame/detail/NameExtension.h>

namespace tolvanite {

namespace {

// A path without "/" at its end; the root stays "/".
std::string_view withoutEndingSlashes(std::string_view path) {
  while (path.size() > 1 && path.ends_with('/')) path.remove_suffix(1);
  return path;
}

struct PathParts {
  std::string_view stem;       // All up to the extension.
  std::string_view extension;  // Behind the ".", empty if there is none.
};

PathParts partsOf(std::string_view path) {
  path = withoutEndingSlashes(path);
  const std::size_t start = path.rfind('/') + 1;
  const std::size_t dot = detail::extensionDot(path.substr(start));
  if (dot == std::string_view::npos) return {path, {}};
  return {path.substr(0, start + dot), path.substr(start + dot + 1)};
}

std::string joined(std::string_view stem, std::string_view extension) {
  std::string result(stem);
  if (!extension.empty()) result.append(".").append(extension);
  return result;
}

}  // namespace

std::string stringByReplacingLastPathComponentWith(std::string_view path, std::string_view s) {
  path = withoutEndingSlashes(path);
  return std::string(path.substr(0, path.rfind('/') + 1)).append(s);
}

std::string tvStringByReplacingPathExtension(std::string_view path, std::string_view s) {
  return joined(partsOf(path).stem, s);
}

std::string tvStringByAppendingPathComponents(std::string_view path,
                                              const std::vector<std::string>& components) {
  std::string result(withoutEndingSlashes(path));
  for (std::string_view component : components) {
    component.remove_prefix(std::min(component.find_first_not_of('/'), component.size()));
    component = withoutEndingSlashes(component);
    if (component.empty()) continue;
    if (!result.empty() && !result.ends_with('/')) result += '/';
    result += component;
  }
  return result;
}

std::string tvAppendSuffixAtEndOfNameAndBeforeExtension(std::string_view path,
                                                        std::string_view suffix) {
  const auto [stem, extension] = partsOf(path);
  return joined(std::string(stem).append(suffix), extension);
}

std::string tvStringWithLowercasedExtension(std::string_view path) {
  const auto [stem, extension] = partsOf(path);
  return joined(stem, lowercased(extension));
}

FileNameParts extractBaseNameAndSixLetterSuffixAndExtension(std::string_view fileName) {
  constexpr std::size_t suffixLength = 6;
  const auto [stem, extension] = partsOf(fileName);
  FileNameParts result{std::string(stem), {}, {}};
  if (!extension.empty()) result.ext = std::string(extension);
  if (stem.size() <= suffixLength) return result;
  const std::string_view suffix = stem.substr(stem.size() - suffixLength);
  const auto isCapital = [](char byte) { return byte >= 'A' && byte <= 'Z'; };
  if (stem[stem.size() - suffixLength - 1] != '_' || !std::ranges::all_of(suffix, isCapital)) {
    return result;
  }
  result.basename.resize(stem.size() - suffixLength - 1);
  result.suffix = std::string(suffix);
  return result;
}

}  // namespace tolvanite
