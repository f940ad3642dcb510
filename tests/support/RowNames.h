#pragma once

#include <ostream>
#include <string>

namespace DOVA::test {

/// Shows the row of a table by its name instead of its bytes, in what GoogleTest prints. It is
/// found where the row's own namespace takes it over: `using test::operator<<;`
template <class Row>
auto operator<<(std::ostream& stream, const Row& row) -> decltype(stream << row.name) {
    return stream << row.name;
}

/// Names the cases of a table after its rows.
struct RowName {
    template <class Info>
    std::string operator()(const Info& info) const {
        return info.param.name;
    }
};

}  // namespace DOVA::test
