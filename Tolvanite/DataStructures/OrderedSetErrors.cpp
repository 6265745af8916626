#include <Tolvanite/DataStructures/OrderedSetErrors.h>

#include <utility>

namespace tolvanite {

OrderedSetErrors::~OrderedSetErrors() = default;

OrderedSetErrors OrderedSetErrors::elementAlreadyPresent(std::string element) {
  auto description = "Element already present: " + element;
  return {Case::elementAlreadyPresent, std::move(element), std::move(description)};
}

}  // namespace tolvanite
