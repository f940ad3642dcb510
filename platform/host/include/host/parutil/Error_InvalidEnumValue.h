#pragma once

#include <string>

#include "host/Error.h"

namespace parutil {

/// A text that names no value of an enumeration.
class DOVA_HOST_EXPORT Error_InvalidEnumValue : public host::Error {
public:
    /// `validNames` are the names of the enumeration, with blanks between them; the text lists
    /// them.
    explicit Error_InvalidEnumValue(const std::string& validNames);
    ~Error_InvalidEnumValue() override;
};

}  // namespace parutil
