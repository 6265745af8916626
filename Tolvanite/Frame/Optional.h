// An optional value with the helpers of this library. It is a std::optional in every other respect:
// the two convert into each other, compare, hash and swap alike.
//
//   Optional<Int> width = readWidth();
//   Int used = width.whenNil([] { return Int{80}; });
//   std::string shown = width.q();                      // "80", or "nil"
//   Int sure = width.forced("the width was just set");  // fatal when absent
//
// Helpers that give the optional back unchanged give a reference when called on a named optional,
// and a moved value when called on a temporary: a chain copies nothing and never dangles.
#pragma once

#include <compare>
#include <concepts>
#include <functional>
#include <optional>
#include <ostream>
#include <source_location>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include <Tolvanite/Diagnostics/PrintLine.h>
#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/TextForm.h>
#include <Tolvanite/Frame/ThisIsABoolean.h>
#include <Tolvanite/Frame/detail/DynamicCast.h>

namespace tolvanite {

template <typename T>
class Optional;

}  // namespace tolvanite

#ifdef __GLIBCXX__
namespace std {
// libstdc++ 12 compares an optional with "any other type" unless this says that the type is an
// optional itself; without it the comparison of two Optional asks itself whether it exists.
// Newer versions test for derived classes and need no help.
template <typename T>
inline constexpr bool __is_optional_v<tolvanite::Optional<T>> = true;  // NOLINT
}  // namespace std
#endif

namespace tolvanite {

/// A message: a text, or a block that composes it when it is needed.
template <typename T>
concept MessageOrBlock =
    std::convertible_to<T, std::string_view> || std::is_invocable_r_v<std::string, T>;

namespace detail {

template <MessageOrBlock Message>
std::string messageText(Message&& message) {
  if constexpr (std::convertible_to<Message, std::string_view>) {
    return std::string(std::string_view(message));
  } else {
    return std::invoke(std::forward<Message>(message));
  }
}

}  // namespace detail

template <typename T>
class Optional : public std::optional<T> {
  using Base = std::optional<T>;

 public:
  using Base::Base;
  constexpr Optional() noexcept = default;
  constexpr Optional(const Optional&) = default;
  constexpr Optional(Optional&&) = default;
  /// The same, present or absent, as the standard type has it.
  /// @{
  constexpr Optional(const Base& other) : Base(other) {}
  constexpr Optional(Base&& other) noexcept(std::is_nothrow_move_constructible_v<T>)
      : Base(std::move(other)) {}
  /// @}
  constexpr Optional& operator=(const Optional&) = default;
  constexpr Optional& operator=(Optional&&) = default;
  ~Optional() = default;

  /// Assigns whatever a std::optional takes: std::nullopt, a value, another kind of optional.
  template <typename U = T>
    requires(!std::same_as<std::remove_cvref_t<U>, Optional> &&
             !(std::is_scalar_v<T> && std::same_as<T, std::decay_t<U>>) &&
             std::is_assignable_v<Base&, U>)
  constexpr Optional& operator=(U&& other) {
    base() = std::forward<U>(other);
    return *this;
  }

  /// The same optional under its standard type. Needed only where T takes anything, as std::any
  /// does, and a plain conversion would wrap the optional itself.
  /// @{
  constexpr Base& base() & noexcept { return *this; }
  constexpr const Base& base() const& noexcept { return *this; }
  constexpr Base&& base() && noexcept { return std::move(*this); }
  /// @}

  /// Whether a value is present. An optional truth value offers no such test, deliberately: it
  /// would be read as the value itself, and a std::optional<bool> made from it would take it so.
  constexpr explicit operator bool() const noexcept
    requires(!ThisIsABoolean<T>)
  {
    return this->has_value();
  }
  constexpr explicit operator bool() const noexcept
    requires ThisIsABoolean<T>
  = delete;

  /// Whether a value is present.
  constexpr bool isSome() const noexcept { return this->has_value(); }
  /// Whether no value is present.
  constexpr bool isNone() const noexcept { return !this->has_value(); }

  /// The text form of the value; "nil" when absent.
  std::string q() const
    requires HasTextForm<T>
  {
    return isSome() ? textForm(**this) : "nil";
  }
  /// The text form of the value between double quotes; "nil", without quotes, when absent.
  std::string qq() const
    requires HasTextForm<T>
  {
    return isSome() ? "\"" + textForm(**this) + "\"" : "nil";
  }
  /// The text form of the value; the empty text when absent.
  std::string q2() const
    requires HasTextForm<T>
  {
    return isSome() ? textForm(**this) : "";
  }

  /// The value. Fatal when absent: "Optional.forced: " and the message, which may be a block that
  /// is called only then. On a temporary the value is moved out.
  /// @{
  template <MessageOrBlock Message>
  const T& forced(Message&& message,
                  std::source_location location = std::source_location::current()) const& {
    if (isNone()) failForced(std::forward<Message>(message), location);
    return **this;
  }
  template <MessageOrBlock Message>
  T& forced(Message&& message, std::source_location location = std::source_location::current()) & {
    if (isNone()) failForced(std::forward<Message>(message), location);
    return **this;
  }
  template <MessageOrBlock Message>
  T forced(Message&& message, std::source_location location = std::source_location::current()) && {
    if (isNone()) failForced(std::forward<Message>(message), location);
    return *std::move(*this);
  }
  /// @}

  /// The value as a U by its dynamic type: the same type, what a std::any or std::variant holds, a
  /// pointer or std::shared_ptr to the object's class or a base of it. Numbers are not converted.
  /// Fatal when absent or of another type: "Cannot cast VALUE to U.".
  /// @{
  template <typename U>
  U forcedCast(std::source_location location = std::source_location::current()) const& {
    return forcedCastOf<U>(*this, location);
  }
  template <typename U>
  U forcedCast(std::source_location location = std::source_location::current()) && {
    return forcedCastOf<U>(std::move(*this), location);
  }
  /// @}

  /// The value; when absent, what `block` returns. `block` is called only then.
  /// @{
  template <std::invocable Callable>
    requires std::convertible_to<std::invoke_result_t<Callable>, T>
  constexpr T whenNil(Callable&& block) const& {
    return isSome() ? T(**this) : static_cast<T>(std::invoke(std::forward<Callable>(block)));
  }
  template <std::invocable Callable>
    requires std::convertible_to<std::invoke_result_t<Callable>, T>
  constexpr T whenNil(Callable&& block) && {
    return isSome() ? T(*std::move(*this))
                    : static_cast<T>(std::invoke(std::forward<Callable>(block)));
  }
  /// @}

  /// The optional unchanged; when absent, prints
  /// `❌❌❌ Optional.supposed: "MESSAGE" ❌❌❌` first.
  /// @{
  template <MessageOrBlock Message>
  const Optional& nilPrint(Message&& message) const& {
    printWhenNil(std::forward<Message>(message));
    return *this;
  }
  template <MessageOrBlock Message>
  Optional nilPrint(Message&& message) && {
    printWhenNil(std::forward<Message>(message));
    return std::move(*this);
  }
  /// @}

  /// The optional unchanged when a value is present and `predicate` holds for it, else absent.
  /// @{
  template <std::predicate<const T&> Predicate>
  constexpr Optional filter(Predicate&& predicate) const& {
    return passes(std::forward<Predicate>(predicate)) ? *this : Optional();
  }
  template <std::predicate<const T&> Predicate>
  constexpr Optional filter(Predicate&& predicate) && {
    return passes(std::forward<Predicate>(predicate)) ? std::move(*this) : Optional();
  }
  /// @}

  /// The optional unchanged when a value is present, else the value that `block` returns.
  /// @{
  template <std::invocable Callable>
    requires std::convertible_to<std::invoke_result_t<Callable>, T>
  constexpr Optional mapNil(Callable&& block) const& {
    if (isSome()) return *this;
    return Optional(std::in_place, std::invoke(std::forward<Callable>(block)));
  }
  template <std::invocable Callable>
    requires std::convertible_to<std::invoke_result_t<Callable>, T>
  constexpr Optional mapNil(Callable&& block) && {
    if (isSome()) return std::move(*this);
    return Optional(std::in_place, std::invoke(std::forward<Callable>(block)));
  }
  /// @}

  /// The optional unchanged when a value is present, else the optional that `block` returns.
  /// @{
  template <std::invocable Callable>
    requires std::convertible_to<std::invoke_result_t<Callable>, Optional>
  constexpr Optional flatMapNil(Callable&& block) const& {
    if (isSome()) return *this;
    return std::invoke(std::forward<Callable>(block));
  }
  template <std::invocable Callable>
    requires std::convertible_to<std::invoke_result_t<Callable>, Optional>
  constexpr Optional flatMapNil(Callable&& block) && {
    if (isSome()) return std::move(*this);
    return std::invoke(std::forward<Callable>(block));
  }
  /// @}

  /// Calls `block` with the value when one is present.
  /// @{
  template <std::invocable<const T&> Callable>
  constexpr void then(Callable&& block) const& {
    if (isSome()) std::invoke(std::forward<Callable>(block), **this);
  }
  template <std::invocable<T> Callable>
  constexpr void then(Callable&& block) && {
    if (isSome()) std::invoke(std::forward<Callable>(block), *std::move(*this));
  }
  /// @}

  /// `f` of the value when present, else `defaultValue`; the result has the common type of both.
  /// @{
  template <typename Default, std::invocable<const T&> F>
  constexpr auto maybe(Default&& defaultValue, F&& f) const& {
    using Result = std::common_type_t<std::decay_t<Default>, std::invoke_result_t<F, const T&>>;
    if (isSome()) return static_cast<Result>(std::invoke(std::forward<F>(f), **this));
    return static_cast<Result>(std::forward<Default>(defaultValue));
  }
  template <typename Default, std::invocable<T> F>
  constexpr auto maybe(Default&& defaultValue, F&& f) && {
    using Result = std::common_type_t<std::decay_t<Default>, std::invoke_result_t<F, T>>;
    if (isSome()) return static_cast<Result>(std::invoke(std::forward<F>(f), *std::move(*this)));
    return static_cast<Result>(std::forward<Default>(defaultValue));
  }
  /// @}

  /// Calls `block` with the value when one is present; gives the optional unchanged.
  /// @{
  template <std::invocable<const T&> Callable>
  constexpr const Optional& onSome(Callable&& block) const& {
    if (isSome()) std::invoke(std::forward<Callable>(block), **this);
    return *this;
  }
  template <std::invocable<const T&> Callable>
  constexpr Optional onSome(Callable&& block) && {
    if (isSome()) std::invoke(std::forward<Callable>(block), std::as_const(**this));
    return std::move(*this);
  }
  /// @}

  /// Calls `block` when no value is present; gives the optional unchanged.
  /// @{
  template <std::invocable Callable>
  constexpr const Optional& onNone(Callable&& block) const& {
    if (isNone()) std::invoke(std::forward<Callable>(block));
    return *this;
  }
  template <std::invocable Callable>
  constexpr Optional onNone(Callable&& block) && {
    if (isNone()) std::invoke(std::forward<Callable>(block));
    return std::move(*this);
  }
  /// @}

  /// The text that belongs to the truth value.
  std::string toString(std::string_view whenTrue, std::string_view whenFalse,
                       std::string_view whenAbsent) const
    requires ThisIsABoolean<T>
  {
    return std::string(isNone() ? whenAbsent : **this ? whenTrue : whenFalse);
  }

 private:
  template <typename Message>
  [[noreturn]] static void failForced(Message&& message, std::source_location location) {
    fatalFailure("Optional.forced: " + detail::messageText(std::forward<Message>(message)),
                 location);
  }

  template <typename U, typename Self>
  static U forcedCastOf(Self&& self, std::source_location location) {
    if (self.isSome()) {
      std::optional<U> cast = detail::dynamicCast<U>(*std::forward<Self>(self));
      if (cast.has_value()) return *std::move(cast);
    }
    const std::string shown = self.isSome() ? detail::textFormOrTypeName(*self) : "nil";
    fatalFailure("Cannot cast " + shown + " to " + typeName<U>() + ".", location);
  }

  template <typename Message>
  void printWhenNil(Message&& message) const {
    if (isSome()) return;
    printLine("❌❌❌ Optional.supposed: \"" + detail::messageText(std::forward<Message>(message)) +
              "\" ❌❌❌");
  }

  template <typename Predicate>
  constexpr bool passes(Predicate&& predicate) const {
    return isSome() && std::invoke(std::forward<Predicate>(predicate), **this);
  }
};

/// `Optional(value)` is an optional of the value's type, and `Optional(standard)` the same optional
/// and none in another.
/// @{
template <typename T>
Optional(T) -> Optional<T>;
template <typename T>
Optional(std::optional<T>) -> Optional<T>;
/// @}

namespace detail {

template <typename A, typename B>
concept LessComparableWith = requires(const A& a, const B& b) {
  { a < b } -> std::convertible_to<bool>;
  { b < a } -> std::convertible_to<bool>;
};

// The order of two optionals: absent before present. Types that offer only `<` are ordered by it.
template <typename A, typename B>
constexpr auto optionalOrder(const std::optional<A>& a, const std::optional<B>& b) {
  if constexpr (std::three_way_comparable_with<A, B>) {
    return a <=> b;
  } else {
    if (!a.has_value() || !b.has_value()) {
      return std::weak_ordering(a.has_value() <=> b.has_value());
    }
    if (*a < *b) return std::weak_ordering::less;
    return *b < *a ? std::weak_ordering::greater : std::weak_ordering::equivalent;
  }
}

}  // namespace detail

// Two optionals compare by presence, then by value. These stand beside those of std::optional
// because the latter would take an Optional for a value on one of the two sides.
template <typename A, typename B>
  requires requires(const A& a, const B& b) { a == b; }
constexpr bool operator==(const Optional<A>& a, const Optional<B>& b) {
  return a.base() == b.base();
}
template <typename A, typename B>
  requires requires(const A& a, const B& b) { a == b; }
constexpr bool operator==(const Optional<A>& a, const std::optional<B>& b) {
  return a.base() == b;
}
template <typename A, typename B>
  requires requires(const A& a, const B& b) { a == b; }
constexpr bool operator==(const std::optional<A>& a, const Optional<B>& b) {
  return a == b.base();
}
template <typename A, typename B>
  requires detail::LessComparableWith<A, B>
constexpr auto operator<=>(const Optional<A>& a, const Optional<B>& b) {
  return detail::optionalOrder(a.base(), b.base());
}
template <typename A, typename B>
  requires detail::LessComparableWith<A, B>
constexpr auto operator<=>(const Optional<A>& a, const std::optional<B>& b) {
  return detail::optionalOrder(a.base(), b);
}
template <typename A, typename B>
  requires detail::LessComparableWith<A, B>
constexpr auto operator<=>(const std::optional<A>& a, const Optional<B>& b) {
  return detail::optionalOrder(a, b.base());
}

/// The text form: that of the value, or "nil".
template <HasTextForm T>
std::ostream& operator<<(std::ostream& out, const Optional<T>& optional) {
  return out << textForm(optional);
}

}  // namespace tolvanite

template <typename T>
struct std::hash<tolvanite::Optional<T>> : std::hash<std::optional<T>> {};
