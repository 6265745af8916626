// Boxes: the shared, immutable homes of elements. A base collection, its views and its copies hold
// the same box, so an element is never copied between them, and a view that is to keep an element's
// old content simply keeps the old box.
#pragma once

#include <utility>

#include <Tolvanite/DataStructures/detail/Counted.h>
#include <Tolvanite/DataStructures/detail/HandleBuffer.h>

namespace tolvanite::detail {

template <typename T>
struct Box final : BoxHeader {
  template <typename... Arguments>
  explicit Box(Arguments&&... arguments)
      : BoxHeader(1), value(std::forward<Arguments>(arguments)...) {}

  T value;
};

template <typename T>
Box<T>* boxOf(BoxHeader* header) noexcept {
  return static_cast<Box<T>*>(header);
}

template <typename T>
void release(BoxHeader* header) noexcept {
  if (header->references.drop()) delete boxOf<T>(header);
}

/// One reference to a box, or to none.
template <typename T>
class Handle : public Counted<Box<T>> {
  using Base = Counted<Box<T>>;

 public:
  Handle() = default;
  Handle(Base base) noexcept : Base(std::move(base)) {}
  static Handle adopting(BoxHeader* box) noexcept { return Base::adopting(boxOf<T>(box)); }
  static Handle sharing(BoxHeader* box) noexcept { return Base::sharing(boxOf<T>(box)); }
  /// A new box with a value made from these.
  template <typename... Arguments>
  static Handle make(Arguments&&... arguments) {
    return Base::make(std::forward<Arguments>(arguments)...);
  }

  const T& operator*() const noexcept { return this->get()->value; }
  /// The element, moved out where nobody else holds its box.
  T take() && {
    if (this->isShared()) return this->get()->value;
    return std::move(this->get()->value);
  }
};

}  // namespace tolvanite::detail
