// What the optional observable values that test for equality share.
#pragma once

#include <utility>

#include <Tolvanite/DataStructures/detail/ObservableValue.h>
#include <Tolvanite/Diagnostics/Console.h>
#include <Tolvanite/Frame/Optional.h>

namespace tolvanite::detail {

template <typename Self, typename T>
class ObservableOptionalTested : public ObservableValue<Self, Optional<T>> {
 public:
  /// Whether a value is present.
  bool hasValue() const noexcept { return this->value().has_value(); }

  /// Stores `value` and calls every listener, but those owned by `doNotInformSender`. An equal
  /// value is neither stored nor told, but leaves a line on standard output; absent equals absent.
  void set(Optional<T> value, const Owner& doNotInformSender = {}) {
    if (value == this->value()) {
      qfilelog("❎❎❎ not changed");
      return;
    }
    this->storeAndTell(std::move(value), doNotInformSender);
  }

 protected:
  explicit ObservableOptionalTested(Optional<T> initial)
      : ObservableValue<Self, Optional<T>>(std::move(initial)) {}
};

}  // namespace tolvanite::detail
