// A block in a field of an observer. It is a `Block` that may be replaced at any time, also from
// within itself.
//
//   observer.inserted = [&observer](auto&, tolvanite::Int, const Track&) {
//     observer.inserted = nullptr;  // once is enough
//   };
#pragma once

#include <concepts>
#include <memory>
#include <type_traits>
#include <utility>

#include <Tolvanite/DataStructures/detail/Passes.h>
#include <Tolvanite/Frame/Types.h>

namespace tolvanite {

/// What it replaces while passes over observers are under way on the thread ends with them.
template <typename Signature>
class EventBlock : public Block<Signature> {
  using Base = Block<Signature>;

 public:
  EventBlock() = default;
  /// No block.
  EventBlock(std::nullptr_t /*absent*/) noexcept {}
  /// A block that calls this.
  template <typename Callable>
    requires(!std::same_as<std::remove_cvref_t<Callable>, EventBlock> &&
             std::constructible_from<Base, Callable>)
  EventBlock(Callable&& callable) : Base(std::forward<Callable>(callable)) {}
  EventBlock(const EventBlock&) = default;
  EventBlock(EventBlock&&) noexcept = default;
  ~EventBlock() = default;

  EventBlock& operator=(EventBlock other) {
    if (detail::passesUnderWay > 0 && *this) {
      detail::keepUntilPassesEnd(std::make_shared<Base>(std::move(static_cast<Base&>(*this))));
    }
    Base::swap(other);
    return *this;
  }
};

}  // namespace tolvanite
