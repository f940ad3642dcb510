#include "OptionRules.h"

#include <algorithm>
#include <boost/asio/ip/address.hpp>
#include <fstream>
#include <string>
#include <system_error>

#include "AccessRules.h"
#include "gateway/PublicUrl.h"

namespace DOVA::gateway {

namespace {

[[noreturn]] void refuse(std::errc code, const std::string& text) {
    throw std::system_error(std::make_error_code(code), text);
}

void checkAddress(const GatewayOptions& options) {
    boost::system::error_code error;
    const auto address = boost::asio::ip::make_address(options.bindAddress, error);
    if (error) {
        refuse(std::errc::invalid_argument,
               "\"" + options.bindAddress + "\" is not a numeric IP address");
    }
    if (!address.is_loopback() && !options.allowNonLoopback) {
        refuse(std::errc::permission_denied,
               "listening on " + options.bindAddress +
                   " opens the program to other machines and must be allowed explicitly");
    }
}

void checkNames(const GatewayOptions& options) {
    for (const std::string& host : options.extraHosts) {
        if (!AccessRules::isUsableHost(host)) {
            refuse(std::errc::invalid_argument,
                   "\"" + host + "\" is no host name; give a name, with :PORT where it has one");
        }
    }
    for (const std::string& origin : options.extraOrigins) {
        if (!AccessRules::isUsableOrigin(origin)) {
            refuse(std::errc::invalid_argument,
                   "\"" + origin + "\" is no origin; give one like https://pad.example:8443");
        }
    }
}

void checkPublicUrl(const std::string& url) {
    if (!url.empty() && !PublicUrl::parse(url)) {
        refuse(std::errc::invalid_argument, PublicUrl::complaint(url));
    }
}

void checkFolders(const GatewayOptions& options) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(options.pageFolder / "index.html", error)) {
        refuse(std::errc::no_such_file_or_directory,
               "the page folder \"" + options.pageFolder.string() + "\" holds no index.html");
    }
    if (!options.applicationRoot.empty() &&
        !std::filesystem::is_directory(options.applicationRoot, error)) {
        refuse(std::errc::not_a_directory,
               "the application root \"" + options.applicationRoot.string() + "\" is no folder");
    }
}

void checkTheme(const GatewayOptions& options) {
    if (options.theme.empty()) {
        return;
    }
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(options.theme, error);
    if (!error && size > options.limits.fileBytes) {
        error = std::make_error_code(std::errc::file_too_large);
    } else if (!error && !std::ifstream(options.theme)) {
        error = std::make_error_code(std::errc::permission_denied);
    }
    if (error) {
        throw std::system_error(error, "cannot serve the theme \"" + options.theme.string() + "\"");
    }
}

void checkLimits(const GatewayOptions& options) {
    const GatewayLimits& limits = options.limits;
    const session::SessionLimits& sessions = options.sessions.limits;
    const std::size_t counts[] = {
        limits.upwardFrameBytes,     limits.connections,     limits.strangers,
        limits.httpHeaderBytes,      limits.fileBytes,       sessions.upwardRecordsPerSecond,
        sessions.upwardBurstRecords, sessions.downwardBytes, sessions.downwardRecords,
        sessions.joinedFrameBytes,   sessions.sessions};
    const std::chrono::milliseconds times[] = {limits.httpHeaderTime,    limits.handshakeTime,
                                               limits.idleTime,          limits.writeTime,
                                               sessions.acknowledgeTime, limits.stopTime};
    if (std::count(std::begin(counts), std::end(counts), 0u) > 0 ||
        std::any_of(std::begin(times), std::end(times),
                    [](auto time) { return time.count() <= 0; })) {
        refuse(std::errc::invalid_argument, "a limit of the gateway is zero");
    }
    if (options.sessions.graceTime.count() < 0 || options.sessions.reloadTime.count() < 0) {
        refuse(std::errc::invalid_argument, "a grace time of the gateway is negative");
    }
}

}  // namespace

void checkOptions(const GatewayOptions& options) {
    checkAddress(options);
    checkNames(options);
    checkPublicUrl(options.publicUrl);
    checkFolders(options);
    checkTheme(options);
    checkLimits(options);
    if (!options.token.empty() && !AccessRules::isUsableToken(options.token)) {
        refuse(std::errc::invalid_argument,
               "a token must be 16 to 256 of the characters A-Z a-z 0-9 - _ . ~");
    }
}

}  // namespace DOVA::gateway
