// What a handler may do to the signal that calls it: connect, disconnect, destroy, throw, emit.

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>

#include "Receiver.h"
#include "support/RowNames.h"
#include "wiro/CallableConnection.h"

namespace {

/// One emitter with the receivers a, b and c; b performs the steps, once. `log` says who was
/// called.
struct Scene {
    std::string steps;
    std::unique_ptr<Event> emitter = std::make_unique<Event>();
    std::map<char, std::unique_ptr<Receiver>> receivers;
    std::map<char, WIRO::Connection*> connections;  // the newest of each receiver
    std::string log;

    void connect(char name) {
        auto& receiver = receivers[name];
        if (!receiver) {
            receiver = std::make_unique<Receiver>([this, name](int) { called(name); });
        }
        connections[name] = &receiver->listenTo(*emitter);
    }
    void called(char name) {
        log += name;
        if (name == 'e') {
            emitter.reset();
        }
        const std::string todo = name == 'b' ? std::exchange(steps, "") : "";
        for (std::size_t i = 0; i < todo.size(); i += 2) {
            perform(todo[i], todo[i + 1]);
        }
    }
    /// + connects, - disconnects, ~ destroys a receiver or the emitter *, ! throws, ^ emits again.
    void perform(char step, char name) {
        switch (step) {
            case '+':
                return connect(name);
            case '-':
                return connections[name]->disconnect();
            case '~':
                return name == '*' ? emitter.reset() : receivers[name].reset();
            case '^':
                return emitter->emit(1);
            default:
                throw std::runtime_error("handler");
        }
    }
    std::string emit() {
        log = emitter ? "" : "gone";
        try {
            if (emitter) {
                emitter->emit(1);
            }
        } catch (const std::runtime_error&) {
            log += '!';
        }
        return log;
    }
};

using DOVA::test::operator<<;  // NOLINT(misc-unused-using-decls): GoogleTest prints rows with it

struct Row {
    const char* name;
    const char* steps;
    const char* first;   // the calls of the emission in which b performs the steps
    const char* second;  // the calls of the next emission
};

const Row rows[] = {
    {"connectsAnother", "+d", "abc", "abcd"},
    {"disconnectsItselfTwice", "-b-b", "abc", "ac"},
    {"disconnectsThePrevious", "-a", "abc", "bc"},
    {"disconnectsTheNextAndAgainAnew", "-c+c", "ab", "abc"},
    {"destroysItsListener", "~b", "abc", "ac"},
    {"destroysTheNextListener", "~c", "ab", "ab"},
    {"destroysTheEmitter", "~*", "ab", "gone"},
    {"destroysEverything", "~c~b~*~a", "ab", "gone"},
    {"throws", "! ", "ab!", "abc"},
    {"destroysTheEmitterAndThrows", "~*! ", "ab!", "gone"},
    {"emitsAgainAfterDisconnectingItself", "-b^ ", "abacc", "ac"},
    {"emitsAgainToANewReceiver", "+d^ ", "ababcdc", "abcd"},
    {"emitsAgainToOneThatDestroysTheEmitter", "+e^ ", "ababce", "gone"},
};

class DuringEmission : public testing::TestWithParam<Row> {};

TEST_P(DuringEmission, ReachesWhomItShould) {
    Scene scene;
    scene.steps = GetParam().steps;
    for (const char name : {'a', 'b', 'c'}) {
        scene.connect(name);
    }
    EXPECT_EQ(scene.emit(), GetParam().first);
    EXPECT_EQ(scene.emit(), GetParam().second);
}

INSTANTIATE_TEST_SUITE_P(Signal, DuringEmission, testing::ValuesIn(rows),
                         [](const auto& row) { return std::string(row.param.name); });

// The callable's own members may use signals while they die.
TEST(ClosureEnd, MayConnectAndEmitAndDestroy) {
    auto outer = std::make_unique<Event>();
    std::string log;
    struct Tail {
        explicit Tail(std::string& text) : log(text) {}
        std::string& log;
        Event emitter;
        Receiver receiver{[this](int) { log += "tail"; }, emitter};
        ~Tail() {
            emitter.emit(1);
            WIRO::connect(emitter, [this] { log += "!"; });
            emitter.emit(1);
        }
    };
    WIRO::connect(*outer, [&outer, tail = std::make_shared<Tail>(log)] {
        outer.reset();
        tail->log += "cut;";
    });
    outer->emit(1);
    EXPECT_EQ(log, "cut;tailtail!");
}

}  // namespace
