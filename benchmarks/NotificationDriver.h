#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "Harness.h"
#include "Workload.h"

// Notification: one change with a 32-bit payload to N listeners, each of which adds the payload to
// its own sum. A subscription must end by itself when its listener dies.
//
// A contender is a class template over the way its listeners count (OwnSum or CommonSum), with
//
//   Owner                      keeps one listener alive; movable, ends the listener when destroyed
//   Owner makeListener()
//   Handle subscribe(Owner&)   Handle is any type that names the subscription
//   void unsubscribe(Handle&)  left out where a subscription ends only with its listener
//   void fire(std::uint32_t)
//   static std::uint64_t sum(const Owner&)
//   void forgetAll()           only where listeners are not tracked
namespace bench {

// Counts in the listener itself.
struct OwnSum {
  void receive(std::uint32_t payload) { sum += payload; }
  std::uint64_t sum = 0;
};

// Counts outside of the listener, so that a call to a dead listener is seen.
struct CommonSum {
  void receive(std::uint32_t payload) { sum += payload; }
  static inline std::uint64_t sum = 0;
};

template <class Contender>
std::vector<typename Contender::Owner> subscribeMany(Contender& contender, std::size_t count) {
  std::vector<typename Contender::Owner> owners;
  owners.reserve(count);
  for (std::size_t i = 0; i < count; ++i) {
    owners.push_back(contender.makeListener());
    contender.subscribe(owners.back());
  }
  return owners;
}

template <template <class> class Contender>
void deliver(benchmark::State& state, const std::string& name, std::size_t listeners) {
  Contender<OwnSum> contender;
  auto owners = subscribeMany(contender, listeners);
  contender.fire(7);
  std::uint64_t sum = 0;
  for (const auto& owner : owners) sum += Contender<OwnSum>::sum(owner);
  requireSame<std::uint64_t>(name, "the sum of all sums", sum, 7 * listeners);

  std::uint32_t payload = 1;
  for ([[maybe_unused]] auto once : state) {
    benchmark::DoNotOptimize(payload);
    contender.fire(payload);
    benchmark::ClobberMemory();
  }
  report(state, listeners, folded(sum));
}

template <template <class> class Contender>
void subscribeAndUnsubscribe(benchmark::State& state, const std::string& name,
                             std::size_t listeners) {
  Contender<OwnSum> contender;
  auto owners = subscribeMany(contender, listeners);
  auto oneMore = contender.makeListener();
  for ([[maybe_unused]] auto once : state) {
    auto handle = contender.subscribe(oneMore);
    benchmark::ClobberMemory();
    contender.unsubscribe(handle);
    benchmark::ClobberMemory();
  }
  contender.fire(7);
  requireSame<std::uint64_t>(name, "the sum of the unsubscribed", Contender<OwnSum>::sum(oneMore),
                             0);
  report(state, 1, 0);
}

template <template <class> class Contender>
void lifetime(benchmark::State& state, const std::string& name, std::size_t listeners) {
  std::vector<typename Contender<CommonSum>::Owner> owners;
  owners.reserve(listeners);
  for ([[maybe_unused]] auto once : state) {
    Contender<CommonSum> contender;
    CommonSum::sum = 0;
    const Stopwatch watch;
    for (std::size_t i = 0; i < listeners; ++i) {
      owners.push_back(contender.makeListener());
      contender.subscribe(owners.back());
    }
    owners.clear();
    if constexpr (requires { contender.forgetAll(); }) contender.forgetAll();
    contender.fire(7);
    state.SetIterationTime(watch.seconds());
    requireSame<std::uint64_t>(name, "what the dead heard", CommonSum::sum, 0);
  }
  report(state, listeners, 0);
}

template <template <class> class Contender>
bool registerNotification(const std::string& peer) {
  for (const std::size_t n : {1u, 10u, 1000u}) {
    const std::string name = peer + "/deliver/N=" + std::to_string(n);
    benchmark::RegisterBenchmark(
        name.c_str(), [=](benchmark::State& state) { deliver<Contender>(state, name, n); });
    if constexpr (requires(Contender<OwnSum> contender,
                           decltype(contender.subscribe(
                               std::declval<typename Contender<OwnSum>::Owner&>())) handle) {
                    contender.unsubscribe(handle);
                  }) {
      const std::string pair = peer + "/subscribe_unsubscribe/existing=" + std::to_string(n);
      benchmark::RegisterBenchmark(pair.c_str(), [=](benchmark::State& state) {
        subscribeAndUnsubscribe<Contender>(state, pair, n);
      });
    }
  }
  for (const std::size_t n : {1000u, 10000u}) {
    const std::string name = peer + "/lifetime/N=" + std::to_string(n);
    benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
      lifetime<Contender>(state, name, n);
    })->UseManualTime();
  }
  return true;
}

}  // namespace bench
