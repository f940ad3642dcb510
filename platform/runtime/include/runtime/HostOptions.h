#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "log/Log.h"

namespace DOVA::runtime {

/// How a program is served. The defaults suit a program on the user's own machine. The constructor
/// of Host checks them.
struct HostOptions {
    /// Numeric IPv4 or IPv6 address to listen on.
    std::string bindAddress = "127.0.0.1";
    /// Must be set when bindAddress is not a loopback address: other machines can then drive the
    /// program with its address, and everything travels unencrypted.
    bool allowRemote = false;
    /// Further names under which browsers reach the program, such as "pad.example" or
    /// "pad.example:8443": those of a proxy, or of this machine in its network. bindAddress is
    /// known anyway; when it is not loopback, so is the machine's own name; for "0.0.0.0" and "::",
    /// so are its addresses. A browser that uses another name is refused.
    std::vector<std::string> hosts;
    /// The addresses of proxies that do not pass on the name that browsers use, such as
    /// "https://pad.example:8443".
    std::vector<std::string> origins;
    /// The address under which browsers reach the program behind a proxy, with a slash at its end:
    /// "https://pad.example/pad/". Then neither hosts nor origins are needed, whether the proxy
    /// passes name and path on or not, and Host::address() begins with it. Empty: none.
    std::string publicUrl;
    /// TCP port; 0 takes any free one.
    std::uint16_t port = 0;
    /// A file with the token of the address, so that the address stays the same from start to
    /// start. A missing or empty file gets a fresh token, and only its owner can read it. A file
    /// that others can read or change, or that belongs to another user, is refused. Empty: a fresh
    /// token for each start, written nowhere.
    std::filesystem::path tokenFile;
    /// The built page, a folder with "index.html". Empty: the one installed with this library, else
    /// the one of the source tree from which this library was built.
    std::filesystem::path pageFolder;
    /// A style sheet of the site, which the page loads after its own. Read whenever a page is
    /// opened, so a change needs no new start. Empty: none.
    std::filesystem::path theme;
    /// The least grave level that the log writes to standard error, in the whole process. No line
    /// holds the token.
    log::Level logLevel = log::Level::Warning;
    /// False: the program loads the module itself (see Module.h), after it has made the host.
    bool loadModule = true;
    /// The module that serves the toolkit's front classes. Empty: the value of the environment
    /// variable DOVA_WEB_MODULE, else "libdova2_web.so" beside this library.
    std::filesystem::path module;
    /// The folder of the application's own images; icon paths are relative to it. Empty: none.
    std::filesystem::path applicationRoot;
    /// How long a page whose connection broke may come back to what it showed. A page that was
    /// closed is gone after 15 seconds, the time for a reload, when this is longer.
    std::chrono::milliseconds graceTime{300000};
};

}  // namespace DOVA::runtime
