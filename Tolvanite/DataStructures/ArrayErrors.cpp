#include <Tolvanite/DataStructures/ArrayErrors.h>

#include <utility>

namespace tolvanite {

ArrayErrors::~ArrayErrors() = default;

ArrayErrors ArrayErrors::elementAlreadyPresent(std::string element) {
  auto description = "Element already present: " + element;
  return {Case::elementAlreadyPresent, std::move(element), std::move(description)};
}

ArrayErrors ArrayErrors::indexOutOfBounds(std::string index) {
  auto description = "Index out of bounds: " + index;
  return {Case::indexOutOfBounds, std::move(index), std::move(description)};
}

}  // namespace tolvanite
