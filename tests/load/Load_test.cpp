#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <boost/process.hpp>
#include <string>
#include <vector>

#include "LyingServer.h"
#include "Options.h"
#include "Report.h"
#include "Simulation.h"
#include "support/RowNames.h"
#include "support/TemporaryFolder.h"

namespace DOVA::load {

namespace {

namespace bp = boost::process;

Options optionsOf(std::vector<std::string> words) {
    std::vector<const char*> arguments = {"dova-load"};
    for (const std::string& word : words) {
        arguments.push_back(word.c_str());
    }
    Options options;
    EXPECT_EQ(parseOptions(static_cast<int>(arguments.size()), arguments.data(), options),
              std::nullopt);
    return options;
}

/// A program whose actions are counted, at an address that stays.
class Target {
public:
    Target() {
        start(bp::args({"--token-file", m_folder / "token"}));
        const std::size_t port = address.find(':', 7) + 1;
        again = std::string(LOAD_TARGET) + " --port " +
                address.substr(port, address.find('/', port) - port) + " --token-file " +
                (m_folder / "token");
    }

    std::string pid() const { return std::to_string(m_process.id()); }

    std::string address;
    /// The command that starts it again.
    std::string again;

private:
    template <class Arguments>
    void start(const Arguments& arguments) {
        bp::ipstream output;
        m_process = bp::child(LOAD_TARGET, arguments, bp::std_out > output);
        std::getline(output, address);
    }

    const test::TemporaryFolder m_folder;
    bp::child m_process;
};

}  // namespace

using test::operator<<;

struct FaultyRow {
    const char* name;
    /// Of the schedule; each with twenty draws finds what there is to find.
    const char* faults;
};

class FaultyRunTest : public testing::TestWithParam<FaultyRow> {};

TEST_P(FaultyRunTest, HandlesEveryActionOnceInOrder) {
    Target one;
    Target other;
    const Options options =
        optionsOf({one.address, other.address, "--actions", "600", "--duration", "3", "--faults",
                   GetParam().faults, "--pid", "program=" + one.pid()});
    Simulation run(options);
    run.run();
    EXPECT_EQ(complaintAbout(run), "") << toJson(options, run);
    EXPECT_EQ(run.tally().answered, 600U);
    EXPECT_EQ(run.tally().resumesWithoutFault, 0U);
    EXPECT_EQ(run.measured().faultsDone, 20U);
}

INSTANTIATE_TEST_SUITE_P(, FaultyRunTest,
                         testing::Values(FaultyRow{"Cut", "20,cut,reset"},
                                         FaultyRow{"Delayed", "20,delay,stop"},
                                         FaultyRow{"Mixed", "20"}),
                         test::RowName());

/// A killed program loses its session and nothing else: what was not answered is not counted as
/// lost, and the page goes on with the program that was started in its place.
TEST(KilledRunTest, GoesOnWithTheNextProgram) {
    Target target;
    const Options options =
        optionsOf({target.address, "--actions", "200", "--duration", "2", "--faults", "1,kill",
                   "--pid", "program=" + target.pid(), "--restart", target.again});
    Simulation run(options);
    run.run();
    EXPECT_EQ(complaintAbout(run), "") << toJson(options, run);
    EXPECT_EQ(run.tally().sessionsKilled, 1U);
    EXPECT_EQ(run.tally().answered + run.tally().unconfirmed, 200U);
}

/// Each page takes over from the one before it.
TEST(TakenOverRunTest, CountsWhatEachPageDid) {
    Target target;
    const Options options =
        optionsOf({target.address, "--pages", "3", "--actions", "30", "--duration", "1.5"});
    Simulation run(options);
    run.run();
    EXPECT_EQ(complaintAbout(run), "") << toJson(options, run);
    EXPECT_EQ(run.tally().sessionsTakenOver, 2U);
    EXPECT_EQ(run.tally().pagesOpened, 3U);
}

struct LieRow {
    const char* name;
    LyingServer::Lie lie;
    const char* complaint;
};

class LyingRunTest : public testing::TestWithParam<LieRow> {};

/// A count that cannot find anything wrong would be worth nothing.
TEST_P(LyingRunTest, IsFoundOut) {
    LyingServer server(GetParam().lie);
    const Options options = optionsOf({server.address(), "--actions", "9", "--rate", "100"});
    Simulation run(options);
    run.run();
    EXPECT_EQ(complaintAbout(run), GetParam().complaint) << toJson(options, run);
}

using Texts = std::vector<std::string>;

INSTANTIATE_TEST_SUITE_P(
    , LyingRunTest,
    testing::Values(LieRow{"Truth",
                           [](Ledger& ledger, const Action& action) -> Texts {
                               return {ledger.handle(action).text()};
                           },
                           ""},
                    LieRow{"Twice",
                           [](Ledger& ledger, const Action& action) -> Texts {
                               const std::string first = ledger.handle(action).text();
                               return action.number != 4
                                          ? Texts{first}
                                          : Texts{first, ledger.handle(action).text()};
                           },
                           "1 actions doubled"},
                    LieRow{"Never",
                           [](Ledger& ledger, const Action& action) -> Texts {
                               return action.number == 4 ? Texts{}
                                                         : Texts{ledger.handle(action).text()};
                           },
                           "1 actions lost"},
                    LieRow{"Swapped",
                           [](Ledger& ledger, const Action& action) -> Texts {
                               if (action.number == 4) {
                                   return {};
                               }
                               const std::string text = ledger.handle(action).text();
                               return action.number != 5
                                          ? Texts{text}
                                          : Texts{text, ledger.handle({action.series, 4}).text()};
                           },
                           "1 actions out of order"},
                    LieRow{"AnswerLost",
                           [](Ledger& ledger, const Action& action) -> Texts {
                               const std::string text = ledger.handle(action).text();
                               return action.number == 4 ? Texts{} : Texts{text};
                           },
                           "1 answers lost"},
                    LieRow{"AnswerTwice",
                           [](Ledger& ledger, const Action& action) -> Texts {
                               const std::string text = ledger.handle(action).text();
                               return action.number == 4 ? Texts{text, text} : Texts{text};
                           },
                           "1 answers doubled"}),
    test::RowName());

}  // namespace DOVA::load
