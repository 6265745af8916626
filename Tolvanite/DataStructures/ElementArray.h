// A sequence of elements as the observable collections hold it and pass it around: a random-access
// range of `const T&`. A copy costs one reference, whatever its length, and shares the elements.
//
//   tolvanite::ElementArray<Track> tracks{first, second};
//   kerray->appendMultiple(tracks);
//   for (const Track& track : kerray->array()) std::cout << track.title << '\n';
#pragma once

#include <compare>
#include <concepts>
#include <initializer_list>
#include <iterator>
#include <ranges>
#include <span>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <Tolvanite/DataStructures/detail/Box.h>
#include <Tolvanite/DataStructures/detail/BoxedRange.h>
#include <Tolvanite/DataStructures/detail/IteratorParts.h>
#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/TextForm.h>
#include <Tolvanite/Frame/Types.h>

namespace tolvanite {

/// A value type with copy-on-write content. Made from any range of elements, so that every
/// operation that takes one can be given a vector, a braced list or a view. The elements of another
/// array or set of the library are shared, those of other ranges are copied or moved.
template <typename T>
class ElementArray {
 public:
  using value_type = T;

  /// A random-access iterator. Good until the array changes.
  class Iterator : public detail::ConstRandomAccessIterator<Iterator, T> {
   public:
    Iterator() = default;
    const T& operator*() const noexcept { return box()->value; }
    Iterator& operator+=(std::ptrdiff_t n) noexcept {
      position_ += n;
      return *this;
    }
    friend std::ptrdiff_t operator-(Iterator a, Iterator b) noexcept {
      return a.position_ - b.position_;
    }
    bool operator==(const Iterator& other) const noexcept { return position_ == other.position_; }
    auto operator<=>(const Iterator& other) const noexcept { return position_ <=> other.position_; }

   private:
    friend class ElementArray;
    friend struct detail::BoxAccess;
    explicit Iterator(detail::BoxHeader* const* position) noexcept : position_(position) {}
    detail::Box<T>* box() const noexcept { return detail::boxOf<T>(*position_); }

    detail::BoxHeader* const* position_ = nullptr;
  };
  /// The same for the standard ranges.
  using const_iterator = Iterator;

  ElementArray() = default;
  /// These elements.
  ElementArray(std::initializer_list<T> elements) { appendAll(elements); }
  /// The elements of any range. Linear.
  template <std::ranges::input_range Range>
    requires(!std::same_as<std::remove_cvref_t<Range>, ElementArray> &&
             std::constructible_from<T, std::ranges::range_reference_t<Range>>)
  ElementArray(Range&& elements) {
    appendAll(std::forward<Range>(elements));
  }

  /// How many elements there are.
  Int count() const noexcept { return content_ ? content_->handles.count() : 0; }
  /// Whether there is none.
  bool isEmpty() const noexcept { return count() == 0; }
  /// The same for the standard ranges.
  /// @{
  std::size_t size() const noexcept { return static_cast<std::size_t>(count()); }
  bool empty() const noexcept { return isEmpty(); }
  /// @}

  /// The element at `index`; an index out of range is fatal.
  const T& operator[](Int index) const {
    checkIndex(index, count());
    return detail::boxOf<T>(content_->handles.data()[index])->value;
  }
  /// The first and the last element; fatal when there is none.
  /// @{
  const T& front() const { return (*this)[0]; }
  const T& back() const { return (*this)[count() - 1]; }
  /// @}

  /// The first element.
  Iterator begin() const noexcept {
    return Iterator(content_ ? content_->handles.data() : nullptr);
  }
  /// Behind the last.
  Iterator end() const noexcept { return begin() + count(); }

  /// "[a, b]".
  std::string description() const
    requires HasTextForm<T>
  {
    return detail::listText(*this);
  }

  friend bool operator==(const ElementArray& a, const ElementArray& b)
    requires std::equality_comparable<T>
  {
    return a.content_ == b.content_ || std::ranges::equal(a, b);
  }
  friend std::ostream& operator<<(std::ostream& out, const ElementArray& array)
    requires HasTextForm<T>
  {
    return out << array.description();
  }

 protected:
  /// @cond
  struct Content {
    Content() = default;
    Content(const Content& other) : handles(other.handles) {
      for (Int i = 0; i < handles.count(); ++i) handles.data()[i]->references.add();
    }
    Content& operator=(const Content&) = delete;
    ~Content() {
      for (Int i = 0; i < handles.count(); ++i) detail::release<T>(handles.data()[i]);
    }

    SharedCount references{1};
    detail::HandleBuffer handles;
  };

  static void checkIndex(Int index, Int count) {
    if (index < 0 || index >= count) [[unlikely]] {
      fatalIndexOutOfRange(index, count);
    }
  }

  // The handles to change: content that a copy shares is left to the copy.
  detail::HandleBuffer& handles() {
    if (!content_) {
      content_ = detail::Counted<Content>::make();
    } else if (content_.isShared()) {
      content_ = detail::Counted<Content>::make(*content_.get());
    }
    return content_->handles;
  }

  template <typename Range>
  void appendAll(Range&& elements) {
    auto& target = handles();
    if constexpr (std::ranges::sized_range<Range>) {
      target.reserve(static_cast<Int>(std::ranges::size(elements)));
    }
    detail::forEachBoxed<T>(std::forward<Range>(elements), [&](detail::Handle<T> handle) {
      target.append(handle.get());
      handle.leak();
    });
  }

  detail::Counted<Content> content_;
  /// @endcond
};

/// `ElementArray(range)` holds elements of the range's type.
template <typename Range>
ElementArray(Range&&) -> ElementArray<std::ranges::range_value_t<Range>>;

}  // namespace tolvanite
