#pragma once

#include <cstdint>
#include <string_view>

namespace DOVA::load {

/// The first frame of every connection: what became of the session that the page asked for.
struct Greeting {
    enum class Session { Fresh, Resumed, Lost };

    Session session = Session::Lost;
    /// Of a resumed one: the last record up that was handled.
    std::uint64_t received = 0;

    /// What is no greeting counts as Lost, as for the page.
    static Greeting parse(std::string_view text);
};

}  // namespace DOVA::load
