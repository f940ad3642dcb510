#include "host/parutil/Error_InvalidEnumValue.h"

namespace parutil {

Error_InvalidEnumValue::Error_InvalidEnumValue(const std::string& validNames)
    : Error("parutil:InvalidEnumValue", "Invalid enumeration value. Valid names: " + validNames) {}

Error_InvalidEnumValue::~Error_InvalidEnumValue() = default;

}  // namespace parutil
