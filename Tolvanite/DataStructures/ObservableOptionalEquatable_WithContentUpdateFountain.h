// An observable value that tells two things apart: that another element took its place (`set`), and
// that the same element, by its own equality, has new content (`updateContent`).
//
//   auto current =
//       tolvanite::ObservableOptionalEquatable_WithContentUpdateFountain<Track>::make(track);
//   current->fountainContentUpdate().add(window, [](const Track& track) { redraw(track); });
//   current->updateContent(renamedTrack);  // equal to `track`, as both have one key
#pragma once

#include <concepts>
#include <utility>

#include <Tolvanite/DataStructures/detail/ObservableOptionalTested.h>
#include <Tolvanite/Diagnostics/Console.h>
#include <Tolvanite/Frame/TextForm.h>

namespace tolvanite {

/// A value of a type with equality, or none. Made by `make`, lives in a shared pointer.
template <std::equality_comparable T>
class ObservableOptionalEquatable_WithContentUpdateFountain final
    : public detail::ObservableOptionalTested<
          ObservableOptionalEquatable_WithContentUpdateFountain<T>, T> {
  using Base =
      detail::ObservableOptionalTested<ObservableOptionalEquatable_WithContentUpdateFountain<T>, T>;

 public:
  /// The listeners to new content of an element that stays the same. `set` does not call them.
  /// @{
  Fountain<T>& fountainContentUpdate() noexcept { return fountainContentUpdate_; }
  const Fountain<T>& fountainContentUpdate() const noexcept { return fountainContentUpdate_; }
  /// @}

  /// Replaces the value by an equal one and calls the listeners of `fountainContentUpdate`, but
  /// those owned by `doNotInformSender`. That both are equal is the caller's promise: an absent
  /// argument, or one that differs, is reported by a line on standard output and changes nothing.
  void updateContent(Optional<T> value, const Owner& doNotInformSender = {}) {
    if (!value.has_value()) {
      printLine("🍏🍏🍏 warning: should not happen. updateContent with nil value");
      return;
    }
    if (!(value == this->value())) {
      printLine("🍏🍏🍏 warning: should not happen. updateContent from " +
                detail::textFormOrTypeName(this->value()) + " to " +
                detail::textFormOrTypeName(value));
      return;
    }
    const typename Base::Pass pass(*this);
    this->cell().set(std::move(value));
    // Every listener gets this very content, also when one of them updates it again.
    this->cell().with([&](const Optional<T>& content) {
      detail::forEachListenerBut(doNotInformSender, fountainContentUpdate_,
                                 [&](const auto& listener) { listener.block(*content); });
    });
  }

 private:
  friend class detail::ObservableValue<ObservableOptionalEquatable_WithContentUpdateFountain,
                                       Optional<T>>;
  explicit ObservableOptionalEquatable_WithContentUpdateFountain(Optional<T> initial)
      : Base(std::move(initial)) {}

  Fountain<T> fountainContentUpdate_;
};

}  // namespace tolvanite
