#include "host/Array.h"

#include <limits>
#include <variant>

struct kaArray {
    std::variant<bool, double, std::u16string> value;
};

kaArray* kaCreateLogicalScalar(bool value) {
    return new kaArray{value};
}

kaArray* kaCreateDoubleScalar(double value) {
    return new kaArray{value};
}

kaArray* kaCreateString(std::u16string_view text) {
    return new kaArray{std::u16string(text)};
}

bool kaIsLogicalScalarTrue(const kaArray* array) noexcept {
    const bool* logical = array != nullptr ? std::get_if<bool>(&array->value) : nullptr;
    return logical != nullptr && *logical;
}

double kaGetScalar(const kaArray* array) noexcept {
    if (const double* number = array != nullptr ? std::get_if<double>(&array->value) : nullptr) {
        return *number;
    }
    const bool* logical = array != nullptr ? std::get_if<bool>(&array->value) : nullptr;
    return logical != nullptr ? (*logical ? 1.0 : 0.0) : std::numeric_limits<double>::quiet_NaN();
}

std::u16string kaGetString(const kaArray* array) {
    const auto* text = array != nullptr ? std::get_if<std::u16string>(&array->value) : nullptr;
    return text != nullptr ? *text : std::u16string();
}

void kaDestroyArray(kaArray* array) noexcept {
    delete array;
}
