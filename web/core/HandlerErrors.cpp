#include "core/HandlerErrors.h"

#include <cstring>
#include <exception>

#include "host/Console.h"

namespace DOVA {

namespace {

void report(const char* what) {
    const auto length = static_cast<int>(std::strcspn(what, "\r\n"));
    utPrintf("dova2_web: a handler threw: %.*s\n", length, what);
}

}  // namespace

void reportHandlerError() noexcept {
    try {
        throw;
    } catch (const std::exception& exception) {
        report(exception.what());
    } catch (...) {
        report("something that is no std::exception");
    }
}

}  // namespace DOVA
