#include "Address.h"

#include <boost/asio/io_context.hpp>
#include <regex>
#include <stdexcept>

#include "ProtocolNames.h"

namespace DOVA::load {

namespace {

using boost::asio::ip::tcp;

tcp::endpoint lookUp(const std::string& host, const std::string& port) {
    boost::asio::io_context context;
    boost::system::error_code error;
    const auto found = tcp::resolver(context).resolve(host, port, error);
    if (error || std::stoul(port) > 65535) {
        throw std::invalid_argument("cannot find " + host + ":" + port);
    }
    return found.begin()->endpoint();
}

}  // namespace

Address Address::parse(std::string_view text) {
    static const std::regex s_form(
        R"(http://(\[[0-9A-Fa-f:.]+\]|[^/:#?\[\]]+)(?::([0-9]{1,5}))?(/[^#?]*)?#([A-Za-z0-9_.~-]+))");
    if (text.substr(0, 6) == "https:") {
        throw std::invalid_argument("nothing here speaks TLS: name the http address behind it");
    }
    std::match_results<std::string_view::const_iterator> parts;
    if (!std::regex_match(text.begin(), text.end(), parts, s_form)) {
        throw std::invalid_argument("\"" + std::string(text.substr(0, text.find('#'))) +
                                    "\" is not what a program prints, http://HOST:PORT/#TOKEN");
    }
    const std::string name = parts[1];
    const std::string port = parts[2].matched ? parts[2].str() : "80";
    const bool isNumeric6 = name.front() == '[';
    Address address;
    address.host = port == "80" ? name : name + ":" + port;
    address.endpoint = lookUp(isNumeric6 ? name.substr(1, name.size() - 2) : name, port);
    address.base = parts[3];
    address.base.erase(address.base.find_last_not_of('/') + 1);
    address.token = parts[4];
    return address;
}

SocketRequest socketRequest(const Address& address, const Attempt& attempt) {
    const auto parameter = [](const char* name, const std::string& value) {
        return std::string(name) + "=" + value;
    };
    std::string target = address.base + names::socketPath + "?";
    target += parameter(query::client, attempt.client);
    target += "&" + (attempt.isResume ? parameter(query::received, std::to_string(attempt.received))
                                      : parameter(query::ready, "1"));
    target += "&" + parameter(query::attempt, std::to_string(attempt.number));
    return {target, std::string(names::subProtocol) + ", " + names::tokenProtocol + address.token};
}

}  // namespace DOVA::load
