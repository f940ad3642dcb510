#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "WireRows.h"
#include "core/WebObject2.h"
#include "toolkit/DVObject2.h"

namespace DOVA::test {

/// The objects of a row, and the events that they emit.
///
/// Rows say what the library does, not what the embedded front classes do with it (an edit takes
/// its text over from the event). So each web object hangs on emitters of its own instead of its
/// front object's, and the front objects' own reactions reach nobody.
class Stage {
public:
    /// One emitted event: object, event, values.
    using Event = QJsonArray;
    using Reaction = std::function<void()>;

    ~Stage();

    /// Makes the object as `description` ({"name", "kind", "parent"}) says.
    void add(const QJsonObject& description);
    /// Notes the events of an object, and calls the reaction that `react` gave for it.
    void listen(const std::string& name);
    void react(const std::string& name, const std::string& event, Reaction reaction);
    /// The front object goes, and its web object with it.
    void destroy(const std::string& name);

    DVObject2* front(const std::string& name) const;
    /// Null once it is gone.
    WebObject2* web(const std::string& name) const;
    /// Works for destroyed objects too; an unknown name is a fault of the row.
    std::uint32_t identifier(const std::string& name) const;
    std::vector<std::string> names() const { return m_order; }

    QJsonArray takeEvents();

private:
    struct Actor {
        std::uint32_t identifier;
        std::unique_ptr<DVObject2> front;
        std::unique_ptr<DVObject2Emitters> emitters;
    };

    template <class Web, class Emitters, class Front>
    void make(const std::string& name);
    void place(const std::string& name, const std::string& parent);
    void note(const std::string& name, const std::string& event, const QJsonArray& values);

    std::map<std::string, Actor> m_actors;
    std::map<std::pair<std::string, std::string>, Reaction> m_reactions;
    std::vector<std::string> m_order;
    QJsonArray m_events;
};

}  // namespace DOVA::test
