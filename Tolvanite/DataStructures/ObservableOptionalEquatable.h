// An observable value that may be absent and tells its listeners of changes only. An assignment of
// an equal value leaves a line on standard output.
//
//   auto name = tolvanite::ObservableOptionalEquatable<std::string>::make();
//   name->fountain().add(window, [](const tolvanite::Optional<std::string>& text) { ... });
//   name->set("Ada");
#pragma once

#include <concepts>
#include <utility>

#include <Tolvanite/DataStructures/detail/ObservableOptionalTested.h>

namespace tolvanite {

/// A value of a type with equality, or none. Made by `make`, lives in a shared pointer.
template <std::equality_comparable T>
class ObservableOptionalEquatable final
    : public detail::ObservableOptionalTested<ObservableOptionalEquatable<T>, T> {
  using Base = detail::ObservableOptionalTested<ObservableOptionalEquatable<T>, T>;

 private:
  friend class detail::ObservableValue<ObservableOptionalEquatable, Optional<T>>;
  explicit ObservableOptionalEquatable(Optional<T> initial) : Base(std::move(initial)) {}
};

}  // namespace tolvanite
