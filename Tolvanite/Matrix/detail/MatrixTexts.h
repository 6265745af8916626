// Texts of a matrix, made once for all types of elements.
#pragma once

#include <functional>
#include <string>

#include <Tolvanite/Frame/Types.h>
#include <Tolvanite/Matrix/MatrixCoordinate.h>
#include <Tolvanite/Matrix/MatrixSize.h>
#include <Tolvanite/Platform/Export.h>

namespace tolvanite::detail {

/// "Matrix(WIDTH,HEIGHT)".
TOLVANITE_EXPORT std::string matrixDescription(MatrixSize size);

/// The picture of a matrix: a line of its size, a line of the last digits of the columns, a line
/// for each row with "X" for a cell that holds a value and "_" for one that does not, and ")".
TOLVANITE_EXPORT std::string matrixPicture(MatrixSize size,
                                           const std::function<bool(MatrixCoordinate)>& isFilled);

/// The lines that `Matrix::fillWithPercent` prints.
/// @{
TOLVANITE_EXPORT void printFilling(MatrixSize size, double percent);
TOLVANITE_EXPORT void printFilled(MatrixSize size, Int fillCount);
/// @}

}  // namespace tolvanite::detail
