// A text that is a number from its first to its last byte.
#pragma once

#include <charconv>
#include <string_view>
#include <system_error>

#include <Tolvanite/Frame/Optional.h>

namespace tolvanite::detail {

/// The number, which may begin with a minus sign if the type has one; absent for any other text and
/// for a number beyond the range of the type. `base` may be given for integers.
template <typename Number, typename... Base>
Optional<Number> wholeNumber(std::string_view text, Base... base) {
  Number result{};
  const auto [last, error] =
      std::from_chars(text.data(), text.data() + text.size(), result, base...);
  if (error != std::errc() || last != text.data() + text.size()) return {};
  return result;
}

}  // namespace tolvanite::detail
