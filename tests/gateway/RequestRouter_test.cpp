#include "RequestRouter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <unistd.h>

#include <array>
#include <boost/algorithm/string/replace.hpp>
#include <boost/property_tree/json_parser.hpp>
#include <string>

#include "support/TemporaryFolder.h"

namespace DOVA::gateway {
namespace {

namespace fs = std::filesystem;
namespace http = boost::beast::http;
using Row = boost::property_tree::ptree;
using testing::HasSubstr;

Row readRequests() {
    Row all;
    boost::property_tree::read_json(REQUESTS, all);
    return all;
}

Row children(const Row& row, const char* key) {
    return row.get_child(key, Row());
}

/// The files of a page and of an application, with traps in them, and the requests for them, all
/// as requests.json has them.
class RequestRouterTest : public testing::Test {
protected:
    RequestRouterTest() {
        for (const auto& [name, content] : children(m_requests, "files")) {
            m_folder.write(name, content.data());
        }
        for (const auto& [name, to] : children(m_requests, "links")) {
            fs::create_symlink(to.data(), m_folder / name);
        }
    }

    /// With the names for what a table cannot know in the place of these.
    std::string named(std::string text) const {
        std::array<char, 256> machine{};
        EXPECT_EQ(gethostname(machine.data(), machine.size()), 0);
        for (const auto& [name, value] : {std::pair{"${machine}", std::string(machine.data())},
                                          std::pair{"${root}", (m_folder / "icons").substr(1)},
                                          std::pair{"${key}", m_rules ? m_rules->iconKey() : ""}}) {
            boost::algorithm::replace_all(text, name, value);
        }
        return text;
    }

    RequestRouter::Request request(const Row& row, const std::string& known) const {
        RequestRouter::Request request(http::string_to_verb(row.get("method", "GET")),
                                       named(row.get<std::string>("target")), 11);
        request.set("Host", "localhost:8080");
        if (row.get("socket", false)) {
            for (const auto& [name, value] : children(m_requests, "socket")) {
                request.set(name, value.data());
            }
        }
        for (const auto& [name, value] : children(row, "headers")) {
            request.set(name, named(value.data()));
        }
        for (const auto& [name, value] : children(row, "more")) {
            request.insert(name, value.data());
        }
        request.set("If-None-Match", known);
        request.erase(row.get("without", "nothing"));
        return request;
    }

    /// `known`: what the browser says that it has.
    RequestRouter::Answer ask(const Row& row, const std::string& known = "\"old\"") {
        GatewayOptions options;
        options.pageFolder = m_folder / row.get("page", "page");
        options.theme = row.get("theme", "").empty() ? "" : m_folder / row.get("theme", "");
        options.applicationRoot = m_folder / "icons";
        options.limits.fileBytes = 7;
        options.extraHosts = {"pad.example:8443", "named.example"};
        options.extraOrigins = {"https://pad.example:8443"};
        options.publicUrl = row.get("public", "");
        options.bindAddress = row.get("bind", "127.0.0.1");
        m_rules.emplace(options, row.get<std::uint16_t>("port", 8080), "0123456789abcdef");
        const RequestRouter router(options, *m_rules);
        const auto asked = request(row, known);
        if (row.count("cookie") > 0) {
            EXPECT_EQ(router.iconCookie(asked), named(row.get<std::string>("cookie")));
        }
        return router.answer(asked);
    }

    void expectAnswer(const RequestRouter::Response& answer, const Row& row) {
        for (const auto& [name, value] : children(row, "answers")) {
            EXPECT_EQ(answer[name], value.data()) << name;
        }
        for (const auto& [name, value] : children(m_requests, "always")) {
            EXPECT_EQ(answer[name], value.data()) << name;
        }
        EXPECT_EQ(answer["Cache-Control"], row.get("cache", "no-cache"));
        const std::string policy(answer["Content-Security-Policy"]);
        EXPECT_THAT(policy, HasSubstr("default-src 'none'; script-src 'self';"));
        EXPECT_THAT(policy, testing::Not(HasSubstr("unsafe")));
        EXPECT_THAT(policy, HasSubstr("trusted-types lit-html"));
        if (answer.result_int() != 200) {
            EXPECT_GT(answer.body().size(), 5u) << "the reason";
            EXPECT_FALSE(answer.keep_alive());
            return;
        }
        const auto host = row.get("host", named(row.get("headers.Host", "localhost:8080")));
        EXPECT_THAT(policy,
                    HasSubstr("connect-src 'self' " + row.get("sockets", "ws://" + host) + ";"));
        EXPECT_EQ(answer.body(), row.get<std::string>("body"));
        EXPECT_EQ(answer["Content-Type"], row.get<std::string>("type"));
        EXPECT_EQ(answer["Content-Encoding"] == "gzip", answer.body() == "zipped");
        EXPECT_EQ(answer["Content-Encoding"] == "br", answer.body() == "brotli");
        expectUnchanged(answer, row);
    }

    void expectUnchanged(const RequestRouter::Response& answer, const Row& row) {
        const std::string tag(answer["ETag"]);
        for (const std::string& known : {tag, "\"old\", W/" + tag, std::string("*")}) {
            const auto again = std::get<RequestRouter::Response>(ask(row, known));
            EXPECT_EQ(again.result_int(), 304u) << known;
            EXPECT_EQ(again.body(), "");
            EXPECT_TRUE(again.keep_alive());
            for (const char* const name :
                 {"ETag", "Cache-Control", "Vary", "Content-Security-Policy"}) {
                EXPECT_EQ(again[name], answer[name]) << name;
            }
        }
    }

    const Row m_requests = readRequests();
    const test::TemporaryFolder m_folder;
    std::optional<AccessRules> m_rules;  // those that answered last
};

TEST_F(RequestRouterTest, answersEachRequestAsItsRowSays) {
    for (const auto& [unnamed, row] : m_requests.get_child("rows")) {
        SCOPED_TRACE(row.get<std::string>("name"));
        const RequestRouter::Answer answer = ask(row);
        const auto* const response = std::get_if<RequestRouter::Response>(&answer);
        ASSERT_EQ(response ? response->result_int() : 101u, row.get<unsigned>("status"));
        if (response) {
            expectAnswer(*response, row);
            continue;
        }
        const auto& admission = std::get<RequestRouter::Admission>(answer);
        EXPECT_EQ(admission.clientId, row.get<std::string>("client"));
        EXPECT_EQ(admission.received.value_or(0), row.get("received", 0u));
    }
}

/// Whoever has most of a secret has nothing of it.
TEST(AccessRulesTest, aSecretThatDiffersAnywhereIsNone) {
    const AccessRules rules({}, 8080, "0123456789abcdef");
    const AccessRules others({}, 8080, "0123456789abcdef");
    EXPECT_TRUE(rules.isToken("0123456789abcdef") && rules.isIconKey(rules.iconKey()));
    EXPECT_FALSE(others.isIconKey(rules.iconKey()) || rules.isToken(rules.iconKey()));
    for (int bit = 0; bit < 16 * 8; ++bit) {
        std::string token = "0123456789abcdef", key = rules.iconKey();
        for (std::string* const secret : {&token, &key}) {
            (*secret)[bit / 8] = static_cast<char>((*secret)[bit / 8] ^ (1 << bit % 8));
        }
        EXPECT_FALSE(rules.isToken(token) || rules.isIconKey(key)) << bit;
    }
}

/// What the user is told to open is on this machine, and let in.
TEST(AccessRulesTest, theShownAddressIsOneThatABrowserHereCanOpen) {
    for (const auto& [bound, shown] :
         {std::pair{"0.0.0.0", "127.0.0.1:8080"}, std::pair{"::", "[::1]:8080"},
          std::pair{"127.0.0.5", "127.0.0.5:8080"}, std::pair{"192.0.2.1", "192.0.2.1:8080"}}) {
        EXPECT_EQ(AccessRules::shownHost(bound, 8080), shown);
        GatewayOptions options;
        options.bindAddress = bound;
        EXPECT_TRUE(AccessRules(options, 8080, "").allowsHost(shown)) << shown;
    }
}

}  // namespace
}  // namespace DOVA::gateway
