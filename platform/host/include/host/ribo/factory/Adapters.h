#pragma once

#include <boost/callable_traits/args.hpp>
#include <boost/callable_traits/return_type.hpp>
#include <functional>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>

#include "host/ribo/factory/RiboMethod.h"
#include "host/ribo/factory/RiboProperty.h"
#include "host/ribo/factory/TypeOf.h"

namespace ribo::factory {

/// How the parameter or result type T travels, without const and references.
template <class T>
using HostType = TypeOf<std::remove_cv_t<std::remove_reference_t<T>>>;

/// Makes a host method of a C++ function, a pointer to a member function, or a function object with
/// one call operator. Its parameters and result decide the signature.
template <class Callable>
class Adapter {
    using Parameters = boost::callable_traits::args_t<Callable>;
    using Result = boost::callable_traits::return_type_t<Callable>;
    static constexpr std::size_t s_count = std::tuple_size_v<Parameters>;
    using Indices = std::make_index_sequence<s_count>;

public:
    static Signature signature() { return signatureOf(Indices()); }

    static RiboMethod::Body body(Callable callable) {
        return [callable = std::move(callable)](const Arguments& arguments) {
            return call(callable, arguments, Indices());
        };
    }

private:
    template <std::size_t... I>
    static Signature signatureOf(std::index_sequence<I...>) {
        return RiboMethod::createSignatureImpl(
            {HostType<Result>::name()}, {HostType<std::tuple_element_t<I, Parameters>>::name()...});
    }

    template <std::size_t... I>
    static host::ArrayPointer call(const Callable& callable,
                                   [[maybe_unused]] const Arguments& arguments,
                                   std::index_sequence<I...>) {
        if constexpr (std::is_void_v<Result>) {
            std::invoke(callable,
                        HostType<std::tuple_element_t<I, Parameters>>::fromHost(arguments[I])...);
            return nullptr;
        } else {
            return HostType<Result>::toHost(std::invoke(
                callable,
                HostType<std::tuple_element_t<I, Parameters>>::fromHost(arguments[I])...));
        }
    }
};

/// A method, function or constructor that calls `callable`. The first parameter of a method is its
/// instance, as a reference.
template <class Callable>
RiboMethod makeMethod(std::string name, MethodAttributes attributes, Callable callable) {
    using Made = Adapter<Callable>;
    return RiboMethod(std::move(name), attributes, Made::signature(),
                      Made::body(std::move(callable)));
}

/// A property that reads with `getter` and cannot be written. The getter takes the instance, or
/// nothing if the property is constant.
template <class Getter>
RiboProperty makeProperty(std::string name, PropertyAttributes attributes, Getter getter) {
    using Value = boost::callable_traits::return_type_t<Getter>;
    return RiboProperty(std::move(name), HostType<Value>::name(), attributes,
                        Adapter<Getter>::body(std::move(getter)));
}

/// A property that can be written, too; `setter` takes the instance and the new value.
template <class Getter, class Setter>
RiboProperty makeProperty(std::string name, PropertyAttributes attributes, Getter getter,
                          Setter setter) {
    using Value = boost::callable_traits::return_type_t<Getter>;
    return RiboProperty(std::move(name), HostType<Value>::name(), attributes,
                        Adapter<Getter>::body(std::move(getter)),
                        Adapter<Setter>::body(std::move(setter)));
}

}  // namespace ribo::factory
