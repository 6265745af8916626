#include <Tolvanite/Platform/MainQueue.h>

#include <chrono>
#include <csignal>
#include <limits>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <poll.h>

#include <Tolvanite/Frame/Dispatch.h>
#include <Tolvanite/Frame/Types.h>

namespace {

using std::chrono::milliseconds;
using testing::ElementsAre;
using tolvanite::Block;
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
  std::string ran;
  MainQueue::async([&] { ran += 'a'; });
  MainQueue::async({});
  EXPECT_TRUE(isReadableWithin(milliseconds(0)));
  EXPECT_TRUE(isReadableWithin(milliseconds(0)));
  EXPECT_EQ(MainQueue::drain(), 1U);
  EXPECT_FALSE(isReadableWithin(milliseconds(0)));

  MainQueue::after(milliseconds(60), [&] { ran += 'c'; });
  EXPECT_FALSE(isReadableWithin(milliseconds(0)));
  MainQueue::async([&] { ran += 'b'; });
  EXPECT_EQ(MainQueue::drain(), 1U);
  EXPECT_TRUE(isReadableWithin(milliseconds(10'000)));
  EXPECT_EQ(MainQueue::drain(), 1U);
  EXPECT_EQ(ran, "abc");
}

TEST(MainQueueTest, runsByDueTimeThenByCall) {
  std::vector<int> ran;
  const auto note = [&](int i) { return [&ran, i] { ran.push_back(i); }; };
  MainQueue::after(milliseconds(40), note(6));
  MainQueue::after(milliseconds(20), note(5));
  MainQueue::async(note(1));
  MainQueue::after(milliseconds(-1000), note(2));
  MainQueue::after(std::chrono::nanoseconds::min(), note(3));
  MainQueue::async(note(4));
  serveUntilQuiet(milliseconds(200));
  EXPECT_THAT(ran, ElementsAre(1, 2, 3, 4, 5, 6));
}

TEST(MainQueueTest, blocksPostedByBlocksWait) {
  std::string ran;
  Block<void()> again = [&] {
    ran += 'a';
    MainQueue::async(again);
  };
  MainQueue::async(again);
  EXPECT_EQ(MainQueue::drain(), 1U);
  EXPECT_TRUE(isReadableWithin(milliseconds(0)));
  again = [&] { ran += 'b'; };
  EXPECT_EQ(MainQueue::drain(), 1U);
  EXPECT_EQ(MainQueue::drain(), 1U);
  EXPECT_EQ(ran, "aab");

  MainQueue::async([&] { EXPECT_EQ(MainQueue::drain(), 1U); });
  MainQueue::async([&] { ran += 'c'; });
  EXPECT_EQ(MainQueue::drain(), 1U);
  EXPECT_EQ(ran, "aabc");
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
  constexpr int threadCount = 4;
  constexpr int each = 2000;
  std::vector<std::vector<int>> ran(threadCount);
  std::vector<std::jthread> threads;
  for (std::size_t t = 0; t < threadCount; ++t) {
    threads.emplace_back([&ran, t] {
      for (int i = 0; i < each; ++i) MainQueue::async([&ran, t, i] { ran[t].push_back(i); });
    });
  }
  std::size_t count = 0;
  while (count < threadCount * each && isReadableWithin(milliseconds(10'000))) {
    count += MainQueue::drain();
  }
  std::vector<int> expected;
  for (int i = 0; i < each; ++i) expected.push_back(i);
  for (const auto& order : ran) EXPECT_EQ(order, expected);
}

TEST(MainQueueTest, delayedOrManualRunsByWhicheverComesFirst) {
  std::vector<bool> flags;
  const auto note = [&](bool flag) { flags.push_back(flag); };

  const auto early = qdispatch::onMainQueueDelayedOrManual(0.05, note);
  early(true);
  serveUntilQuiet(milliseconds(150));
  EXPECT_THAT(flags, ElementsAre(true));
  early(false);
  EXPECT_THAT(flags, ElementsAre(true, false));

  flags.clear();
  const auto late = qdispatch::onMainQueueDelayedOrManual(0.02, note);
  serveUntilQuiet(milliseconds(150));
  EXPECT_THAT(flags, ElementsAre(false));
  late(true);
  EXPECT_THAT(flags, ElementsAre(false, true));
}

// The queue must not keep what the closure holds once the trigger has been used and dropped, and a
// closure may drop its own trigger.
TEST(MainQueueTest, aUsedTriggerLetsItsClosureGo) {
  const auto content = std::make_shared<int>(1);
  Block<void(bool)> trigger;
  trigger = qdispatch::onMainQueueDelayedOrManual(100'000, [content, &trigger](bool) {
    trigger = nullptr;
    EXPECT_EQ(*content, 1);
  });
  EXPECT_EQ(content.use_count(), 2);
  trigger(true);
  EXPECT_EQ(content.use_count(), 1);
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
