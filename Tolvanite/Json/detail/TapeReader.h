// Turns the tape that simdjson makes of a text into a value. For its own source and that of
// JSONSerialization.
#pragma once

#include <cstdint>

#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Json/detail/Cell.h>

namespace tolvanite::detail {

/// The value of a whole tape, whose strings stand in `strings`; absent if containers are nested too
/// deep.
Optional<Cell> readTape(const std::uint64_t* tape, const std::uint8_t* strings);

}  // namespace tolvanite::detail
