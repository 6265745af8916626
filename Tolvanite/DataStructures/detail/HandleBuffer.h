// The array under every observable collection: a growable sequence of handles to boxed elements.
// It moves eight bytes for an element of any type, knows nothing of that type, and therefore is
// compiled once, in the library.
#pragma once

#include <atomic>
#include <cstdint>
#include <span>

#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Platform/Export.h>
#include <Tolvanite/Platform/SharedCount.h>

namespace tolvanite::detail {

/// What a boxed element carries beside its value. Where it stands in the view of a number is a
/// hint, which is checked before it is believed, and may be noted while the element counts as
/// constant.
class BoxHeader {
 public:
  explicit BoxHeader(std::uint32_t referenceCount) noexcept : references(referenceCount) {}
  BoxHeader(const BoxHeader&) = delete;
  BoxHeader& operator=(const BoxHeader&) = delete;

  /// The view that noted its place last; 0 if none ever did.
  std::uint32_t viewer() const noexcept { return viewer_.load(relaxed); }
  /// Where that view saw the element last; -1 if it does not hold it.
  Int placeInView() const noexcept { return static_cast<std::int32_t>(placeInView_.load(relaxed)); }
  void setPlaceInView(std::uint32_t viewer, Int place) const noexcept {
    viewer_.store(viewer, relaxed);
    placeInView_.store(static_cast<std::uint32_t>(place), relaxed);
  }
  /// Takes over where the box that this one replaces stood.
  void takePlaceFrom(const BoxHeader& other) const noexcept {
    setPlaceInView(other.viewer(), other.placeInView());
  }

  SharedCount references;

 private:
  static constexpr auto relaxed = std::memory_order_relaxed;

  mutable std::atomic<std::uint32_t> viewer_ = 0;
  mutable std::atomic<std::uint32_t> placeInView_ = 0;
};

/// A number of its own for each view that notes places.
TOLVANITE_EXPORT std::uint32_t nextViewer() noexcept;

/// An odd number of its own for each hash table that is to scatter its elements in its own way.
TOLVANITE_EXPORT std::uint64_t nextTableMultiplier() noexcept;

/// A growable array of box pointers with slack at both ends, so that an insertion or removal
/// shifts the shorter side. It counts no references; its owner does. Indexes are not checked here.
class TOLVANITE_EXPORT HandleBuffer {
 public:
  using Handle = BoxHeader*;

  HandleBuffer() = default;
  HandleBuffer(const HandleBuffer& other);
  HandleBuffer& operator=(const HandleBuffer&) = delete;
  ~HandleBuffer();

  Int count() const noexcept { return count_; }
  Handle* data() noexcept { return first_; }
  const Handle* data() const noexcept { return first_; }

  /// Room for so many handles without another allocation.
  void reserve(Int count);
  void append(Handle handle) {
    if (first_ + count_ == end_) growBehind(1);
    first_[count_++] = handle;
  }
  /// Opens a gap of `width` handles, whose content is undefined, before `index`.
  void openGap(Int index, Int width);
  /// Removes `width` handles from `index` on.
  void closeGap(Int index, Int width) noexcept;
  /// Takes out the handles at these ascending, distinct indexes in one pass.
  void closeGaps(std::span<const Int> ascendingIndexes) noexcept;
  /// Opens one place before each of these indexes, counted in the array as it stands, in one pass;
  /// equal indexes open neighbouring places. The place for indexes[i] is then indexes[i] + i.
  void openGaps(std::span<const Int> ascendingIndexes);
  /// Moves one handle so that it stands at `to`.
  void move(Int from, Int to) noexcept;
  void clear() noexcept { count_ = 0; }

  /// The index of `handle`, sought from `guess` outward over at most `reach` handles on each side;
  /// -1 if it is not there.
  Int findNear(Handle handle, Int guess, Int reach) const noexcept;

 private:
  void growBehind(Int width);
  void growBefore(Int width);
  void reallocate(Int slackBefore, Int slackBehind);

  Handle* block_ = nullptr;
  Handle* first_ = nullptr;
  Handle* end_ = nullptr;
  Int count_ = 0;
};

}  // namespace tolvanite::detail
