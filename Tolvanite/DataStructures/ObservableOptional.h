// An observable value that may be absent and tells its listeners of every assignment, also of one
// that changes nothing.
//
//   auto selection = tolvanite::ObservableOptional<Track>::make();
//   selection->fountain().add(controller, [](const tolvanite::Optional<Track>& track) { ... });
//   selection->set(track);
#pragma once

#include <utility>

#include <Tolvanite/DataStructures/detail/ObservableValue.h>
#include <Tolvanite/Frame/Optional.h>

namespace tolvanite {

/// A value of any type, or none. Made by `make`, lives in a shared pointer.
template <typename T>
class ObservableOptional final
    : public detail::ObservableValue<ObservableOptional<T>, Optional<T>> {
  using Base = detail::ObservableValue<ObservableOptional<T>, Optional<T>>;

 public:
  /// Whether a value is present.
  bool hasValue() const noexcept { return this->value().has_value(); }

  /// Stores `value` and calls every listener, but those owned by `doNotInformSender`.
  void set(Optional<T> value, const Owner& doNotInformSender = {}) {
    this->storeAndTell(std::move(value), doNotInformSender);
  }

 private:
  friend class detail::ObservableValue<ObservableOptional, Optional<T>>;
  explicit ObservableOptional(Optional<T> initial) : Base(std::move(initial)) {}
};

}  // namespace tolvanite
