#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <cstdlib>
#include <functional>

#include "HostFixture.h"
#include "runtime/StartError.h"

namespace DOVA::runtime {

using jsonpad_test::TemporaryFolder;
using testing::HasSubstr;
using testing::Not;

struct BadStart {
    const char* name;
    std::function<void(HostOptions&, const TemporaryFolder&)> spoil;
    const char* sentence;
};

void PrintTo(const BadStart& row, std::ostream* out) {
    *out << row.name;
}

class BadStartTest : public HostFixture, public testing::WithParamInterface<BadStart> {};

TEST_P(BadStartTest, SaysWhyInOneSentenceAndStartsNothing) {
    GetParam().spoil(options, folder);
    try {
        start();
        FAIL() << "it started";
    } catch (const StartError& error) {
        EXPECT_THAT(error.what(), HasSubstr(GetParam().sentence));
        EXPECT_THAT(error.what(), Not(HasSubstr("\n")));
    }
    EXPECT_THAT(events(), testing::IsEmpty());
}

const BadStart badStarts[] = {
    {"NoModule", [](auto& options, auto& folder) { options.module = folder / "none.so"; },
     "cannot load the module: "},
    {"ModuleIsNoLibrary",
     [](auto& options, auto& folder) { options.module = folder.write("text.so", "not a library"); },
     "cannot load the module: "},
    {"ModuleWithoutEntryPoints", [](auto& options, auto&) { options.module = OTHER_LIBRARY; },
     "has no entry point KVInitialize_dova2_web"},
    {"ModuleWithoutFlag", [](auto& options, auto&) { options.module = DEAF_MODULE; },
     "has no entry point _ZN4DOVA3web16KorvidOnlineFlag3getEv"},
    {"NoPageFolder", [](auto& options, auto& folder) { options.pageFolder = folder / "none"; },
     "the page folder "},
    {"NoApplicationRoot",
     [](auto& options, auto& folder) { options.applicationRoot = folder / "none"; },
     "the application root "},
    {"AddressIsAName", [](auto& options, auto&) { options.bindAddress = "localhost"; },
     "\"localhost\" is not a numeric IP address"},
    {"RemoteWithoutConsent", [](auto& options, auto&) { options.bindAddress = "0.0.0.0"; },
     "must be allowed explicitly"},
    {"TokenFileIsAFolder", [](auto& options, auto& folder) { options.tokenFile = folder / ""; },
     "is not a regular file"},
    {"TokenFileInNoFolder",
     [](auto& options, auto& folder) { options.tokenFile = folder / "none/token"; },
     "cannot write the token file "},
    {"TokenTooLong",
     [](auto& options, auto& folder) {
         options.tokenFile = folder.write("token", std::string(2000, 'a'));
     },
     "is too long for a token"},
    {"TokenTooShort",
     [](auto& options, auto& folder) { options.tokenFile = folder.write("token", "short"); },
     "a token must be 16 to 256"},
};

INSTANTIATE_TEST_SUITE_P(Host, BadStartTest, testing::ValuesIn(badStarts),
                         [](const auto& row) { return std::string(row.param.name); });

class HostStartTest : public HostFixture {};

TEST_F(HostStartTest, RefusesATakenPort) {
    boost::asio::io_context loop;
    const boost::asio::ip::tcp::acceptor other(loop, {boost::asio::ip::address_v4::loopback(), 0});
    options.port = other.local_endpoint().port();
    try {
        start();
        FAIL() << "it started";
    } catch (const StartError& error) {
        EXPECT_THAT(error.what(), HasSubstr("cannot listen on 127.0.0.1:"));
    }
}

TEST_F(HostStartTest, GivesThePortBackAfterAFailure) {
    start();
    const std::string address = host->address();
    host.reset();
    options.port = static_cast<std::uint16_t>(std::stoi(address.substr(address.rfind(':') + 1)));
    options.tokenFile = folder / "none/token";
    EXPECT_THROW(start(), StartError);
    options.tokenFile.clear();
    EXPECT_NO_THROW(start());
}

TEST_F(HostStartTest, TakesTheModuleFromTheEnvironmentUnlessAnOptionNamesOne) {
    ::setenv("DOVA_WEB_MODULE", "/nowhere/module.so", 1);
    EXPECT_NO_THROW(start());
    host.reset();
    options.module.clear();
    try {
        start();
        ADD_FAILURE() << "it started";
    } catch (const StartError& error) {
        EXPECT_THAT(error.what(), HasSubstr("/nowhere/module.so"));
    }
    ::unsetenv("DOVA_WEB_MODULE");
}

TEST_F(HostStartTest, KeepsAFreshTokenForTheNextStart) {
    for (const char* before : {"absent", "empty"}) {
        SCOPED_TRACE(before);
        options.tokenFile = folder / before;
        if (before == std::string("empty")) {
            folder.write(before, "\n");
        }
        start();
        const std::string first = host->address();
        host.reset();
        EXPECT_EQ(std::filesystem::status(options.tokenFile).permissions(),
                  std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
        start();
        const std::string second = host->address();
        host.reset();
        EXPECT_EQ(first.substr(first.find('#')), second.substr(second.find('#')));
    }
}

TEST_F(HostStartTest, ReadsATokenWithSpaceAroundIt) {
    options.tokenFile = folder.write("token", "  0123456789abcdef\r\n");
    start();
    EXPECT_THAT(host->address(), testing::EndsWith("/#0123456789abcdef"));
    EXPECT_EQ(folder.read("token"), "  0123456789abcdef\r\n");
}

}  // namespace DOVA::runtime
