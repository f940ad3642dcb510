#include "Connection.h"

#include <utility>

#include "GatewayCore.h"

namespace DOVA::gateway {

Connection::Connection(std::shared_ptr<GatewayCore> core) : m_core(std::move(core)) {
    m_core->connectionBegins(*this);
}

Connection::~Connection() {
    m_core->connectionEnds(*this);
}

}  // namespace DOVA::gateway
