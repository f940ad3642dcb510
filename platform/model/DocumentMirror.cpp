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

// More ask only where somebody makes pages up.
constexpr std::size_t s_mostPages = 16;

struct Request {
    std::string client;
    DocumentFilter wanted;
};

/// What a page asks for; nothing if the text is no request.
std::optional<Request> parseRequest(const std::string& text) {
    const QByteArray json = QByteArray::fromRawData(text.data(), static_cast<int>(text.size()));
    const QJsonObject message = QJsonDocument::fromJson(json).object();
    if (!message.value(s_snapshot).isString()) {
        return std::nullopt;
    }
    const std::string client = message.value(s_snapshot).toString().toStdString();
    if (message.size() == 1) {
        return Request{client, DocumentFilter()};
    }
    if (message.size() > 2 || !message.value(s_properties).isArray()) {
        return std::nullopt;
    }
    std::vector<std::string> names;
    const QJsonArray wanted = message.value(s_properties).toArray();
    for (const QJsonValue name : wanted) {
        names.push_back(name.toString().toStdString());
    }
    return Request{client, DocumentFilter(std::move(names))};
}

/// A page that mirrors the document.
struct Page {
    std::string client;
    DocumentFilter wanted;
    std::optional<DocumentFilter> asked;  // answered at the turn's end
};

using Pages = std::vector<const Page*>;

/// The pages, those together that want the same.
std::vector<Pages> alike(const Pages& pages) {
    std::vector<Pages> groups;
    for (const Page* page : pages) {
        const auto found = std::find_if(groups.begin(), groups.end(), [page](const Pages& group) {
            return group.front()->wanted == page->wanted;
        });
        (found == groups.end() ? groups.emplace_back() : *found).push_back(page);
    }
    return groups;
}

}  // namespace

class DocumentMirror::Implementation : public pf::zero::ChangeListener,
                                       public std::enable_shared_from_this<Implementation> {
public:
    explicit Implementation(Later later);
    ~Implementation() override;

    bool hears(std::string_view property) const noexcept override;
    void onChanges(const std::vector<Change>& batch) noexcept override;
    void forgetOthers(const std::string& client);

private:
    void hear(const std::string& text);
    Page& pageOf(const std::string& client);
    void follow(const Ref<Model>& model);
    void flushLater();
    void flush();
    Pages pages() const;
    void sendPatches();
    void sendSnapshots();
    JsonText begin(std::string_view content) const;
    void send(JsonText message, const Pages& pages, bool areAll);
    Ref<ModelElement> find(const Uuid& uuid) const;

    const Later m_later;
    std::vector<Ref<Model>> m_models;
    TurnChanges m_changes;
    std::uint64_t m_version = 0;
    bool m_isFollowing = false;
    std::vector<Page> m_pages;  // in the order in which they came
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

bool DocumentMirror::Implementation::hears(std::string_view property) const noexcept {
    return std::any_of(m_pages.begin(), m_pages.end(),
                       [=](const Page& page) { return page.wanted.holds(property); });
}

void DocumentMirror::Implementation::hear(const std::string& text) {
    std::optional<Request> request = parseRequest(text);
    if (!request) {
        return;
    }
    if (!std::exchange(m_isFollowing, true)) {
        LivingModels::observe([this](const Ref<Model>& model) { follow(model); });
    }
    pageOf(request->client).asked = std::move(request->wanted);
    flushLater();
}

// Until its answer comes, a new page is told what the others are.
Page& DocumentMirror::Implementation::pageOf(const std::string& client) {
    const auto known = std::find_if(m_pages.begin(), m_pages.end(),
                                    [&](const Page& page) { return page.client == client; });
    if (known != m_pages.end()) {
        return *known;
    }
    if (m_pages.size() == s_mostPages) {
        m_pages.erase(m_pages.begin());
    }
    DocumentFilter wanted = m_pages.empty() ? DocumentFilter() : m_pages.front().wanted;
    return m_pages.emplace_back(Page{client, std::move(wanted), {}});
}

void DocumentMirror::Implementation::forgetOthers(const std::string& client) {
    m_pages.erase(std::remove_if(m_pages.begin(), m_pages.end(),
                                 [&](const Page& page) { return page.client != client; }),
                  m_pages.end());
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
    sendPatches();
    sendSnapshots();
}

Pages DocumentMirror::Implementation::pages() const {
    Pages all;
    all.reserve(m_pages.size());
    for (const Page& page : m_pages) {
        all.push_back(&page);
    }
    return all;
}

// The version is one for all, so that pages which come to want the same can share a text: who is
// not concerned is told of no operations.
void DocumentMirror::Implementation::sendPatches() {
    const std::vector<Pages> groups = alike(pages());
    std::vector<std::string> patches;
    bool isChanged = false;
    for (const Pages& group : groups) {
        PatchText patch([this](const Uuid& uuid) { return find(uuid); }, group.front()->wanted);
        patch.write(m_changes);
        isChanged = isChanged || !patch.empty();
        patches.push_back(patch.take());
    }
    m_changes.clear();
    m_version += isChanged ? 1 : 0;
    for (std::size_t i = 0; isChanged && i < groups.size(); ++i) {
        JsonText message = begin(DocumentName::patch);
        message.raw(patches[i]);
        send(std::move(message), groups[i], groups.size() == 1);
    }
}

void DocumentMirror::Implementation::sendSnapshots() {
    Pages asking;
    for (Page& page : m_pages) {
        if (page.asked) {
            page.wanted = *std::exchange(page.asked, std::nullopt);
            asking.push_back(&page);
        }
    }
    const bool areAll = alike(pages()).size() == 1;
    for (const Pages& group : alike(asking)) {
        JsonText message = begin(DocumentName::snapshot);
        DocumentText::write(message, m_models, group.front()->wanted);
        send(std::move(message), group, areAll);
    }
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

// What all pages want is said once to all.
void DocumentMirror::Implementation::send(JsonText message, const Pages& pages, bool areAll) {
    message.raw('}');
    const std::string text = message.take();
    if (areAll) {
        m_messages.publish(tdom_channel, text);
        return;
    }
    for (const Page* page : pages) {
        m_messages.publish(std::string(tdom_channel) + "/" + page->client, text);
    }
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

void DocumentMirror::forgetOthers(const std::string& client) {
    m_implementation->forgetOthers(client);
}

}  // namespace tdom
