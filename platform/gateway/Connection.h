#pragma once

#include <memory>

namespace DOVA::gateway {

class GatewayCore;

/// One accepted TCP connection, kept alive by its own pending operations and counted by the core
/// for as long as it lives.
class Connection {
public:
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    virtual ~Connection();

    /// The program ends: send what must be sent, then close.
    virtual void finish() = 0;

    /// Close now, without a farewell.
    virtual void cut() = 0;

protected:
    explicit Connection(std::shared_ptr<GatewayCore> core);

    GatewayCore& core() const { return *m_core; }
    const std::shared_ptr<GatewayCore>& sharedCore() const { return m_core; }

private:
    const std::shared_ptr<GatewayCore> m_core;
};

}  // namespace DOVA::gateway
