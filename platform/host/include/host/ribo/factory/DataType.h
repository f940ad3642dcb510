#pragma once

#include "host/Array.h"
#include "host/ribo/InternedString.h"

namespace ribo::factory {

/// How well a value fits a type. Ordered from not at all to best.
enum class Fit { None, Anything, Converted, Exact };

/// A type of a signature, known by its name. Lives as long as the process. Main thread.
class DOVA_HOST_EXPORT DataType {
public:
    /// Says how well a value, perhaps null, fits.
    using Rule = Fit (*)(const kaArray* value);

    /// The type of that name. A name that nobody added is a class's full name: its instances fit
    /// exactly, nothing else fits.
    static const DataType& named(InternedString name);
    /// Adds a type with a rule. A name that has a rule keeps it; one that signatures took for a
    /// class's gets this one, in those signatures, too.
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

/// Makes sure of the types of host strings, "RiboFactoryString scalar" and "RiboFactoryString
/// vector". They are there from the start here, so a signature may name them without this call.
DOVA_HOST_EXPORT void initStringDataTypes();

}  // namespace detail
}  // namespace ribo::factory
