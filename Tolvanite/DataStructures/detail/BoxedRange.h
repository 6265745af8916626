// The elements of any range as boxes: those of the library's own arrays and sets are shared, others
// are copied, or moved out of a container that is given away.
#pragma once

#include <concepts>
#include <ranges>
#include <type_traits>
#include <utility>

#include <Tolvanite/DataStructures/detail/Box.h>

namespace tolvanite::detail {

/// Reads the box behind an iterator of an array or set of the library.
struct BoxAccess {
  template <typename Iterator>
  static auto* boxAt(const Iterator& iterator) noexcept {
    return iterator.box();
  }
  template <typename Iterator, typename T>
  static constexpr bool hasBoxesOf = requires(const Iterator& iterator) {
    { iterator.box() } -> std::same_as<Box<T>*>;
  };
};

/// Calls `call` with a handle to each element.
template <typename T, typename Range, typename Call>
void forEachBoxed(Range&& elements, const Call& call) {
  using Iterator = std::ranges::iterator_t<Range>;
  if constexpr (BoxAccess::hasBoxesOf<Iterator, T>) {
    for (auto i = std::ranges::begin(elements); i != std::ranges::end(elements); ++i) {
      call(Handle<T>::sharing(BoxAccess::boxAt(i)));
    }
  } else if constexpr (!std::is_lvalue_reference_v<Range> && !std::ranges::view<Range> &&
                       !std::is_const_v<std::remove_reference_t<Range>>) {
    for (auto&& element : elements) call(Handle<T>::make(T(std::move(element))));
  } else {
    for (auto&& element : elements) {
      call(Handle<T>::make(T(std::forward<decltype(element)>(element))));
    }
  }
}

}  // namespace tolvanite::detail
