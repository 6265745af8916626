#include <Tolvanite/Platform/MainQueue.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <limits>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>
#include <poll.h>

#include <Tolvanite/Frame/Dispatch.h>
#include <Tolvanite/Frame/Types.h>

namespace {

using std::chrono::milliseconds;
using tolvanite::MainQueue;
using tolvanite::qdispatch;

bool isReadableWithin(milliseconds time) {
  pollfd waiting{MainQueue::descriptor(), POLLIN, 0};
  return ::poll(&waiting, 1, static_cast<int>(time.count())) == 1 && waiting.revents == POLLIN;
}

// Serves the queue as a host's loop would, until nothing happened for that long.
void serveUntilQuiet(milliseconds quiet) {
  while (isReadableWithin(quiet)) MainQueue::drain();
}

TEST(MainQueueTest, descriptorTellsOfDueWorkOnly) {
  ASSERT_EQ(MainQueue::drain(), 0U);
  EXPECT_FALSE(isReadableWithin(milliseconds(0)));
  MainQueue::async([] {});
  MainQueue::async({});
  EXPECT_TRUE(isReadableWithin(milliseconds(0)));
  EXPECT_TRUE(isReadableWithin(milliseconds(0)));
  EXPECT_EQ(MainQueue::drain(), 1U);
  EXPECT_FALSE(isReadableWithin(milliseconds(0)));

  MainQueue::after(milliseconds(60), [] {});
  EXPECT_FALSE(isReadableWithin(milliseconds(0)));
  MainQueue::async([] {});
  EXPECT_EQ(MainQueue::drain(), 1U);
  EXPECT_TRUE(isReadableWithin(milliseconds(10'000)));
  EXPECT_EQ(MainQueue::drain(), 1U);
}

TEST(MainQueueTest, runsByDueTimeThenByCall) {
  std::string ran;
  const auto note = [&](char letter) { return [&ran, letter] { ran += letter; }; };
  MainQueue::after(milliseconds(40), note('f'));
  MainQueue::after(milliseconds(20), note('e'));
  MainQueue::async(note('a'));
  MainQueue::after(milliseconds(-1000), note('b'));
  MainQueue::after(std::chrono::nanoseconds::min(), note('c'));
  MainQueue::async(note('d'));
  serveUntilQuiet(milliseconds(200));
  EXPECT_EQ(ran, "abcdef");
}

TEST(MainQueueTest, blocksPostedByBlocksWait) {
  std::string ran;
  MainQueue::async([&] {
    ran += 'a';
    MainQueue::async([&] { ran += 'b'; });
  });
  EXPECT_EQ(MainQueue::drain(), 1U);
  EXPECT_TRUE(isReadableWithin(milliseconds(0)));
  EXPECT_EQ(MainQueue::drain(), 1U);
  EXPECT_EQ(ran, "ab");

  MainQueue::async([&] { EXPECT_EQ(MainQueue::drain(), 1U); });
  MainQueue::async([&] { ran += 'c'; });
  EXPECT_EQ(MainQueue::drain(), 1U);
  EXPECT_EQ(ran, "abc");
}

TEST(MainQueueTest, anExceptionLeavesTheRestQueued) {
  std::string ran;
  MainQueue::async([&] { ran += 'a'; });
  MainQueue::async([] { throw std::runtime_error("block"); });
  MainQueue::async([&] { ran += 'b'; });
  EXPECT_THROW(MainQueue::drain(), std::runtime_error);
  EXPECT_EQ(ran, "a");
  EXPECT_TRUE(isReadableWithin(milliseconds(0)));
  EXPECT_EQ(MainQueue::drain(), 1U);
  EXPECT_EQ(ran, "ab");
}

TEST(MainQueueTest, takesBlocksFromAllThreadsInTheirOrder) {
  constexpr int each = 2000;
  std::array<std::vector<int>, 4> ran;
  std::vector<std::jthread> threads;
  for (auto& order : ran) {
    threads.emplace_back([&order] {
      for (int i = 0; i < each; ++i) MainQueue::async([&order, i] { order.push_back(i); });
    });
  }
  std::size_t count = 0;
  while (count < ran.size() * each && isReadableWithin(milliseconds(10'000))) {
    count += MainQueue::drain();
  }
  for (const auto& order : ran) {
    EXPECT_TRUE(order.size() == each && std::ranges::is_sorted(order));
  }
}

TEST(MainQueueTest, delayedOrManualRunsByWhicheverComesFirst) {
  std::string ran;
  const auto note = [&](bool flag) { ran += flag ? 'm' : 'd'; };
  const auto early = qdispatch::onMainQueueDelayedOrManual(0.05, note);
  early(true);
  serveUntilQuiet(milliseconds(150));
  EXPECT_EQ(ran, "m");
  early(false);
  EXPECT_EQ(ran, "md");

  const auto late = qdispatch::onMainQueueDelayedOrManual(0.02, note);
  serveUntilQuiet(milliseconds(150));
  EXPECT_EQ(ran, "mdd");
  late(true);
  EXPECT_EQ(ran, "mddm");
}

// The queue must not keep what the closure holds once the trigger has been used and dropped, and a
// closure may drop its own trigger.
TEST(MainQueueTest, aUsedTriggerLetsItsClosureGo) {
  const auto content = std::make_shared<int>(1);
  tolvanite::Block<void(bool)> trigger;
  trigger = qdispatch::onMainQueueDelayedOrManual(100'000, [content, &trigger](bool) {
    trigger = nullptr;
    EXPECT_EQ(*content, 1);
  });
  EXPECT_EQ(content.use_count(), 2);
  trigger(true);
  EXPECT_EQ(content.use_count(), 1);

  qdispatch::onMainQueueDelayedOrManual(0, nullptr)(true);
  EXPECT_NO_THROW(MainQueue::drain()) << "an empty closure is none";
}

TEST(MainQueueDeathTest, delaysOutOfRangeAreFatal) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  for (const double seconds : {1e10, -1e10, infinity, -infinity, infinity - infinity}) {
    EXPECT_EXIT(qdispatch::onMainQueueDelayedOrManual(seconds, [](bool) {}),
                testing::KilledBySignal(SIGABRT), "^Fatal error: file " __FILE__ ", line [0-9]+\n$")
        << seconds;
  }
  // The longest that fits is no trap, and never comes.
  qdispatch::onMainQueueDelayedOrManual(9.2e9, [](bool) { ADD_FAILURE(); });
  EXPECT_EQ(MainQueue::drain(), 0U);
}

}  // namespace
