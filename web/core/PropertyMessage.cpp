#include "PropertyMessage.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "JsonText.h"
#include "MessageService.h"
#include "PropertyNames.h"
#include "TextConversions.h"

namespace DOVA {

namespace {

/// What only Qt can write: its order of keys that are not ASCII, and a member given twice.
std::string writtenByQt(std::uint32_t id, const std::string& type, std::u16string_view name,
                        const QJsonValue& value) {
    QJsonObject message{{keys::id, QString::number(id)},
                        {keys::type, QString::fromStdString(type)}};
    message.insert(toQString(name.data(), name.size()), value);
    return toWireText(QJsonDocument(QJsonArray{message}));
}

bool isForQt(std::u16string_view name) {
    return name == toU16View(keys::id) || name == names::type || !isAscii(name);
}

/// The members in the order of their keys. REQUIRES: `name` is not for Qt.
template <class WriteValue>
std::string written(std::uint32_t id, const std::string& type, std::u16string_view name,
                    std::size_t valueSize, WriteValue writeValue) {
    constexpr std::size_t around = 40;  // brackets, quotes, both keys and an identifier
    const std::u16string_view idKey = toU16View(keys::id);
    JsonText text(around + type.size() + name.size() + valueSize);
    const auto writeIf = [&](bool isHere) {
        if (isHere) {
            text.string(name);
            text.raw(':');
            writeValue(text);
            text.raw(',');
        }
    };
    text.raw("[{");
    writeIf(name < idKey);
    text.string(idKey);
    text.raw(":\"");
    text.number(id);
    text.raw("\",");
    writeIf(name > idKey && name < names::type);
    text.string(names::type);
    text.raw(':');
    text.utf8(type);
    text.raw(',');
    writeIf(name > names::type);
    text.close('}');
    text.raw(']');
    return text.take();
}

}  // namespace

std::string propertyMessage(std::uint32_t id, const std::string& type, std::u16string_view name,
                            const QJsonValue& value) {
    if (isForQt(name) || value.isUndefined()) {
        return writtenByQt(id, type, name, value);
    }
    const std::size_t expected = 24;  // a number's digits
    return written(id, type, name, expected, [&](JsonText& text) { text.value(value); });
}

std::string propertyMessage(std::uint32_t id, const std::string& type, std::u16string_view name,
                            std::u16string_view value) {
    if (isForQt(name)) {
        return writtenByQt(id, type, name, toQString(value.data(), value.size()));
    }
    return written(id, type, name, value.size(), [&](JsonText& text) { text.string(value); });
}

}  // namespace DOVA
