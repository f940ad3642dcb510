#include "OptionRules.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <system_error>

#include "TemporaryFolder.h"

namespace DOVA::gateway {
namespace {

struct OptionRow {
    const char* name;
    void (*change)(GatewayOptions&);
    const char* complaint;
};

const OptionRow kRows[] = {
    {"ipv6Loopback", [](auto& o) { o.bindAddress = "::1"; }, ""},
    {"nameForAddress", [](auto& o) { o.bindAddress = "localhost"; },
     "\"localhost\" is not a numeric IP address"},
    {"everyInterface", [](auto& o) { o.bindAddress = "0.0.0.0"; },
     "listening on 0.0.0.0 opens the program to other machines"},
    {"everyInterfaceAllowed", [](auto& o) { o.bindAddress = "0.0.0.0", o.allowNonLoopback = true; },
     ""},
    {"noPage", [](auto& o) { o.pageFolder = "/nonexistent"; },
     "the page folder \"/nonexistent\" holds no index.html"},
    {"rootIsAFile", [](auto& o) { o.applicationRoot = o.pageFolder / "index.html"; },
     "is no folder"},
    {"shortToken", [](auto& o) { o.token = "0123456789abcde"; }, "a token must be 16 to 256"},
    {"tokenForAQuery", [](auto& o) { o.token = "0123456789abcde&"; }, "a token must be 16 to 256"},
    {"goodToken", [](auto& o) { o.token = "0123456789abcde~"; }, ""},
    {"noConnections", [](auto& o) { o.limits.connections = 0; }, "is zero"},
    {"noTime", [](auto& o) { o.limits.writeTime = {}; }, "is zero"},
    {"noGrace", [](auto& o) { o.graceTime = {}; }, ""},
    {"negativeGrace", [](auto& o) { o.graceTime = std::chrono::seconds(-1); }, "negative"}};

TEST(OptionRulesTest, areAcceptedOrRefusedWithAClearText) {
    const TemporaryFolder folder{{{"index.html", "<!doctype html>"}}};
    for (const OptionRow& row : kRows) {
        GatewayOptions options;
        options.pageFolder = folder.path();
        row.change(options);
        std::string complaint;
        try {
            OptionRules::check(options);
        } catch (const std::system_error& error) {
            complaint = error.what();
        }
        EXPECT_EQ(complaint.empty(), *row.complaint == '\0') << row.name << ": " << complaint;
        EXPECT_THAT(complaint, testing::HasSubstr(row.complaint)) << row.name;
    }
}

}  // namespace
}  // namespace DOVA::gateway
