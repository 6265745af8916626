// Two sequences compared as sets: what only one of them has, what both have, and all of it.
//
//   auto keys = tolvanite::SequenceComparator<std::string>::make(oldKeys, "old", newKeys, "new");
//   for (const auto& key : keys->onlyRight()) std::cout << key << " was added\n";
#pragma once

#include <iterator>
#include <memory>
#include <ranges>
#include <string>
#include <utility>

#include <Tolvanite/Frame/ArrayConcepts.h>
#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/Types.h>

namespace tolvanite {

/// Each result is computed when it is first asked for, and kept. One thread at a time.
template <Hashable T>
class SequenceComparator {
 public:
  SequenceComparator(const SequenceComparator&) = delete;
  SequenceComparator& operator=(const SequenceComparator&) = delete;

  /// Compares the elements of two sequences, which may have names. Of equal elements of a sequence
  /// one is kept.
  /// @{
  template <std::ranges::input_range Left, std::ranges::input_range Right>
  static std::shared_ptr<SequenceComparator> make(Left&& left, Optional<std::string> nameLeft,
                                                  Right&& right, Optional<std::string> nameRight) {
    return std::shared_ptr<SequenceComparator>(new SequenceComparator(
        setOf(left), setOf(right), std::move(nameLeft), std::move(nameRight)));
  }
  template <std::ranges::input_range Left, std::ranges::input_range Right>
  static std::shared_ptr<SequenceComparator> make(Left&& left, Right&& right) {
    return make(left, std::nullopt, right, std::nullopt);
  }
  /// @}

  /// The elements of that side, each once, as they were when the comparator was made.
  /// @{
  const Set<T>& left() const { return left_; }
  const Set<T>& right() const { return right_; }
  /// @}
  /// The name of that side for whoever shows the results; absent if none was given.
  /// @{
  const Optional<std::string>& nameLeft() const { return nameLeft_; }
  const Optional<std::string>& nameRight() const { return nameRight_; }
  /// @}

  /// What is left and not right.
  const Set<T>& onlyLeft() const {
    return kept(onlyLeft_, [this] { return filtered(left_, right_, false); });
  }
  /// What is right and not left.
  const Set<T>& onlyRight() const {
    return kept(onlyRight_, [this] { return filtered(right_, left_, false); });
  }
  /// What is on both sides.
  const Set<T>& intersection() const {
    return kept(intersection_, [this] { return filtered(left_, right_, true); });
  }
  /// What is on any side; the name without the underscore is a word of the language.
  const Set<T>& union_() const {
    return kept(all_, [this] {
      Set<T> all = left_;
      all.insert(right_.begin(), right_.end());
      return all;
    });
  }

 private:
  SequenceComparator(Set<T> left, Set<T> right, Optional<std::string> nameLeft,
                     Optional<std::string> nameRight)
      : left_(std::move(left)),
        right_(std::move(right)),
        nameLeft_(std::move(nameLeft)),
        nameRight_(std::move(nameRight)) {}

  template <typename R>
  static Set<T> setOf(R& sequence) {
    Set<T> set;
    for (auto&& element : sequence) set.emplace(element);
    return set;
  }

  template <typename Make>
  static const Set<T>& kept(Optional<Set<T>>& store, Make make) {
    if (store.isNone()) store = make();
    return *store;
  }

  // Those elements of `of` that `other` has, or has not.
  static Set<T> filtered(const Set<T>& of, const Set<T>& other, bool isInOther) {
    Set<T> result;
    for (const T& element : of) {
      if (other.contains(element) == isInOther) result.insert(element);
    }
    return result;
  }

  const Set<T> left_, right_;
  const Optional<std::string> nameLeft_, nameRight_;
  mutable Optional<Set<T>> onlyLeft_, onlyRight_, intersection_, all_;
};

}  // namespace tolvanite
