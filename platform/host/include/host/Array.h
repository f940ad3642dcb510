#pragma once

#include <string>
#include <string_view>

#include "wiro/Export.h"

/// A value of the host's language: a logical or double scalar or a text. Values do not change after
/// they are made. What a `kaCreate...` gives belongs to the caller, who ends it with
/// `kaDestroyArray`. Different threads may use different values.
struct kaArray;

DOVA_PLATFORM_EXPORT kaArray* kaCreateLogicalScalar(bool value);
DOVA_PLATFORM_EXPORT kaArray* kaCreateDoubleScalar(double value);
DOVA_PLATFORM_EXPORT kaArray* kaCreateString(std::u16string_view text);

/// Whether the array is a logical scalar and true. A double, even 1, and null give false.
DOVA_PLATFORM_EXPORT bool kaIsLogicalScalarTrue(const kaArray* array) noexcept;

/// The number of a double or logical scalar (true is 1); NaN for a text and for null.
DOVA_PLATFORM_EXPORT double kaGetScalar(const kaArray* array) noexcept;

/// The text of a text; empty for every other value and for null.
DOVA_PLATFORM_EXPORT std::u16string kaGetString(const kaArray* array);

/// Ends a value; null is allowed.
DOVA_PLATFORM_EXPORT void kaDestroyArray(kaArray* array) noexcept;
