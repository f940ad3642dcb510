#include "DeepDescription.h"

#include <QJsonDocument>
#include <vector>

#include "MessageService.h"
#include "PropertyNames.h"
#include "core/WebObject2.h"
#include "core/WebObjectService2.h"

namespace DOVA {

namespace {

using Identifier = WebObjectService2::Identifier;

std::string membersOf(const QJsonObject& object) {
    const std::string text = toWireText(QJsonDocument(object));
    return text.substr(1, text.size() - 2);
}

class Writer {
public:
    explicit Writer(const WebObjectService2& service) : m_service(service) {}

    std::string write(Identifier id, const QJsonObject& more) {
        begin(id, more);
        while (!m_open.empty()) {
            Open& parent = m_open.back();
            if (parent.next < parent.children.size()) {
                m_text += parent.next > 0 ? "," : "";
                begin(parent.children[parent.next++], {});
            } else {
                m_text += parent.end;
                m_open.pop_back();
            }
        }
        return std::move(m_text);
    }

private:
    /// An object whose children are being written.
    struct Open {
        std::vector<Identifier> children;
        std::size_t next;
        std::string end;
    };

    void begin(Identifier id, const QJsonObject& more) {
        // In the order of their keys, as Qt writes them.
        QJsonObject before;
        QJsonObject behind;
        const QJsonObject own = m_service.getObject(id)->getJSonObject();
        for (const QJsonObject& members : {own, more}) {
            for (auto member = members.begin(); member != members.end(); ++member) {
                (member.key() < keys::contents ? before : behind)
                    .insert(member.key(), member.value());
            }
        }
        std::vector<Identifier> children = registeredChildren(id);
        m_text += '{' + membersOf(before) + (before.isEmpty() ? "" : ",");
        if (children.empty()) {
            m_text += membersOf(behind) + '}';
            return;
        }
        behind.remove(keys::contents);
        m_text += '"' + keys::contents.toStdString() + "\":[";
        m_open.push_back(
            {std::move(children), 0, (behind.isEmpty() ? "]" : "],") + membersOf(behind) + '}'});
    }

    std::vector<Identifier> registeredChildren(Identifier id) const {
        std::vector<Identifier> children;
        for (const Identifier child : m_service.getChildIds(id)) {
            if (m_service.getObject(child)) {
                children.push_back(child);
            }
        }
        return children;
    }

    const WebObjectService2& m_service;
    std::string m_text;
    std::vector<Open> m_open;
};

}  // namespace

std::string deepDescription(const WebObjectService2& service, std::uint32_t id,
                            const QJsonObject& more) {
    return Writer(service).write(id, more);
}

}  // namespace DOVA
