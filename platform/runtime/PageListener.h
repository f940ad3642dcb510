#pragma once

#include <QString>
#include <cstdint>
#include <functional>
#include <string>

#include "messaging/ConnectorMessageService.h"

namespace DOVA::runtime {

/// Hears which page the program has, as the library hears it: a page that announces itself again is
/// the same page, another identifier is a new one. And when something is said about the windows
/// that it shows.
class PageListener {
public:
    /// Both are called while a message is being delivered, so perhaps before the library has seen
    /// it. `onPage` is called for every announcement and told whether the page is new;
    /// `onWindowMessage` for each text on the page's channel: close requests, which only the
    /// library reads, and the library's own descriptions, which may be large.
    PageListener(std::function<void(bool isNew)> onPage, std::function<void()> onWindowMessage);

    /// The present page's identifier, empty without one.
    const std::string& page() const { return m_page; }

private:
    void hear(const std::string& text);
    void listenTo(const QString& page);

    std::function<void(bool)> m_onPage;
    std::function<void()> m_onWindowMessage;
    std::string m_page;
    std::uint32_t m_pageChannel = 0;  ///< the subscription of its channel, 0 without one
    tdom::messaging::ConnectorMessageService m_messages;
};

}  // namespace DOVA::runtime
