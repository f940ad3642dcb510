#include "runtime/HostCommandLine.h"

#include <gtest/gtest.h>

#include <CLI/CLI.hpp>

namespace DOVA::runtime {

// What it refuses is in the table of the whole program.
TEST(HostCommandLineTest, ReadsItsOptionsAndTakesEveryLoopbackAddress) {
    for (const std::vector<const char*>& more : std::vector<std::vector<const char*>>{
             {"127.8.8.8"}, {"::1"}, {"0.0.0.0", "--allow-remote"}}) {
        CLI::App app{"A test", "program"};
        HostCommandLine commandLine{app};
        std::vector<const char*> all{"program", "--port",      "8443", "--token-file",
                                     "a file",  "--log-level", "info", "--bind"};
        all.insert(all.end(), more.begin(), more.end());
        EXPECT_EQ(commandLine.parse(static_cast<int>(all.size()), all.data()), std::nullopt);
        EXPECT_EQ(commandLine.options().port, 8443);
        EXPECT_EQ(commandLine.options().bindAddress, more.front());
        EXPECT_EQ(commandLine.options().allowRemote, more.size() > 1);
        EXPECT_EQ(commandLine.options().tokenFile, "a file");
        EXPECT_EQ(commandLine.options().logLevel, log::Level::Info);
    }
}

}  // namespace DOVA::runtime
