// The errors of a `Serray`.
#pragma once

#include <string>

#include <Tolvanite/DataStructures/detail/CaseError.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// `SerrayErrur::Case`.
enum class SerrayErrorCase {
  elementAlreadyPresent,
  indexOutOfBounds,  ///< Declared, but nothing of a `Serray` reports it.
};

/// Spelt so on purpose, as `Serray::Errur` is. Its description has no space behind the colon,
/// deliberately.
class TOLVANITE_EXPORT SerrayErrur final : public detail::CaseError<SerrayErrorCase> {
 public:
  /// `element`: the element described as text.
  static SerrayErrur elementAlreadyPresent(std::string element);
  /// `index`: which index, and its number.
  static SerrayErrur indexOutOfBounds(std::string index);

  ~SerrayErrur() override;

 private:
  using CaseError::CaseError;
};

}  // namespace tolvanite
