#include <Tolvanite/DataStructures/KerrayErrur.h>

#include <utility>

#include <fmt/format.h>

namespace tolvanite {

KerrayErrur::KerrayErrur(Case errorCaseGiven, Int countGiven, std::string textGiven,
                         std::string description)
    : Error(std::move(description)),
      errorCase(errorCaseGiven),
      count(countGiven),
      text(std::move(textGiven)) {}

KerrayErrur::~KerrayErrur() = default;

KerrayErrur KerrayErrur::elementAlreadyPresent(std::string element) {
  auto description = fmt::format("Element already present: {}", element);
  return {Case::elementAlreadyPresent, 1, std::move(element), std::move(description)};
}

KerrayErrur KerrayErrur::elementsAlreadyPresent(Int count, std::string elements) {
  auto description = fmt::format("Elements already present: {}", elements);
  return {Case::elementsAlreadyPresent, count, std::move(elements), std::move(description)};
}

}  // namespace tolvanite
