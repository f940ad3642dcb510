#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <cstdlib>
#include <functional>

#include "HostFixture.h"
#include "support/RowNames.h"

namespace DOVA::runtime {

using test::TemporaryFolder;
using testing::HasSubstr;
using testing::Not;

using DOVA::test::operator<<;

struct BadStart {
    const char* name;
    std::function<void(HostOptions&, const TemporaryFolder&)> spoil;
    const char* sentence;
};

class BadStartTest : public HostFixture, public testing::WithParamInterface<BadStart> {};

TEST_P(BadStartTest, SaysWhyInOneSentenceAndStartsNothing) {
    GetParam().spoil(options, folder);
    const std::string why = refusal();
    EXPECT_THAT(why, HasSubstr(GetParam().sentence));
    EXPECT_THAT(why, Not(HasSubstr("\n")));
    EXPECT_THAT(events(), testing::IsEmpty());
}

const BadStart badStarts[] = {
    {"NoModule", [](auto& options, auto& folder) { options.module = folder / "none.so"; },
     "cannot load the module: "},
    {"ModuleWithoutEntryPoints", [](auto& options, auto&) { options.module = OTHER_LIBRARY; },
     "has no entry point KVInitialize_dova2_web"},
    {"ModuleWithoutFlag", [](auto& options, auto&) { options.module = DEAF_MODULE; },
     "has no entry point _ZN4DOVA3web16KorvidOnlineFlag3getEv"},
    {"NoPageFolder", [](auto& options, auto& folder) { options.pageFolder = folder / "none"; },
     "the page folder "},
    {"RemoteWithoutConsent", [](auto& options, auto&) { options.bindAddress = "0.0.0.0"; },
     "must be allowed explicitly"},
    {"TokenFileInNoFolder",
     [](auto& options, auto& folder) { options.tokenFile = folder / "none/token"; },
     "cannot write the token file "},
    {"TokenTooLong",
     [](auto& options, auto& folder) {
         options.tokenFile = folder.write("token", std::string(2000, 'a'));
     },
     "is too long for a token"},
};

INSTANTIATE_TEST_SUITE_P(Host, BadStartTest, testing::ValuesIn(badStarts),
                         [](const auto& row) { return row.param.name; });

class HostStartTest : public HostFixture {};

TEST_F(HostStartTest, RefusesATakenPort) {
    boost::asio::io_context loop;
    const boost::asio::ip::tcp::acceptor other(loop, {boost::asio::ip::address_v4::loopback(), 0});
    options.port = other.local_endpoint().port();
    EXPECT_THAT(refusal(), HasSubstr("cannot listen on 127.0.0.1:"));
}

TEST_F(HostStartTest, GivesThePortBackAfterAFailure) {
    start();
    const std::string address = host->address();
    host.reset();
    options.port = static_cast<std::uint16_t>(std::stoi(address.substr(address.rfind(':') + 1)));
    options.tokenFile = folder / "none/token";
    EXPECT_THAT(refusal(), HasSubstr("cannot write"));
    options.tokenFile.clear();
    EXPECT_NO_THROW(start());
}

TEST_F(HostStartTest, TakesTheModuleFromTheEnvironmentUnlessAnOptionNamesOne) {
    ::setenv("DOVA_WEB_MODULE", "/nowhere/module.so", 1);
    EXPECT_NO_THROW(start());
    host.reset();
    options.module.clear();
    EXPECT_THAT(refusal(), HasSubstr("/nowhere/module.so"));
    ::unsetenv("DOVA_WEB_MODULE");
}

TEST_F(HostStartTest, KeepsAFreshTokenForTheNextStart) {
    options.tokenFile = folder.write("token", "\n");
    std::string tokens[2];
    for (std::string& token : tokens) {
        start();
        token = host->address().substr(host->address().find('#'));
        host.reset();
    }
    EXPECT_EQ(tokens[0], tokens[1]);
    EXPECT_EQ(std::filesystem::status(options.tokenFile).permissions(),
              std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
    folder.write("token", "  0123456789abcdef\r\n");
    start();
    EXPECT_THAT(host->address(), testing::EndsWith("/#0123456789abcdef"));
}

}  // namespace DOVA::runtime
