// The cells of a matrix: optional elements in a row, shared by copies until one of them writes.
#pragma once

#include <algorithm>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <source_location>
#include <type_traits>
#include <utility>
#include <vector>

#include <Tolvanite/Frame/Fatal.h>
#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Platform/SharedCount.h>

namespace tolvanite::detail {

/// Elements of which a copy costs no more than a reference. They are packed side by side, with a
/// bit for each that says whether the cell holds it: an array of optionals would take twice the
/// memory of an array of integers, and twice the time to walk. While no cell is absent, the bits
/// are not even looked at.
template <typename Element>
concept PackedElement = std::is_trivially_copyable_v<Element> && std::copyable<Element> &&
                        std::default_initializable<Element> && sizeof(Element) <= 16;

/// What reading a cell gives.
template <typename Element>
using ReadCell =
    std::conditional_t<PackedElement<Element>, Optional<Element>, const Optional<Element>&>;

/// A look at the cells, as long as the storage is not written. Indexes are not tested.
template <typename Element>
class CellReader {
 public:
  CellReader() = default;
  explicit CellReader(const Optional<Element>* cells) : cells_(cells) {}

  const Optional<Element>& read(Int index) const { return cells_[index]; }
  bool isFilled(Int index) const { return cells_[index].has_value(); }

 private:
  const Optional<Element>* cells_ = nullptr;
};

template <PackedElement Element>
class CellReader<Element> {
 public:
  CellReader() = default;
  /// `filled` may be null: then all cells hold an element.
  CellReader(const Element* elements, const std::uint64_t* filled)
      : elements_(elements), filled_(filled) {}

  Optional<Element> read(Int index) const {
    Optional<Element> cell(elements_[index]);
    if (!isFilled(index)) cell.reset();
    return cell;
  }
  bool isFilled(Int index) const {
    if (filled_ == nullptr) [[likely]]
      return true;
    const auto place = static_cast<std::uint64_t>(index);
    return (filled_[place / bitsInWord] >> place % bitsInWord & 1U) != 0;
  }

 private:
  static constexpr std::uint64_t bitsInWord = 64;

  const Element* elements_ = nullptr;
  const std::uint64_t* filled_ = nullptr;
};

/// The memory of the cells.
template <typename Element>
class CellBlock {
 public:
  CellBlock(std::size_t count, const Optional<Element>& value) : cells_(count, value) {}

  std::size_t count() const { return cells_.size(); }
  CellReader<Element> reader() const { return CellReader<Element>(cells_.data()); }
  void write(Int index, Optional<Element>&& value) {
    cells_[static_cast<std::size_t>(index)] = std::move(value);
  }

 private:
  std::vector<Optional<Element>> cells_;
};

template <PackedElement Element>
class CellBlock<Element> {
 public:
  CellBlock(std::size_t count, const Optional<Element>& value)
      : count_(count),
        absentCount_(value.isSome() ? 0 : count),
        elements_(std::make_unique<Element[]>(count)),
        filled_((count + bitsInWord - 1) / bitsInWord,
                value.isSome() ? ~std::uint64_t{0} : std::uint64_t{0}) {
    if (value.isSome()) std::fill_n(elements_.get(), count, *value);
  }
  CellBlock(const CellBlock& other)
      : count_(other.count_),
        absentCount_(other.absentCount_),
        elements_(std::make_unique_for_overwrite<Element[]>(count_)),
        filled_(other.filled_) {
    std::copy_n(other.elements_.get(), count_, elements_.get());
  }
  CellBlock& operator=(const CellBlock&) = delete;
  ~CellBlock() = default;

  std::size_t count() const { return count_; }
  CellReader<Element> reader() const {
    return CellReader<Element>(elements_.get(), absentCount_ == 0 ? nullptr : filled_.data());
  }
  void write(Int index, Optional<Element>&& value) {
    const auto place = static_cast<std::size_t>(index);
    std::uint64_t& word = filled_[place / bitsInWord];
    const std::uint64_t bit = std::uint64_t{1} << place % bitsInWord;
    if (value.isSome()) {
      elements_[place] = *value;
      absentCount_ -= (word & bit) == 0 ? 1U : 0U;
      word |= bit;
    } else {
      absentCount_ += (word & bit) == 0 ? 0U : 1U;
      word &= ~bit;
    }
  }

 private:
  static constexpr std::size_t bitsInWord = 64;

  std::size_t count_;
  std::size_t absentCount_;
  std::unique_ptr<Element[]> elements_;
  std::vector<std::uint64_t> filled_;
};

/// The cells, copied on write. A copy may be read and written on another thread.
template <typename Element>
class CellStorage {
 public:
  CellStorage() = default;
  /// So many copies of `value`. A negative count is fatal.
  CellStorage(Int count, const Optional<Element>& value, std::source_location location) {
    if (count < 0) fatalFailure("A matrix has no negative number of cells", location);
    if (count > 0) take(new Shared(static_cast<std::size_t>(count), value));
  }
  CellStorage(const CellStorage& other) noexcept : reader_(other.reader_), shared_(other.shared_) {
    if (shared_ != nullptr) shared_->owners.add();
  }
  CellStorage(CellStorage&& other) noexcept
      : reader_(std::exchange(other.reader_, {})), shared_(std::exchange(other.shared_, nullptr)) {}
  CellStorage& operator=(CellStorage other) noexcept {
    std::swap(reader_, other.reader_);
    std::swap(shared_, other.shared_);
    return *this;
  }
  ~CellStorage() {
    if (shared_ != nullptr && shared_->owners.drop()) delete shared_;
  }

  Int count() const noexcept { return shared_ ? static_cast<Int>(shared_->block.count()) : 0; }
  const CellReader<Element>& reader() const { return reader_; }
  /// Whether both look at the same memory, and so hold the same cells.
  bool isSameAs(const CellStorage& other) const noexcept { return shared_ == other.shared_; }

  /// Reads a cell. The index is not tested; there must be a cell.
  /// @{
  ReadCell<Element> read(Int index) const { return reader_.read(index); }
  bool isFilled(Int index) const { return reader_.isFilled(index); }
  /// @}

  /// Writes a cell, into memory of its own: linear in the cells if it was shared. The index is not
  /// tested.
  void write(Int index, Optional<Element>&& value) {
    if (shared_->owners.value() != 1) *this = CellStorage(new Shared(shared_->block));
    shared_->block.write(index, std::move(value));
    reader_ = shared_->block.reader();
  }

 private:
  struct Shared {
    Shared(std::size_t count, const Optional<Element>& value) : block(count, value) {}
    explicit Shared(const CellBlock<Element>& other) : block(other) {}

    SharedCount owners{1};
    CellBlock<Element> block;
  };

  explicit CellStorage(Shared* shared) { take(shared); }

  void take(Shared* shared) {
    shared_ = shared;
    reader_ = shared->block.reader();
  }

  // Always that of the block; it saves every access a step.
  CellReader<Element> reader_;
  Shared* shared_ = nullptr;
};

}  // namespace tolvanite::detail
