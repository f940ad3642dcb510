#include "Visitors.h"

#include <sys/stat.h>

#include <algorithm>
#include <fstream>
#include <set>
#include <sstream>
#include <stdexcept>

#include "AccessRules.h"

namespace DOVA::serve {

namespace {

[[noreturn]] void refuse(const std::filesystem::path& file, const std::string& why) {
    throw std::runtime_error("the file of visitors " + file.string() + " " + why);
}

/// Who reads it can come in as everybody.
void requirePrivate(const std::filesystem::path& file) {
    struct stat status {};
    if (stat(file.c_str(), &status) != 0) {
        refuse(file, "cannot be read: " + std::generic_category().message(errno));
    }
    if ((status.st_mode & (S_IRWXG | S_IRWXO)) != 0) {
        refuse(file, "can be read or changed by others; chmod 600 it");
    }
}

Visitors::Visitor visitorOf(const std::filesystem::path& file, int number,
                            const std::string& line) {
    std::istringstream words(line);
    Visitors::Visitor visitor;
    std::string more;
    words >> visitor.name >> visitor.token;
    const std::string where = "is wrong in line " + std::to_string(number) + ": ";
    if (!Visitors::isUsableName(visitor.name)) {
        refuse(file, where + "a name has 1 to 64 of the characters A-Z a-z 0-9 - _ . @");
    }
    if (!gateway::AccessRules::isUsableToken(visitor.token) || words >> more) {
        refuse(file, where +
                         "behind the name stands a token, 16 to 256 of the characters "
                         "A-Z a-z 0-9 - _ . ~");
    }
    return visitor;
}

bool isSame(std::string_view one, std::string_view other) {
    unsigned difference = one.size() == other.size() ? 0 : 1;
    for (std::size_t index = 0; index < std::min(one.size(), other.size()); ++index) {
        difference |= static_cast<unsigned char>(one[index] ^ other[index]);
    }
    return difference == 0;
}

}  // namespace

bool Visitors::isUsableName(std::string_view name) {
    return !name.empty() && name.size() <= 64 && gateway::AccessRules::consistsOf(name, "-_.@") &&
           name.find_first_not_of('.') != std::string_view::npos;  // it may become a folder's
}

std::vector<Visitors::Visitor> Visitors::read(const std::filesystem::path& file) {
    requirePrivate(file);
    std::ifstream lines(file);
    std::vector<Visitor> visitors;
    std::set<std::string> names, tokens;
    int number = 0;
    for (std::string line; std::getline(lines, line);) {
        ++number;
        const std::size_t start = line.find_first_not_of(" \t\r");
        if (start == std::string::npos || line[start] == '#') {
            continue;
        }
        visitors.push_back(visitorOf(file, number, line));
        if (!names.insert(visitors.back().name).second ||
            !tokens.insert(visitors.back().token).second) {
            refuse(file, "is wrong in line " + std::to_string(number) +
                             ": the name or the token stands above already");
        }
    }
    return visitors;
}

std::optional<std::string> Visitors::nameOf(std::string_view token) const {
    const Visitor* found = nullptr;
    for (const Visitor& visitor : m_visitors) {
        found = isSame(visitor.token, token) ? &visitor : found;
    }
    return found ? std::optional(found->name) : std::nullopt;
}

}  // namespace DOVA::serve
