// The errors that the array-shaped views and collections declare for present elements and bad
// indexes.
#pragma once

#include <string>

#include <Tolvanite/DataStructures/detail/CaseError.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// `ArrayErrors::Case`.
enum class ArrayErrorCase { elementAlreadyPresent, indexOutOfBounds };

class TOLVANITE_EXPORT ArrayErrors final : public detail::CaseError<ArrayErrorCase> {
 public:
  /// `element`: the element described as text.
  static ArrayErrors elementAlreadyPresent(std::string element);
  /// `index`: which index, and its number.
  static ArrayErrors indexOutOfBounds(std::string index);

  ~ArrayErrors() override;

 private:
  using CaseError::CaseError;
};

}  // namespace tolvanite
