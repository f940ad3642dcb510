#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "log/Log.h"

namespace DOVA::runtime {

/// How a program is served. The defaults suit a program on the user's own machine. Checked by the
/// constructor of Host.
struct HostOptions {
    /// Numeric IPv4 or IPv6 address to listen on.
    std::string bindAddress = "127.0.0.1";
    /// Must be set when bindAddress is not a loopback address: the program can then be driven from
    /// other machines by whoever has its address, and everything travels unencrypted.
    bool allowRemote = false;
    /// Further names under which browsers reach the program, such as "pad.example" or
    /// "pad.example:8443": those of a proxy, or of this machine in its network. The machine's own
    /// name and addresses are known without. A browser that asks under another name is refused.
    std::vector<std::string> hosts;
    /// What a proxy in front is to browsers, such as "https://pad.example:8443", where it does not
    /// pass on the name that it was asked under.
    std::vector<std::string> origins;
    /// TCP port; 0 takes any free one.
    std::uint16_t port = 0;
    /// A file with the token that a page must bring, so that the address stays the same from start
    /// to start. A missing or empty file gets a fresh token, readable by its owner only; one that
    /// others can read, or that belongs to another user, is refused. Empty: a fresh token for each
    /// start that is written nowhere.
    std::filesystem::path tokenFile;
    /// The browser's side as built, a folder with "index.html". Empty: the one installed with this
    /// library, else the one of the source tree that this library was built from.
    std::filesystem::path pageFolder;
    /// A style sheet that the page loads after its own: the looks of a site. Read whenever a page
    /// is opened, so that a change needs no new start. Empty: none.
    std::filesystem::path theme;
    /// The least grave level that the log writes to standard error, for the whole process. No line
    /// of any level holds the token.
    log::Level logLevel = log::Level::Warning;
    /// False: the program loads the module by itself (see Module.h), after it has made the host.
    bool loadModule = true;
    /// The module that serves the toolkit's front classes. Empty: the value of the environment
    /// variable DOVA_WEB_MODULE, else "libdova2_web.so" beside this library.
    std::filesystem::path module;
    /// The folder of the application's own images; icon paths are relative to it. Empty: none.
    std::filesystem::path applicationRoot;
    /// How long a page whose connection broke may come back as if nothing had happened. One that
    /// was closed is gone sooner, after the time that a reload may take.
    std::chrono::milliseconds graceTime{300000};
};

}  // namespace DOVA::runtime
