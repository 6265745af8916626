// The form of the errors that the collections report: which case it is, and the text that goes with
// it.
#pragma once

#include <string>
#include <utility>

#include <Tolvanite/Frame/Error.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite::detail {

/// Compares by its case and text.
template <typename ErrorCase>
class TOLVANITE_EXPORT CaseError : public Error {
 public:
  /// What is reported.
  using Case = ErrorCase;

  bool operator==(const CaseError& other) const noexcept {
    return errorCase == other.errorCase && text == other.text;
  }

  /// What is reported.
  Case errorCase;
  /// The element or elements, described as text, or the index.
  std::string text;

 protected:
  CaseError(Case errorCaseGiven, std::string textGiven, std::string description)
      : Error(std::move(description)), errorCase(errorCaseGiven), text(std::move(textGiven)) {}
};

}  // namespace tolvanite::detail
