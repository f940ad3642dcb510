#pragma once

#include <QJsonObject>
#include <QString>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <typeinfo>
#include <variant>
#include <vector>

#include "core/WebObject2.h"

namespace DOVA {

class JsonText;
class PropertyState;
class ReceivedMessage;

/// What the objects of one class with a model element describe: a row for each member, from which
/// the text of a description is written, and the QJsonObject of it made.
///
/// A class that extends one of the library's may describe itself in another way. So the rows speak
/// for objects of exactly their class, and getJSonObject() for all others.
class WireForm {
public:
    using Texts = std::vector<std::u16string>;
    /// Nothing for a member that the object does not have. Views and pointers are into the element.
    using Value = std::variant<std::monostate, bool, std::int32_t, std::u16string_view,
                               std::u16string, std::string, const Texts*, QJsonValue>;
    struct Row {
        const QString& key;
        Value (*read)(const WebObject2& object);
    };

    using Receive = void (*)(WebObject2& object, const ReceivedMessage& message);

    /// `own` and the rows that every widget with an element has, in any order.
    WireForm(const std::type_info& type, Receive receive, std::initializer_list<Row> own);

    /// The rows that every widget with an element has.
    static const WireForm& ofWidgets();
    /// Whether an object is of exactly one of the library's classes: then no override of a
    /// program's has a say in how it is described and sent.
    static bool isOwn(const WebObject2& object);
    /// The form that tells the whole of an object's description; null if there is none.
    static const WireForm* of(const WebObject2& object);
    /// What takes a message for an object without a QJsonObject; null if handleJSONMessage() has
    /// to.
    static Receive receiverOf(const WebObject2& object);
    /// What an object stores, if that is the whole of its description; null if it is not.
    static const PropertyState* stateOf(const WebObject2& object);

    /// A row for a property of the element.
    template <class Property>
    static Row row(const QString& key) {
        return {key, [](const WebObject2& object) {
                    return Property::template readAs<Value>(object.element());
                }};
    }

    /// The description. REQUIRES of all below: the object has an element.
    QJsonObject describe(const WebObject2& object) const;
    /// Appends the members, each with a comma behind it, that come before or behind "contents".
    void writeBefore(const WebObject2& object, JsonText& text) const;
    void writeBehind(const WebObject2& object, JsonText& text) const;

private:
    struct Member {
        QString key;
        std::string json;  // the key in its quotes, with the colon
        Value (*read)(const WebObject2& object);
    };

    void add(std::initializer_list<Row> rows);
    void write(const WebObject2& object, std::size_t from, std::size_t to, JsonText& text) const;

    const std::type_info& m_type;
    const Receive m_receive;
    std::vector<Member> m_members;  // in the order of their keys
    std::size_t m_behind;           // the first behind "contents"
};

}  // namespace DOVA
