#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

namespace DOVA::test {

/// One named case of the files beside this one; README.md there says what the keys mean.
struct WireRow {
    std::string file;
    QJsonObject content;

    std::string name() const;
    bool beginsOnline() const { return content["online"].toBool(true); }
    /// The row's steps; the row itself if it has none.
    QJsonArray steps() const;
};

std::ostream& operator<<(std::ostream& stream, const WireRow& row);

/// Those rows of the folders that are wanted. A file that cannot be read ends the program with a
/// line that says so.
std::vector<WireRow> readRows(const std::vector<std::string>& folders,
                              bool (*isWanted)(const WireRow&));
/// The scene of rows that bring none.
QJsonObject standardScene();

/// Gives the identifier of an object by its name.
using IdentifierOf = std::function<std::uint32_t(const std::string& name)>;

/// The bytes that a text of a row means, placeholders filled in.
std::string wireText(const QJsonValue& text, const IdentifierOf& identifierOf);
std::string fillIn(const std::string& text, const IdentifierOf& identifierOf);

}  // namespace DOVA::test
