#pragma once

#include <functional>
#include <string>
#include <vector>

#include "host/Array.h"
#include "host/Export.h"

/// Why an evaluation failed. Its owner frees it with `vnsvDiscardDiagnostic`.
struct vnsvDiagnostic;

/// Calls the host function `name` (dots belong to the name).
///
/// `inputs` points to `inputCount` arrays, which stay the caller's. `outputs` has room for
/// `outputCount` arrays, which the caller owns afterwards. Gives null on success. Gives a
/// diagnostic that the caller owns, and sets every output to null, when there is no function of
/// that name, when it threw, when it returned fewer values than asked for, or when a count is
/// negative. Drops values beyond those asked for. Throws only when memory runs out. Any thread; the
/// function runs on the caller's.
DOVA_HOST_EXPORT vnsvDiagnostic* vnsvFEVAL_NoThrow(const char* name, int outputCount,
                                                   kaArray* outputs[], int inputCount,
                                                   const kaArray* const inputs[]);

/// What went wrong, for the user, in UTF-8; lives as long as the diagnostic. Null gives an empty
/// text.
DOVA_HOST_EXPORT const char* vnsvGetDiagnosticMessage(const vnsvDiagnostic* diagnostic) noexcept;

/// Frees a diagnostic; null does nothing.
DOVA_HOST_EXPORT void vnsvDiscardDiagnostic(vnsvDiagnostic* diagnostic) noexcept;

namespace host {

/// A host function. Gets its inputs, null where the caller passed null, and the number of outputs
/// that the caller wants; gives its outputs in order. To report a failure it throws a
/// `std::exception`, whose text becomes the diagnostic.
using Function = std::function<std::vector<ArrayPointer>(const std::vector<const kaArray*>& inputs,
                                                         int outputCount)>;

/// Makes `function` callable as `name`, in place of an earlier one of that name; an empty function
/// takes the name away. A call that is running goes on with the earlier one. Any thread.
DOVA_HOST_EXPORT void registerFunction(const std::string& name, Function function);

}  // namespace host
