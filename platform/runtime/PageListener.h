#pragma once

#include <QString>
#include <cstdint>
#include <functional>
#include <string>

#include "messaging/ConnectorMessageService.h"

namespace DOVA::runtime {

/// Hears which page the program has, as the library hears it: a page that announces itself again is
/// the same page, another identifier is a new one. And when that page asks to close a window.
class PageListener {
public:
    /// Both are called while the page's message is being delivered, so perhaps before the library
    /// has seen it. `onPage` is called for every announcement and told whether the page is new.
    PageListener(std::function<void(bool isNew)> onPage, std::function<void()> onCloseRequest);

private:
    void hear(const std::string& text);
    void listenTo(const QString& page);

    std::function<void(bool)> m_onPage;
    std::function<void()> m_onCloseRequest;
    std::string m_page;               ///< the present page's identifier, empty without one
    std::uint32_t m_pageChannel = 0;  ///< the subscription of its channel, 0 without one
    tdom::messaging::ConnectorMessageService m_messages;
};

}  // namespace DOVA::runtime
