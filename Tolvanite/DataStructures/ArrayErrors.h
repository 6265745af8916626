// The errors that the array-shaped views and collections declare for present elements and bad
// indexes.
#pragma once

#include <string>

#include <Tolvanite/Frame/Error.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// Compares by its case and payload.
class TOLVANITE_EXPORT ArrayErrors final : public Error {
 public:
  enum class Case { elementAlreadyPresent, indexOutOfBounds };

  /// `element`: the element described as text.
  static ArrayErrors elementAlreadyPresent(std::string element);
  /// `index`: which index, and its number.
  static ArrayErrors indexOutOfBounds(std::string index);

  ~ArrayErrors() override;

  bool operator==(const ArrayErrors& other) const noexcept {
    return errorCase == other.errorCase && text == other.text;
  }

  Case errorCase;
  std::string text;

 private:
  ArrayErrors(Case errorCase, std::string text, std::string description);
};

}  // namespace tolvanite
