// A pointer to an object that counts its own references, in its member `references`.
#pragma once

#include <utility>

#include <Tolvanite/Platform/SharedCount.h>

namespace tolvanite::detail {

/// One reference to a counted object, or to none. The last one deletes it.
template <typename Object>
class Counted {
 public:
  Counted() = default;
  /// Takes over a reference that is counted already.
  static Counted adopting(Object* object) noexcept { return Counted(object); }
  /// Adds a reference.
  static Counted sharing(Object* object) noexcept {
    if (object) object->references.add();
    return Counted(object);
  }
  /// A new object, made from these.
  template <typename... Arguments>
  static Counted make(Arguments&&... arguments) {
    return Counted(new Object(std::forward<Arguments>(arguments)...));
  }

  Counted(const Counted& other) noexcept : Counted(sharing(other.object_)) {}
  Counted(Counted&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  Counted& operator=(Counted other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~Counted() {
    if (object_ && object_->references.drop()) delete object_;
  }

  explicit operator bool() const noexcept { return object_ != nullptr; }
  Object* get() const noexcept { return object_; }
  Object* operator->() const noexcept { return object_; }
  /// Whether others hold references, too.
  bool isShared() const noexcept { return object_ && object_->references.value() > 1; }
  /// Gives the reference away uncounted.
  Object* leak() noexcept { return std::exchange(object_, nullptr); }

  bool operator==(const Counted& other) const = default;

 private:
  explicit Counted(Object* object) noexcept : object_(object) {}

  Object* object_ = nullptr;
};

}  // namespace tolvanite::detail
