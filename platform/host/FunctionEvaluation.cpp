#include "host/FunctionEvaluation.h"

#include <algorithm>
#include <exception>
#include <map>
#include <mutex>
#include <stdexcept>
#include <utility>

struct vnsvDiagnostic {
    std::string message;
};

namespace {

using FunctionPointer = std::shared_ptr<const host::Function>;

/// The functions by name. Shared, so that one may be replaced while it runs.
struct FunctionTable {
    std::mutex mutex;
    std::map<std::string, FunctionPointer> functions;
};

FunctionTable& table() {
    // Never destroyed: a module may ask the host while the process ends.
    static FunctionTable& instance = *new FunctionTable;
    return instance;
}

FunctionPointer findFunction(const std::string& name) {
    const std::lock_guard<std::mutex> lock(table().mutex);
    const auto found = table().functions.find(name);
    return found == table().functions.end() ? nullptr : found->second;
}

std::vector<host::ArrayPointer> evaluate(const std::string& name, int outputCount,
                                         const std::vector<const kaArray*>& inputs) {
    const FunctionPointer function = findFunction(name);
    if (function == nullptr) {
        throw std::runtime_error("Undefined function '" + name + "'.");
    }
    auto results = (*function)(inputs, outputCount);
    if (results.size() < static_cast<std::size_t>(outputCount)) {
        throw std::runtime_error("Function '" + name + "' returned too few values.");
    }
    return results;
}

}  // namespace

vnsvDiagnostic* vnsvFEVAL_NoThrow(const char* name, int outputCount, kaArray* outputs[],
                                  int inputCount, const kaArray* const inputs[]) {
    std::fill_n(outputs, std::max(outputCount, 0), nullptr);
    if (name == nullptr || outputCount < 0 || inputCount < 0) {
        return new vnsvDiagnostic{"Invalid function name or number of arguments."};
    }
    try {
        auto results = evaluate(name, outputCount, {inputs, inputs + inputCount});
        for (int index = 0; index < outputCount; ++index) {
            outputs[index] = results[static_cast<std::size_t>(index)].release();
        }
        return nullptr;
    } catch (const std::exception& error) {
        return new vnsvDiagnostic{error.what()};
    } catch (...) {
        return new vnsvDiagnostic{"Function '" + std::string(name) + "' failed."};
    }
}

const char* vnsvGetDiagnosticMessage(const vnsvDiagnostic* diagnostic) noexcept {
    return diagnostic != nullptr ? diagnostic->message.c_str() : "";
}

void vnsvDiscardDiagnostic(vnsvDiagnostic* diagnostic) noexcept {
    delete diagnostic;
}

namespace host {

void registerFunction(const std::string& name, Function function) {
    FunctionPointer next;
    if (function) {
        next = std::make_shared<const Function>(std::move(function));
    }
    // Declared first, hence destroyed after the lock is gone: its destructor may run anything.
    FunctionPointer previous;
    const std::lock_guard<std::mutex> lock(table().mutex);
    const auto place = table().functions.try_emplace(name).first;
    previous = std::exchange(place->second, std::move(next));
    if (place->second == nullptr) {
        table().functions.erase(place);
    }
}

}  // namespace host
