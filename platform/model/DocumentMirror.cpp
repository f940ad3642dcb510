#include "model/DocumentMirror.h"

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

#include "DocumentText.h"
#include "LivingModels.h"
#include "PatchText.h"
#include "TurnChanges.h"
#include "messaging/ConnectorMessageService.h"
#include "model/MessageService.h"

namespace tdom {

using pf::zero::Change;
using pf::zero::LivingModels;
using pf::zero::Model;
using pf::zero::ModelElement;
using pf::zero::Ref;
using pf::zero::Uuid;

namespace {

QLatin1String latin1(std::string_view name) {
    return QLatin1String(name.data(), static_cast<int>(name.size()));
}

const QLatin1String s_snapshot = latin1(DocumentName::snapshot);
const QLatin1String s_properties = latin1(DocumentName::properties);

/// What a page asks for; nothing if the text is no request.
std::optional<DocumentFilter> parseRequest(const std::string& text) {
    const QByteArray json = QByteArray::fromRawData(text.data(), static_cast<int>(text.size()));
    const QJsonObject message = QJsonDocument::fromJson(json).object();
    if (!message.value(s_snapshot).isString()) {
        return std::nullopt;
    }
    if (message.size() == 1) {
        return DocumentFilter();
    }
    if (message.size() > 2 || !message.value(s_properties).isArray()) {
        return std::nullopt;
    }
    std::vector<std::string> names;
    const QJsonArray wanted = message.value(s_properties).toArray();
    for (const QJsonValue name : wanted) {
        names.push_back(name.toString().toStdString());
    }
    return DocumentFilter(std::move(names));
}

}  // namespace

class DocumentMirror::Implementation : public pf::zero::ChangeListener,
                                       public std::enable_shared_from_this<Implementation> {
public:
    explicit Implementation(Later later);
    ~Implementation() override;

    bool hears(std::string_view property) const noexcept override {
        return m_wanted.holds(property);
    }
    void onChanges(const std::vector<Change>& batch) noexcept override;

private:
    void hear(const std::string& text);
    void follow(const Ref<Model>& model);
    void flushLater();
    void flush();
    void sendPatch();
    void sendSnapshot();
    JsonText begin(std::string_view content) const;
    void send(JsonText message);
    Ref<ModelElement> find(const Uuid& uuid) const;

    const Later m_later;
    std::vector<Ref<Model>> m_models;
    TurnChanges m_changes;
    std::uint64_t m_version = 0;
    bool m_isFollowing = false;
    DocumentFilter m_wanted;
    std::optional<DocumentFilter> m_asked;  // answered at the turn's end
    bool m_willFlush = false;
    messaging::ConnectorMessageService m_messages{tdom_message_service};
};

DocumentMirror::Implementation::Implementation(Later later) : m_later(std::move(later)) {
    m_messages.subscribe(tdom_channel, [this](const std::string& text) { hear(text); });
}

DocumentMirror::Implementation::~Implementation() {
    if (!m_isFollowing) {
        return;
    }
    LivingModels::observe({});
    for (const Ref<Model>& model : m_models) {
        model->setChangeListener(nullptr);
    }
}

void DocumentMirror::Implementation::hear(const std::string& text) {
    std::optional<DocumentFilter> asked = parseRequest(text);
    if (!asked) {
        return;
    }
    if (!std::exchange(m_isFollowing, true)) {
        LivingModels::observe([this](const Ref<Model>& model) { follow(model); });
    }
    m_asked = std::move(asked);
    flushLater();
}

void DocumentMirror::Implementation::follow(const Ref<Model>& model) {
    model->setChangeListener(this);
    m_models.push_back(model);
}

void DocumentMirror::Implementation::onChanges(const std::vector<Change>& batch) noexcept {
    m_changes.add(batch);
    flushLater();
}

void DocumentMirror::Implementation::flushLater() {
    if (!std::exchange(m_willFlush, true)) {
        m_later([weak = weak_from_this()] {
            if (const auto self = weak.lock()) {
                self->flush();
            }
        });
    }
}

void DocumentMirror::Implementation::flush() {
    m_willFlush = false;
    // The elements are ahead of the records then; the end of the group calls again.
    const bool isAhead = std::any_of(m_models.begin(), m_models.end(),
                                     [](const auto& model) { return model->hasUncommitted(); });
    if (isAhead) {
        return;
    }
    sendPatch();
    if (m_asked) {
        m_wanted = *std::exchange(m_asked, std::nullopt);
        sendSnapshot();
    }
}

void DocumentMirror::Implementation::sendPatch() {
    PatchText patch([this](const Uuid& uuid) { return find(uuid); }, m_wanted);
    patch.write(m_changes);
    m_changes.clear();
    if (!patch.empty()) {
        ++m_version;
        JsonText message = begin(DocumentName::patch);
        message.raw(patch.take());
        send(std::move(message));
    }
}

void DocumentMirror::Implementation::sendSnapshot() {
    JsonText message = begin(DocumentName::snapshot);
    DocumentText::write(message, m_models, m_wanted);
    send(std::move(message));
}

JsonText DocumentMirror::Implementation::begin(std::string_view content) const {
    JsonText message;
    message.raw('{');
    message.string(DocumentName::version);
    message.raw(':');
    message.number(m_version);
    message.raw(',');
    message.string(content);
    message.raw(':');
    return message;
}

void DocumentMirror::Implementation::send(JsonText message) {
    message.raw('}');
    m_messages.publish(tdom_channel, message.take());
}

Ref<ModelElement> DocumentMirror::Implementation::find(const Uuid& uuid) const {
    for (const Ref<Model>& model : m_models) {
        if (auto element = model->find(uuid)) {
            return element;
        }
    }
    return {};
}

DocumentMirror::DocumentMirror(Later later)
    : m_implementation(std::make_shared<Implementation>(std::move(later))) {}

DocumentMirror::~DocumentMirror() = default;

}  // namespace tdom
