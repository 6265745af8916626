// What a JSON value has to know of a value of a kind that JSON does not have.
#pragma once

#include <any>
#include <concepts>
#include <string>

#include <Tolvanite/Frame/TextForm.h>

namespace tolvanite::detail {

struct OtherKind {
  std::string (*describe)(const std::any& value);
  bool (*isEqual)(const std::any& a, const std::any& b);
  /// A dictionary whose keys are no texts.
  bool isDictionary;

  template <typename T>
  static const OtherKind& of() {
    static constexpr OtherKind kind = {
        [](const std::any& value) { return textFormOrTypeName(*std::any_cast<T>(&value)); },
        [](const std::any& a, const std::any& b) {
          if constexpr (std::equality_comparable<T>) {
            const T* other = std::any_cast<T>(&b);
            return other != nullptr && *std::any_cast<T>(&a) == *other;
          } else {
            return false;
          }
        },
        MapLike<T>};
    return kind;
  }
};

}  // namespace tolvanite::detail
