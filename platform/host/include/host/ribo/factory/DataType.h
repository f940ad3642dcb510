#pragma once

#include "host/Array.h"
#include "host/ribo/InternedString.h"

namespace ribo::factory {

/// How well a value fits a type. Ordered from not at all to best.
enum class Fit { None, Anything, Converted, Exact };

/// A type in signatures, known by its name. Lives as long as the process. Main thread.
class DOVA_HOST_EXPORT DataType {
public:
    /// Says how well a value, perhaps null, fits.
    using Rule = Fit (*)(const kaArray* value);

    /// The type of that name. A name that nobody added is taken for a class's full name: its
    /// instances fit exactly, nothing else fits.
    static const DataType& named(InternedString name);
    /// Gives the type of that name a rule, also where signatures name it already. A type that has a
    /// rule keeps it.
    static void add(InternedString name, Rule rule);

    InternedString getName() const { return m_name; }
    Fit fit(const kaArray* value) const;

private:
    DataType(InternedString name, Rule rule) : m_name(name), m_rule(rule) {}
    friend class DataTypeTable;

    InternedString m_name;
    Rule m_rule;
};

namespace detail {

/// Adds the types of host strings, "RiboFactoryString scalar" and "RiboFactoryString vector". Here
/// they are there from the start, and signatures may name them without this call.
DOVA_HOST_EXPORT void initStringDataTypes();

}  // namespace detail
}  // namespace ribo::factory
