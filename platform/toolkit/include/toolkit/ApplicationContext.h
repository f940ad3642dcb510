#pragma once

#include <memory>
#include <optional>
#include <string>

#include "toolkit/Export.h"

namespace DVServices {

/// What the application tells the toolkit of itself.
class DOVA_TOOLKIT_EXPORT ApplicationContext {
public:
    virtual ~ApplicationContext();
    /// The folder below which the application's resources are, UTF-8; nothing if it has none.
    virtual std::optional<std::string> getRoot() const = 0;
};

/// An application context with a fixed root folder.
class DOVA_TOOLKIT_EXPORT RootedApplicationContext : public ApplicationContext {
public:
    explicit RootedApplicationContext(std::string root);
    std::optional<std::string> getRoot() const override;

private:
    std::string m_root;
};

/// Where the process keeps its services. Main thread.
class DOVA_TOOLKIT_EXPORT ServiceHolder {
public:
    static ServiceHolder& instance();

    /// The application's context, null before one is set.
    std::shared_ptr<ApplicationContext> applicationContext() const { return m_context; }
    void setApplicationContext(std::shared_ptr<ApplicationContext> context);

private:
    std::shared_ptr<ApplicationContext> m_context;
};

}  // namespace DVServices
