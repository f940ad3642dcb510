#include "ScriptTypes.h"

namespace DOVA::seam {

std::optional<bool> flagOf(const kaArray* value) {
    return kaIsLogicalScalar(value) ? std::optional(kaIsLogicalScalarTrue(value)) : std::nullopt;
}

std::optional<double> numberOf(const kaArray* value) {
    const bool isNumber = kaIsNumeric(value) && matrix::isScalar(value);
    return isNumber ? std::optional(kaGetScalar(value)) : std::nullopt;
}

const std::u16string* textOf(const kaArray* value) {
    return kaIsChar(value) ? &kaViewString(value) : nullptr;
}

}  // namespace DOVA::seam
