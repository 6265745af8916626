#include <Tolvanite/DataStructures/Owner.h>

namespace tolvanite {

constinit std::atomic<std::uint64_t> OwnerToken::endedLives_ = 0;

}  // namespace tolvanite
