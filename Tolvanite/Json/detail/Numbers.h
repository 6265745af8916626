// What can be asked of a cell that holds a number.
#pragma once

#include <cstddef>

#include <Tolvanite/Json/detail/Cell.h>

namespace tolvanite::detail {

/// Negative, 0 or positive; exact across all kinds. What is no number equals itself and stands
/// before every number.
int compareNumbers(const Cell& a, const Cell& b) noexcept;

/// Equal for numbers that compare as equal.
std::size_t hashOfNumber(const Cell& number) noexcept;

}  // namespace tolvanite::detail
