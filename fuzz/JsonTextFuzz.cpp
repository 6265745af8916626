// Reads anything as JSON text. What was read must be the same by the fast and by the plain reader,
// and must come back the same from the text that either writer makes of it.
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>

#include <Tolvanite/Json/Json.h>
#include <Tolvanite/Json/JsonStringEncoding.h>
#include <Tolvanite/Json/JsonWriter.h>
#include <Tolvanite/Json/detail/TextReader.h>

namespace {

using tolvanite::Json;
using tolvanite::JSONSerialization;
using tolvanite::ManagedObject;

// Unlike assert, this is never compiled out.
void require(bool holds) {
  if (!holds) std::abort();
}

std::optional<ManagedObject> readFast(std::string_view text) {
  try {
    return JSONSerialization::JSONObjectWithData(text,
                                                 JSONSerialization::ReadingOptions::allowFragments);
  } catch (const JSONSerialization::Errur& errur) {
    require(errur.byteOffset() >= 0);
    require(errur.byteOffset() <= static_cast<tolvanite::Int>(text.size()));
    return {};
  }
}

std::optional<ManagedObject> readPlainly(std::string_view text) {
  constexpr std::string_view mark = "\xef\xbb\xbf";
  try {
    return ManagedObject(tolvanite::detail::readText(text, text.starts_with(mark) ? 3 : 0));
  } catch (const JSONSerialization::Errur&) {
    return {};
  }
}

// Whether our own writer's text reads back: not if it has texts with other control characters, or
// keys with anything to escape, which it leaves as they are.
bool isPlain(const Json& json) {
  const auto isPlainText = [](std::string_view text, bool isKey) {
    for (const char byte : text) {
      const bool isControl = static_cast<unsigned char>(byte) < 0x20;
      const bool isQuoted = byte == '"' || byte == '\\';
      const bool isEscaped =
          byte == '\t' || byte == '\n' || byte == '\b' || byte == '\f' || byte == '\r' || isQuoted;
      if (isKey ? isControl || isQuoted : isControl && !isEscaped) return false;
    }
    // Quotes that join with a mark stay, and a carriage return with its line feed.
    return isKey || text.find("\r\n") == std::string_view::npos;
  };
  if (json.type() == tolvanite::JsonType::string) {
    const std::string text = json.stringValue();
    for (const char byte : text) {
      if (static_cast<unsigned char>(byte) >= 0xcc) return false;
    }
    return isPlainText(text, false);
  }
  for (const auto& [key, value] : json) {
    if (json.type() == tolvanite::JsonType::dictionary && !isPlainText(key, true)) return false;
    if (!isPlain(value)) return false;
  }
  return true;
}

void requireSameFromWriters(const ManagedObject& value) {
  using Options = JSONSerialization::WritingOptions;
  const auto standard = Options::fragmentsAllowed | Options::sortedKeys;
  for (const auto options : {standard, standard | Options::prettyPrinted}) {
    const std::string text = JSONSerialization::text(value, options);
    const auto again = readFast(text);
    require(again.has_value() && *again == value);
    // Only a negative zero is written in two ways: it comes back as the integer 0.
    const std::string second = JSONSerialization::text(*again, options);
    require(JSONSerialization::text(*readFast(second), options) == second);
  }
  const Json json = value;
  if (json.type() != tolvanite::JsonType::array && json.type() != tolvanite::JsonType::dictionary) {
    return;
  }
  const std::string text = tolvanite::JsonWriter::stringFrom(value);
  if (isPlain(json)) require(Json::parseString(text).managedJsonObject() == value);
}

// Writes into a copy, which must leave the value as it was.
void requireApart(const ManagedObject& value) {
  const Json json = value;
  Json changed = json;
  for (const auto& [key, element] : json) {
    if (json.type() == tolvanite::JsonType::array) {
      changed[std::stoll(key)] = "changed";
    } else {
      changed[key] = "changed";
    }
  }
  require(json.managedJsonObject() == value);
  for (const auto& [key, element] : changed) require(element.stringValue() == "changed");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const auto value = readFast(text);
  const auto plain = readPlainly(text);
  require(value.has_value() == plain.has_value());
  static_cast<void>(tolvanite::stringEncodedForJson(text));
  if (!value) return 0;
  require(*value == *plain);
  require(std::hash<ManagedObject>()(*value) == std::hash<ManagedObject>()(*plain));
  requireSameFromWriters(*value);
  requireApart(*value);
  return 0;
}
