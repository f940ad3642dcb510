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
/// Values do not change after they are made; only an instance inside one may. What `kaCreate...`,
/// `kaAdoptString` and `kaDuplicateArray` give belongs to the caller, who ends it with
/// `kaDestroyArray`. Different threads may use different values, or read the same one.
///
/// A function that reads an array takes null as a 0 x 0 double matrix. Copying and ending a value
/// that holds values recurses: a hundred levels are fine, a hundred thousand are not.
struct kaArray;

enum class kaClassID { Logical, Char, Double, Int32, UInt64, Cell, Struct, Object };

/// An instance of a class, as a value of the language. Who brings the class derives from this.
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

// Matrices: `elements` points to rows * columns elements, column by column, which are copied; null
// gives elements that are false or zero. More elements than an address can count throw
// `std::length_error`, more than memory holds `std::bad_alloc`.
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

/// A matrix of cells, column by column. The new array owns the elements, each of which may be null;
/// null for `elements` gives cells that are all null. Throws as for the other matrices; the
/// elements then stay the caller's.
DOVA_HOST_EXPORT kaArray* kaCreateCellMatrix(std::size_t rows, std::size_t columns,
                                             kaArray* const elements[]);

/// A 1 x 1 struct with these fields in this order. It owns the values, each of which may be null;
/// where the call throws they stay the caller's. For a name that comes twice the last value counts,
/// at the place of the first.
DOVA_HOST_EXPORT kaArray* kaCreateStructScalar(std::size_t fieldCount,
                                               const std::u16string_view names[],
                                               kaArray* const values[]);

/// A 1 x 1 array that holds a share in the object. Null gives null.
DOVA_HOST_EXPORT kaArray* kaCreateObject(std::shared_ptr<kaObject> object);

/// A new array with the same content. Copies the objects inside, at any depth, with
/// `kaObject::copy`. Null gives null.
DOVA_HOST_EXPORT kaArray* kaDuplicateArray(const kaArray* array);

/// Frees a value and what it holds; null does nothing.
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

/// The first element of a numeric or logical array as a double: true is 1, a uint64 beyond 2^53 is
/// rounded to the nearest double. NaN for an empty array and for every other class.
DOVA_HOST_EXPORT double kaGetScalar(const kaArray* array) noexcept;

/// As `kaGetScalar`, for the element at `index`, counted from 0 column by column; NaN beyond them.
DOVA_HOST_EXPORT double kaGetElement(const kaArray* array, std::size_t index) noexcept;

/// The first element of a numeric or logical array as a uint64. A double is rounded to the nearest
/// whole number, a half away from zero; what lies beyond the range becomes the nearest limit. 0 for
/// not-a-number, an empty array and every other class.
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

/// The object of an object array, not a copy: all who hold it see a change. It lives at least as
/// long as the array. Null for every other class.
DOVA_HOST_EXPORT kaObject* kaGetObject(const kaArray* array) noexcept;

/// As `kaGetObject`, with a share that keeps the object longer than the array.
DOVA_HOST_EXPORT std::shared_ptr<kaObject> kaShareObject(const kaArray* array) noexcept;

namespace matrix {

/// Whether the array is 1 x 1, of any class.
DOVA_HOST_EXPORT bool isScalar(const kaArray* array) noexcept;

/// Whether there are no elements. A struct without fields is one element.
DOVA_HOST_EXPORT bool isEmpty(const kaArray* array) noexcept;

/// Whether the array has one row, with any number of columns. An empty text, 0 x 0, has none.
DOVA_HOST_EXPORT bool isRowVector(const kaArray* array) noexcept;

}  // namespace matrix

namespace host {

struct ArrayDeleter {
    void operator()(kaArray* array) const noexcept { kaDestroyArray(array); }
};

/// Owns an array.
using ArrayPointer = std::unique_ptr<kaArray, ArrayDeleter>;

}  // namespace host
