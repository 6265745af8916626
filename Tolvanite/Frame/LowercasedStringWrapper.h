// A text that is compared without regard to case, to serve as a key.
//
//   tolvanite::Dictionary<tolvanite::LowercasedStringWrapper, Int> ages;
//   ages[tolvanite::LowercasedStringWrapper("Ann")] = 40;  // also found as "ANN"
#pragma once

#include <compare>
#include <cstddef>
#include <functional>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>

#include <Tolvanite/Frame/Unicode.h>

namespace tolvanite {

/// A text with its lower-case form, by which alone it is compared, ordered and hashed.
class LowercasedStringWrapper {
 public:
  /// A text of any case.
  explicit LowercasedStringWrapper(std::string_view string) { setString(string); }

  /// The text as it was given.
  const std::string& string() const { return string_; }
  /// Replaces the text and its lower-case form. The argument may be a part of either.
  void setString(std::string_view string) {
    std::string lower = tolvanite::lowercased(string);
    string_.assign(string);
    lowercased_ = std::move(lower);
  }
  /// Its lower-case form.
  const std::string& lowercased() const { return lowercased_; }

  /// The text as it was given.
  const std::string& description() const { return string_; }

  friend bool operator==(const LowercasedStringWrapper& a, const LowercasedStringWrapper& b) {
    return a.lowercased_ == b.lowercased_;
  }
  friend std::weak_ordering operator<=>(const LowercasedStringWrapper& a,
                                        const LowercasedStringWrapper& b) {
    return a.lowercased_ <=> b.lowercased_;
  }
  friend std::ostream& operator<<(std::ostream& out, const LowercasedStringWrapper& wrapper) {
    return out << wrapper.string_;
  }

 private:
  std::string string_;
  std::string lowercased_;
};

}  // namespace tolvanite

template <>
struct std::hash<tolvanite::LowercasedStringWrapper> {
  std::size_t operator()(const tolvanite::LowercasedStringWrapper& wrapper) const noexcept {
    return std::hash<std::string>{}(wrapper.lowercased());
  }
};
