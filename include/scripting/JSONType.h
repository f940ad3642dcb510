#pragma once

namespace DOVA::web {

/// The kinds of JSON values, with the numbers and in the order that scripts know them by.
enum class JSONType : int {
    NullType = 0,
    LogicalType = 1,
    NumberType = 2,
    StringType = 3,
    ArrayType = 4,
    ObjectType = 5,
    UndefinedType = 6,  ///< no value, as of an index or key that is not there
};

}  // namespace DOVA::web
