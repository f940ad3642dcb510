#pragma once

#include <stdexcept>

#include "runtime/Export.h"

namespace DOVA::runtime {

/// The host cannot start. `what()` is one sentence for the user, without a full stop, that names
/// the file, address or option at fault.
class DOVA_RUNTIME_EXPORT StartError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

}  // namespace DOVA::runtime
