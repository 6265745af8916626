// What all observable single values share: the stored value, its fountain, and the pass over it.
#pragma once

#include <memory>
#include <type_traits>
#include <utility>

#include <Tolvanite/DataStructures/Fountain.h>
#include <Tolvanite/DataStructures/detail/KeptDuringPasses.h>

namespace tolvanite::detail {

/// A stored value that a listener may look at while another listener replaces it: small plain
/// values are copied for each listener, others are shared.
template <typename T>
class ValueCell {
  static constexpr bool copied = std::is_trivially_copyable_v<T> && sizeof(T) <= 32;

 public:
  explicit ValueCell(T value) : content_(wrapped(std::move(value))) {}

  void set(T value) { content_ = wrapped(std::move(value)); }
  const T& get() const noexcept {
    if constexpr (copied) {
      return content_;
    } else {
      return *content_;
    }
  }

  /// Calls `block` with the value as it stands, which stays what it is until the block returns.
  template <typename Call>
  void with(const Call& call) const {
    const Content content = content_;
    if constexpr (copied) {
      call(content);
    } else {
      call(*content);
    }
  }

 private:
  using Content = std::conditional_t<copied, T, std::shared_ptr<const T>>;

  static Content wrapped(T&& value) {
    if constexpr (copied) {
      return value;
    } else {
      return std::make_shared<const T>(std::move(value));
    }
  }

  Content content_;
};

/// Calls `call` with the entry of every listener whose owner is not the sender.
template <typename Fountain, typename Call>
void forEachListenerBut(const Owner& sender, const Fountain& fountain, const Call& call) {
  for (const auto& listener : fountain) {
    if (!listener->isOwnedBy(sender)) call(*listener);
  }
}

/// The stored value and the fountain of the observable value type `Self`.
template <typename Self, typename Value>
class ObservableValue : public KeptDuringPasses {
 public:
  /// Makes an observable value that holds `initial`.
  static std::shared_ptr<Self> make(Value initial = Value()) {
    return owned(new Self(std::move(initial)));
  }

  /// The listeners to changes.
  Fountain<Value>& fountain() noexcept { return fountain_; }
  const Fountain<Value>& fountain() const noexcept { return fountain_; }
  /// The current value.
  const Value& value() const noexcept { return cell_.get(); }

 protected:
  explicit ObservableValue(Value initial) : cell_(std::move(initial)) {}

  // Each listener gets the value as it is when its turn comes: one that sets anew from its block
  // makes the later ones receive the newer value, and be called for it twice.
  void storeAndTell(Value value, const Owner& doNotInformSender) {
    const Pass pass(*this);
    cell_.set(std::move(value));
    forEachListenerBut(doNotInformSender, fountain_, [this](const auto& listener) {
      cell_.with([&](const Value& current) { listener.block(current); });
    });
  }

  ValueCell<Value>& cell() noexcept { return cell_; }

 private:
  Fountain<Value> fountain_;
  ValueCell<Value> cell_;
};

}  // namespace tolvanite::detail
