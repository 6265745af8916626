#include <Tolvanite/Text/HtmlEntities.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/detail/ByteBlock.h>
#include <Tolvanite/Frame/detail/CodePoints.h>
#include <Tolvanite/Text/detail/BlockOutput.h>
#include <Tolvanite/Text/detail/HtmlEntityTable.h>
#include <Tolvanite/Text/detail/WholeNumber.h>

namespace tolvanite {

namespace {

using detail::BlockOutput;
using detail::ByteBlock;

std::string_view escaped(char byte) {
  switch (byte) {
    case '&':
      return "&amp;";
    case '"':
      return "&quot;";
    case '\'':
      return "&#39;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    default:
      return {};
  }
}

// A name of an entity, without "&" and ";", as one number. None has more than eight letters.
constexpr std::size_t longestName = 8;

constexpr std::uint64_t packedName(std::string_view name) {
  std::uint64_t result = 0;
  for (const char byte : name) result = result << 8U | static_cast<unsigned char>(byte);
  return result;
}

// The entities by their packed names: a place is looked for from the hash of the name on.
class EntityTable {
 public:
  constexpr EntityTable() {
    for (const detail::HtmlEntity& entity : detail::htmlEntities) {
      const std::uint64_t name = packedName(entity.text.substr(1, entity.text.size() - 2));
      std::size_t place = placeOf(name);
      while (names_[place] != 0) place = (place + 1) % size;
      names_[place] = name;
      characters_[place] = entity.character;
    }
  }

  constexpr Optional<char32_t> find(std::string_view name) const {
    // A zero byte at the front would be lost in the packed name.
    if (name.empty() || name.size() > longestName || name.front() == '\0') return {};
    const std::uint64_t packed = packedName(name);
    for (std::size_t place = placeOf(packed); names_[place] != 0; place = (place + 1) % size) {
      if (names_[place] == packed) return characters_[place];
    }
    return {};
  }

 private:
  static constexpr std::size_t size = 1024;
  static constexpr std::size_t placeOf(std::uint64_t name) {
    return static_cast<std::size_t>(name * 0x9E3779B97F4A7C15U >> 54U);
  }

  std::array<std::uint64_t, size> names_{};
  std::array<char32_t, size> characters_{};
};

constexpr EntityTable entityTable;

// `entity` begins with "&" and ends with ";".
Optional<char32_t> decoded(std::string_view entity) {
  entity = entity.substr(1, entity.size() - 2);
  if (!entity.starts_with('#')) return entityTable.find(entity);
  entity.remove_prefix(1);
  const bool isHexadecimal = entity.starts_with('x') || entity.starts_with('X');
  if (isHexadecimal) entity.remove_prefix(1);
  const auto number = detail::wholeNumber<std::uint32_t>(entity, isHexadecimal ? 16 : 10);
  if (!number || !detail::isScalar(*number)) return {};
  return static_cast<char32_t>(*number);
}

std::string utf8(char32_t scalar) {
  std::string result;
  detail::appendScalar(result, scalar);
  return result;
}

// Copies `text` from `position` on up to the first byte that `maskOf` tells or the last part of a
// block, and gives the place where it stopped.
template <typename MaskOf>
std::size_t copyBlocks(BlockOutput& out, std::string_view text, std::size_t position,
                       MaskOf maskOf) {
  while (position + ByteBlock::size <= text.size()) {
    const ByteBlock block(text.data() + position);
    const std::uint32_t mask = maskOf(block);
    if (mask != 0) {
      const auto count = static_cast<std::size_t>(std::countr_zero(mask));
      out.append(block, count);
      return position + count;
    }
    out.append(block, ByteBlock::size);
    position += ByteBlock::size;
  }
  return position;
}

}  // namespace

const Dictionary<std::string_view, char32_t>& characterEntities() {
  static const Dictionary<std::string_view, char32_t> entities = [] {
    Dictionary<std::string_view, char32_t> result;
    for (const detail::HtmlEntity& entity : detail::htmlEntities) {
      result.emplace(entity.text, entity.character);
    }
    return result;
  }();
  return entities;
}

std::string tvEscapeHtml(std::string_view text) {
  BlockOutput out(text.size() + text.size() / 8);
  for (std::size_t position = 0; position < text.size(); ++position) {
    position = copyBlocks(out, text, position,
                          [](ByteBlock block) { return block.equalTo('&', '"', '\'', '<', '>'); });
    if (position == text.size()) break;
    const std::string_view byte = text.substr(position, 1), entity = escaped(byte.front());
    out.append(entity.empty() ? byte : entity);
  }
  return out.take();
}

std::string decodeHTML(std::string_view text) {
  BlockOutput out(text.size());
  for (std::size_t position = 0; position < text.size();) {
    position = copyBlocks(out, text, position, [](ByteBlock block) { return block.equalTo('&'); });
    if (position == text.size()) break;
    if (text[position] != '&') {
      out.append(text.substr(position++, 1));
      continue;
    }
    const std::size_t end = text.find(';', position);
    if (end == std::string_view::npos) {
      out.append(text.substr(position));
      break;
    }
    const std::string_view entity = text.substr(position, end + 1 - position);
    const Optional<char32_t> character = decoded(entity);
    if (character.isNone()) {
      out.append(entity);
    } else {
      out.append(utf8(*character));
    }
    position = end + 1;
  }
  return out.take();
}

std::string scalarsHtmlEntitiesRepresentation(std::string_view text, std::string_view separator) {
  std::string result;
  detail::visitScalars(text, [&](char32_t scalar) {
    if (!result.empty()) result += separator;
    result += "&#" + std::to_string(static_cast<std::uint32_t>(scalar)) + ";";
  });
  return result;
}

}  // namespace tolvanite
