// Puts a value where a reference is needed.
//
//   const auto shared = tolvanite::SimpleValueWrapper<int>::make(7);
//   observers.createNew(shared, ...);
#pragma once

#include <memory>
#include <utility>

namespace tolvanite {

/// One value, given at construction. Made by `make`, lives in a shared pointer.
template <typename T>
class SimpleValueWrapper {
 public:
  /// A wrapper of this value.
  static std::shared_ptr<SimpleValueWrapper> make(T value) {
    return std::shared_ptr<SimpleValueWrapper>(new SimpleValueWrapper(std::move(value)));
  }
  SimpleValueWrapper(const SimpleValueWrapper&) = delete;
  SimpleValueWrapper& operator=(const SimpleValueWrapper&) = delete;

  /// What `make` was given.
  const T value;

 private:
  explicit SimpleValueWrapper(T initial) : value(std::move(initial)) {}
};

}  // namespace tolvanite
