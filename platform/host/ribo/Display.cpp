#include <cstdio>

#include "host/Utf8.h"
#include "host/ribo/Instance.h"

namespace ribo {

namespace {

std::string displayNumber(double number) {
    char text[32];
    std::snprintf(text, sizeof text, "%.15g", number);
    return text;
}

std::string displaySize(const kaArray* value, const char* kind) {
    return std::to_string(kaGetNumberOfRows(value)) + "x" +
           std::to_string(kaGetNumberOfColumns(value)) + " " + kind;
}

/// A property's value. Instances are not opened: a handle may lead back to where it came from.
std::string displayInside(const kaArray* value) {
    const kaObject* object = kaGetObject(value);
    return object != nullptr ? object->className() : display(value);
}

std::string displayProperties(const kaArray* value, const Instance& instance) {
    std::string text;
    for (const factory::RiboProperty& property :
         instance.getClass()->getMembers().getProperties()) {
        const auto& attributes = property.getAttributes();
        if (!attributes.isHidden && !attributes.isConstant) {
            text += (text.empty() ? "" : ", ") + property.getName().text() + ": " +
                    displayInside(property.get(value).get());
        }
    }
    return text;
}

std::string displayInstance(const kaArray* value) {
    const Instance* instance = Instance::of(value);
    if (instance == nullptr) {
        return kaGetObject(value)->className();
    }
    return instance->className() + " (" + displayProperties(value, *instance) + ")";
}

std::string displayScalar(const kaArray* value) {
    switch (kaGetClassID(value)) {
        case kaClassID::Logical:
            return kaIsLogicalScalarTrue(value) ? "true" : "false";
        case kaClassID::UInt64:
            return std::to_string(kaGetUInt64Scalar(value));
        default:
            return displayNumber(kaGetScalar(value));
    }
}

}  // namespace

std::string display(const kaArray* value) {
    if (value == nullptr) {
        return "";
    }
    if (kaIsChar(value)) {
        return host::toUtf8(kaGetString(value));
    }
    const kaClassID id = kaGetClassID(value);
    if (id == kaClassID::Object) {
        return displayInstance(value);
    }
    if (id == kaClassID::Cell || id == kaClassID::Struct) {
        return displaySize(value, id == kaClassID::Cell ? "cell" : "struct");
    }
    return matrix::isScalar(value)
               ? displayScalar(value)
               : displaySize(value, id == kaClassID::Logical ? "logical" : "numeric");
}

}  // namespace ribo
