// A cell of a matrix that can be written: what a subscript of a matrix gives.
//
//   matrix[{2, 1}] = 7;                       // a value
//   matrix[{2, 1}] = std::nullopt;            // absent
//   if (matrix[{0, 0}] == 7) use(*matrix[{0, 0}]);
//   Optional<int> kept = matrix[{0, 0}];      // `auto` would be the cell, not what it holds
#pragma once

#include <ostream>
#include <string>
#include <type_traits>
#include <utility>

#include <Tolvanite/Frame/Optional.h>
#include <Tolvanite/Frame/TextForm.h>
#include <Tolvanite/Matrix/detail/CellPlace.h>
#include <Tolvanite/Matrix/detail/CellStorage.h>

namespace tolvanite {

template <typename Element>
class Matrix;

/// Stands for the cell, and so for whatever it holds when it is asked; a matrix that is moved or
/// ends its life leaves it without meaning.
template <typename Element>
class MatrixCell {
 public:
  /// What reading gives: the optional element, by value where that is as cheap as a reference.
  using Value = detail::ReadCell<Element>;

  MatrixCell(const MatrixCell&) = default;
  ~MatrixCell() = default;

  /// Writes the cell, and counts.
  /// @{
  MatrixCell& operator=(Optional<Element> value) {
    matrix_->set(place_, std::move(value));
    return *this;
  }
  MatrixCell& operator=(const MatrixCell& other) {
    if (this != &other) *this = Optional<Element>(other.get());
    return *this;
  }
  /// @}

  /// What the cell holds.
  /// @{
  Value get() const { return std::as_const(*matrix_)[place_]; }
  operator Value() const { return get(); }
  /// @}

  /// As on an optional.
  /// @{
  bool isSome() const { return get().has_value(); }
  bool isNone() const { return !isSome(); }
  bool has_value() const { return isSome(); }
  std::conditional_t<detail::PackedElement<Element>, Element, const Element&> operator*() const {
    return *get();
  }
  Value operator->() const { return get(); }
  template <typename Default>
  Element value_or(Default&& otherwise) const {
    return get().value_or(std::forward<Default>(otherwise));
  }
  /// @}

  friend bool operator==(const MatrixCell& a, const MatrixCell& b)
    requires requires(const Element& e) { e == e; }
  {
    return Optional<Element>(a.get()) == Optional<Element>(b.get());
  }
  friend bool operator==(const MatrixCell& cell, const Optional<Element>& value)
    requires requires(const Element& e) { e == e; }
  {
    return Optional<Element>(cell.get()) == value;
  }

  /// The text form of the element; "nil" when absent.
  std::string description() const
    requires HasTextForm<Element>
  {
    return textForm(Optional<Element>(get()));
  }
  friend std::ostream& operator<<(std::ostream& out, const MatrixCell& cell)
    requires HasTextForm<Element>
  {
    return out << cell.description();
  }

 private:
  friend class Matrix<Element>;
  MatrixCell(Matrix<Element>& matrix, detail::CellPlace place) : matrix_(&matrix), place_(place) {}

  Matrix<Element>* matrix_;
  detail::CellPlace place_;
};

}  // namespace tolvanite
