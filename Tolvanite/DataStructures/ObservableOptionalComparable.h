// An observable value of an ordered type that may be absent and tells its listeners of changes
// only. An assignment of an equal value leaves a line on standard output.
//
//   auto volume = tolvanite::ObservableOptionalComparable<double>::make(0.5);
//   volume->set(0.7);
#pragma once

#include <concepts>
#include <utility>

#include <Tolvanite/DataStructures/detail/ObservableOptionalTested.h>

namespace tolvanite {

/// A value of an ordered type, or none. In spite of its name it only tests for equality. Made by
/// `make`, lives in a shared pointer.
template <std::totally_ordered T>
class ObservableOptionalComparable final
    : public detail::ObservableOptionalTested<ObservableOptionalComparable<T>, T> {
  using Base = detail::ObservableOptionalTested<ObservableOptionalComparable<T>, T>;

 private:
  friend class detail::ObservableValue<ObservableOptionalComparable, Optional<T>>;
  explicit ObservableOptionalComparable(Optional<T> initial) : Base(std::move(initial)) {}
};

}  // namespace tolvanite
