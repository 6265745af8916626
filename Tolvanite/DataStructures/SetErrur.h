// The errors that the set-shaped collections report, all about elements that are present already.
//
//   try {
//     tags->insertMultiple(std::vector<std::string>{"jazz", "live"});
//   } catch (const tolvanite::SetErrur& errur) {
//     std::cerr << errur.text << '\n';  // those that were present
//   }
#pragma once

#include <string>

#include <Tolvanite/DataStructures/detail/CaseError.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// `SetErrur::Case`.
enum class SetErrorCase { elementAlreadyPresent, elementsAlreadyPresent };

/// Spelt so on purpose, as `ObservableSet::Errur` and `FilterSet::Errur` are.
class TOLVANITE_EXPORT SetErrur final : public detail::CaseError<SetErrorCase> {
 public:
  /// `element`: the element described as text.
  static SetErrur elementAlreadyPresent(std::string element);
  /// `elements`: the elements that were present, described as text and joined with ",".
  static SetErrur elementsAlreadyPresent(std::string elements);

  ~SetErrur() override;

 private:
  using CaseError::CaseError;
};

}  // namespace tolvanite
