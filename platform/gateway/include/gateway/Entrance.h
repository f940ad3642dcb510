#pragma once

#include <memory>
#include <string_view>

namespace DOVA::link {
class Program;
}

namespace DOVA::gateway {

/// Whom a gateway that stands for many programs lets in, and where.
class Entrance {
public:
    /// Somebody whom nobody knows; somebody for whom there is no room now; somebody who may come.
    enum class Verdict { Stranger, Crowded, Welcome };

    virtual ~Entrance() = default;

    /// What a token is good for. Takes the same time for every text of a token's length.
    virtual Verdict judge(std::string_view token) const = 0;

    /// The program of a token that is welcome, started or not.
    virtual std::shared_ptr<link::Program> programOf(std::string_view token) = 0;
};

}  // namespace DOVA::gateway
