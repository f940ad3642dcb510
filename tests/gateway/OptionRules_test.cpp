#include "OptionRules.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <system_error>

#include "TemporaryFolder.h"

namespace DOVA::gateway {
namespace {

struct OptionRow {
    const char* name;
    std::function<void(GatewayOptions&)> change;
    const char* complaint;
};

class OptionRulesTest : public testing::TestWithParam<OptionRow> {
protected:
    TemporaryFolder m_folder{{{"index.html", "<!doctype html>"}}};
};

TEST_P(OptionRulesTest, isAcceptedOrRefusedWithAClearText) {
    GatewayOptions options;
    options.pageFolder = m_folder.path();
    GetParam().change(options);
    std::string complaint;
    try {
        OptionRules::check(options);
    } catch (const std::system_error& error) {
        complaint = error.what();
    }
    EXPECT_EQ(complaint.empty(), std::string(GetParam().complaint).empty()) << complaint;
    EXPECT_THAT(complaint, testing::HasSubstr(GetParam().complaint));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, OptionRulesTest,
    testing::Values(
        OptionRow{"asTheyAre", [](auto&) {}, ""},
        OptionRow{"ipv6Loopback", [](auto& o) { o.bindAddress = "::1"; }, ""},
        OptionRow{"nameForAddress", [](auto& o) { o.bindAddress = "localhost"; },
                  "\"localhost\" is not a numeric IP address"},
        OptionRow{"everyInterface", [](auto& o) { o.bindAddress = "0.0.0.0"; },
                  "listening on 0.0.0.0 opens the program to other machines"},
        OptionRow{"everyInterfaceAllowed",
                  [](auto& o) { o.bindAddress = "0.0.0.0", o.allowNonLoopback = true; }, ""},
        OptionRow{"noPage", [](auto& o) { o.pageFolder = "/nonexistent"; },
                  "the page folder \"/nonexistent\" holds no index.html"},
        OptionRow{"noPageFolder", [](auto& o) { o.pageFolder.clear(); }, "holds no index.html"},
        OptionRow{"rootIsAFile", [](auto& o) { o.applicationRoot = o.pageFolder / "index.html"; },
                  "is no folder"},
        OptionRow{"shortToken", [](auto& o) { o.token = "secret"; }, "a token must be 16 to 256"},
        OptionRow{"tokenForAQuery", [](auto& o) { o.token = "0123456789abcde&"; },
                  "a token must be 16 to 256"},
        OptionRow{"goodToken", [](auto& o) { o.token = "0123456789abcde~"; }, ""},
        OptionRow{"noConnections", [](auto& o) { o.limits.connections = 0; }, "is zero"},
        OptionRow{"noTime", [](auto& o) { o.limits.writeTime = {}; }, "is zero"},
        OptionRow{"noGrace", [](auto& o) { o.graceTime = {}; }, ""},
        OptionRow{"negativeGrace", [](auto& o) { o.graceTime = std::chrono::seconds(-1); },
                  "negative"}),
    [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace DOVA::gateway
