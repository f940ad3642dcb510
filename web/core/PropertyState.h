#pragma once

#include <QJsonObject>
#include <QJsonValue>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace DOVA {

class JsonText;

/// The properties that an object stores. A write to a QJsonObject of them would cost several times
/// as much, and the object would never give back what former texts took.
class PropertyState {
public:
    /// Each of these stores a value under a name; false if it is stored already. An undefined value
    /// takes the property out.
    bool set(std::u16string_view name, std::u16string_view text);
    bool set(std::u16string_view name, const QJsonValue& value);
    /// Takes the property out; mostly it is set again soon.
    void forget(std::u16string_view name);
    /// Undefined if there is none.
    QJsonValue value(std::u16string_view name) const;
    /// Takes a value out and gives it: edits of an array or object with a second handle on it
    /// would copy the whole of it.
    QJsonValue take(std::u16string_view name);

    /// All of them, until the next change.
    const QJsonObject& object() const;

    /// Whether the text can be written here: all names are ASCII, whose order is Qt's, and none is
    /// "contents".
    bool isWritable() const { return m_isWritable; }
    /// Appends the members, each with a comma behind it, that come before or behind "contents".
    /// REQUIRES: isWritable().
    void writeBefore(JsonText& text) const;
    void writeBehind(JsonText& text) const;

private:
    struct Property {
        std::u16string name;
        std::variant<QJsonValue, std::u16string> value;
        bool isSet;
    };

    using Properties = std::vector<Property>;

    const Property* find(std::u16string_view name) const;
    Properties::const_iterator behindContents() const;
    Property& made(std::u16string_view name);
    static QJsonValue toJson(const Property& property);
    static void write(const Property& property, JsonText& text);

    Properties m_properties;  // in the order of their names
    bool m_isWritable = true;
    mutable std::unique_ptr<QJsonObject> m_object;
};

}  // namespace DOVA
