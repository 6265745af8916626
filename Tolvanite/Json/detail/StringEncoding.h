// What the library's own writer and stringEncodedForJson share.
#pragma once

#include <cstddef>
#include <string_view>

#include <Tolvanite/Json/detail/TextOut.h>

namespace tolvanite::detail {

/// Appends a text from `start` on, where the first byte is that might need an escape, with its
/// escapes.
void appendEncodedForJson(TextOut& out, std::string_view text, std::size_t start);

}  // namespace tolvanite::detail
