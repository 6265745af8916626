// Random operations on the sets and on the bases of their views, also from within observers: the
// events must tell the content, and the views do what naive models of them do.
#include <deque>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <Tolvanite/DataStructures/FilterSet.h>
#include <Tolvanite/DataStructures/OptionallyFilteredAlwaysSortedArray_BasedOnObservableSet.h>
#include <Tolvanite/DataStructures/OptionallyFilteredSet_BasedOnKerray.h>
#include <Tolvanite/DataStructures/OptionallyFilteredSet_BasedOnObservableSet.h>

#include "tests/DataStructures/LiveViewModel.h"
#include "tests/Support/CapturedOutput.h"

namespace tolvanite::testing {
namespace {

Int phase = 0;  // What one of the filters answers depends on more than the element.
template <typename T>
Block<bool(const T&)> filterOf(Int which) {
  if (which == 1) return [](const T& e) { return itemOf(e).group != 0; };
  if (which == 2) return [](const T& e) { return itemOf(e).rank < 5; };
  if (which == 3) return [](const T& e) { return (itemOf(e).key + phase) % 3 != 0; };
  return nullptr;
}
template <typename T>
NamedSortBlock<T> orderOf(Int which) {
  NamedSortBlock<T> byRank{"rank",
                           [](const T& a, const T& b) { return itemOf(a).rank < itemOf(b).rank; }};
  if (which == 0) return byRank;
  if (which == 1) return byRank.reversed();
  // With the code of another one it is stored, and the array is left as it stands.
  return {which == 2 ? "rank" : "group",
          [](const T& a, const T& b) { return itemOf(a).group > itemOf(b).group; }};
}

template <typename T>
void takeRandomStep(auto& set, Random& random, bool hasViews) {
  const auto element = [&] {
    const Int key = draw(random, 16);
    const Int rank = draw(random, 9);
    return makeElement<T>(key, rank, draw(random, 4));
  };
  const T one = element();
  std::vector<T> many;
  for (Int i = draw(random, 7); i > 0; --i) many.push_back(element());
  const Int any = draw(random, 6);
  const Int which = draw(random, 14);
  try {
    if (which < 4) set.update(one);
    if (which == 4 || which == 5) set.remove(one);
    if (which == 6 && any == 0) set.removeAll();
    if constexpr (requires { set.array(); }) {
      // A keyed array is given each key once.
      const auto key = [](const T& e) { return itemOf(e).key; };
      std::ranges::sort(many, {}, key);
      many.erase(std::ranges::unique(many, {}, key).begin(), many.end());
      if (which == 8 || which == 9) set.append(one);
      if (which == 10) set.appendMultiple(many);
      if (which == 11) set.update(many);
      if (which == 12 && set.count() > 0) set.move(0, set.count() - 1);
      if (which == 13) std::erase_if(many, [&](const T& e) { return !set.contains(e); });
      if (which == 13) set.remove(many);
    } else {
      if (which == 8 || which == 9) set.insert(one);
      if constexpr (requires { set.setFilterBlock(nullptr); }) {
        if (which == 10 || which == 11) set.insert(many);
        if (which == 12) set.setFilterBlock(filterOf<T>(any));
      } else {
        if (which == 10 || which == 11) set.insertMultiple(many);
        if (which == 12) set.remove(many);
        if (which == 13 && !hasViews) set.updateMultiple(many);
      }
    }
    if (which == 7 && any == 0) set.replaceContent(many);
  } catch (const Error& error) {  // Elements that are present are a matter of course.
    EXPECT_THAT(error.description(), ::testing::HasSubstr("already present"));
  }
}

bool isWholesale(const Change& change) {
  const std::string& event = change.event;
  return event.ends_with("Content") || event.ends_with("hanged") || event == "removedAll";
}
/// What the events tell of a set, beginning with `prefix`; `brings`: updates bring new content.
void follow(const Changes& changes, Texts& shadow, const Texts& now, bool brings,
            const std::string& prefix = "", bool takes = true) {
  for (const auto& [event, indexes, elements, to] : changes) {
    for (const auto& text : event.starts_with(prefix) ? elements : Texts()) {
      const auto found = std::ranges::find_if(shadow, [&](const std::string& other) {
        return other.starts_with(text.substr(0, text.find('/') + 1));
      });
      const bool has = found != shadow.end();
      if (event.find("nserted") != std::string::npos && !has) shadow.push_back(text);
      if (event.find("emoved") != std::string::npos && has && takes) shadow.erase(found);
      if (event.find("pdated") != std::string::npos && has && brings) *found = text;
    }
  }
  if (std::ranges::any_of(changes, isWholesale)) shadow = now;
  std::ranges::sort(shadow);
  EXPECT_EQ(shadow, now) << "the events alone must tell the content";
}

template <typename T>
struct SetPropertyTest : ::testing::Test {};
using ElementTypes = ::testing::Types<Item, SharedItem>;
TYPED_TEST_SUITE(SetPropertyTest, ElementTypes);

TYPED_TEST(SetPropertyTest, theEventsTellTheContent) {
  const CapturedOutput warnings;
  Random random(1);
  const auto set = ObservableSet<TypeParam>::make();
  FilterSet<TypeParam> filtered;
  Listener ofSet(*set);
  Listener ofFiltered(filtered);
  Texts shadow;
  Texts in;
  Texts out;
  for (int i = 0; i < 2000 && !this->HasFailure(); ++i) {
    phase = i % 3;
    takeRandomStep<TypeParam>(*set, random, false);
    takeRandomStep<TypeParam>(filtered, random, false);
    // Of repeated elements a batch of updates tells the first and stores the last.
    if (!ofSet.changes.empty() && ofSet.changes.back().event == "updatedMultiple") {
      ofSet.changes.push_back({"replacedContent"});
    }
    follow(std::exchange(ofSet.changes, {}), shadow, sortedTextsOf(*set), true);
    const Changes changes = std::exchange(ofFiltered.changes, {});
    follow(changes, in, sortedTextsOf(filtered.inElements()), true, "inSet");
    follow(changes, out, sortedTextsOf(filtered.outElements()), true, "outSet");
    Texts both = in;
    std::ranges::copy(out, std::back_inserter(both));
    EXPECT_EQ(sortedTextsOf(filtered), sortedTextsOf(both));
  }
}

std::string linesOfViews;

/// Any of the views: it hears of the changes of the real base, just before the real view does.
template <typename RealView>
struct FollowingModel : ViewModel<typename RealView::value_type> {
  using View = RealView;
  using T = typename View::value_type;
  using Array = std::vector<T>;
  static constexpr bool isSorted = requires(View& view) { view.sortBlock(); };
  static constexpr bool isOnKerray = requires(View& view) { view.baseKerray(); };
  static constexpr bool isSetOnSet = !isSorted && !isOnKerray;
  using Base = std::conditional_t<isOnKerray, Kerray<T>, ObservableSet<T>>;
  using Model = ViewModel<T>;
  using Model::array, Model::filter, Model::find, Model::sort;

  Texts shown(const Array& base) const {
    if (isSorted) return textsOf(*array);
    return sortedTextsOf(filter || isOnKerray ? *array : base);
  }
  void tell(const std::string& event, const Array& elements, const Indexes& places = {}) {
    const bool isList = isSorted || (event == "insertedMultiple" && !isOnKerray);
    this->changes.push_back({event, isSorted ? places : Indexes(),
                             isList ? textsOf(elements) : sortedTextsOf(elements)});
  }
  void rebuild(const Array& base, const std::string& event) {
    this->fill(base, filter);
    if (sort) this->sortBy(*array);
    tell(event, {});
  }
  void resort(const NamedSortBlock<T>& block) {
    if (std::exchange(sort, block) == block) return;
    this->sortBy(*array);
    this->changes.push_back({"sortingChanged", {}, {block.code}});
  }
  void refilter(const Array& base, const Block<bool(const T&)>& block) {
    if (std::exchange(filter, block) || block || isSetOnSet) rebuild(base, "filterChanged");
  }

  void hear(const Array& base, const ChangeOf<T>& e) {
    const std::string& event = e.event;
    if (event.starts_with("moved") || event == "replacedContentOldContent") return;
    if (event == "replacedContent") return rebuild(base, event);
    if (event == "removedAll") return rebuild(isSetOnSet ? Array() : base, event);
    const char kind = event[0];
    // Of a Kerray without a filter what is removed stays, and what is updated keeps its content.
    if (!filter && !isSorted && kind != 'i') return tell(event, e.elements);
    Array gone;
    Array stayed;
    Array come;
    for (const T& element : e.elements) {
      const bool isHere = find(element) >= 0;
      const bool passes = !filter || filter(element);
      require(filter || isHere || kind != 'u');
      if (kind == 'i' ? passes : kind == 'u' && passes && !isHere) come.push_back(element);
      if (kind == 'u' && isHere && passes) stayed.push_back(element);
      // Told though it neither was nor is in the view.
      if (kind == 'u' && !isHere && !passes && isSetOnSet) stayed.push_back(element);
      if (kind == 'u' && isHere && !passes) gone.push_back(element);
      // A set on a set asks the filter, the others ask what they hold.
      if (kind == 'r' && (isSetOnSet ? passes : isHere)) gone.push_back(element);
    }
    const bool isBatch = event.find("Multiple") != std::string::npos;
    const std::string many = isBatch ? "Multiple" : "";
    const bool isToldEmpty = isBatch && kind == 'u';
    if (!gone.empty() || isToldEmpty || (isBatch && kind == 'r')) leave(gone, "removed" + many);
    if (isSorted && !stayed.empty()) return this->updateSorted(find(stayed[0]), stayed[0]);
    if (!stayed.empty() || isToldEmpty) tell("updated" + many, stayed);
    if (come.empty() && !isToldEmpty && !(isBatch && kind == 'i' && (isOnKerray || !filter)))
      return;
    Indexes places;
    for (const T& element : come) {
      if (isSorted) places.push_back(this->insertSorted(element));
      if (!isSorted && find(element) < 0) array->push_back(element);
    }
    tell("inserted" + many, come, places);
  }
  void leave(Array elements, const std::string& event) {
    const bool isListed = isSorted && event == "removedMultiple";
    Indexes places;
    for (const T& element : elements) {
      if (find(element) >= 0) places.push_back(find(element));
    }
    std::ranges::sort(places);
    if (isListed) elements.clear();
    for (const Int place : places | std::views::reverse) {
      if (isListed) elements.insert(elements.begin(), this->at(place));
      array->erase(array->begin() + place);
      if (!isListed) continue;
      linesOfViews +=
          "remove at index " + textForm(place) + "\nits " + textForm(elements[0]) + "\n";
    }
    tell(event, elements, places);
    if (!isListed) return;
    linesOfViews += "remove = " + textForm(places) + "\nelements = " + textForm(elements) + "\n";
  }
};

/// Two views on one base, which observers before and behind them change from within their blocks.
template <typename Model>
struct Views {
  using T = typename Model::T;
  using Base = typename Model::Base;
  using Array = std::vector<T>;
  struct Followed {
    Model model = {};
    std::shared_ptr<typename Model::View> view = {};
    std::unique_ptr<Listener> listener = {};
    Texts shadow = {};
  };

  Array content() const {
    Array array;
    for (const T& element : *base) array.push_back(element);
    return array;
  }
  void hear(const auto& hearing) {
    base->observers.createNew(owner, [&](auto& observer) { hearAll<T>(observer, hearing); });
  }
  void nest() {
    hear([this](const ChangeOf<T>&) {
      if (nested > 0) --nested, takeRandomStep<T>(*base, random, true);
    });
  }
  void add() {
    auto& [model, view, listener, shadow] = views.emplace_back();
    hear([this, &model](const ChangeOf<T>& change) { model.hear(content(), change); });
    model.filter = filterOf<T>(draw(random, 4));
    model.array.emplace();
    if constexpr (Model::isSorted) {
      model.sort = orderOf<T>(draw(random, 4));
      view = Model::View::make(base, model.filter, *model.sort);
    } else {
      view = Model::View::make(base, model.filter);
    }
    listener = std::make_unique<Listener>(*view);
  }
  void setBlock(Followed& followed) {
    if constexpr (Model::isSorted) {
      const auto order = orderOf<T>(draw(random, 4));
      followed.view->setSortBlock(order);
      followed.model.resort(order);
    }
    const auto filter = filterOf<T>(draw(random, 4));
    followed.view->setFilterBlock(filter);
    followed.model.refilter(content(), filter);
  }
  // An element that lives in a pointer is changed where it is, and announced or not.
  void changeInPlace() {
    if constexpr (std::is_same_v<T, SharedItem>) {
      if (base->isEmpty()) return;
      const T element = content()[static_cast<std::size_t>(draw(random, base->count()))];
      *element = {element->key, draw(random, 9), 0};
      if (draw(random, 2) == 0) base->update(element);
    }
  }
  void compare(Followed& followed) {
    auto& [model, view, listener, shadow] = followed;
    const Changes changes = std::exchange(listener->changes, {});
    EXPECT_EQ(changes, std::exchange(model.changes, {}));
    const Texts now = Model::isSorted ? textsOf(*view) : sortedTextsOf(*view);
    EXPECT_EQ(now, model.shown(content()));
    if (std::is_same_v<T, SharedItem>) return;
    if (Model::isSorted && std::ranges::none_of(changes, isWholesale)) {
      for (const Change& change : changes) replay(change, shadow, *view);
      EXPECT_EQ(shadow, now);
    } else if (!Model::isSorted && (model.filter || Model::isOnKerray || !nests)) {
      const bool isBase = Model::isSetOnSet && !model.filter;
      follow(changes, shadow, now, isBase, "", isBase || model.filter);
    } else {
      shadow = now;
    }
  }
  /// Gives the number of steps before one that ends the process.
  int run() {
    nest();
    add();
    add();
    nest();
    for (int i = 0; i < 400; ++i) {
      phase = i % 3;
      if (i % 20 == 0) setBlock(views[static_cast<std::size_t>(draw(random, 2))]);
      std::string lines;
      linesOfViews.clear();
      try {
        const CapturedOutput captured;
        if (i % 4 == 0) changeInPlace();
        nested = nests ? 3 : 0;
        takeRandomStep<T>(*base, random, true);
        lines = withoutLines("WARNING", captured.text());
      } catch (Fatal) {
        return i;
      }
      EXPECT_EQ(lines, linesOfViews);
      for (Followed& followed : views) compare(followed);
      if (::testing::Test::HasFailure()) return i;
    }
    return 400;
  }

  Random random;
  bool nests = false;
  int nested = 0;
  std::shared_ptr<Base> base = Base::make();
  std::deque<Followed> views = {};
  OwnerToken owner = {};
};

template <typename Model>
struct ViewsPropertyTest : ::testing::Test {};
template <typename T>
using OnSet = FollowingModel<OptionallyFilteredSet_BasedOnObservableSet<T>>;
template <typename T>
using OnKerray = FollowingModel<OptionallyFilteredSet_BasedOnKerray<T>>;
template <typename T>
using Sorted = FollowingModel<OptionallyFilteredAlwaysSortedArray_BasedOnObservableSet<T>>;
using ViewModels = ::testing::Types<OnSet<Item>, OnSet<SharedItem>, OnKerray<Item>,
                                    OnKerray<SharedItem>, Sorted<Item>, Sorted<SharedItem>>;
TYPED_TEST_SUITE(ViewsPropertyTest, ViewModels);

TYPED_TEST(ViewsPropertyTest, theViewsShowAndTellWhatTheirModelsDo) {
  int steps = 0;
  for (std::uint64_t seed = 0; seed < 24 && !this->HasFailure(); ++seed) {
    SCOPED_TRACE(seed);
    steps += Views<TypeParam>{Random(seed), seed % 2 == 1}.run();
  }
  EXPECT_GT(steps, 24 * 400 / 2);
}

}  // namespace
}  // namespace tolvanite::testing
