#include <algorithm>
#include <bitset>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "../BitsDriver.h"

// The standard library: std::bitset, whose size is a part of its type, and std::vector<bool>.
namespace bench {
namespace {

class Bitset {
 public:
  using Bits = std::bitset<setSize>;

  explicit Bitset(const std::vector<bool>& bits) {
    for (std::size_t i = 0; i < setSize; ++i) (*bits_)[i] = bits[i];
  }
  void operator&=(const Bitset& other) { *bits_ &= *other.bits_; }
  void operator|=(const Bitset& other) { *bits_ |= *other.bits_; }
  void operator^=(const Bitset& other) { *bits_ ^= *other.bits_; }
  std::uint64_t count() const { return bits_->count(); }
  std::uint64_t sumOfIndexes() const {
    std::uint64_t sum = 0;
    for (std::size_t i = bits_->_Find_first(); i < setSize; i = bits_->_Find_next(i)) sum += i;
    return sum;
  }

 private:
  std::unique_ptr<Bits> bits_ = std::make_unique<Bits>();
};

class Vector {
 public:
  Vector() = default;
  explicit Vector(const std::vector<bool>& bits) : bits_(bits) {}
  void operator&=(const Vector& other) { combine(other, std::logical_and<>()); }
  void operator|=(const Vector& other) { combine(other, std::logical_or<>()); }
  void operator^=(const Vector& other) { combine(other, std::not_equal_to<>()); }
  std::uint64_t count() const {
    return static_cast<std::uint64_t>(std::count(bits_.begin(), bits_.end(), true));
  }
  std::uint64_t sumOfIndexes() const {
    std::uint64_t sum = 0;
    for (std::size_t i = 0; i < bits_.size(); ++i) {
      if (bits_[i]) sum += i;
    }
    return sum;
  }
  void append(bool bit) { bits_.push_back(bit); }

 private:
  template <class Operation>
  void combine(const Vector& other, Operation operation) {
    std::transform(bits_.begin(), bits_.end(), other.bits_.begin(), bits_.begin(), operation);
  }

  std::vector<bool> bits_;
};

const bool registered = registerSets<Bitset>("std_bitset") &&
                        registerSets<Vector>("std_vector_bool") &&
                        registerArrays<Vector>("std_vector_bool");

}  // namespace
}  // namespace bench
