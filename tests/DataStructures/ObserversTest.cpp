// Owners, the observer registry, fountains and the observable values.
#include <memory>
#include <random>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <Tolvanite/DataStructures/Fountain.h>
#include <Tolvanite/DataStructures/ObservableEquatable.h>
#include <Tolvanite/DataStructures/ObservableOptional.h>
#include <Tolvanite/DataStructures/ObservableOptionalComparable.h>
#include <Tolvanite/DataStructures/ObservableOptionalEquatable.h>
#include <Tolvanite/DataStructures/ObservableOptionalEquatable_WithContentUpdateFountain.h>
#include <Tolvanite/DataStructures/ObservableProperty.h>
#include <Tolvanite/DataStructures/SimpleValueWrapper.h>
#include <Tolvanite/DataStructures/WeaklyOwnedObjectsSphere.h>

#include "tests/Support/CapturedOutput.h"

namespace tolvanite {
namespace {

using testing::CapturedOutput;
using Texts = std::vector<std::string>;

struct BellObserver final : WeaklyOwnedObject {
  using WeaklyOwnedObject::WeaklyOwnedObject;
  Block<void()> rang;
};
using Bells = WeaklyOwnedObjectsSphere<BellObserver>;

std::shared_ptr<int> newOwner() { return std::make_shared<int>(0); }

struct SphereTest : ::testing::Test {
  /// Registers an observer that writes `name`, and then runs `also`.
  void add(const Owner& owner, const std::string& name, const Block<void()>& also = nullptr) {
    bells.createNew(owner, [&](BellObserver& observer) { observer.rang = writing(name, also); });
  }
  Block<void()> writing(const std::string& name, const Block<void()>& also = nullptr) {
    return [this, name, also] {
      heard.push_back(name);
      if (also) also();
    };
  }
  Texts ring() { return ring(bells); }
  Texts ring(const Bells& sphere) {
    heard.clear();
    detail::notify(sphere, &BellObserver::rang);
    return heard;
  }

  Bells bells;
  Texts heard;
  std::shared_ptr<int> a = newOwner();
  std::shared_ptr<int> b = newOwner();
  std::shared_ptr<int> c = newOwner();
};

TEST_F(SphereTest, callsInOrderOfRegistrationOncePerSubscription) {
  add(b, "first");
  add(a, "second");
  add(b, "third");
  bells.createNew(a);  // without a block
  EXPECT_EQ(ring(), (Texts{"first", "second", "third"}));
  b.reset();
  EXPECT_EQ(ring(), Texts{"second"});

  const auto made = std::make_shared<BellObserver>(Owner(c));
  made->rang = writing("made");
  bells.append(made);
  EXPECT_EQ(made->owner(), c);
  EXPECT_EQ(ring(), (Texts{"second", "made"}));
  a.reset();
  c.reset();
  EXPECT_EQ(ring(), Texts{});
  EXPECT_EQ(made->owner(), nullptr);
}

TEST_F(SphereTest, aPassGoesOverTheListAsItWasAndPassesOverTheDead) {
  add(a, "a", [&] {
    add(b, "new");
    a.reset();
    c.reset();
  });
  add(a, "a again");
  add(b, "b");
  add(c, "c");
  EXPECT_EQ(ring(), (Texts{"a", "b"}));
  bells = Bells(bells);
  EXPECT_EQ(ring(), (Texts{"b", "new"}));
  // The list of a pass outlives the sphere.
  auto inner = std::make_unique<Bells>();
  for (const char* name : {"x", "y"}) {
    inner->createNew(b)->rang = writing(name, [&] { inner.reset(); });
  }
  EXPECT_EQ(ring(*inner), (Texts{"x", "y"}));
}

TEST_F(SphereTest, configureRunsBeforeTheObserverIsInTheList) {
  bells.createNew(a, [&](BellObserver& outer) {
    outer.rang = writing("outer");
    add(b, "inner");
    EXPECT_EQ(ring(), Texts{"inner"});
  });
  EXPECT_THROW(bells.createNew(a, [](BellObserver&) { throw 1; }), int);
  Bells copy = bells;
  copy.createNew(c)->rang = writing("c");
  EXPECT_EQ(ring(), (Texts{"inner", "outer"})) << "a copy goes its own way";
  EXPECT_EQ(ring(copy), (Texts{"inner", "outer", "c"}));
}

// Held until the next registration, and no longer, wherever in the list they stand.
TEST_F(SphereTest, registrationLetsGoTheObserversOfDeadOwners) {
  for (const int i : {0, 1, 2, 3, 4, 5, 200, 201}) {
    Bells sphere;
    auto dies = newOwner();
    for (int before = i / 2; before > 0; --before) sphere.createNew(a);
    const std::weak_ptr<BellObserver> dying = sphere.createNew(dies);
    sphere.createNew(b);
    dies.reset();
    EXPECT_FALSE(dying.expired());
    if (i % 2 == 0) {
      sphere.append(std::make_shared<BellObserver>(Owner(a)));
    } else {
      sphere.createNew(a, [&](BellObserver&) { EXPECT_TRUE(dying.expired()); });
    }
    EXPECT_TRUE(dying.expired()) << i;
  }
}

TEST_F(SphereTest, whatADyingObserverHoldsMayRegisterAtItsEnd) {
  std::shared_ptr<void> last(nullptr, [this](void*) { add(b, "from the end"); });
  bells.createNew(c)->rang = [held = last] {};
  last.reset();
  c.reset();
  add(a, "a");
  EXPECT_EQ(ring(), (Texts{"from the end", "a"}));
}

// Passes over observers of tokens do not look at each token while none has ended.
TEST_F(SphereTest, observersOfTokensAreCalledAsLongAsTheirTokensLive) {
  std::mt19937 random(7);
  std::vector<std::unique_ptr<OwnerToken>> tokens(8);
  std::vector<std::size_t> registered;  // in the order of registration, the ended ones too
  const auto endOne = [&] { tokens[random() % tokens.size()].reset(); };
  const auto expected = [&] {
    Texts names;
    for (const std::size_t i : registered) {
      if (tokens[i % 8]) names.push_back(std::to_string(i));
    }
    return names;
  };
  for (std::size_t step = 0; step < 2000; ++step) {
    auto& token = tokens[step % 8];
    if (!token) {
      std::erase_if(registered, [&](std::size_t i) { return i % 8 == step % 8; });
      token = std::make_unique<OwnerToken>();
    }
    if (step % 3 == 0 || registered.size() < 4) {
      add(*token, std::to_string(step));
      registered.push_back(step);
    }
    if (random() % 4 == 0) endOne();
    ASSERT_EQ(ring(), expected()) << step;
    ASSERT_EQ(ring(Bells(bells)), expected()) << step;
  }
}

TEST_F(SphereTest, aTokenThatEndsDuringAPassIsHeardOfAtOnce) {
  auto first = std::make_unique<OwnerToken>();
  auto second = std::make_unique<OwnerToken>();
  OwnerToken third;
  add(third, "1", [&] { second.reset(); });
  add(*second, "2");
  add(*first, "3");
  EXPECT_EQ(ring(), (Texts{"1", "3"}));
  // A life that someone holds lasts until it is let go.
  auto life = Owner(*first).lock();
  first.reset();
  EXPECT_EQ(ring(), (Texts{"1", "3"}));
  life.reset();
  EXPECT_EQ(ring(), Texts{"1"});
  // An owner that has ended before it is registered is never called.
  auto late = std::make_unique<OwnerToken>();
  const Owner ended(*late);
  late.reset();
  add(ended, "4");
  EXPECT_EQ(ring(), Texts{"1"});
}

TEST(OwnerTest, identityIsThatOfTheObject) {
  const auto object = newOwner();
  OwnerToken token;
  EXPECT_TRUE(Owner(object).isSame(std::weak_ptr<int>(object)));
  EXPECT_FALSE(Owner(object).isSame(newOwner()));
  EXPECT_TRUE(Owner(token).isSame(token));
  EXPECT_FALSE(Owner().isSame(Owner()));
  EXPECT_FALSE(Owner().isAlive());

  const Owner early(token);
  OwnerToken copy = token;
  EXPECT_FALSE(Owner(copy).isSame(token));
  token = copy;
  EXPECT_TRUE(early.isAlive()) << "an assignment brings no other life";
  token.endSubscriptions();
  EXPECT_FALSE(early.isAlive());
  EXPECT_TRUE(Owner(token).isAlive());
}

struct FountainTest : ::testing::Test {
  void add(const Owner& owner, const std::string& name, const Block<void()>& also = nullptr) {
    fountain.add(owner, [this, name, also](int value) {
      heard.push_back(name + std::to_string(value));
      if (also) also();
    });
  }
  Texts fire(int value) {
    heard.clear();
    for (const auto& listener : fountain) listener->block(value);
    return heard;
  }

  Fountain<int> fountain;
  Texts heard;
  std::shared_ptr<int> a = newOwner();
  std::shared_ptr<int> b = newOwner();
  std::shared_ptr<int> c = newOwner();
};

TEST_F(FountainTest, aPassLooksIntoTheCurrentList) {
  add(a, "a", [&] {
    if (heard.size() == 1) add(c, "new");
  });
  add(b, "b", [&] { fountain.remove(a); });
  add(c, "c");
  add(c, "d");
  EXPECT_EQ(fire(1), (Texts{"a1", "b1", "d1", "new1"})) << "c has moved up and is missed";
  EXPECT_EQ(fire(2), (Texts{"b2", "c2", "d2", "new2"}));
  // A listener may remove itself, and with it all others.
  add(b, "e", [&] { fountain.remove(c); });
  fountain.remove(b);
  add(c, "f", [&] { fountain.remove(c); });
  EXPECT_EQ(fire(3), (Texts{"c3", "d3", "new3", "f3"}));
  EXPECT_EQ(fire(4), Texts{});
}

TEST_F(FountainTest, removalAndRegistrationPurge) {
  add(a, "a");
  add(b, "b");
  add(a, "a");
  const Block<void()> purges[] = {[&] { fountain.remove(a); }, [&] { fountain.remove(newOwner()); },
                                  [&] { add(c, "c"); },
                                  [&] { fountain.purgeDeallocedListeners(); }};
  for (const auto& purge : purges) {
    auto held = newOwner();
    const std::weak_ptr<int> inBlock = held;
    fountain.add(newOwner(), [held = std::move(held)](int) {});
    fountain.add(b, false, [](int) {});
    EXPECT_FALSE(inBlock.expired()) << "without purge";
    if (&purge == purges) {
      EXPECT_EQ(fire(1), (Texts{"a1", "b1", "a1"}));
    }
    purge();
    EXPECT_TRUE(inBlock.expired());
  }
  EXPECT_EQ(fire(2), (Texts{"b2", "c2"}));
}

TEST(SourceFountainTest, passesValueAndSource) {
  SourceFountain<int, std::string> fountain;
  OwnerToken owner;
  std::string heard;
  fountain.add(owner, [&](int value, const auto& source) { heard = source + textForm(value); });
  for (const auto& listener : fountain) listener->block(7, "s");
  EXPECT_EQ(heard, "s7");
}

// One row of the tables: whether an equal value is told, and what it prints.
enum class Equal { isTold, isSilent, isLogged };

template <typename Value, typename Content>
void expectRow(const std::shared_ptr<Value>& value, Content changed, Content same, Equal equal) {
  SCOPED_TRACE(typeName<Value>());
  Texts heard;
  const auto a = newOwner();
  const auto b = newOwner();
  value->fountain().add(a, [&](const Content& now) { heard.push_back("a" + textForm(now)); });
  value->fountain().add(b, [&](const Content& now) { heard.push_back("b" + textForm(now)); });
  const CapturedOutput captured;
  value->set(changed);
  EXPECT_EQ(captured.text(), "");
  const std::string text = textForm(changed);
  EXPECT_EQ(heard, (Texts{"a" + text, "b" + text}));
  EXPECT_EQ(textForm(value->value()), text);

  heard.clear();
  value->set(same);
  EXPECT_EQ(heard.size(), equal == Equal::isTold ? 2u : 0u);
  const std::string line = "🔀MT [A-Za-z_]+@[0-9]+: ❎❎❎ not changed\n";
  EXPECT_THAT(captured.text(), ::testing::MatchesRegex(equal == Equal::isLogged ? line : ""));

  heard.clear();
  value->set(Content(3), a);
  EXPECT_EQ(heard, Texts{"b3"});
  value->set(Content(4), newOwner());
  EXPECT_EQ(heard, (Texts{"b3", "a4", "b4"}));
}

TEST(ObservableValuesTest, whatIsToldOfAnEqualValue) {
  using Maybe = Optional<int>;
  expectRow(ObservableProperty<int>::make(1), 2, 2, Equal::isTold);
  expectRow(ObservableEquatable<int>::make(1), 2, 2, Equal::isSilent);
  expectRow(ObservableOptional<int>::make(1), Maybe(), Maybe(), Equal::isTold);
  expectRow(ObservableOptionalEquatable<int>::make(1), Maybe(), Maybe(), Equal::isLogged);
  expectRow(ObservableOptionalEquatable<int>::make(), Maybe(2), Maybe(2), Equal::isLogged);
  expectRow(ObservableOptionalComparable<int>::make(1), Maybe(2), Maybe(2), Equal::isLogged);
  expectRow(ObservableOptionalEquatable_WithContentUpdateFountain<int>::make(1), Maybe(2), Maybe(2),
            Equal::isLogged);
  EXPECT_FALSE(ObservableOptional<int>::make()->hasValue());
  EXPECT_TRUE(ObservableOptionalComparable<int>::make(0)->hasValue());
  EXPECT_EQ(SimpleValueWrapper<int>::make(7)->value, 7);
}

TEST(ObservableValuesTest, aNestedSetGivesTheLaterListenersTheNewerValueTwice) {
  auto value = ObservableProperty<std::string>::make("old");
  OwnerToken owner;
  Texts heard;
  const std::string outer = "a text that is too long to stand in the string itself";
  value->fountain().add(owner, [&](const std::string& now) {
    const bool isOuter = heard.empty();
    heard.push_back(now);
    if (isOuter) value->set("inner");
    EXPECT_EQ(now, isOuter ? outer : "inner") << "the argument stays while another is set";
  });
  value->fountain().add(owner, [&](const std::string& now) {
    value.reset();  // the last reference
    heard.push_back("then " + now);
  });
  value->set(outer);
  EXPECT_EQ(heard, (Texts{outer, "inner", "then inner", "then inner"}));
}

TEST(ObservableValuesTest, aBlockMayReplaceItselfWhileItRuns) {
  const auto value = ObservableProperty<int>::make(0);
  OwnerToken owner;
  std::string heard;
  const std::string text = "is long enough to live in the block's own memory";
  value->fountain().add(owner, [&value, &heard, text](int now) {
    (*value->fountain().begin())->block = [](int) {};
    heard += textForm(now) + text;
  });
  value->set(1);
  value->set(2);
  EXPECT_EQ(heard, "1" + text);
}

struct Track {
  int key = 0;
  std::string title;
  bool operator==(const Track& other) const { return key == other.key; }
  std::string description() const { return std::to_string(key) + title; }
};

TEST(ObservableValuesTest, contentUpdates) {
  using Value = ObservableOptionalEquatable_WithContentUpdateFountain<Track>;
  const auto value = Value::make(Track{1, "a"});
  const auto owner = newOwner();
  const auto other = newOwner();
  Texts heard;
  value->fountain().add(owner, [&](const Optional<Track>&) { heard.push_back("set"); });
  value->fountainContentUpdate().add(owner, [&](const Track& track) {
    heard.push_back(track.title);
    if (track.title == "b") value->updateContent(Track{1, "nested"}, owner);
  });
  value->fountainContentUpdate().add(
      other, [&](const Track& track) { heard.push_back("other " + track.title); });
  const CapturedOutput captured;
  value->updateContent(Track{1, "b"});
  EXPECT_EQ(heard, (Texts{"b", "other nested", "other b"})) << "the argument is not read again";
  EXPECT_EQ(value->value()->title, "nested");
  EXPECT_EQ(captured.text(), "");

  heard.clear();
  const std::string warning = "🍏🍏🍏 warning: should not happen. updateContent ";
  value->updateContent({});
  value->updateContent(Track{2, "c"});
  EXPECT_EQ(value->value()->title, "nested");
  value->set({});
  EXPECT_EQ(heard, Texts{"set"});
  value->updateContent(Track{2, "c"});
  EXPECT_EQ(heard, Texts{"set"});
  EXPECT_FALSE(value->hasValue());
  EXPECT_EQ(captured.text(), warning + "with nil value\n" + warning + "from 1nested to 2c\n" +
                                 warning + "from nil to 2c\n");
}

}  // namespace
}  // namespace tolvanite
