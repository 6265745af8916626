// Reads JSON text in plain steps: not the fast way, but one that knows where a text is malformed,
// and that takes numbers of any length.
#pragma once

#include <string_view>

#include <Tolvanite/Json/detail/Cell.h>

namespace tolvanite::detail {

/// The value that the whole text is, from `start` on. Throws a JSONSerialization::Errur with an
/// offset into the text.
Cell readText(std::string_view text, std::size_t start);

}  // namespace tolvanite::detail
