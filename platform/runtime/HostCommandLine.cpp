#include "runtime/HostCommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <boost/asio/ip/address.hpp>
#include <iostream>
#include <string>

#include "gateway/PublicUrl.h"

namespace DOVA::runtime {

namespace {

constexpr int s_badCommandLine = 2;

const std::vector<std::string> s_levelNames(std::begin(log::levelNames), std::end(log::levelNames));

}  // namespace

HostCommandLine::HostCommandLine(CLI::App& app) : m_app(app) {
    app.add_option("--port", m_options.port, "TCP port to serve on; 0 takes any free one")
        ->check(CLI::Range(0, 65535))
        ->capture_default_str();
    app.add_option("--bind", m_options.bindAddress, "Numeric IP address to serve on")
        ->capture_default_str();
    app.add_flag("--allow-remote", m_options.allowRemote,
                 "Allow an address that other machines can reach (nothing is encrypted)");
    app.add_option("--public-url", m_options.publicUrl,
                   "The address of the program at a proxy, such as https://pad.example/pad/")
        ->type_name("URL")
        ->check([](const std::string& url) {
            return gateway::PublicUrl::parse(url) ? "" : gateway::PublicUrl::complaint(url);
        });
    app.add_option("--host", m_options.hosts,
                   "A name under which browsers reach the program, as of a proxy; may be repeated")
        ->type_name("NAME[:PORT]")
        ->allow_extra_args(false);
    app.add_option("--origin", m_options.origins,
                   "The address of a proxy that does not pass its name on; may be repeated")
        ->type_name("URL")
        ->allow_extra_args(false);
    app.add_option("--token-file", m_options.tokenFile,
                   "Keep the secret part of the address in this file, for the next start")
        ->type_name("FILE");
    app.add_option("--theme", m_options.theme, "A style sheet that the page loads after its own")
        ->type_name("FILE")
        ->check(CLI::ExistingFile);
    app.add_option_function<std::string>(
           "--log-level",
           [this](const std::string& name) {
               const auto found = std::find(s_levelNames.begin(), s_levelNames.end(), name);
               m_options.logLevel = static_cast<log::Level>(found - s_levelNames.begin());
           },
           "The least grave lines to write to standard error: error, warning, info or debug")
        ->type_name("LEVEL")
        ->check(CLI::IsMember(s_levelNames))
        ->default_str("warning");
    if (app.get_version_ptr() == nullptr) {
        app.set_version_flag("--version", app.get_name() + " (dova2_web) " DOVA_VERSION,
                             "Print the version and exit");
    }
}

std::optional<int> HostCommandLine::parse(int argc, const char* const* argv) {
    try {
        m_app.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        std::cout << m_app.help();
        return 0;
    } catch (const CLI::CallForVersion& version) {
        std::cout << version.what() << std::endl;
        return 0;
    } catch (const CLI::ParseError& error) {
        return refuse(error.what());
    }
    boost::system::error_code error;
    const auto address = boost::asio::ip::make_address(m_options.bindAddress, error);
    if (error) {
        return refuse("--bind: \"" + m_options.bindAddress + "\" is not a numeric IP address");
    }
    if (!address.is_loopback() && !m_options.allowRemote) {
        return refuse(
            "--bind " + m_options.bindAddress +
            " opens the program to other machines; --allow-remote says that this is meant");
    }
    return std::nullopt;
}

std::optional<int> HostCommandLine::refuse(const std::string& sentence) const {
    std::string line = m_app.get_name() + ": " + sentence;
    std::replace(line.begin(), line.end(), '\n', ' ');
    std::cerr << line + "\n";
    return s_badCommandLine;
}

}  // namespace DOVA::runtime
