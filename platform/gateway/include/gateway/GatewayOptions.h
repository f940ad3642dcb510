#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace DOVA::gateway {

/// Bounds of what pages may cost the program. A count or size of 0 is refused by Gateway::start().
struct GatewayLimits {
    /// Longest frame a page may send, in bytes; a longer one closes its connection with 1009.
    std::size_t upwardFrameBytes = 1024 * 1024;
    /// Texts a second that a page may send for long; beyond it the gateway reads more slowly. An
    /// array counts as its objects; each KiB, frame, piece of a frame and ping counts as a text.
    std::size_t upwardRecordsPerSecond = 2000;
    /// Texts that a page may send at once before that rate counts. A single one that counts for
    /// more closes its connection with 4003.
    std::size_t upwardBurstRecords = 4000;
    /// Bytes kept for one session until its page acknowledges them; more loses the session.
    std::size_t downwardBytes = 64 * 1024 * 1024;
    /// Texts kept for one session until its page acknowledges them; more loses the session.
    std::size_t downwardRecords = 200000;
    /// Waiting texts travel joined up to about this many bytes; a longer text travels alone.
    std::size_t joinedFrameBytes = 256 * 1024;
    /// Pages that are connected; further ones are refused with 503.
    std::size_t connections = 64;
    /// Connections that have shown no token, page loads among them; when another one comes, the
    /// oldest is cut. Each has `httpHeaderTime` for a request.
    std::size_t strangers = 32;
    /// Longest request line and header, in bytes; a longer one is refused with 431.
    std::uint32_t httpHeaderBytes = 16 * 1024;
    /// Largest page or icon file that is served; a larger one counts as absent.
    std::size_t fileBytes = 16 * 1024 * 1024;
    /// A request's header must be complete this long after the connection or the last answer.
    std::chrono::milliseconds httpHeaderTime{2000};
    /// Opening and closing handshakes of a WebSocket.
    std::chrono::milliseconds handshakeTime{10000};
    /// A WebSocket that is silent for half of this is pinged, for all of it cut.
    std::chrono::milliseconds idleTime{30000};
    /// A write that does not finish in this time (a quarter more at the most) cuts the connection.
    std::chrono::milliseconds writeTime{30000};
    /// Longest time a text of the page waits for its acknowledgement.
    std::chrono::milliseconds acknowledgeTime{200};
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
    /// Folder of the built page, served at "/"; must hold "index.html". A file "x.gz" beside "x"
    /// is sent in its place to browsers that accept it.
    std::filesystem::path pageFolder;
    /// A style sheet of the site: served as "/theme.css", and loaded by the page's document after
    /// its own, by a link before its first "</head>". Read anew for each request; "x.gz" as above.
    /// Browsers load nothing for it from elsewhere. Empty: none.
    std::filesystem::path theme;
    /// Folder whose image files are served below "/icon/" to bearers of the token. Empty: none. An
    /// image that is not there comes from "images" in the page folder.
    std::filesystem::path applicationRoot;
    /// What a page must know to come in: 16 to 256 of the characters A-Z a-z 0-9 - _ . ~
    /// Empty: a fresh random one of 160 bits.
    std::string token;
    /// Further names under which browsers reach the program, as a Host header has them:
    /// "pad.example:8443", or without a port for the port that is listened on and for those that
    /// browsers leave out. A page from there may be one of http or of https, so that an encrypting
    /// proxy that passes the name on needs no more. Allowed anyway: the listening address; for
    /// loopback and for every interface also "localhost", "127.0.0.1" and "[::1]"; beyond loopback
    /// the machine's own name, and for every interface any numeric address; each with the port.
    std::vector<std::string> extraHosts;
    /// Further values of the Origin header, such as "https://pad.example:8443", for a proxy that
    /// does not pass the name on. The http origin of the request's own Host is allowed anyway.
    std::vector<std::string> extraOrigins;
    /// How long a session whose connection broke waits for its page before it ends. 0 or more.
    std::chrono::milliseconds graceTime{300000};
    /// The same for a page that has gone away itself, with close code 1001 (RFC 6455 section
    /// 7.4.1): it was closed, or is being loaded again. 0 or more; never longer than graceTime.
    std::chrono::milliseconds reloadTime{15000};
    GatewayLimits limits;
};

}  // namespace DOVA::gateway
