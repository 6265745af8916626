// The escapes of a JSON string as the library's own writer makes them.
//
//   stringEncodedForJson("say \"hi\"\n")      R"(say \"hi\"\n)"
#pragma once

#include <string>
#include <string_view>

#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// The characters that are escaped: double quote, backslash, backspace, form feed, line feed,
/// carriage return and tab.
inline constexpr std::string_view JsonEscapeCharacterSet = "\"\\\b\f\n\r\t";

/// The text to put between the quotes of a JSON string. Only the seven characters above are
/// escaped, where they are a user-perceived character by themselves: a carriage return with its
/// line feed, a quote with a combining mark and all other control characters stay as they are,
/// deliberately.
TOLVANITE_EXPORT std::string stringEncodedForJson(std::string_view text);

}  // namespace tolvanite
