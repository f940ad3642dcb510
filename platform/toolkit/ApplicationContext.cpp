#include "toolkit/ApplicationContext.h"

#include <utility>

namespace DVServices {

ApplicationContext::~ApplicationContext() = default;

RootedApplicationContext::RootedApplicationContext(std::string root) : m_root(std::move(root)) {}

std::optional<std::string> RootedApplicationContext::getRoot() const {
    return m_root;
}

ServiceHolder& ServiceHolder::instance() {
    // Never destroyed: implementations ask for services while the process ends.
    static auto* holder = new ServiceHolder;
    return *holder;
}

void ServiceHolder::setApplicationContext(std::shared_ptr<ApplicationContext> context) {
    m_context = std::move(context);
}

}  // namespace DVServices
