#pragma once

#include <cstdlib>
#include <memory>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "host/Error.h"
#include "host/ribo/Instance.h"
#include "host/ribo/OverloadSet.h"
#include "host/ribo/factory/TypeOf.h"

namespace host::test {

inline ribo::InternedString interned(std::string text) {
    return ribo::internal::makeInterned(std::move(text));
}

/// A description of a namespace or class, in storage as the class-object system frees it.
template <class Info, class... Arguments>
Info* describe(Arguments... arguments) {
    std::unique_ptr<void, decltype(&std::free)> storage(std::calloc(1, sizeof(Info)), &std::free);
    Info* const info = new (storage.get()) Info(std::move(arguments)...);
    static_cast<void>(storage.release());
    return info;
}

template <class T>
ArrayPointer made(T value) {
    return ribo::factory::TypeOf<T>::toHost(std::move(value));
}

/// What the callable gives, as the host shows it, or the identifier and text of its error.
template <class Callable>
std::string outcome(const Callable& callable) {
    try {
        return ribo::display(callable().get());
    } catch (const Error& error) {
        return error.identifier() + ": " + error.what();
    }
}

inline std::string call(const ribo::OverloadSet& methods,
                        const std::vector<const kaArray*>& arguments) {
    return outcome([&] { return methods.call({arguments.data(), arguments.size()}); });
}

}  // namespace host::test
