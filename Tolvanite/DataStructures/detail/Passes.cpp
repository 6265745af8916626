#include <Tolvanite/DataStructures/detail/Passes.h>

#include <utility>
#include <vector>

namespace tolvanite::detail {

namespace {

std::vector<std::shared_ptr<const void>>& kept() {
  thread_local std::vector<std::shared_ptr<const void>> objects;
  return objects;
}

}  // namespace

thread_local constinit Int passesUnderWay = 0;
thread_local constinit bool isSomethingKept = false;

void keepUntilPassesEnd(std::shared_ptr<const void> object) {
  kept().push_back(std::move(object));
  isSomethingKept = true;
}

void letGoOfKept() noexcept {
  // The end of what was kept may run code that comes back here.
  const auto objects = std::exchange(kept(), {});
  isSomethingKept = false;
}

}  // namespace tolvanite::detail
