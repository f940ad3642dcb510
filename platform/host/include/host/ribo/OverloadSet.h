#pragma once

#include <vector>

#include "host/Error.h"
#include "host/ribo/factory/RiboMethod.h"

namespace ribo {

/// No overload takes the arguments that were given.
class DOVA_HOST_EXPORT Error_NoMatchingSignature : public host::Error {
public:
    explicit Error_NoMatchingSignature(const std::string& text);
    ~Error_NoMatchingSignature() override;
};

/// The methods of one name, among which the arguments of a call choose.
class DOVA_HOST_EXPORT OverloadSet {
public:
    void add(factory::RiboMethod method);

    const std::vector<factory::RiboMethod>& getMethods() const { return m_methods; }

    /// The method for these arguments: of those that take them, the one whose types fit best,
    /// taken together (exactly, after a conversion, or only because it takes anything); among
    /// equals the first added. Null when none takes them.
    const factory::RiboMethod* find(const factory::Arguments& arguments) const;

    /// Calls the method for these arguments. Throws Error_NoMatchingSignature before any method
    /// runs; what the method throws passes through.
    host::ArrayPointer call(const factory::Arguments& arguments) const;

private:
    std::vector<factory::RiboMethod> m_methods;
};

}  // namespace ribo
