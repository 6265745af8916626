// The address of an object as a value that can be printed, compared and hashed; it says which
// object it was, even after the object's end, and gives no way back to it.
//
//   std::cout << tolvanite::MemoryAddress(track) << '\n';  // 0x000055d0c3a4beb0
#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <ostream>
#include <string>

namespace tolvanite {

/// The address of a `T`, kept as a number.
template <typename T>
class MemoryAddress {
 public:
  /// The address of the object; that of no object is 0.
  /// @{
  explicit MemoryAddress(T* of) : intValue_(reinterpret_cast<std::intptr_t>(of)) {}
  explicit MemoryAddress(const std::shared_ptr<T>& of) : MemoryAddress(of.get()) {}
  /// @}

  /// The address as a number.
  std::intptr_t intValue() const { return intValue_; }

  /// "0x" and sixteen lower-case hexadecimal digits.
  std::string description() const {
    std::string text = "0x0000000000000000";
    auto rest = static_cast<std::uint64_t>(static_cast<std::uintptr_t>(intValue_));
    for (std::size_t i = text.size() - 1; rest != 0; --i, rest /= 16) {
      text[i] = "0123456789abcdef"[rest % 16];
    }
    return text;
  }

  friend auto operator<=>(const MemoryAddress&, const MemoryAddress&) = default;
  friend std::ostream& operator<<(std::ostream& out, const MemoryAddress& address) {
    return out << address.description();
  }

 private:
  std::intptr_t intValue_;
};

}  // namespace tolvanite

template <typename T>
struct std::hash<tolvanite::MemoryAddress<T>> {
  std::size_t operator()(const tolvanite::MemoryAddress<T>& address) const noexcept {
    return std::hash<std::intptr_t>{}(address.intValue());
  }
};
