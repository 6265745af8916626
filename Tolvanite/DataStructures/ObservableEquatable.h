// An observable value that tells its listeners of changes only: an assignment of an equal value is
// passed over in silence.
//
//   auto title = tolvanite::ObservableEquatable<std::string>::make("untitled");
//   title->fountain().add(window, [](const std::string& text) { ... });
//   title->set("untitled");  // nobody is called
#pragma once

#include <concepts>
#include <utility>

#include <Tolvanite/DataStructures/detail/ObservableValue.h>

namespace tolvanite {

/// A value of a type with equality. Made by `make`, lives in a shared pointer.
template <std::equality_comparable T>
class ObservableEquatable final : public detail::ObservableValue<ObservableEquatable<T>, T> {
  using Base = detail::ObservableValue<ObservableEquatable<T>, T>;

 public:
  /// Stores `value` and calls every listener, but those owned by `doNotInformSender`. An equal
  /// value is neither stored nor told.
  void set(T value, const Owner& doNotInformSender = {}) {
    if (value == this->value()) return;
    this->storeAndTell(std::move(value), doNotInformSender);
  }

 private:
  friend class detail::ObservableValue<ObservableEquatable, T>;
  explicit ObservableEquatable(T initial) : Base(std::move(initial)) {}
};

}  // namespace tolvanite
