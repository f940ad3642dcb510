#include "host/Array.h"

#include <boost/container/small_vector.hpp>
#include <cmath>
#include <limits>
#include <stdexcept>
#include <type_traits>
#include <utility>
#include <variant>

#include "StructFields.h"

namespace host {

/// Room for one element in place, so that a scalar is one allocation.
template <class Element>
using Elements = boost::container::small_vector<Element, 1>;
using Fields = std::unique_ptr<StructFields>;
using Object = std::shared_ptr<kaObject>;

/// In the order of kaClassID.
using Content =
    std::variant<Elements<bool>, std::u16string, Elements<double>, Elements<std::int32_t>,
                 Elements<std::uint64_t>, Elements<ArrayPointer>, Fields, Object>;

}  // namespace host

struct kaArray {
    std::size_t rows;
    std::size_t columns;
    host::Content content;
};

namespace {

using host::ArrayPointer;
using host::Content;
using host::Elements;

template <class Type>
using IsNumberOrLogical =
    std::disjunction<std::is_same<Type, Elements<bool>>, std::is_same<Type, Elements<double>>,
                     std::is_same<Type, Elements<std::int32_t>>,
                     std::is_same<Type, Elements<std::uint64_t>>>;

/// A matrix that has its size, but no elements yet.
template <class Type>
ArrayPointer createMatrix(std::size_t rows, std::size_t columns) {
    // Made in place: the compiler warns of what it sees in the move of a small vector.
    ArrayPointer array(new kaArray{rows, columns, Content(std::in_place_type<Type>)});
    if (columns != 0 && rows > std::get<Type>(array->content).max_size() / columns) {
        throw std::length_error("A matrix has more elements than memory can count.");
    }
    return array;
}

template <class Type>
kaArray* copyMatrix(std::size_t rows, std::size_t columns,
                    const typename Type::value_type* elements) {
    ArrayPointer array = createMatrix<Type>(rows, columns);
    Type& content = std::get<Type>(array->content);
    if (elements != nullptr) {
        content.assign(elements, elements + rows * columns);
    } else {
        content.resize(rows * columns);
    }
    return array.release();
}

template <class Type>
kaArray* createScalar(typename Type::value_type value) {
    return new kaArray{1, 1, Content(std::in_place_type<Type>, 1, value)};
}

template <class Type>
const Type* contentOf(const kaArray* array) noexcept {
    return array != nullptr ? std::get_if<Type>(&array->content) : nullptr;
}

/// What `convert` makes of the number or logical at the index, `otherwise` when there is none.
template <class Answer, class Convert>
Answer convertNumber(const kaArray* array, std::size_t index, Answer otherwise, Convert convert) {
    if (array == nullptr) {
        return otherwise;
    }
    return std::visit(
        [&](const auto& content) {
            if constexpr (IsNumberOrLogical<std::decay_t<decltype(content)>>::value) {
                return index < content.size() ? convert(content[index]) : otherwise;
            } else {
                return otherwise;
            }
        },
        array->content);
}

template <class Number>
std::uint64_t convertToUInt64(Number number) {
    if constexpr (std::is_unsigned_v<Number>) {
        return number;
    } else if (!(number > 0)) {
        return 0;
    } else if constexpr (std::is_integral_v<Number>) {
        return static_cast<std::uint64_t>(number);
    } else {
        constexpr double beyond = 18446744073709551616.0;  // 2^64
        return number < beyond ? static_cast<std::uint64_t>(std::round(number))
                               : std::numeric_limits<std::uint64_t>::max();
    }
}

// The content of a duplicate.

template <class Type>
Content duplicate(const Type& content) {
    return content;
}

Content duplicate(const Elements<ArrayPointer>& cells) {
    Elements<ArrayPointer> copies(cells.size());
    for (std::size_t index = 0; index < cells.size(); ++index) {
        copies[index].reset(kaDuplicateArray(cells[index].get()));
    }
    return copies;
}

Content duplicate(const host::Fields& fields) {
    return std::make_unique<host::StructFields>(*fields);
}

Content duplicate(const host::Object& object) {
    return object->copy();
}

}  // namespace

kaObject::~kaObject() = default;

kaArray* kaCreateLogicalScalar(bool value) {
    return createScalar<Elements<bool>>(value);
}

kaArray* kaCreateDoubleScalar(double value) {
    return createScalar<Elements<double>>(value);
}

kaArray* kaCreateInt32Scalar(std::int32_t value) {
    return createScalar<Elements<std::int32_t>>(value);
}

kaArray* kaCreateUInt64Scalar(std::uint64_t value) {
    return createScalar<Elements<std::uint64_t>>(value);
}

kaArray* kaCreateString(std::u16string_view text) {
    return kaCreateCharMatrix(text.empty() ? 0 : 1, text.size(), text.data());
}

kaArray* kaAdoptString(std::u16string text) {
    ArrayPointer array = createMatrix<std::u16string>(text.empty() ? 0 : 1, text.size());
    std::get<std::u16string>(array->content) = std::move(text);
    return array.release();
}

kaArray* kaCreateLogicalMatrix(std::size_t rows, std::size_t columns, const bool* elements) {
    return copyMatrix<Elements<bool>>(rows, columns, elements);
}

kaArray* kaCreateCharMatrix(std::size_t rows, std::size_t columns, const char16_t* elements) {
    return copyMatrix<std::u16string>(rows, columns, elements);
}

kaArray* kaCreateDoubleMatrix(std::size_t rows, std::size_t columns, const double* elements) {
    return copyMatrix<Elements<double>>(rows, columns, elements);
}

kaArray* kaCreateInt32Matrix(std::size_t rows, std::size_t columns, const std::int32_t* elements) {
    return copyMatrix<Elements<std::int32_t>>(rows, columns, elements);
}

kaArray* kaCreateUInt64Matrix(std::size_t rows, std::size_t columns,
                              const std::uint64_t* elements) {
    return copyMatrix<Elements<std::uint64_t>>(rows, columns, elements);
}

kaArray* kaCreateCellMatrix(std::size_t rows, std::size_t columns, kaArray* const elements[]) {
    ArrayPointer array = createMatrix<Elements<ArrayPointer>>(rows, columns);
    auto& cells = std::get<Elements<ArrayPointer>>(array->content);
    cells.resize(rows * columns);
    for (std::size_t index = 0; elements != nullptr && index < cells.size(); ++index) {
        cells[index].reset(elements[index]);
    }
    return array.release();
}

kaArray* kaCreateStructScalar(std::size_t fieldCount, const std::u16string_view names[],
                              kaArray* const values[]) {
    auto fields = std::make_unique<host::StructFields>(
        std::vector<std::u16string_view>(names, names + fieldCount));
    ArrayPointer array(new kaArray{1, 1, host::Fields()});
    for (std::size_t field = 0; field < fieldCount; ++field) {
        fields->find(names[field])->reset(values[field]);
    }
    array->content = std::move(fields);
    return array.release();
}

kaArray* kaCreateObject(std::shared_ptr<kaObject> object) {
    return object != nullptr ? new kaArray{1, 1, std::move(object)} : nullptr;
}

kaArray* kaDuplicateArray(const kaArray* array) {
    if (array == nullptr) {
        return nullptr;
    }
    return new kaArray{
        array->rows, array->columns,
        std::visit([](const auto& content) { return duplicate(content); }, array->content)};
}

void kaDestroyArray(kaArray* array) noexcept {
    delete array;
}

kaClassID kaGetClassID(const kaArray* array) noexcept {
    return array != nullptr ? static_cast<kaClassID>(array->content.index()) : kaClassID::Double;
}

std::size_t kaGetNumberOfRows(const kaArray* array) noexcept {
    return array != nullptr ? array->rows : 0;
}

std::size_t kaGetNumberOfColumns(const kaArray* array) noexcept {
    return array != nullptr ? array->columns : 0;
}

std::size_t kaGetNumberOfElements(const kaArray* array) noexcept {
    return kaGetNumberOfRows(array) * kaGetNumberOfColumns(array);
}

bool kaIsNumeric(const kaArray* array) noexcept {
    const kaClassID id = kaGetClassID(array);
    return id == kaClassID::Double || id == kaClassID::Int32 || id == kaClassID::UInt64;
}

bool kaIsChar(const kaArray* array) noexcept {
    return kaGetClassID(array) == kaClassID::Char;
}

bool kaIsLogicalScalar(const kaArray* array) noexcept {
    const auto* logical = contentOf<Elements<bool>>(array);
    return logical != nullptr && logical->size() == 1;
}

bool kaIsLogicalScalarTrue(const kaArray* array) noexcept {
    const auto* logical = contentOf<Elements<bool>>(array);
    return logical != nullptr && logical->size() == 1 && logical->front();
}

double kaGetScalar(const kaArray* array) noexcept {
    return kaGetElement(array, 0);
}

double kaGetElement(const kaArray* array, std::size_t index) noexcept {
    return convertNumber(array, index, std::numeric_limits<double>::quiet_NaN(),
                         [](auto number) { return static_cast<double>(number); });
}

std::uint64_t kaGetUInt64Scalar(const kaArray* array) noexcept {
    return convertNumber(array, 0, std::uint64_t(0),
                         [](auto number) { return convertToUInt64(number); });
}

std::u16string kaGetString(const kaArray* array) {
    return kaViewString(array);
}

const std::u16string& kaViewString(const kaArray* array) noexcept {
    // NOLINTNEXTLINE(bugprone-unhandled-exception-at-new): made once; for static arrays, too.
    static const auto& s_none = *new std::u16string;
    const auto* text = contentOf<std::u16string>(array);
    return text != nullptr ? *text : s_none;
}

const kaArray* kaGetCell(const kaArray* array, std::size_t index) noexcept {
    const auto* cells = contentOf<Elements<ArrayPointer>>(array);
    return cells != nullptr && index < cells->size() ? (*cells)[index].get() : nullptr;
}

const std::vector<std::u16string>& kaGetFieldNames(const kaArray* array) noexcept {
    // NOLINTNEXTLINE(bugprone-unhandled-exception-at-new): made once; for static arrays, too.
    static const auto& s_none = *new std::vector<std::u16string>;
    const auto* fields = contentOf<host::Fields>(array);
    return fields != nullptr ? (*fields)->names() : s_none;
}

const kaArray* kaGetField(const kaArray* array, std::u16string_view name) noexcept {
    const auto* fields = contentOf<host::Fields>(array);
    const ArrayPointer* value = fields != nullptr ? std::as_const(**fields).find(name) : nullptr;
    return value != nullptr ? value->get() : nullptr;
}

kaObject* kaGetObject(const kaArray* array) noexcept {
    const auto* object = contentOf<host::Object>(array);
    return object != nullptr ? object->get() : nullptr;
}

std::shared_ptr<kaObject> kaShareObject(const kaArray* array) noexcept {
    const auto* object = contentOf<host::Object>(array);
    return object != nullptr ? *object : nullptr;
}

bool matrix::isScalar(const kaArray* array) noexcept {
    return kaGetNumberOfElements(array) == 1;
}

bool matrix::isEmpty(const kaArray* array) noexcept {
    return kaGetNumberOfElements(array) == 0;
}

bool matrix::isRowVector(const kaArray* array) noexcept {
    return kaGetNumberOfRows(array) == 1;
}
