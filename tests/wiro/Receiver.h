#pragma once

#include <functional>
#include <string>
#include <typeinfo>
#include <utility>

#include "wiro/Emitter.h"
#include "wiro/GlobalConnectionLock.h"
#include "wiro/Listener.h"
#include "wiro/Packet.h"
#include "wiro/Payload.h"

using Event = WIRO::Emitter<void(int)>;

/// A listener that runs a given function for everything it receives.
class Receiver : public WIRO::Listener {
public:
    using Handler = std::function<void(int)>;

    explicit Receiver(Handler handler) : m_handler(std::move(handler)) {}
    Receiver(Handler handler, Event& emitter) : m_handler(std::move(handler)) { listenTo(emitter); }
    ~Receiver() { disconnectAll(); }

    WIRO::Connection& listenTo(Event& emitter) {
        DOVA::ReadWriteLock::WriteGuard guard(WIRO::GetGlobalConnectionLock());
        return *new Link(*this, emitter);
    }

private:
    class Link : public WIRO::ConnectionX<void, int> {
    public:
        Link(Receiver& receiver, Event& emitter)
            : ConnectionX(&receiver, &emitter), m_receiver(receiver) {
            open();
        }
        const char* objectName() const override { return typeid(Receiver).name(); }
        std::string signature() const override { return typeid(void(int)).name(); }
        void send(int value) override {
            // A handler may destroy its receiver, and the function with it.
            const Handler handler = m_receiver.m_handler;
            handler(value);
        }

    private:
        Receiver& m_receiver;
    };

    Handler m_handler;
};

/// An int on its way through sendPacket.
class IntPayload : public WIRO::Payload {
public:
    explicit IntPayload(int value) : m_value(value) {}
    void performDeliver(WIRO::Connection* connection) override {
        static_cast<Event::ConnectionType*>(connection)->send(m_value);
    }

private:
    int m_value;
};

inline void sendPacket(Event& emitter, int value, bool firstOnly = false) {
    IntPayload payload(value);
    emitter.sendPacket(WIRO::Packet(payload), WIRO::SendMode::Ordinary, firstOnly);
}
