#pragma once

#include <string>
#include <string_view>

namespace DOVA::session {

/// The channels of the bus as one page may see them: the root channel, its own channel and those
/// below it, and the channel of the model document. On the wire its own channel is written "." and
/// one below it "./rest"; every other channel stands in full.
class PageChannels {
public:
    /// What a text from a page is.
    enum class Kind { Refused, Own, ClientReady, ClientDestroyed, Snapshot };

    /// The page's own channel.
    static std::string own(const std::string& clientId);

    /// How a channel of the bus is written to the page whose own channel is `own`.
    static std::string shorten(std::string_view own, std::string_view channel);

    /// The channel of the bus that a page means; only for texts of Kind::Own.
    static std::string expand(std::string_view own, std::string_view channel);

    /// What the page `clientId` may do with this text on this channel.
    static Kind classify(std::string_view clientId, std::string_view channel,
                         std::string_view text);

    /// The life-cycle messages as they go on the root channel.
    static std::string clientReady(std::string_view clientId);
    static std::string clientDestroyed(std::string_view clientId);

    /// Whether a text of the root channel asks pages to announce themselves.
    static bool isPing(std::string_view text);
};

}  // namespace DOVA::session
