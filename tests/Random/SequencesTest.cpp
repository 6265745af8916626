#include <csignal>
#include <cstddef>
#include <cstdint>
#include <list>
#include <ranges>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <Tolvanite/Random/ConstantSequence.h>
#include <Tolvanite/Random/InfiniteSequence.h>
#include <Tolvanite/Random/NameGenerator.h>
#include <Tolvanite/Random/RandomSequence.h>
#include <Tolvanite/Random/SequenceComparator.h>

#include <tests/Support/ScriptedRandom.h>

using namespace tolvanite;
using tolvanite::test::ScriptedRandom;

namespace {

using Strings = std::vector<std::string>;

const auto aborts = testing::KilledBySignal(SIGABRT);

template <typename Sequence>
auto taken(const Sequence& sequence, std::ptrdiff_t count) {
  std::vector<typename decltype(sequence.begin())::value_type> result;
  for (const auto& element : sequence | std::views::take(count)) result.push_back(element);
  return result;
}

TEST(NameGeneratorTest, countsThroughTheNames) {
  const auto names = NameGenerator::make(1, 2, "ab", "x");
  EXPECT_EQ(taken(*names, 100), (Strings{"xa", "xb", "xaa", "xab", "xba", "xbb"}));
  auto next = NameGenerator::make(1, 1, "a", "")->makeIterator();  // outlives the generator
  EXPECT_EQ(next.next(), "a");
  EXPECT_TRUE(!next.next() && !next.next());

  const auto threes = NameGenerator::make(3, 3, "012", "");
  const auto all = taken(*threes, 100);
  EXPECT_EQ(all.size(), 27U);
  EXPECT_EQ(all[5], "012");
  EXPECT_EQ(all.back(), "222");
  EXPECT_EQ(taken(*NameGenerator::make(1, 1, "e\u0301🇩🇪", "-"), 9), (Strings{"-e\u0301", "-🇩🇪"}));
}

TEST(NameGeneratorTest, endlessAndFatalLengths) {
  EXPECT_EQ(taken(*NameGenerator::make(0, 2, "ab", "x"), 4), (Strings{"x", "x", "x", "x"}));
  EXPECT_EQ(taken(*NameGenerator::make(0, 0, "", "x"), 2), (Strings{"x", "x"}));
  EXPECT_EQ(taken(*NameGenerator::make(2, 1, "a", ""), 4), (Strings{"aa", "aaa", "aaaa", "aaaaa"}));
  EXPECT_EXIT(NameGenerator::make(1, 2, "", "x")->makeIterator().next(), aborts, "out of range");
  EXPECT_EXIT(NameGenerator::make(-1, 2, "ab", "x")->makeIterator().next(), aborts, "Fatal error");
}

TEST(SequencesTest, withoutEnd) {
  const InfiniteSequence<std::string> ring({"a", "b", "c"}, 1);
  EXPECT_EQ(taken(ring, 5), (Strings{"b", "c", "a", "b", "c"}));
  auto next = ring.makeIterator();
  next.next();
  auto fork = next;
  EXPECT_EQ(next.next(), fork.next());
  EXPECT_EQ(InfiniteIterator<int>({4}).next(), 4);
  EXPECT_EXIT(InfiniteSequence<int>({1, 2}, 2).makeIterator(), aborts, "Index 2 out of range, 2");
  EXPECT_EXIT(InfiniteSequence<int>({1, 2}, -1).makeIterator(), aborts, "Index -1 out of range");
  EXPECT_EXIT(InfiniteSequence<int>({}).begin(), aborts, "out of range, 0 elements");
  EXPECT_EQ(taken(ConstantSequence<std::string>("x"), 3), (Strings{"x", "x", "x"}));

  ScriptedRandom random({2, 0, 2});
  EXPECT_EQ(taken(RandomSequence<std::string>({"a", "b", "c"}), 3), (Strings{"c", "a", "c"}));
  EXPECT_EQ(taken(RandomSequence<int>({}), 3), std::vector<int>{});
  EXPECT_EQ(random.bounds, (std::vector<std::uint32_t>{3, 3, 3})) << "no draw beyond the third";
}

TEST(SequenceComparatorTest, fourSets) {
  const auto sets =
      SequenceComparator<int>::make(std::list{1, 1, 2}, "old", std::vector{2, 3}, "new");
  EXPECT_EQ(sets->onlyLeft(), Set<int>{1});
  EXPECT_EQ(sets->onlyRight(), Set<int>{3});
  EXPECT_EQ(sets->intersection(), Set<int>{2});
  EXPECT_EQ(sets->union_(), (Set<int>{1, 2, 3}));
  EXPECT_EQ(&sets->union_(), &sets->union_()) << "computed once";
  EXPECT_EQ(sets->left(), (Set<int>{1, 2}));
  EXPECT_TRUE(sets->nameLeft() == "old" && sets->nameRight() == "new");

  const auto one = SequenceComparator<std::string>::make(Strings{}, Strings{"a"});
  EXPECT_TRUE(one->onlyLeft().empty() && one->intersection().empty() && !one->nameLeft());
  EXPECT_EQ(one->onlyRight(), one->union_());
}

}  // namespace
