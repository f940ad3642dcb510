#pragma once

#include <functional>
#include <string>
#include <vector>

#include "host/Array.h"
#include "host/Export.h"

/// Why an evaluation failed; ended with `vnsvDiscardDiagnostic`.
struct vnsvDiagnostic;

/// Calls the host function `name` (dots belong to the name).
///
/// `inputs` holds `inputCount` arrays, which stay the caller's. `outputs` has room for
/// `outputCount`; each is set to an array that the caller then owns. Gives null on success. On
/// failure gives a diagnostic that the caller owns, and every output is null: the function is
/// unknown, it threw, it returned fewer values than asked for, or a count is negative. Values
/// beyond those asked for are dropped. Never throws but for want of memory. Any thread; the
/// function runs on the caller's.
DOVA_HOST_EXPORT vnsvDiagnostic* vnsvFEVAL_NoThrow(const char* name, int outputCount,
                                                   kaArray* outputs[], int inputCount,
                                                   const kaArray* const inputs[]);

/// One sentence for the user; lives as long as the diagnostic. Null gives an empty text.
DOVA_HOST_EXPORT const char* vnsvGetDiagnosticMessage(const vnsvDiagnostic* diagnostic) noexcept;

/// Ends a diagnostic; null is allowed.
DOVA_HOST_EXPORT void vnsvDiscardDiagnostic(vnsvDiagnostic* diagnostic) noexcept;

namespace host {

/// A host function: gets its inputs, which are not null unless the caller passed null, and the
/// number of outputs that the caller wants; gives its outputs, first one first. Reports a failure
/// by throwing a `std::exception`, whose text becomes the diagnostic.
using Function = std::function<std::vector<ArrayPointer>(const std::vector<const kaArray*>& inputs,
                                                         int outputCount)>;

/// Makes `function` callable as `name`, in place of any earlier one of that name; an empty function
/// takes the name away. A call that runs already ends with the function it began with. Any thread.
DOVA_HOST_EXPORT void registerFunction(const std::string& name, Function function);

}  // namespace host
