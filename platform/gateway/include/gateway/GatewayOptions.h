#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "session/SessionOptions.h"

namespace DOVA::gateway {

/// What connections may cost. Gateway::start() refuses a count, size or time of 0, here and in the
/// limits of sessions.
struct GatewayLimits {
    /// Longest frame a page may send, in bytes; a longer one closes its connection with 1009.
    std::size_t upwardFrameBytes = 1024 * 1024;
    /// Pages connected at a time; another one is refused with 503.
    std::size_t connections = 64;
    /// Connections that have shown no token, page loads among them; when one more comes, the oldest
    /// is cut.
    std::size_t strangers = 32;
    /// Longest request line and header, in bytes; a longer one is refused with 431.
    std::uint32_t httpHeaderBytes = 16 * 1024;
    /// Largest page or icon file that is served; a larger one counts as absent.
    std::size_t fileBytes = 16 * 1024 * 1024;
    /// A request's header must be complete this long after the connection or the last answer; else
    /// the connection is cut.
    std::chrono::milliseconds httpHeaderTime{2000};
    /// Longest time of the opening, and of the closing handshake of a WebSocket.
    std::chrono::milliseconds handshakeTime{10000};
    /// A WebSocket that is silent for half of this is pinged; for all of it, cut.
    std::chrono::milliseconds idleTime{30000};
    /// A write that does not end in this time cuts the connection. This and idleTime are looked at
    /// every quarter of the shorter one, so each may act that much later.
    std::chrono::milliseconds writeTime{30000};
    /// Longest time Gateway::stop() takes.
    std::chrono::milliseconds stopTime{2000};
};

/// Where a Gateway listens, what it serves and whom it lets in. Checked by Gateway::start().
struct GatewayOptions {
    /// Numeric IPv4 or IPv6 address to listen on.
    std::string bindAddress = "127.0.0.1";
    /// Must be set when bindAddress is not a loopback address: the program is then reachable from
    /// other machines, and everything travels unencrypted.
    bool allowNonLoopback = false;
    /// TCP port; 0 takes any free one (see Gateway::port()).
    std::uint16_t port = 0;
    /// Folder of the built page, served at "/"; must hold "index.html". Empty: installedPage(). A
    /// file "x.br" (Brotli) or "x.gz" (gzip) beside "x" is sent in its place to browsers that
    /// accept it. Browsers ask each time whether a file has changed, but keep what is below
    /// "immutable/" for a year: there another content needs another name.
    std::filesystem::path pageFolder;
    /// A style sheet of the site, served as "/theme.css" and read for each request; "x.br" and
    /// "x.gz" as above. The page's document loads it after its own, by a link before its first
    /// "</head>". The page's content-security policy lets it load nothing from elsewhere. Empty:
    /// none.
    std::filesystem::path theme;
    /// Folder whose image files are served below "/icon/" to pages that have shown the token. An
    /// image that is not there comes from "images" in the page folder. Empty: only those.
    std::filesystem::path applicationRoot;
    /// What a page must know to come in: 16 to 256 of the characters A-Z a-z 0-9 - _ . ~
    /// Empty: a fresh random one of 160 bits.
    std::string token;
    /// Further names under which browsers reach the program, as in a Host header:
    /// "pad.example:8443". A name without a port stands for the port that is listened on, and for
    /// no port. The page may come from there by http or https, so a proxy that encrypts and passes
    /// the name on needs no more.
    ///
    /// Allowed anyway, with the port: the listening address and, when it is not loopback, the
    /// machine's own name. With any port, since a port may be forwarded: the name of publicUrl;
    /// when the listening address is loopback or every interface, "localhost", "127.0.0.1" and
    /// "[::1]"; when it is every interface, any numeric address.
    std::vector<std::string> extraHosts;
    /// Further values of the Origin header, such as "https://pad.example:8443", for a proxy that
    /// does not pass the name on. The http origin of the request's own Host is allowed anyway.
    std::vector<std::string> extraOrigins;
    /// Where browsers find the program when it stands behind a proxy: "https://pad.example/pad/",
    /// see PublicUrl. Its name is allowed as Host and its origin as Origin, so that a proxy may
    /// pass the name on or not; requests are taken with its path before them and without, so that a
    /// proxy may pass the path on or not. Headers of proxies, such as X-Forwarded-Host, are not
    /// looked at. Empty: browsers reach the port itself.
    std::string publicUrl;
    GatewayLimits limits;
    session::SessionOptions sessions;
};

}  // namespace DOVA::gateway
