#include "host/ribo/factory/DataType.h"

#include <cmath>
#include <limits>
#include <memory>
#include <unordered_map>
#include <utility>

#include "host/ribo/Instance.h"

namespace ribo::factory {

namespace {

bool isScalarOf(const kaArray* value, kaClassID id) {
    return matrix::isScalar(value) && kaGetClassID(value) == id;
}

bool isWholeNumber(const kaArray* value, double smallest, double largest) {
    const double number = kaGetScalar(value);
    return number >= smallest && number <= largest && number == std::floor(number);
}

Fit fitsAnything(const kaArray*) {
    return Fit::Anything;
}

Fit fitsLogical(const kaArray* value) {
    return kaIsLogicalScalar(value) ? Fit::Exact : Fit::None;
}

Fit fitsInt32(const kaArray* value) {
    using Limits = std::numeric_limits<std::int32_t>;
    if (isScalarOf(value, kaClassID::Int32)) {
        return Fit::Exact;
    }
    const bool fits = kaIsNumeric(value) && matrix::isScalar(value) &&
                      isWholeNumber(value, Limits::min(), Limits::max());
    return fits ? Fit::Converted : Fit::None;
}

Fit fitsUInt64(const kaArray* value) {
    if (isScalarOf(value, kaClassID::UInt64)) {
        return Fit::Exact;
    }
    // From here on a double no longer knows each whole number.
    constexpr double largest = 9007199254740992.0;
    const bool fits =
        kaIsNumeric(value) && matrix::isScalar(value) && isWholeNumber(value, 0, largest);
    return fits ? Fit::Converted : Fit::None;
}

Fit fitsDouble(const kaArray* value) {
    if (isScalarOf(value, kaClassID::Double)) {
        return Fit::Exact;
    }
    return kaIsNumeric(value) && matrix::isScalar(value) ? Fit::Converted : Fit::None;
}

bool isText(const kaArray* value) {
    return kaIsChar(value) && (matrix::isRowVector(value) || matrix::isEmpty(value));
}

Fit fitsText(const kaArray* value) {
    return isText(value) ? Fit::Exact : Fit::None;
}

Fit fitsTexts(const kaArray* value) {
    if (isText(value)) {
        return Fit::Converted;
    }
    if (value == nullptr || kaGetClassID(value) != kaClassID::Cell) {
        return Fit::None;
    }
    for (std::size_t index = 0; index < kaGetNumberOfElements(value); ++index) {
        if (!isText(kaGetCell(value, index))) {
            return Fit::None;
        }
    }
    return Fit::Exact;
}

}  // namespace

/// All types by name. Never destroyed: signatures point into it.
class DataTypeTable {
public:
    static DataTypeTable& instance() {
        static DataTypeTable& table = *new DataTypeTable;
        return table;
    }

    const DataType& add(InternedString name, DataType::Rule rule) {
        auto& place = m_types[name];
        if (place == nullptr) {
            place.reset(new DataType(name, rule));
        } else if (place->m_rule == nullptr) {
            place->m_rule = rule;
        }
        return *place;
    }

private:
    DataTypeTable() {
        add(internal::makeInterned("any"), fitsAnything);
        add(internal::makeInterned("logical scalar"), fitsLogical);
        add(internal::makeInterned("int32 scalar"), fitsInt32);
        add(internal::makeInterned("uint64 scalar"), fitsUInt64);
        add(internal::makeInterned("double scalar"), fitsDouble);
        add(internal::makeInterned("char vector"), fitsText);
        add(internal::makeInterned("RiboFactoryString scalar"), fitsText);
        add(internal::makeInterned("RiboFactoryString vector"), fitsTexts);
    }

    std::unordered_map<InternedString, std::unique_ptr<DataType>> m_types;
};

const DataType& DataType::named(InternedString name) {
    return DataTypeTable::instance().add(name, nullptr);
}

void DataType::add(InternedString name, Rule rule) {
    DataTypeTable::instance().add(name, rule);
}

Fit DataType::fit(const kaArray* value) const {
    if (m_rule != nullptr) {
        return m_rule(value);
    }
    const Instance* instance = Instance::of(value);
    const bool isOfClass = instance != nullptr && instance->getClass()->getFullName() == m_name;
    return isOfClass ? Fit::Exact : Fit::None;
}

namespace detail {

void initStringDataTypes() {
    DataTypeTable::instance();
}

}  // namespace detail
}  // namespace ribo::factory
