#pragma once

#include <ostream>

namespace DOVA::test {

/// Shows the row of a table by its name instead of its bytes, in what GoogleTest prints. It is
/// found where the row's own namespace takes it over: `using test::operator<<;`
template <class Row>
auto operator<<(std::ostream& stream, const Row& row) -> decltype(stream << row.name) {
    return stream << row.name;
}

}  // namespace DOVA::test
