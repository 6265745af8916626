#include <Tolvanite/Matrix/IterationPosition.h>

#include <cmath>

#include <fmt/format.h>

#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Matrix/detail/Arithmetic.h>

namespace tolvanite {

IterationPosition::IterationPosition(Int ownI, Int total, std::source_location location) : i(ownI) {
  setTotal(total, location);
}

void IterationPosition::setTotal(Int total, std::source_location location) {
  total_ = total;
  // The logarithm of a negative total is no number, and fatal.
  places_ = total == 0 ? 1 : detail::intFrom(std::log10(static_cast<double>(total)), location) + 1;
}

std::string IterationPosition::description() const {
  return fmt::format("{:>{}}/{}", checkedAdd(i, Int{1}), places_, total_);
}

}  // namespace tolvanite
