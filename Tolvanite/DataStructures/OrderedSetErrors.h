// The error that a `Urray` reports.
#pragma once

#include <string>

#include <Tolvanite/DataStructures/detail/CaseError.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// `OrderedSetErrors::Case`.
enum class OrderedSetErrorCase { elementAlreadyPresent };

class TOLVANITE_EXPORT OrderedSetErrors final : public detail::CaseError<OrderedSetErrorCase> {
 public:
  /// `element`: the element described as text.
  static OrderedSetErrors elementAlreadyPresent(std::string element);

  ~OrderedSetErrors() override;

 private:
  using CaseError::CaseError;
};

}  // namespace tolvanite
