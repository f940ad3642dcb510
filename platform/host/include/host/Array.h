#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/Export.h"

/// A value of the host's language: a matrix of logicals, characters (UTF-16 units), numbers or
/// cells, a struct, or an instance of a class; a scalar is a 1 x 1 matrix.
///
/// Values do not change after they are made; only an instance inside one may. What a `kaCreate...`
/// or `kaDuplicateArray` gives belongs to the caller, who ends it with `kaDestroyArray`. Different
/// threads may use different values, or read the same one.
///
/// Null is allowed wherever an array is asked for, and counts as a 0 x 0 double matrix. Values in
/// values are copied and ended level by level on the stack: a hundred levels are fine, a hundred
/// thousand are not.
struct kaArray;

enum class kaClassID { Logical, Char, Double, Int32, UInt64, Cell, Struct, Object };

/// An instance of a class, as a value of the language. Whoever brings the class derives from this.
struct DOVA_HOST_EXPORT kaObject {
    virtual ~kaObject();

    /// The full name of the class with dots; lives as long as the object.
    virtual const std::string& className() const noexcept = 0;

    /// What a duplicated array holds: a copy for a class of values, the same object for a class of
    /// handles. Not null.
    virtual std::shared_ptr<kaObject> copy() const = 0;
};

// Scalars: 1 x 1, one allocation each.
DOVA_HOST_EXPORT kaArray* kaCreateLogicalScalar(bool value);
DOVA_HOST_EXPORT kaArray* kaCreateDoubleScalar(double value);
DOVA_HOST_EXPORT kaArray* kaCreateInt32Scalar(std::int32_t value);
DOVA_HOST_EXPORT kaArray* kaCreateUInt64Scalar(std::uint64_t value);

/// A row of characters, 1 x n; 0 x 0 for an empty text. Any units: zeros and lone surrogates stay.
DOVA_HOST_EXPORT kaArray* kaCreateString(std::u16string_view text);
/// The same without a copy: the array takes the text over.
DOVA_HOST_EXPORT kaArray* kaAdoptString(std::u16string text);

// Matrices: `elements` holds rows * columns elements, column by column, and is copied; null gives
// elements that are false or zero. More elements than memory can count throw `std::length_error`,
// more than it holds `std::bad_alloc`.
DOVA_HOST_EXPORT kaArray* kaCreateLogicalMatrix(std::size_t rows, std::size_t columns,
                                                const bool* elements);
DOVA_HOST_EXPORT kaArray* kaCreateCharMatrix(std::size_t rows, std::size_t columns,
                                             const char16_t* elements);
DOVA_HOST_EXPORT kaArray* kaCreateDoubleMatrix(std::size_t rows, std::size_t columns,
                                               const double* elements);
DOVA_HOST_EXPORT kaArray* kaCreateInt32Matrix(std::size_t rows, std::size_t columns,
                                              const std::int32_t* elements);
DOVA_HOST_EXPORT kaArray* kaCreateUInt64Matrix(std::size_t rows, std::size_t columns,
                                               const std::uint64_t* elements);

/// A matrix of cells, column by column. The new array takes the elements, each of which may be
/// null; where the call throws, as for the other matrices, they stay the caller's. Null for
/// `elements` gives cells that are all null.
DOVA_HOST_EXPORT kaArray* kaCreateCellMatrix(std::size_t rows, std::size_t columns,
                                             kaArray* const elements[]);

/// A 1 x 1 struct with these fields in this order. It takes the values, each of which may be null;
/// where the call throws they stay the caller's. Of values for the same name the last one counts,
/// at the place of the first.
DOVA_HOST_EXPORT kaArray* kaCreateStructScalar(std::size_t fieldCount,
                                               const std::u16string_view names[],
                                               kaArray* const values[]);

/// A 1 x 1 array that holds the object, together with everybody else who does. Null gives null.
DOVA_HOST_EXPORT kaArray* kaCreateObject(std::shared_ptr<kaObject> object);

/// An array of its own with the same content; objects inside, at any depth, are copied by
/// `kaObject::copy`. Null gives null.
DOVA_HOST_EXPORT kaArray* kaDuplicateArray(const kaArray* array);

/// Ends a value and what it holds; null is allowed.
DOVA_HOST_EXPORT void kaDestroyArray(kaArray* array) noexcept;

DOVA_HOST_EXPORT kaClassID kaGetClassID(const kaArray* array) noexcept;
DOVA_HOST_EXPORT std::size_t kaGetNumberOfRows(const kaArray* array) noexcept;
DOVA_HOST_EXPORT std::size_t kaGetNumberOfColumns(const kaArray* array) noexcept;
DOVA_HOST_EXPORT std::size_t kaGetNumberOfElements(const kaArray* array) noexcept;

/// Whether the elements are numbers: double, int32 or uint64, of any size. Not logicals.
DOVA_HOST_EXPORT bool kaIsNumeric(const kaArray* array) noexcept;
DOVA_HOST_EXPORT bool kaIsChar(const kaArray* array) noexcept;
DOVA_HOST_EXPORT bool kaIsLogicalScalar(const kaArray* array) noexcept;

/// Whether the array is a logical scalar and true. A double, even 1, gives false.
DOVA_HOST_EXPORT bool kaIsLogicalScalarTrue(const kaArray* array) noexcept;

/// The first number of a numeric or logical array (true is 1), a uint64 beyond 2^53 rounded to the
/// next double; NaN for an empty array and for every other class.
DOVA_HOST_EXPORT double kaGetScalar(const kaArray* array) noexcept;

/// As `kaGetScalar`, of the element at `index`, counted from 0 column by column; NaN beyond them.
DOVA_HOST_EXPORT double kaGetElement(const kaArray* array, std::size_t index) noexcept;

/// The first number of a numeric or logical array, exact for a uint64. Others become one as the
/// language converts: rounded to the nearest, halves away from zero, and the nearest limit where
/// they lie beyond the range. 0 for not-a-number, an empty array and every other class.
DOVA_HOST_EXPORT std::uint64_t kaGetUInt64Scalar(const kaArray* array) noexcept;

/// All characters of a character array, column by column; empty for every other class.
DOVA_HOST_EXPORT std::u16string kaGetString(const kaArray* array);
/// The same without a copy; lives as long as the array.
DOVA_HOST_EXPORT const std::u16string& kaViewString(const kaArray* array) noexcept;

/// The cell at `index`, counted from 0 column by column; belongs to the array. Null beyond the
/// cells, for a cell that was given as null, and for every other class.
DOVA_HOST_EXPORT const kaArray* kaGetCell(const kaArray* array, std::size_t index) noexcept;

/// The names of a struct's fields in their order; lives as long as the array. Empty for every other
/// class.
DOVA_HOST_EXPORT const std::vector<std::u16string>& kaGetFieldNames(const kaArray* array) noexcept;

/// The value of a struct's field; belongs to the array. Null when there is no such field, for a
/// value that was given as null, and for every other class.
DOVA_HOST_EXPORT const kaArray* kaGetField(const kaArray* array, std::u16string_view name) noexcept;

/// The object of an object array, which lives at least as long as the array; null for every other
/// class. It is the object itself: a change to it is seen by all who hold it.
DOVA_HOST_EXPORT kaObject* kaGetObject(const kaArray* array) noexcept;

/// As `kaGetObject`, for those who keep it longer than the array.
DOVA_HOST_EXPORT std::shared_ptr<kaObject> kaShareObject(const kaArray* array) noexcept;

namespace matrix {

/// Whether it is 1 x 1, of any class.
DOVA_HOST_EXPORT bool isScalar(const kaArray* array) noexcept;

/// Whether there are no elements. A struct without fields is one element.
DOVA_HOST_EXPORT bool isEmpty(const kaArray* array) noexcept;

/// Whether it has one row, with any number of columns. An empty text, 0 x 0, has none.
DOVA_HOST_EXPORT bool isRowVector(const kaArray* array) noexcept;

}  // namespace matrix

namespace host {

struct ArrayDeleter {
    void operator()(kaArray* array) const noexcept { kaDestroyArray(array); }
};

/// Owns an array.
using ArrayPointer = std::unique_ptr<kaArray, ArrayDeleter>;

}  // namespace host
