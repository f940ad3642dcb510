#include "runtime/HostCommandLine.h"

#include <gtest/gtest.h>

#include <CLI/CLI.hpp>

namespace DOVA::runtime {

// What it refuses is in the table of the whole program.
TEST(HostCommandLineTest, ReadsItsOptions) {
    CLI::App app{"A test", "program"};
    HostCommandLine commandLine{app};
    const char* const remote[] = {"program", "--port",         "8443",         "--bind",
                                  "0.0.0.0", "--allow-remote", "--token-file", "a file"};
    EXPECT_EQ(commandLine.parse(8, remote), std::nullopt);
    EXPECT_EQ(commandLine.options().port, 8443);
    EXPECT_EQ(commandLine.options().bindAddress, "0.0.0.0");
    EXPECT_TRUE(commandLine.options().allowRemote);
    EXPECT_EQ(commandLine.options().tokenFile, "a file");
}

TEST(HostCommandLineTest, TakesEveryLoopbackAddress) {
    for (const char* address : {"127.8.8.8", "::1"}) {
        CLI::App app{"A test", "program"};
        HostCommandLine commandLine{app};
        const char* const arguments[] = {"program", "--bind", address};
        EXPECT_EQ(commandLine.parse(3, arguments), std::nullopt) << address;
    }
}

}  // namespace DOVA::runtime
