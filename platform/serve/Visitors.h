#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace DOVA::serve {

/// Who may come in: each visitor by a token of their own, which is a secret.
class Visitors {
public:
    struct Visitor {
        std::string name;
        std::string token;
    };

    /// The visitors that a file names: a line for each, with a name of 1 to 64 of the characters
    /// A-Z a-z 0-9 - _ . @ and a token; empty lines and those that begin with "#" say nothing.
    /// Throws std::runtime_error with one line that says what is wrong, and where.
    static std::vector<Visitor> read(const std::filesystem::path& file);

    static bool isUsableName(std::string_view name);

    /// Replaces them all. Nobody is disturbed who is still among them.
    void set(std::vector<Visitor> visitors) { m_visitors = std::move(visitors); }

    const std::vector<Visitor>& all() const { return m_visitors; }

    /// Whose token it is. Takes the same time for every text of a token's length.
    std::optional<std::string> nameOf(std::string_view token) const;

private:
    std::vector<Visitor> m_visitors;
};

}  // namespace DOVA::serve
