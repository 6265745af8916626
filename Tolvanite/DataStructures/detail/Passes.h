// The passes over observers and listeners that are under way on a thread, and what has to outlive
// them: a block may be given up while it runs.
#pragma once

#include <memory>

#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite::detail {

TOLVANITE_EXPORT extern thread_local constinit Int passesUnderWay;
TOLVANITE_EXPORT extern thread_local constinit bool isSomethingKept;

/// Keeps an object until the passes under way on this thread have ended.
TOLVANITE_EXPORT void keepUntilPassesEnd(std::shared_ptr<const void> object);
TOLVANITE_EXPORT void letGoOfKept() noexcept;

/// A pass, for as long as it or a copy exists.
class PassUnderWay {
 public:
  PassUnderWay() noexcept { ++passesUnderWay; }
  PassUnderWay(const PassUnderWay& /*other*/) noexcept : PassUnderWay() {}
  PassUnderWay& operator=(const PassUnderWay& /*other*/) noexcept { return *this; }
  ~PassUnderWay() {
    if (--passesUnderWay == 0 && isSomethingKept) letGoOfKept();
  }
};

}  // namespace tolvanite::detail
