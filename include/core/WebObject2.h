#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QString>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/ConnectionImplX.h"
#include "core/PayloadX.h"
#include "core/WebExport.h"
#include "model/Base.h"
#include "seam/Platform.h"
#include "toolkit/DVObject2.h"
#include "wiro/Listener.h"

namespace DOVA {

class PropertyState;
class ReceivedMessage;
class WebObjectService2;
class WireForm;

/// The base of every web object: the implementation behind one front object, with the widget's
/// state as named JSON properties. Made by WebFactory2; deleted by destroyObject, doDestory, with
/// its parent, with the front object, or with the module. Toolkit calls come on the main thread,
/// messages of the page on the message service's delivery thread, which the host makes the same.
///
/// Where this says that something is *sent*, it goes at once, as one message, on every window
/// channel that serves the object; without one nothing is even built. What is only *stored* travels
/// with the next description; but kinds with a model element describe that, and not what is stored.
class DOVA_WEB_EXPORT WebObject2 : public WIRO::Listener {
public:
    using Identifier = std::uint32_t;

    WebObject2(const WebObject2&) = delete;
    WebObject2& operator=(const WebObject2&) = delete;
    /// Destroys the children that are still registered, then leaves the service.
    virtual ~WebObject2();

    /// The front object. It may be gone: ask isDVObjectValid() first.
    virtual DVObject2* getHandle() const;

    /// Each of these stores `value` under `name` and, with `notify`, sends it. A value equal to the
    /// stored one is neither stored nor sent.
    virtual void setProperty(const std::u16string& name, bool value, bool notify);
    virtual void setProperty(const std::u16string& name, int value, bool notify);
    virtual void setProperty(const std::u16string& name, double value, bool notify);
    /// A null `value` counts as empty text.
    virtual void setProperty(const std::u16string& name, const char16_t* value, bool notify);
    virtual void setProperty(const std::u16string& name, const std::u16string& value, bool notify);
    /// Arrays are stored and never sent, whatever `notify` says: pages expect them in
    /// descriptions only. A null pointer or a negative count makes an empty array.
    virtual void setProperty(const std::u16string& name, int* values, int count, bool notify);
    virtual void setProperty(const std::u16string& name, std::vector<std::u16string> values,
                             bool notify);

    /// Edits a stored array of texts and sends nothing; a property that is absent or no array
    /// counts as empty. An index outside the array inserts at its end and removes nothing.
    virtual void insertToArrayProperty(const std::u16string& name, int index,
                                       const std::u16string& value, bool notify);
    virtual void addToArrayProperty(const std::u16string& name, const std::u16string& value,
                                    bool notify);
    virtual void removeFromArrayProperty(const std::u16string& name, int index, bool notify);

    /// The stored value; undefined if there is none.
    virtual QJsonValue getProperty(const std::u16string& name) const;
    /// The text at `index` of a stored array; empty if there is none.
    virtual std::u16string getFromArrayProperty(const std::u16string& name, int index) const;
    /// Puts one text attribute into a property that is an object (made if absent) and sends the
    /// property. `notify` is not consulted: attributes are always sent.
    virtual void addAttributeToProperty(const std::u16string& name, const std::u16string& attribute,
                                        const std::u16string& value, bool notify);
    virtual int getArrayPropertySize(const std::u16string& name) const;
    /// The first position of `value` in a stored array, as a number or as its decimal text; -1 if
    /// it is not there.
    virtual int getArrayPropertyIndex(const std::u16string& name, unsigned int value) const;

    /// Null takes the object out of the tree. A parent whose destructor has begun, or that is below
    /// this object, changes nothing.
    virtual void doSetParent(DVObject* parent);
    /// The front object of the parent, layouts passed over; null if there is none.
    virtual DVObject* doGetParent();
    /// The front objects of the children in order; with `recursive` each is followed by its own.
    virtual std::vector<DVObject*> doGetChildren(bool recursive);

    virtual bool isWindow() const;
    virtual bool isLayout() const;

    /// The object's own description, without its children.
    virtual QJsonObject getJSonObject() const;
    /// The user wants the object gone. Only windows act on it.
    virtual void onDestroyRequested();
    /// One message of the page for this object. Whatever does not fit is ignored. Its handlers
    /// may destroy anything, this object too.
    virtual void handleJSONMessage(const QJsonObject& message) = 0;
    /// The object's kind in messages: that of the model element, or the class name without one.
    virtual std::string getTypeName() const;

    /// What every scalar setProperty ends in; texts are stored and sent likewise, without a JSON
    /// value on the way.
    void setProperty(const std::u16string& name, const QJsonValue& value, bool notify);
    /// Sends a property without storing it.
    void updateProperty(const QString& name, const QJsonValue& value);

    /// The service this object is registered with; null once the service is gone, and for an object
    /// whose identifier was taken already.
    WebObjectService2* getService() const { return m_service; }
    Identifier identifier() const { return m_identifier; }
    /// True while the front object is alive.
    bool isDVObjectValid() const;
    /// Deletes this object.
    void doDestory();  // this spelling is what the toolkit's callers bind to

protected:
    /// A property that the page owns, and the kind of value that is taken from it.
    struct ClientOwned {
        enum class Kind { Bool, Text, NumbersObject };
        const std::u16string& name;
        Kind kind;
    };

    /// Registers the object under the front object's identifier, if that is free, and binds the
    /// requests of `emitters` that every object answers. Neither may be null.
    WebObject2(DVObject2* front, DVObject2Emitters* emitters);

    /// Binds one emitter to one operation of this object.
    template <class Self, class R, class... Args>
    void bind(WIRO::Emitter<R(Args...)>& emitter, R (Self::*operation)(Args...)) {
        WIRO::bind(emitter, static_cast<Self*>(this), operation);
    }
    template <class Self, class R, class... Args>
    void bind(WIRO::Emitter<R(Args...)>& emitter, R (Self::*operation)(Args...) const) {
        WIRO::bind(emitter, static_cast<Self*>(this), operation);
    }

    /// Binds emitters of the front object to operations of this object. A connection is made when
    /// its emitter is first used:
    ///
    ///     bind(emitters, {binding<&DVText2Emitters::setTextU, &WebText2::doSetTextU>, ...});
    void bind(DVObject2Emitters* emitters,
              std::initializer_list<const seam::LateBinding*> bindings) {
        seam::bind(*emitters, *this, bindings);
    }
    template <auto EmitterOfSet, auto Operation>
    static constexpr const seam::LateBinding* binding = &WIRO::lateBinding<EmitterOfSet, Operation>;

    /// Cuts every binding. The first thing in the destructor of a class that binds operations.
    void endBindings() { seam::disconnect(*this); }

    /// Stores and sends a property whose every write must reach the page, changed or not: it
    /// forgets the stored value first, so that setProperty sees a change.
    template <class Value>
    void sendProperty(const std::u16string& name, const Value& value) {
        forgetProperty(name);
        setProperty(name, value, true);
    }

    /// As updateProperty() for a text, without a JSON value in between.
    void updateText(const std::u16string& name, const std::u16string& text);

    /// Emits an event to the front object: under the toolkit's object lock, if the front object is
    /// alive and somebody listens. The event is made from the front object and `args`. Nothing of
    /// this object may be used afterwards, since a handler may have deleted it.
    template <class Event, class Front, class... Args>
    void emitToFront(WIRO::Emitter<void(const Event&)>& (Front::*emitter)(), seam::SendMode mode,
                     Args&&... args) {
        std::lock_guard guard(DVObject::m_lock);
        if (isDVObjectValid()) {
            // The constructor took a Front, and it is alive: no need to ask for its type.
            emitTo(static_cast<Front*>(getHandle()), emitter, mode, std::forward<Args>(args)...);
        }
    }
    /// The same without the lock and without asking whether the front object lives. A front object
    /// of another type receives nothing.
    template <class Event, class Front, class... Args>
    void emitUnlocked(WIRO::Emitter<void(const Event&)>& (Front::*emitter)(), seam::SendMode mode,
                      Args&&... args) {
        if (auto* front = dynamic_cast<Front*>(getHandle())) {
            emitTo(front, emitter, mode, std::forward<Args>(args)...);
        }
    }

    /// Names what `dispatch` may store from messages of the page; `table` must outlive the object.
    void declareClientOwned(const std::vector<ClientOwned>& table) { m_clientOwned = &table; }

    /// Names how objects of exactly this class are described; `form` must outlive the object.
    void declareForm(const WireForm& form) { m_form = &form; }

    /// The identifier as decimal text, as it stands in messages.
    QString identifierText() const { return m_identifierText; }
    const tdom::Base& element() const { return m_element; }
    /// Makes `element` the object's own, tagged with the identifier.
    void setElement(tdom::Base element);
    /// What is stored, until the next write.
    const QJsonObject& state() const;

private:
    friend class WebObjectService2;
    friend class WireForm;
    friend void destroyWebObjects() noexcept;

    template <class Event, class Front, class... Args>
    static void emitTo(Front* front, WIRO::Emitter<void(const Event&)>& (Front::*emitter)(),
                       seam::SendMode mode, Args&&... args) {
        WIRO::Emitter<void(const Event&)>& listeners = (front->*emitter)();
        if (static_cast<WIRO::EmitterBase&>(listeners).numberOfConnections() > 0) {
            WIRO::sendEvent<Event>(listeners, Event(front, std::forward<Args>(args)...), mode);
        }
    }

    void joinLiving();
    void leaveLiving();
    void joinService();
    void storeClientOwned(const QJsonObject& message);
    void forgetProperty(const std::u16string& name);
    PropertyState& stored() const;
    template <class Value>
    void sendMessage(std::u16string_view name, const Value& value);
    void destroyChildren();
    QJsonArray takeArray(const std::u16string& name);

    tdom::Base m_element;  // empty for kinds without one
    DVObject2* const m_front;
    const Identifier m_identifier;
    mutable std::unique_ptr<PropertyState> m_state;  // once there is more than the identifier
    WebObjectService2* m_service;
    const QString m_identifierText;
    const std::vector<ClientOwned>* m_clientOwned = nullptr;
    const WireForm* m_form = nullptr;
    WebObject2* m_next = nullptr;  // of all that live
    WebObject2* m_previous = nullptr;
};

}  // namespace DOVA
