// An environment variable that is set, or unset, for as long as this lives.
#pragma once

#include <cstdlib>
#include <optional>
#include <string>
#include <utility>

namespace tolvanite::testing {

class ScopedEnvironment {
 public:
  ScopedEnvironment(std::string name, const std::optional<std::string>& value)
      : name_(std::move(name)) {
    if (const char* before = std::getenv(name_.c_str())) before_ = before;
    set(value);
  }
  ScopedEnvironment(const ScopedEnvironment&) = delete;
  ScopedEnvironment& operator=(const ScopedEnvironment&) = delete;
  ~ScopedEnvironment() { set(before_); }

 private:
  void set(const std::optional<std::string>& value) const {
    if (value) {
      setenv(name_.c_str(), value->c_str(), 1);
    } else {
      unsetenv(name_.c_str());
    }
  }

  std::string name_;
  std::optional<std::string> before_;
};

}  // namespace tolvanite::testing
