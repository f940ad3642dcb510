#pragma once

#include <QJsonDocument>
#include <QJsonObject>
#include <boost/container/flat_set.hpp>
#include <boost/container/small_vector.hpp>
#include <boost/multi_index/hashed_index.hpp>
#include <boost/multi_index/member.hpp>
#include <boost/multi_index/ordered_index.hpp>
#include <boost/multi_index_container.hpp>
#include <boost/unordered_map.hpp>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "core/WebExport.h"

namespace DOVA {

class ObjectConnection;
class ReceivedMessage;
class WebObject2;
class WindowConnection;

/// The one registry and router of the process: finds web objects by identifier, keeps the tree of
/// identifiers, owns the connections of shown windows, and routes messages both ways. Created and
/// destroyed by the module's entry points. Has no lock: used on the thread that drives the toolkit.
class DOVA_WEB_EXPORT WebObjectService2 {
public:
    using Identifier = std::uint32_t;
    using ConnectionNumber = std::uint64_t;
    /// A sorted set; an object is rarely served by more than one connection.
    using ConnectionNumbers =
        boost::container::flat_set<ConnectionNumber, std::less<ConnectionNumber>,
                                   boost::container::small_vector<ConnectionNumber, 4>>;

    WebObjectService2();
    WebObjectService2(const WebObjectService2&) = delete;
    WebObjectService2& operator=(const WebObjectService2&) = delete;
    /// Ends every connection. Registered objects forget the service and live on.
    ~WebObjectService2() noexcept;

    /// The service of the process, null before start-up and after shut-down.
    static WebObjectService2* instance();
    /// Makes `service` that of the process and destroys the previous one; null for none.
    static void install(std::unique_ptr<WebObjectService2> service) noexcept;

    /// Registers an object, not owned. An identifier that is taken keeps its first object.
    void addObject(WebObject2* object);
    /// The object with this identifier, or null.
    WebObject2* getObject(Identifier id) const;
    /// Takes the object, its parent link and its connection entries out. An object that is not the
    /// one registered under its identifier changes nothing.
    void removeObject(WebObject2* object);

    /// Makes `child` the last child of `parent`; 0 takes it out of the tree. The parent it already
    /// has keeps its place. A parent below the child changes nothing: the relation stays a tree.
    void setParent(Identifier child, Identifier parent);
    /// The parent, 0 when there is none.
    Identifier getParentId(Identifier id) const;
    /// The children in the order in which they were attached.
    std::vector<Identifier> getChildIds(Identifier id) const;

    /// Takes over the connection of a window; returns its number.
    ConnectionNumber addConnection(Identifier window, std::unique_ptr<ObjectConnection> connection);
    /// The number of the window's connection on this channel, 0 if it has none there. Forgets which
    /// objects the connection serves and that the page shows them, for a new description.
    ConnectionNumber renewConnection(Identifier window, const std::string& channel);
    /// Whether the window has a connection on this channel.
    bool isConnected(Identifier window, const std::string& channel) const;
    /// Records that the connection serves the object and everything below it; an object that is not
    /// registered changes nothing. The records stay when an object is moved: until its window is
    /// refreshed, the page shows it where it was. They go with the object, with the connection,
    /// and when the window is described again.
    void serveSubtree(Identifier id, ConnectionNumber connection);
    /// Drops the records of the object and of everything below it, other windows left out.
    void dropServedSubtree(Identifier id);
    /// Ends the connections that were added for this window.
    void removeConnections(Identifier window);
    /// True if the connection was recorded as serving the object itself.
    bool serves(ConnectionNumber connection, Identifier id) const;
    /// True once the page has said that it shows the window which the object is in.
    bool isReady(Identifier id) const;
    /// The connections that serve the object or anything above it; empty for an object that is not
    /// registered. An object that was moved from one shown window to another is served by both.
    ConnectionNumbers getConnectionNumbers(Identifier id) const;

    /// Publishes the document on every channel that serves the object.
    void send(Identifier id, const QJsonDocument& document);
    /// Publishes a text on the channels of these connections; ends that are gone are skipped.
    void sendText(const ConnectionNumbers& numbers, const std::string& text);
    void sendText(const ConnectionNumbers& numbers, std::string&& text);
    /// Hands a page's message, an object or an array of them, to the objects it names, if the
    /// receiving connection serves them. In an array an element without a usable "id" ends the
    /// processing. Handlers may destroy anything, this service too; one that throws is reported on
    /// the host's console, and the next element is handled.
    void dispatch(ConnectionNumber connection, const QJsonDocument& document);

    /// The object's description with its children's under "contents", recursively; empty for an
    /// object that is not registered. Takes time in proportion to the objects described. Leaves out
    /// what is more than 4,000 levels down, since Qt writes and destroys JSON objects recursively;
    /// `isCut` becomes true then. (A window is sent whole all the same.)
    QJsonObject describe(Identifier id) const;
    QJsonObject describe(Identifier id, bool& isCut) const;

private:
    friend class WindowConnection;

    struct ParentLink {
        Identifier child;
        Identifier parent;
    };
    struct ServedBy {
        Identifier id;
        ConnectionNumber connection;
    };
    struct OwnedConnection {
        Identifier window;
        std::unique_ptr<ObjectConnection> connection;
    };
    template <class... Indices>
    using IndexedBy = boost::multi_index::indexed_by<Indices...>;
    struct ByChild;
    struct ByParent;
    struct ByObject;
    struct ByConnection;
    // Equal parents keep the order of insertion, which is the children's order.
    using ParentTable = boost::multi_index_container<
        ParentLink,
        IndexedBy<boost::multi_index::hashed_unique<
                      boost::multi_index::tag<ByChild>,
                      boost::multi_index::member<ParentLink, Identifier, &ParentLink::child>>,
                  boost::multi_index::ordered_non_unique<
                      boost::multi_index::tag<ByParent>,
                      boost::multi_index::member<ParentLink, Identifier, &ParentLink::parent>>>>;
    using ConnectionTable = boost::multi_index_container<
        ServedBy,
        IndexedBy<
            boost::multi_index::hashed_non_unique<
                boost::multi_index::tag<ByObject>,
                boost::multi_index::member<ServedBy, Identifier, &ServedBy::id>>,
            boost::multi_index::hashed_non_unique<
                boost::multi_index::tag<ByConnection>,
                boost::multi_index::member<ServedBy, ConnectionNumber, &ServedBy::connection>>>>;

    QJsonObject describe(Identifier id, int levels, bool& isCut) const;
    bool isBelow(Identifier id, Identifier ancestor) const;
    bool servesTree(ConnectionNumber connection, Identifier id) const;
    bool dispatch(ConnectionNumber connection, const ReceivedMessage& message);
    bool handleElement(ConnectionNumber connection, const QJsonObject& element);
    template <class Visit>
    void visitSubtree(Identifier id, Visit visit) const;

    boost::unordered_map<Identifier, WebObject2*> m_objects;
    ParentTable m_parents;
    ConnectionTable m_served;
    boost::unordered_map<ConnectionNumber, OwnedConnection> m_connections;
    std::shared_ptr<const bool> m_alive = std::make_shared<const bool>(true);
};

}  // namespace DOVA
