#include "TargetWindow.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "ProtocolNames.h"

namespace DOVA::load {

namespace {

QJsonDocument parse(std::string_view text) {
    return QJsonDocument::fromJson(
        QByteArray::fromRawData(text.data(), static_cast<int>(text.size())));
}

std::string textOf(const QJsonObject& object, const char* key) {
    return object[QLatin1String(key)].toString().toStdString();
}

/// The identifier of the first object of this kind, itself or below it; empty: there is none.
std::string findKind(const QJsonObject& object, const char* kind) {
    if (textOf(object, keys::type) == kind) {
        return textOf(object, keys::id);
    }
    for (const QJsonValue child : object[QLatin1String(keys::contents)].toArray()) {
        if (std::string found = findKind(child.toObject(), kind); !found.empty()) {
            return found;
        }
    }
    return {};
}

std::string toText(const QJsonObject& object) {
    return QJsonDocument(object).toJson(QJsonDocument::Compact).toStdString();
}

QJsonObject rectangle(int y, int height) {
    return {{"x", 10}, {"y", y}, {"width", 300}, {"height", height}};
}

}  // namespace

std::string TargetWindow::channel() const {
    return std::string(names::ownChannel) + "/" + m_id;
}

bool TargetWindow::described(std::string_view text) {
    const QJsonObject window = parse(text).object();
    if (textOf(window, keys::title) != s_title) {
        return false;
    }
    m_field = findKind(window, words::edit);
    m_text = findKind(window, words::text);
    m_id = m_field.empty() || m_text.empty() ? "" : textOf(window, keys::id);
    return isThere();
}

void TargetWindow::written(std::string_view text,
                           const std::function<void(const Handled&)>& call) const {
    for (const QJsonValue write : parse(text).array()) {
        const QJsonObject object = write.toObject();
        if (textOf(object, keys::id) != m_text) {
            continue;
        }
        if (const auto handled = Handled::parse(textOf(object, keys::text))) {
            call(*handled);
        }
    }
}

std::string TargetWindow::ready() const {
    return toText({{keys::dialogReady, m_id.c_str()}});
}

std::string TargetWindow::geometry() const {
    return toText({{keys::id, m_id.c_str()},
                   {keys::geometry, rectangle(48, 200)},
                   {keys::frameGeometry, rectangle(20, 228)}});
}

std::string TargetWindow::typed(const Action& action) const {
    return toText({{keys::id, m_field.c_str()},
                   {keys::event, words::onEdit},
                   {keys::value, action.text().c_str()}});
}

}  // namespace DOVA::load
