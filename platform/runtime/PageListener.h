#pragma once

#include <functional>
#include <string>

#include "messaging/ConnectorMessageService.h"

namespace DOVA::runtime {

/// Hears on the root channel which page the program has, as the library hears it: a page that
/// announces itself again is the same page, another identifier is a new one.
class PageListener {
public:
    /// `onNewPage` is called while the announcement is being delivered, so perhaps before the
    /// library has seen it.
    explicit PageListener(std::function<void()> onNewPage);

private:
    void hear(const std::string& text);

    std::function<void()> m_onNewPage;
    std::string m_page;  ///< the present page's identifier, empty without one
    tdom::messaging::ConnectorMessageService m_messages;
};

}  // namespace DOVA::runtime
