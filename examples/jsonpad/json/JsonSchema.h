#pragma once

#include <QJsonObject>
#include <string>
#include <utility>
#include <vector>

#include "../file/FileDoor.h"

namespace jsonpad {

/// What a JSON Schema (draft-07 or 2020-12) says about which texts a string may be. Followed are
/// `properties`, one schema for all `items`, `enum`, and `$ref` by a JSON pointer (RFC 6901) into
/// the same file; every other keyword is passed over.
class JsonSchema {
public:
    /// Says nothing.
    JsonSchema() = default;

    /// Throws `FileError`, with one sentence that names the file, when it cannot be read or holds
    /// no JSON object.
    static JsonSchema load(const std::string& path, FileDoor& door = FileDoor::system());

    /// The texts of the `enum` for the value at this path of keys, or for the elements of the array
    /// there; empty when there is none, for one that holds no text, and for a broken reference.
    std::vector<std::u16string> choices(const std::vector<std::u16string>& path,
                                        bool isElement = false) const;

private:
    using Schemas = std::vector<QJsonObject>;

    explicit JsonSchema(QJsonObject root) : m_root(std::move(root)) {}

    void add(Schemas& schemas, QJsonObject schema) const;
    Schemas ofMember(const Schemas& schemas, const QString& key) const;
    Schemas ofElements(const Schemas& schemas) const;
    QJsonValue at(const QString& reference) const;

    QJsonObject m_root;
};

}  // namespace jsonpad
