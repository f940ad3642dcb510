#include "RequestRouter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "TemporaryFolder.h"

namespace DOVA::gateway {
namespace {

namespace http = boost::beast::http;
using testing::HasSubstr;

constexpr const char* kToken = "0123456789abcdef";
constexpr const char* kGoodSocket = "/socket?token=0123456789abcdef&client=me";

class RequestRouterTest : public testing::Test {
protected:
    RequestRouterTest() {
        std::filesystem::create_symlink(m_outside.path(), m_page.path() / "linked");
        std::filesystem::create_symlink(m_outside.path() / "secret.txt",
                                        m_page.path() / "secret.txt");
        std::filesystem::create_symlink("app.js", m_page.path() / "alias.js");
        std::filesystem::create_symlink(m_outside.path() / "evil.js.gz",
                                        m_page.path() / "trap.js.gz");
        m_options.pageFolder = m_page.path();
        m_options.applicationRoot = m_root.path();
    }

    static RequestRouter::Request request(const std::string& target,
                                          http::verb method = http::verb::get) {
        RequestRouter::Request request(method, target, 11);
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
                                  {"only.css.gz", "zipped"},
                                  {"program.exe", "binary"},
                                  {"noextension", "?"},
                                  {"with space.txt", "space"}}};
    const TemporaryFolder m_root{{{"save.png", "image"},
                                  {"sub/a.svg", "<svg/>"},
                                  {"notes.txt", "text"},
                                  {"app.js", "script"}}};
    GatewayOptions m_options;
};

struct FileRow {
    const char* name;
    const char* target;
    unsigned status;
    const char* body;
    const char* type;
};

class RequestRouterFileTest : public RequestRouterTest,
                              public testing::WithParamInterface<FileRow> {};

TEST_P(RequestRouterFileTest, isServedOrRefused) {
    const FileRow& row = GetParam();
    const auto answer = response(request(row.target));
    EXPECT_EQ(answer.result_int(), row.status);
    if (row.status == 200) {
        EXPECT_EQ(answer.body(), row.body);
        EXPECT_EQ(answer[http::field::content_type], row.type);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Pages, RequestRouterFileTest,
    testing::Values(
        FileRow{"root", "/", 200, "<page>", "text/html; charset=utf-8"},
        FileRow{"index", "/index.html", 200, "<page>", "text/html; charset=utf-8"},
        FileRow{"script", "/app.js", 200, "script", "text/javascript; charset=utf-8"},
        FileRow{"query", "/app.js?v=1", 200, "script", "text/javascript; charset=utf-8"},
        FileRow{"subfolder", "/sub/app.css", 200, "style", "text/css; charset=utf-8"},
        FileRow{"percentCode", "/%61pp.js", 200, "script", "text/javascript; charset=utf-8"},
        FileRow{"space", "/with%20space.txt", 200, "space", "text/plain; charset=utf-8"},
        FileRow{"linkInside", "/alias.js", 200, "script", "text/javascript; charset=utf-8"},
        FileRow{"missing", "/missing.js", 404, "", ""}, FileRow{"folder", "/sub", 404, "", ""},
        FileRow{"folderWithSlash", "/sub/", 404, "", ""},
        FileRow{"unknownKind", "/program.exe", 404, "", ""},
        FileRow{"noExtension", "/noextension", 404, "", ""},
        FileRow{"onlyZipped", "/only.css", 404, "", ""},
        FileRow{"zipItself", "/app.js.gz", 404, "", ""}),
    [](const auto& row) { return row.param.name; });

INSTANTIATE_TEST_SUITE_P(
    WaysOut, RequestRouterFileTest,
    testing::Values(FileRow{"dotDot", "/../secret.txt", 404, "", ""},
                    FileRow{"dotDotInside", "/sub/../app.js", 404, "", ""},
                    FileRow{"codedDots", "/%2e%2e/secret.txt", 404, "", ""},
                    FileRow{"codedSlash", "/..%2fsecret.txt", 404, "", ""},
                    FileRow{"codedTwice", "/%252e%252e/secret.txt", 404, "", ""},
                    FileRow{"doubleSlash", "//etc/hosts.txt", 404, "", ""},
                    FileRow{"absolute", "/%2fetc/passwd.txt", 404, "", ""},
                    FileRow{"backslash", "/..%5csecret.txt", 400, "", ""},
                    FileRow{"nul", "/app.js%00.txt", 400, "", ""},
                    FileRow{"lineBreak", "/app.js%0d%0aX: y.txt", 400, "", ""},
                    FileRow{"brokenCode", "/%zz.js", 400, "", ""},
                    FileRow{"cutCode", "/app.js%4", 400, "", ""},
                    FileRow{"noSlash", "app.js", 400, "", ""}, FileRow{"star", "*", 400, "", ""},
                    FileRow{"whole", "http://localhost:8080/app.js", 400, "", ""},
                    FileRow{"hidden", "/.hidden.js", 404, "", ""},
                    FileRow{"hiddenFolder", "/sub/.git/x.txt", 404, "", ""},
                    FileRow{"linkedFolder", "/linked/secret.txt", 404, "", ""},
                    FileRow{"linkedFile", "/secret.txt", 404, "", ""}),
    [](const auto& row) { return row.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Icons, RequestRouterFileTest,
    testing::Values(
        FileRow{"png", "/icon/save.png?token=0123456789abcdef", 200, "image", "image/png"},
        FileRow{"svg", "/icon/sub/a.svg?token=0123456789abcdef", 200, "<svg/>", "image/svg+xml"},
        FileRow{"noImage", "/icon/notes.txt?token=0123456789abcdef", 404, "", ""},
        FileRow{"script", "/icon/app.js?token=0123456789abcdef", 404, "", ""},
        FileRow{"wayOut", "/icon/../save.png?token=0123456789abcdef", 404, "", ""},
        FileRow{"noToken", "/icon/save.png", 401, "", ""},
        FileRow{"wrongToken", "/icon/save.png?token=0123456789abcdeF", 401, "", ""},
        FileRow{"noTokenForMissing", "/icon/missing.png", 401, "", ""},
        FileRow{"iconsAreNoPage", "/save.png", 404, "", ""}),
    [](const auto& row) { return row.param.name; });

// Windows name their icons by the root and the path below it, with as many slashes as came about.
TEST_F(RequestRouterTest, anIconIsFoundByItsAbsolutePathBelowTheRoot) {
    const std::string root = m_root.path().generic_string();
    const std::string token = std::string("?token=") + kToken;
    for (const char* const way : {"/", "//"}) {
        EXPECT_EQ(response(request("/icon/" + root.substr(1) + way + "save.png" + token)).body(),
                  "image");
    }
    EXPECT_EQ(response(request("/icon/" + root.substr(1) + "x/save.png" + token)).result_int(), 404u);
    EXPECT_EQ(response(request("/icon/" + root.substr(1) + token)).result_int(), 404u);
    EXPECT_EQ(response(request("/icon/" + root.substr(1) + "/" + token)).result_int(), 404u);
}

struct EncodingRow {
    const char* name;
    const char* target;
    const char* accepts;
    const char* body;
};

class RequestRouterEncodingTest : public RequestRouterTest,
                                  public testing::WithParamInterface<EncodingRow> {};

TEST_P(RequestRouterEncodingTest, isZippedWhereAccepted) {
    auto asked = request(GetParam().target);
    asked.set(http::field::accept_encoding, GetParam().accepts);
    const auto answer = response(asked);
    EXPECT_EQ(answer.body(), GetParam().body);
    EXPECT_EQ(answer[http::field::content_encoding] == "gzip", answer.body() == "zipped");
    EXPECT_EQ(answer[http::field::content_type].ends_with("charset=utf-8"), true);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, RequestRouterEncodingTest,
    testing::Values(EncodingRow{"browser", "/app.js", "gzip, deflate, br, zstd", "zipped"},
                    EncodingRow{"weighted", "/app.js", "br;q=1.0, gzip;q=0.8", "zipped"},
                    EncodingRow{"refused", "/app.js", "gzip;q=0, br", "script"},
                    EncodingRow{"refusedInFull", "/app.js", "gzip;q=0.000", "script"},
                    EncodingRow{"other", "/app.js", "br", "script"},
                    EncodingRow{"none", "/app.js", "", "script"},
                    EncodingRow{"notZipped", "/index.html", "gzip", "<page>"},
                    EncodingRow{"linkToOutside", "/trap.js", "gzip", "plain"}),
    [](const auto& row) { return row.param.name; });

TEST_F(RequestRouterTest, headIsGetWithoutABody) {
    const auto get = response(request("/app.js"));
    const auto head = response(request("/app.js", http::verb::head));
    EXPECT_EQ(head.body(), "");
    EXPECT_EQ(head[http::field::content_length], "6");
    for (const auto& field : get)
        EXPECT_EQ(head[field.name_string()], field.value());
}

TEST_F(RequestRouterTest, everyAnswerCarriesTheSecurityHeaders) {
    for (const char* const target : {"/", "/missing", "/%zz", "/icon/x.png"}) {
        const auto answer = response(request(target));
        EXPECT_THAT(
            std::string(answer["Content-Security-Policy"]),
            testing::AllOf(HasSubstr("default-src 'none'; script-src 'self';"),
                           HasSubstr("trusted-types lit-html"), testing::Not(HasSubstr("unsafe"))));
        EXPECT_EQ(answer["X-Content-Type-Options"], "nosniff");
        EXPECT_EQ(answer["Referrer-Policy"], "no-referrer");
        EXPECT_EQ(answer["Cross-Origin-Opener-Policy"], "same-origin");
        EXPECT_EQ(answer["Cross-Origin-Resource-Policy"], "same-origin");
        EXPECT_EQ(answer["Cross-Origin-Embedder-Policy"], "require-corp");
        EXPECT_EQ(answer[http::field::cache_control], "no-cache");
    }
    EXPECT_THAT(std::string(response(request("/"))["Content-Security-Policy"]),
                HasSubstr("connect-src 'self' ws://localhost:8080;"));
}

TEST_F(RequestRouterTest, aPageComesIn) {
    const auto fresh = std::get<RequestRouter::Admission>(ask(socketRequest()));
    EXPECT_EQ(fresh.clientId, "me");
    EXPECT_EQ(fresh.received, std::nullopt);
    const auto back = std::get<RequestRouter::Admission>(
        ask(socketRequest(std::string(kGoodSocket) + "&received=17")));
    EXPECT_EQ(back.received, 17u);
}

struct RefusalRow {
    const char* name;
    unsigned status;
    std::function<void(RequestRouter::Request&)> change;
};

class RequestRouterRefusalTest : public RequestRouterTest,
                                 public testing::WithParamInterface<RefusalRow> {};

TEST_P(RequestRouterRefusalTest, hasItsStatusAndAReason) {
    auto asked = socketRequest();
    GetParam().change(asked);
    const auto answer = response(asked);
    EXPECT_EQ(answer.result_int(), GetParam().status);
    EXPECT_GT(answer.body().size(), 5u);
    EXPECT_EQ(answer[http::field::content_type], "text/plain; charset=utf-8");
    EXPECT_FALSE(answer.keep_alive());
}

void setTarget(RequestRouter::Request& request, const char* target) {
    request.target(target);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, RequestRouterRefusalTest,
    testing::Values(
        RefusalRow{"wrongHost", 403, [](auto& r) { r.set(http::field::host, "evil.example"); }},
        RefusalRow{"noHost", 403, [](auto& r) { r.erase(http::field::host); }},
        RefusalRow{"twoHosts", 403, [](auto& r) { r.insert(http::field::host, "localhost:8080"); }},
        RefusalRow{"post", 405, [](auto& r) { r.method(http::verb::post); }},
        RefusalRow{"unknownMethod", 405, [](auto& r) { r.method_string("FROB"); }},
        RefusalRow{"wrongOrigin", 403,
                   [](auto& r) { r.set(http::field::origin, "http://evil.example"); }},
        RefusalRow{"noOrigin", 403, [](auto& r) { r.erase(http::field::origin); }},
        RefusalRow{"noToken", 401, [](auto& r) { setTarget(r, "/socket?client=me"); }},
        RefusalRow{"wrongToken", 401,
                   [](auto& r) { setTarget(r, "/socket?token=0123456789abcdeX&client=me"); }},
        RefusalRow{"emptyToken", 401, [](auto& r) { setTarget(r, "/socket?token=&client=me"); }},
        RefusalRow{"noClient", 400,
                   [](auto& r) { setTarget(r, "/socket?token=0123456789abcdef"); }},
        RefusalRow{"badClient", 400,
                   [](auto& r) { setTarget(r, "/socket?token=0123456789abcdef&client=a%2fb"); }},
        RefusalRow{
            "badNumber", 400,
            [](auto& r) { setTarget(r, "/socket?token=0123456789abcdef&client=me&received=-1"); }},
        RefusalRow{
            "emptyNumber", 400,
            [](auto& r) { setTarget(r, "/socket?token=0123456789abcdef&client=me&received="); }},
        RefusalRow{"noUpgrade", 426, [](auto& r) { r.erase(http::field::upgrade); }},
        RefusalRow{"noSubProtocol", 400,
                   [](auto& r) { r.erase(http::field::sec_websocket_protocol); }},
        RefusalRow{"otherSubProtocol", 400,
                   [](auto& r) { r.set(http::field::sec_websocket_protocol, "dova.gateway.2"); }}),
    [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace DOVA::gateway
