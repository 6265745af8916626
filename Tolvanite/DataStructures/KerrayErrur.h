// The errors that a `Kerray` reports, all about elements that are present already.
//
//   try {
//     tracks->appendMultiple({first, second});
//   } catch (const tolvanite::KerrayErrur& errur) {
//     if (errur.errorCase == tolvanite::KerrayErrur::Case::elementsAlreadyPresent) { ... }
//   }
#pragma once

#include <string>

#include <Tolvanite/Frame/Error.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// Spelt so on purpose. Compares by its case and payload.
class TOLVANITE_EXPORT KerrayErrur final : public Error {
 public:
  /// What is reported.
  enum class Case { elementAlreadyPresent, elementsAlreadyPresent };

  /// `element`: the element described as text.
  static KerrayErrur elementAlreadyPresent(std::string element);
  /// `elements`: the descriptions of the `count` elements that were present, joined with ",".
  static KerrayErrur elementsAlreadyPresent(Int count, std::string elements);

  ~KerrayErrur() override;

  bool operator==(const KerrayErrur& other) const noexcept {
    return errorCase == other.errorCase && count == other.count && text == other.text;
  }

  /// What is reported.
  Case errorCase;
  /// How many elements were present.
  Int count;
  /// The descriptions of those elements, joined with ",".
  std::string text;

 private:
  KerrayErrur(Case errorCase, Int count, std::string text, std::string description);
};

}  // namespace tolvanite
