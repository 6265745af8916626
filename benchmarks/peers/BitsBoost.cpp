#if defined(TOLVANITE_PEER_BOOST)

#include <cstddef>
#include <cstdint>
#include <vector>

#include <boost/dynamic_bitset.hpp>

#include "../BitsDriver.h"

// Boost.DynamicBitset.
namespace bench {
namespace {

class DynamicBitset {
 public:
  DynamicBitset() = default;
  explicit DynamicBitset(const std::vector<bool>& bits) : bits_(bits.size()) {
    for (std::size_t i = 0; i < bits.size(); ++i) bits_[i] = bits[i];
  }
  void operator&=(const DynamicBitset& other) { bits_ &= other.bits_; }
  void operator|=(const DynamicBitset& other) { bits_ |= other.bits_; }
  void operator^=(const DynamicBitset& other) { bits_ ^= other.bits_; }
  std::uint64_t count() const { return bits_.count(); }
  std::uint64_t sumOfIndexes() const {
    std::uint64_t sum = 0;
    for (std::size_t i = bits_.find_first(); i != Bits::npos; i = bits_.find_next(i)) sum += i;
    return sum;
  }
  void append(bool bit) { bits_.push_back(bit); }

 private:
  using Bits = boost::dynamic_bitset<std::uint64_t>;
  Bits bits_;
};

const bool registered = registerSets<DynamicBitset>("boost_dynamic_bitset") &&
                        registerArrays<DynamicBitset>("boost_dynamic_bitset");

}  // namespace
}  // namespace bench

#endif
