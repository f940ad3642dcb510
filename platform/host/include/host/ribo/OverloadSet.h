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

/// The methods of one name. The arguments of a call choose among them. Main thread.
class DOVA_HOST_EXPORT OverloadSet {
public:
    void add(factory::RiboMethod method);

    const std::vector<factory::RiboMethod>& getMethods() const { return m_methods; }

    /// The method that fits these arguments best, see RiboMethod::fit(); the first added of those
    /// that fit equally. Null when none takes them.
    const factory::RiboMethod* find(const factory::Arguments& arguments) const;

    /// Calls that method and gives its result, null when it has none. Throws
    /// Error_NoMatchingSignature when none takes the arguments; what the method throws passes
    /// through.
    host::ArrayPointer call(const factory::Arguments& arguments) const;

private:
    std::vector<factory::RiboMethod> m_methods;
};

}  // namespace ribo
