#include <cstdint>
#include <vector>

#include <Tolvanite/DataStructures/BitArray.h>
#include <Tolvanite/DataStructures/BitSet.h>

#include "BitsDriver.h"

namespace bench {
namespace {

class Set {
 public:
  explicit Set(const std::vector<bool>& bits) : set_(bits) {}
  void operator&=(const Set& other) { set_ &= other.set_; }
  void operator|=(const Set& other) { set_ |= other.set_; }
  void operator^=(const Set& other) { set_ ^= other.set_; }
  std::uint64_t count() const { return static_cast<std::uint64_t>(set_.cardinality()); }
  std::uint64_t sumOfIndexes() const {
    std::uint64_t sum = 0;
    for (const tolvanite::Int index : set_.indexesOfSetBits()) {
      sum += static_cast<std::uint64_t>(index);
    }
    return sum;
  }

 private:
  tolvanite::BitSet set_;
};

// It counts its set bits all the while, which the others do at the end.
class Array {
 public:
  void append(bool bit) { array_.append(bit); }
  std::uint64_t count() const { return static_cast<std::uint64_t>(array_.cardinality()); }

 private:
  tolvanite::BitArray array_;
};

const bool registered = registerSets<Set>("tolvanite") && registerArrays<Array>("tolvanite");

}  // namespace
}  // namespace bench
