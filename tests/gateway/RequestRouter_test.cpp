#include "RequestRouter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "TemporaryFolder.h"

namespace DOVA::gateway {
namespace {

namespace http = boost::beast::http;
using testing::HasSubstr;
using testing::Not;

constexpr const char* kToken = "0123456789abcdef";
constexpr const char* kGoodSocket = "/socket?token=0123456789abcdef&client=me";

class RequestRouterTest : public testing::Test {
protected:
    RequestRouterTest() {
        namespace fs = std::filesystem;
        fs::create_symlink(m_outside.path(), m_page.path() / "linked");
        fs::create_symlink(m_outside.path() / "secret.txt", m_page.path() / "secret.txt");
        fs::create_symlink("app.js", m_page.path() / "alias.js");
        fs::create_symlink(m_outside.path() / "evil.js.gz", m_page.path() / "trap.js.gz");
        m_options.pageFolder = m_page.path();
        m_options.applicationRoot = m_root.path();
    }

    static RequestRouter::Request request(const std::string& target) {
        RequestRouter::Request request(http::verb::get, target, 11);
        request.set(http::field::host, "localhost:8080");
        return request;
    }

    static RequestRouter::Request socketRequest(const std::string& target = kGoodSocket) {
        RequestRouter::Request request = RequestRouterTest::request(target);
        request.set(http::field::origin, "http://localhost:8080");
        request.set(http::field::connection, "Upgrade");
        request.set(http::field::upgrade, "websocket");
        request.set(http::field::sec_websocket_version, "13");
        request.set(http::field::sec_websocket_key, "dGhlIHNhbXBsZSBub25jZQ==");
        request.set(http::field::sec_websocket_protocol, "something.else, dova.gateway.1");
        return request;
    }

    RequestRouter::Answer ask(const RequestRouter::Request& asked) const {
        return RequestRouter(m_options, AccessRules(m_options, 8080, kToken)).answer(asked);
    }

    RequestRouter::Response response(const RequestRouter::Request& asked) const {
        return std::get<RequestRouter::Response>(ask(asked));
    }

    const TemporaryFolder m_outside{{{"secret.txt", "secret"}, {"evil.js.gz", "evil"}}};
    const TemporaryFolder m_page{{{"index.html", "<page>"},
                                  {"app.js", "script"},
                                  {"app.js.gz", "zipped"},
                                  {"trap.js", "plain"},
                                  {"sub/app.css", "style"},
                                  {".hidden.js", "hidden"},
                                  {"sub/.git/x.txt", "hidden"},
                                  {"program.exe", "binary"},
                                  {"with space.txt", "space"}}};
    const TemporaryFolder m_root{{{"save.png", "image"}, {"app.js", "script"}}};
    GatewayOptions m_options;
};

struct FileRow {
    const char* name;
    const char* target;
    unsigned status;
    const char* body = "";
    const char* type = "";
    const char* accepts = "";
};

constexpr const char* kScript = "text/javascript; charset=utf-8";

const FileRow kFiles[] = {
    {"root", "/", 200, "<page>", "text/html; charset=utf-8"},
    {"query", "/app.js?v=1", 200, "script", kScript},
    {"subfolder", "/sub/app.css", 200, "style", "text/css; charset=utf-8"},
    {"percentCode", "/with%20space.txt", 200, "space", "text/plain; charset=utf-8"},
    {"linkInside", "/alias.js", 200, "script", kScript},
    {"icon", "/icon/save.png?token=0123456789abcdef", 200, "image", "image/png"},
    {"zipped", "/app.js", 200, "zipped", kScript, "br;q=1.0, gzip;q=0.8"},
    {"zipNotWanted", "/app.js", 200, "script", kScript, "gzip;q=0.000"},
    {"otherCoding", "/app.js", 200, "script", kScript, "br"},
    {"notZipped", "/index.html", 200, "<page>", "text/html; charset=utf-8", "gzip"},
    {"zipIsLinkToOutside", "/trap.js", 200, "plain", kScript, "gzip"},
    {"missing", "/missing.js", 404},
    {"unknownKind", "/program.exe", 404},
    {"dotDot", "/../secret.txt", 404},
    {"codedDots", "/%2e%2e/secret.txt", 404},
    {"codedSlash", "/..%2fsecret.txt", 404},
    {"absolute", "/%2fetc/passwd.txt", 404},
    {"backslash", "/..%5csecret.txt", 400},
    {"nul", "/app.js%00.txt", 400},
    {"lineBreak", "/app.js%0d%0aX: y.txt", 400},
    {"brokenCode", "/%zz.js", 400},
    {"noSlash", "app.js", 400},
    {"hidden", "/.hidden.js", 404},
    {"hiddenFolder", "/sub/.git/x.txt", 404},
    {"linkedFolder", "/linked/secret.txt", 404},
    {"iconThatIsNoImage", "/icon/app.js?token=0123456789abcdef", 404},
    {"iconWithoutToken", "/icon/save.png", 401},
    {"iconWithWrongToken", "/icon/missing.png?token=0123456789abcdeF", 401},
    {"iconsAreNoPage", "/save.png", 404}};

TEST_F(RequestRouterTest, filesAreServedOrRefusedAlwaysWithTheSecurityHeaders) {
    for (const FileRow& row : kFiles) {
        SCOPED_TRACE(row.name);
        auto asked = request(row.target);
        asked.set(http::field::accept_encoding, row.accepts);
        const auto answer = response(asked);
        EXPECT_EQ(answer.result_int(), row.status);
        const std::string policy(answer["Content-Security-Policy"]);
        EXPECT_THAT(policy, HasSubstr("default-src 'none'; script-src 'self';"));
        EXPECT_THAT(policy, Not(HasSubstr("unsafe")));
        EXPECT_THAT(policy, HasSubstr("trusted-types lit-html"));
        EXPECT_EQ(answer["X-Content-Type-Options"], "nosniff");
        EXPECT_EQ(answer["Referrer-Policy"], "no-referrer");
        EXPECT_EQ(answer["Cross-Origin-Opener-Policy"], "same-origin");
        EXPECT_EQ(answer["Cross-Origin-Embedder-Policy"], "require-corp");
        EXPECT_EQ(answer["Cross-Origin-Resource-Policy"], "same-origin");
        EXPECT_EQ(answer[http::field::cache_control], "no-cache");
        if (row.status != 200)
            continue;
        EXPECT_THAT(policy, HasSubstr("connect-src 'self' ws://localhost:8080;"));
        EXPECT_EQ(answer.body(), row.body);
        EXPECT_EQ(answer[http::field::content_type], row.type);
        EXPECT_EQ(answer[http::field::content_encoding] == "gzip", answer.body() == "zipped");
    }
}

// Windows name their icons by the root and the path below it, with as many slashes as came about.
TEST_F(RequestRouterTest, anIconIsFoundByItsAbsolutePathBelowTheRoot) {
    const std::string root = "/icon/" + m_root.path().generic_string().substr(1);
    for (const auto& [path, status] : {std::pair{"/save.png", 200u}, std::pair{"//save.png", 200u},
                                       std::pair{"x/save.png", 404u}, std::pair{"/", 404u}})
        EXPECT_EQ(response(request(root + path + "?token=" + kToken)).result_int(), status) << path;
}

TEST_F(RequestRouterTest, aPageComesIn) {
    const auto fresh = std::get<RequestRouter::Admission>(ask(socketRequest()));
    EXPECT_EQ(fresh.clientId, "me");
    EXPECT_EQ(fresh.received, std::nullopt);
    const auto back = ask(socketRequest(std::string(kGoodSocket) + "&received=17"));
    EXPECT_EQ(std::get<RequestRouter::Admission>(back).received, 17u);
}

struct RefusalRow {
    const char* name;
    unsigned status;
    void (*change)(RequestRouter::Request&);
};

const RefusalRow kRefusals[] = {
    {"wrongHost", 403, [](auto& r) { r.set(http::field::host, "evil.example"); }},
    {"noHost", 403, [](auto& r) { r.erase(http::field::host); }},
    {"twoHosts", 403, [](auto& r) { r.insert(http::field::host, "localhost:8080"); }},
    {"post", 405, [](auto& r) { r.method(http::verb::post); }},
    {"wrongOrigin", 403, [](auto& r) { r.set(http::field::origin, "http://evil.example"); }},
    {"noOrigin", 403, [](auto& r) { r.erase(http::field::origin); }},
    {"noToken", 401, [](auto& r) { r.target("/socket?client=me"); }},
    {"wrongToken", 401, [](auto& r) { r.target("/socket?token=0123456789abcdeX&client=me"); }},
    {"badClient", 400, [](auto& r) { r.target("/socket?token=0123456789abcdef&client=a%2fb"); }},
    {"badNumber", 400, [](auto& r) { r.target(std::string(kGoodSocket) + "&received=-1"); }},
    {"emptyNumber", 400, [](auto& r) { r.target(std::string(kGoodSocket) + "&received="); }},
    {"noUpgrade", 426, [](auto& r) { r.erase(http::field::upgrade); }},
    {"noSubProtocol", 400, [](auto& r) { r.erase(http::field::sec_websocket_protocol); }},
    {"otherSubProtocol", 400,
     [](auto& r) { r.set(http::field::sec_websocket_protocol, "dova.gateway.2"); }}};

TEST_F(RequestRouterTest, aRefusalHasItsStatusAndAReason) {
    for (const RefusalRow& row : kRefusals) {
        SCOPED_TRACE(row.name);
        auto asked = socketRequest();
        row.change(asked);
        const auto answer = response(asked);
        EXPECT_EQ(answer.result_int(), row.status);
        EXPECT_GT(answer.body().size(), 5u);
        EXPECT_FALSE(answer.keep_alive());
    }
}

}  // namespace
}  // namespace DOVA::gateway
