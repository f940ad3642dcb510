#include "DescriptionText.h"

#include <QJsonDocument>
#include <vector>

#include "JsonText.h"
#include "MessageService.h"
#include "PropertyNames.h"
#include "PropertyState.h"
#include "TextConversions.h"
#include "WireForm.h"
#include "core/WebObject2.h"
#include "core/WebObjectService2.h"

namespace DOVA {

namespace {

using Identifier = WebObjectService2::Identifier;

/// The members, with a comma behind the last.
std::string membersOf(const QJsonObject& object) {
    std::string text = toWireText(QJsonDocument(object));
    text.erase(0, 1);
    text.back() = ',';
    return object.isEmpty() ? std::string() : text;
}

/// Every member and every object has a comma behind it, whose place the closing bracket takes.
class Writer {
public:
    explicit Writer(const WebObjectService2& service) : m_service(service), m_text(0) {}

    std::string write(Identifier id, const QJsonObject& more) {
        begin(id, more);
        while (!m_open.empty()) {
            Open& parent = m_open.back();
            if (parent.next < parent.children.size()) {
                begin(parent.children[parent.next++], {});
            } else {
                end(parent);
                m_open.pop_back();
            }
        }
        if (m_text.size() == 0) {
            return "{}";
        }
        m_text.cut(m_text.size() - 1);
        return m_text.take();
    }

private:
    /// An object whose children are being written.
    struct Open {
        std::vector<Identifier> children;
        std::size_t next = 0;
        std::size_t begin = 0;
        std::size_t contents = 0;    // where their member begins
        std::size_t firstChild = 0;  // and where they do
        const WebObject2* object = nullptr;
        const WireForm* form = nullptr;
        const PropertyState* state = nullptr;
        // With neither of the two, what was made already.
        std::string own;  // the property "contents", in the place of no children
        std::string behind;
    };

    void begin(Identifier id, const QJsonObject& more) {
        const WebObject2* object = m_service.getObject(id);
        if (!object) {
            return;
        }
        Open open;
        open.children = m_service.getChildIds(id);
        open.begin = m_text.size();
        open.object = object;
        if (more.isEmpty()) {
            open.form = WireForm::of(*object);
            open.state = open.form ? nullptr : WireForm::stateOf(*object);
        }
        m_text.raw('{');
        if (open.form) {
            open.form->writeBefore(*object, m_text);
        } else if (open.state) {
            open.state->writeBefore(m_text);
        } else {
            writeBefore(open, more);
        }
        if (open.children.empty()) {
            m_text.raw(open.own);
            endMembers(open);
        } else {
            open.contents = m_text.size();
            m_text.string(toU16View(keys::contents));
            m_text.raw(":[");
            open.firstChild = m_text.size();
            m_open.push_back(std::move(open));
        }
    }

    /// What only getJSonObject() tells.
    void writeBefore(Open& open, const QJsonObject& more) {
        QJsonObject members = open.object->getJSonObject();
        for (auto member = more.begin(); member != more.end(); ++member) {
            members.insert(member.key(), member.value());
        }
        QJsonObject before;
        while (!members.isEmpty() && members.begin().key() < keys::contents) {
            before.insert(members.begin().key(), members.begin().value());
            members.erase(members.begin());
        }
        m_text.raw(membersOf(before));
        if (members.contains(keys::contents)) {
            open.own = membersOf({{keys::contents, members.take(keys::contents)}});
        }
        open.behind = membersOf(members);
    }

    void end(const Open& open) {
        if (m_text.size() == open.firstChild) {
            m_text.cut(open.contents);
            m_text.raw(open.own);
        } else {
            m_text.close(']');
            m_text.raw(',');
        }
        endMembers(open);
    }

    void endMembers(const Open& open) {
        if (open.form) {
            open.form->writeBehind(*open.object, m_text);
        } else if (open.state) {
            open.state->writeBehind(m_text);
        } else {
            m_text.raw(open.behind);
        }
        if (m_text.size() == open.begin + 1) {
            m_text.cut(open.begin);  // an empty one is left out
        } else {
            m_text.close('}');
            m_text.raw(',');
        }
    }

    const WebObjectService2& m_service;
    JsonText m_text;
    std::vector<Open> m_open;
};

}  // namespace

std::string descriptionText(const WebObjectService2& service, std::uint32_t id,
                            const QJsonObject& more) {
    return Writer(service).write(id, more);
}

}  // namespace DOVA
