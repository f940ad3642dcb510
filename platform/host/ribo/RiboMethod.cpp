#include "host/ribo/factory/RiboMethod.h"

#include <utility>

#include "host/ribo/factory/TypeOf.h"

namespace ribo::factory {

RiboMethod::RiboMethod(std::string name, MethodAttributes attributes, Signature signature,
                       Body body)
    : m_name(internal::makeInterned(std::move(name))),
      m_attributes(attributes),
      m_signature(std::move(signature)),
      m_body(std::make_shared<const Body>(std::move(body))) {}

Signature RiboMethod::createSignatureImpl(const std::vector<InternedString>& results,
                                          const std::vector<InternedString>& arguments) {
    Signature signature;
    for (const InternedString name : results) {
        if (name != TypeOf<void>::name()) {
            signature.results.push_back(&DataType::named(name));
        }
    }
    for (const InternedString name : arguments) {
        signature.arguments.push_back(&DataType::named(name));
    }
    return signature;
}

std::size_t RiboMethod::fit(const Arguments& arguments) const {
    if (arguments.count != m_signature.arguments.size()) {
        return 0;
    }
    std::size_t total = 1;
    for (std::size_t index = 0; index < arguments.count; ++index) {
        const Fit fit = m_signature.arguments[index]->fit(arguments[index]);
        if (fit == Fit::None) {
            return 0;
        }
        total += static_cast<std::size_t>(fit);
    }
    return total;
}

}  // namespace ribo::factory
