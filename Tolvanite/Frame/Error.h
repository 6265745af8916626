// The root of every error that the library reports: catch `tolvanite::Error` to catch them all.
//
//   try {
//     tracks->append(track);
//   } catch (const tolvanite::Error& error) {
//     std::cerr << error.what() << '\n';
//   }
#pragma once

#include <exception>
#include <string>
#include <utility>

#include <Tolvanite/Platform/Export.h>

namespace tolvanite {

/// A reported error with a text for people. Its text form is that text.
class TOLVANITE_EXPORT Error : public std::exception {
 public:
  /// An error with a text for people.
  explicit Error(std::string description) : description_(std::move(description)) {}
  Error(const Error&) = default;
  Error(Error&&) = default;
  Error& operator=(const Error&) = default;
  Error& operator=(Error&&) = default;
  ~Error() override;

  /// What went wrong, naming the value concerned.
  const std::string& description() const noexcept { return description_; }
  /// The text to show to a user; the description unless an error type says otherwise.
  virtual std::string localizedDescription() const { return description_; }
  /// The description.
  const char* what() const noexcept override { return description_.c_str(); }

 private:
  std::string description_;
};

}  // namespace tolvanite
