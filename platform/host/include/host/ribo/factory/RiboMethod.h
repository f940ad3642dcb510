#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "host/Array.h"
#include "host/ribo/InternedString.h"
#include "host/ribo/factory/DataType.h"

namespace ribo::factory {

/// The arguments of a call, not owned. The instance on which a method is called is the first one.
struct Arguments {
    const kaArray* const* values;
    std::size_t count;

    const kaArray* operator[](std::size_t index) const { return values[index]; }
};

/// What is special about a method.
struct MethodAttributes {
    bool isStatic = false;  ///< called on the class, not on an instance
    bool isHidden = false;  ///< scripts neither see nor call it
};

/// The types that a method takes and gives.
struct Signature {
    std::vector<const DataType*> results;
    std::vector<const DataType*> arguments;
};

/// A method, function or constructor: its name, its types and what it does.
class DOVA_HOST_EXPORT RiboMethod {
public:
    /// Gets arguments that fit the signature; gives the result, null when there is none. What it
    /// throws reaches the caller.
    using Body = std::function<host::ArrayPointer(const Arguments&)>;

    RiboMethod(std::string name, MethodAttributes attributes, Signature signature, Body body);

    /// The signature with these type names; "void" as a result stands for none.
    static Signature createSignatureImpl(const std::vector<InternedString>& results,
                                         const std::vector<InternedString>& arguments);

    InternedString getName() const { return m_name; }
    const MethodAttributes& getAttributes() const { return m_attributes; }
    const Signature& getSignature() const { return m_signature; }

    /// How well the arguments fit: 1 and the Fit of each (exact 3, converted 2, anything 1). 0 when
    /// their number is another one, or when one does not fit.
    std::size_t fit(const Arguments& arguments) const;

    /// Runs the method, which may free the namespace that it belongs to. REQUIRES: the arguments
    /// fit.
    host::ArrayPointer call(const Arguments& arguments) const {
        const auto body = m_body;
        return (*body)(arguments);
    }

private:
    InternedString m_name;
    MethodAttributes m_attributes;
    Signature m_signature;
    std::shared_ptr<const Body> m_body;  // copies of a method share it
};

}  // namespace ribo::factory
