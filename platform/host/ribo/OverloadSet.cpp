#include "host/ribo/OverloadSet.h"

#include <algorithm>
#include <string>
#include <utility>

#include "host/ribo/Instance.h"

namespace ribo {

using factory::Arguments;
using factory::DataType;
using factory::RiboMethod;

namespace {

template <class List, class Text>
std::string joined(const List& list, const char* separator, const Text& text) {
    std::string result;
    for (const auto& item : list) {
        result += (result.empty() ? "" : separator) + text(item);
    }
    return result;
}

std::string kindOf(const kaArray* value) {
    if (const Instance* instance = Instance::of(value)) {
        return instance->className();
    }
    if (kaIsChar(value) && kaGetNumberOfRows(value) <= 1) {
        return "string";
    }
    static const char* const names[] = {"logical", "char", "double", "int32",
                                        "uint64",  "cell", "struct", "object"};
    const std::string name = names[static_cast<std::size_t>(kaGetClassID(value))];
    return matrix::isScalar(value) ? name + " scalar"
                                   : std::to_string(kaGetNumberOfRows(value)) + "x" +
                                         std::to_string(kaGetNumberOfColumns(value)) + " " + name;
}

/// A type's name for users, who know texts as strings.
std::string spokenName(const DataType* type) {
    const std::string& name = type->getName().text();
    return name == "char vector" || name == "RiboFactoryString scalar" ? "string"
           : name == "RiboFactoryString vector"                        ? "strings"
                                                                       : name;
}

std::string takes(const RiboMethod& method) {
    const auto& types = method.getSignature().arguments;
    return "(" + joined(types, ", ", spokenName) + ")";
}

std::string refusal(const std::vector<RiboMethod>& methods, const Arguments& arguments) {
    const std::string name = methods.empty() ? std::string() : methods.front().getName().text();
    const std::vector<const kaArray*> given(arguments.values, arguments.values + arguments.count);
    return "\"" + name + "\" does not take (" + joined(given, ", ", kindOf) + "). It takes " +
           joined(methods, " or ", takes) + ".";
}

}  // namespace

Error_NoMatchingSignature::Error_NoMatchingSignature(const std::string& text)
    : Error("ribo:NoMatchingSignature", text) {}

Error_NoMatchingSignature::~Error_NoMatchingSignature() = default;

void OverloadSet::add(RiboMethod method) {
    m_methods.push_back(std::move(method));
}

const RiboMethod* OverloadSet::find(const Arguments& arguments) const {
    const RiboMethod* best = nullptr;
    std::size_t bestFit = 0;
    for (const RiboMethod& method : m_methods) {
        const std::size_t fit = method.fit(arguments);
        if (fit > bestFit) {
            best = &method;
            bestFit = fit;
        }
    }
    return best;
}

host::ArrayPointer OverloadSet::call(const Arguments& arguments) const {
    const RiboMethod* method = find(arguments);
    if (method == nullptr) {
        throw Error_NoMatchingSignature(refusal(m_methods, arguments));
    }
    return method->call(arguments);
}

}  // namespace ribo
