#include <Tolvanite/DataStructures/SerrayErrur.h>

#include <utility>

namespace tolvanite {

SerrayErrur::~SerrayErrur() = default;

SerrayErrur SerrayErrur::elementAlreadyPresent(std::string element) {
  auto description = "Element already present:" + element;
  return {Case::elementAlreadyPresent, std::move(element), std::move(description)};
}

SerrayErrur SerrayErrur::indexOutOfBounds(std::string index) {
  auto description = "Index out of bounds:" + index;
  return {Case::indexOutOfBounds, std::move(index), std::move(description)};
}

}  // namespace tolvanite
