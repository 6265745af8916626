#include <Tolvanite/DataStructures/SetErrur.h>

#include <utility>

namespace tolvanite {

SetErrur::~SetErrur() = default;

SetErrur SetErrur::elementAlreadyPresent(std::string element) {
  auto description = "Element already present: " + element;
  return {Case::elementAlreadyPresent, std::move(element), std::move(description)};
}

SetErrur SetErrur::elementsAlreadyPresent(std::string elements) {
  auto description = "Elements already present: " + elements;
  return {Case::elementsAlreadyPresent, std::move(elements), std::move(description)};
}

}  // namespace tolvanite
