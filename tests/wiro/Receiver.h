#pragma once

#include <functional>
#include <string>
#include <typeinfo>
#include <utility>

#include "wiro/Emitter.h"
#include "wiro/GlobalConnectionLock.h"
#include "wiro/Listener.h"

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
