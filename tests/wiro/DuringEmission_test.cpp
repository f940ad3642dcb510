// What a handler may do to the signal that calls it: connect, disconnect, destroy, throw, emit.

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>

#include "Receiver.h"
#include "wiro/CallableConnection.h"

namespace {

using Deliver = void (*)(Event&);

/// One emitter with the receivers a, b and c; b performs the steps, once. `log` says who was
/// called.
struct Scene {
    std::unique_ptr<Event> emitter = std::make_unique<Event>();
    std::map<char, std::unique_ptr<Receiver>> receivers;
    std::map<char, WIRO::Connection*> connections;  // the newest of each receiver
    std::string steps;
    Deliver deliver;
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
                return deliver(*emitter);
            default:
                throw std::runtime_error("handler");
        }
    }
};

struct Row {
    const char* name;
    const char* steps;
    const char* first;   // the calls of the emission in which b performs the steps
    const char* second;  // the calls of the next emission, null if the emitter is gone
};

const Row rows[] = {
    {"connectsAnother", "+d", "abc", "abcd"},
    {"disconnectsItselfTwice", "-b-b", "abc", "ac"},
    {"disconnectsThePrevious", "-a", "abc", "bc"},
    {"disconnectsTheNextAndAgainAnew", "-c+c", "ab", "abc"},
    {"destroysItsListener", "~b", "abc", "ac"},
    {"destroysTheNextListener", "~c", "ab", "ab"},
    {"destroysTheEmitter", "~*", "ab", nullptr},
    {"destroysEverything", "~c~b~*~a", "ab", nullptr},
    {"throws", "! ", "ab!", "abc"},
    {"destroysTheEmitterAndThrows", "~*! ", "ab!", nullptr},
    {"emitsAgainAfterDisconnectingItself", "-b^ ", "abacc", "ac"},
    {"emitsAgainToANewReceiver", "+d^ ", "ababcdc", "abcd"},
    {"emitsAgainToOneThatDestroysTheEmitter", "+e^ ", "ababce", nullptr},
};

class DuringEmission : public testing::TestWithParam<Row> {};

TEST_P(DuringEmission, ReachesWhomItShould) {
    const Deliver ways[] = {[](Event& emitter) { emitter.emit(1); },
                            [](Event& emitter) { sendPacket(emitter, 1); }};
    for (const Deliver way : ways) {
        Scene scene;
        scene.deliver = way;
        scene.steps = GetParam().steps;
        for (const char name : {'a', 'b', 'c'}) {
            scene.connect(name);
        }
        for (const char* expected : {GetParam().first, GetParam().second}) {
            ASSERT_EQ(scene.emitter != nullptr, expected != nullptr);
            scene.log.clear();
            try {
                if (expected) {
                    way(*scene.emitter);
                }
            } catch (const std::runtime_error&) {
                scene.log += '!';
            }
            EXPECT_EQ(scene.log, expected ? expected : "");
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Signal, DuringEmission, testing::ValuesIn(rows),
                         [](const auto& row) { return std::string(row.param.name); });

// The callable's own members may use signals while they die.
TEST(ClosureEnd, MayConnectAndEmitAndDestroy) {
    auto outer = std::make_unique<Event>();
    std::string log;
    struct Tail {
        std::string& log;
        Event emitter;
        Receiver receiver{[this](int) { log += "tail"; }, emitter};
        ~Tail() {
            emitter.emit(1);
            WIRO::connect(emitter, [this] { log += "!"; });
            emitter.emit(1);
        }
    };
    WIRO::connect(*outer, [&outer, tail = std::shared_ptr<Tail>(new Tail{log, {}})] {
        outer.reset();
        tail->log += "cut;";
    });
    outer->emit(1);
    EXPECT_EQ(log, "cut;tailtail!");
}

}  // namespace
