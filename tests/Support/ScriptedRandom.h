// A source of random draws that a test writes down beforehand.
#pragma once

#include <cstdint>
#include <deque>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <Tolvanite/Platform/SystemRandom.h>

namespace tolvanite::test {

/// Stands in for the system's source as long as it lives. Answers `uniform` with the scripted draws
/// and notes the bounds asked for; the other kinds of draws stay the system's.
class ScriptedRandom : public SystemRandom {
 public:
  explicit ScriptedRandom(std::deque<std::uint32_t> draws) : draws_(std::move(draws)) {}
  ~ScriptedRandom() override { setSystemRandom(before_); }

  std::uint32_t uniform(std::uint32_t bound) override {
    bounds.push_back(bound);
    if (draws_.empty()) {
      ADD_FAILURE() << "a draw below " << bound << " beyond the script";
      return 0;
    }
    const std::uint32_t draw = draws_.front();
    draws_.pop_front();
    EXPECT_LT(draw, bound);
    return draw;
  }

  std::vector<std::uint32_t> bounds;

 private:
  std::deque<std::uint32_t> draws_;
  SystemRandom* before_ = setSystemRandom(this);
};

}  // namespace tolvanite::test
