// An observable value that tells its listeners of every assignment, also of one that changes
// nothing.
//
//   auto volume = tolvanite::ObservableProperty<int>::make(3);
//   volume->fountain().add(controller, [](int value) { std::cout << value << '\n'; });
//   volume->set(4);
#pragma once

#include <utility>

#include <Tolvanite/DataStructures/detail/ObservableValue.h>

namespace tolvanite {

/// A value of any type. Made by `make`, lives in a shared pointer.
template <typename T>
class ObservableProperty final : public detail::ObservableValue<ObservableProperty<T>, T> {
  using Base = detail::ObservableValue<ObservableProperty<T>, T>;

 public:
  /// Stores `value` and calls every listener, but those owned by `doNotInformSender`.
  void set(T value, const Owner& doNotInformSender = {}) {
    this->storeAndTell(std::move(value), doNotInformSender);
  }

 private:
  friend class detail::ObservableValue<ObservableProperty, T>;
  explicit ObservableProperty(T initial) : Base(std::move(initial)) {}
};

}  // namespace tolvanite
