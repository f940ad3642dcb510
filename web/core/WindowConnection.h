#pragma once

#include "ObjectConnection.h"

namespace DOVA {

/// The connection of a window or dialog; its client says on it when the window is on the screen.
class WindowConnection : public ObjectConnection {
public:
    /// The client's channel, then "/", then the window's identifier in decimal.
    static std::string channelOf(std::uint32_t window, const std::string& clientChannel);

    WindowConnection(std::uint32_t window, const std::string& clientChannel);

    void onMessage(const std::string& text) override;
};

}  // namespace DOVA
