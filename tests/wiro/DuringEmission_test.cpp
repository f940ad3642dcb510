// What a handler may do to the signal that calls it: connect, disconnect, destroy, throw, emit.

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <tuple>
#include <vector>

#include "Receiver.h"
#include "wiro/CallableConnection.h"

namespace {

using Deliver = void (*)(Event&);

/// One emitter with the receivers a, b and c; b acts, once. `log` says who was called.
struct Scene {
    std::unique_ptr<Event> emitter = std::make_unique<Event>();
    std::unique_ptr<Receiver> a, b, c, late;
    WIRO::Connection* linkOfB = nullptr;
    Deliver deliver = nullptr;
    std::string log;

    std::unique_ptr<Receiver> make(char name) {
        return std::make_unique<Receiver>([this, name](int) { log += name; }, *emitter);
    }
};

struct Row {
    const char* name;
    std::function<void(Scene&)> act;
    const char* first;   // the calls of the emission in which b acts
    const char* second;  // the calls of the next emission, null if the emitter is gone
};

const Row rows[] = {
    {"doesNothing", [](Scene&) {}, "abc", "abc"},
    {"connectsAnother", [](Scene& s) { s.late = s.make('d'); }, "abc", "abcd"},
    {"connectsWithoutListener", [](Scene& s) { WIRO::connect(*s.emitter, [&s] { s.log += 'd'; }); },
     "abc", "abcd"},
    {"disconnectsItself", [](Scene& s) { s.linkOfB->disconnect(); }, "abc", "ac"},
    {"disconnectsItselfTwice",
     [](Scene& s) {
         s.linkOfB->disconnect();
         s.linkOfB->disconnect();
     },
     "abc", "ac"},
    {"disconnectsItselfAndAgainAnew",
     [](Scene& s) {
         s.linkOfB->disconnect();
         s.b->listenTo(*s.emitter);
     },
     "abc", "acb"},
    {"disconnectsThePrevious", [](Scene& s) { s.a->disconnectAll(); }, "abc", "bc"},
    {"disconnectsTheNext", [](Scene& s) { s.c->disconnectAll(); }, "ab", "ab"},
    {"disconnectsTheNextAndAgainAnew",
     [](Scene& s) {
         s.c->disconnectAll();
         s.c->listenTo(*s.emitter);
     },
     "ab", "abc"},
    {"disconnectsEverybody",
     [](Scene& s) {
         s.a->disconnectAll();
         s.b->disconnectAll();
         s.c->disconnectAll();
     },
     "ab", ""},
    {"destroysItsListener", [](Scene& s) { s.b.reset(); }, "abc", "ac"},
    {"destroysThePreviousListener", [](Scene& s) { s.a.reset(); }, "abc", "bc"},
    {"destroysTheNextListener", [](Scene& s) { s.c.reset(); }, "ab", "ab"},
    {"destroysTheEmitter", [](Scene& s) { s.emitter.reset(); }, "ab", nullptr},
    {"destroysEverything",
     [](Scene& s) {
         s.emitter.reset();
         s.a.reset();
         s.b.reset();
         s.c.reset();
     },
     "ab", nullptr},
    {"destroysListenersThenTheEmitter",
     [](Scene& s) {
         s.c.reset();
         s.b.reset();
         s.emitter.reset();
     },
     "ab", nullptr},
    {"throws", [](Scene&) { throw std::runtime_error("handler"); }, "ab", "abc"},
    {"destroysTheEmitterAndThrows",
     [](Scene& s) {
         s.emitter.reset();
         throw std::runtime_error("handler");
     },
     "ab", nullptr},
    {"emitsAgain", [](Scene& s) { s.deliver(*s.emitter); }, "ababcc", "abc"},
    {"emitsAgainAfterDisconnectingItself",
     [](Scene& s) {
         s.linkOfB->disconnect();
         s.deliver(*s.emitter);
     },
     "abacc", "ac"},
    {"emitsAgainToANewReceiver",
     [](Scene& s) {
         s.late = s.make('d');
         s.deliver(*s.emitter);
     },
     "ababcdc", "abcd"},
    {"emitsAgainAndThenDestroysTheEmitter",
     [](Scene& s) {
         s.deliver(*s.emitter);
         s.emitter.reset();
     },
     "ababc", nullptr},
    {"emitsAgainToOneThatDestroysTheEmitter",
     [](Scene& s) {
         WIRO::connect(*s.emitter, [&s] { s.emitter.reset(); });
         s.deliver(*s.emitter);
     },
     "ababc", nullptr},
};

const std::tuple<const char*, Deliver> ways[] = {
    {"emitted", [](Event& emitter) { emitter.emit(1); }},
    {"sentAsPacket", [](Event& emitter) { sendPacket(emitter, 1); }},
};

class DuringEmission
    : public testing::TestWithParam<std::tuple<Row, std::tuple<const char*, Deliver>>> {
protected:
    /// What is called now, null if there is no emitter any more.
    const char* deliver(Scene& scene) {
        if (!scene.emitter) {
            return nullptr;
        }
        scene.log.clear();
        try {
            scene.deliver(*scene.emitter);
        } catch (const std::runtime_error& error) {
            EXPECT_STREQ(error.what(), "handler");
        }
        return scene.log.c_str();
    }
};

TEST_P(DuringEmission, ReachesWhomItShould) {
    const auto& [row, way] = GetParam();
    Scene scene;
    scene.deliver = std::get<1>(way);
    bool acted = false;
    scene.a = scene.make('a');
    scene.b = std::make_unique<Receiver>([&scene, &acted, &act = row.act](int) {
        scene.log += 'b';
        if (!std::exchange(acted, true)) {
            act(scene);
        }
    });
    scene.linkOfB = &scene.b->listenTo(*scene.emitter);
    scene.c = scene.make('c');

    EXPECT_STREQ(deliver(scene), row.first);
    EXPECT_STREQ(deliver(scene), row.second);
}

INSTANTIATE_TEST_SUITE_P(Signal, DuringEmission,
                         testing::Combine(testing::ValuesIn(rows), testing::ValuesIn(ways)),
                         [](const auto& row) {
                             return std::string(std::get<0>(row.param).name) + "_" +
                                    std::get<0>(std::get<1>(row.param));
                         });

struct ClosureRow {
    const char* name;
    std::function<void(std::unique_ptr<Event>&, WIRO::Subscription&)> act;
};

const ClosureRow closureRows[] = {
    {"cutByItsSubscription", [](auto&, WIRO::Subscription& own) { own.disconnect(); }},
    {"cutByTheEmittersEnd", [](auto& emitter, WIRO::Subscription&) { emitter.reset(); }},
    {"cutTwice",
     [](auto& emitter, WIRO::Subscription& own) {
         own.disconnect();
         emitter.reset();
     }},
    {"cutWithinANestedEmission",
     [](auto& emitter, WIRO::Subscription& own) {
         Event inner;
         WIRO::connect(inner, [&] { own.disconnect(); });
         inner.emit(1);
         emitter.reset();
     }},
    {"cutAndThrown",
     [](auto&, WIRO::Subscription& own) {
         own.disconnect();
         throw std::runtime_error("handler");
     }},
};

class Closure : public testing::TestWithParam<ClosureRow> {};

// A callable that cuts its own connection used to be a classic: it runs on after its own end.
TEST_P(Closure, IsDestroyedAfterItsLastUse) {
    auto emitter = std::make_unique<Event>();
    WIRO::Subscription own;
    auto life = std::make_shared<int>(0);
    const std::weak_ptr<int> watch = life;
    own = WIRO::connect(*emitter, [&, life = std::move(life)] {
        *life = 1;
        struct AtExit {
            std::shared_ptr<int> const& kept;
            const std::weak_ptr<int>& watched;
            ~AtExit() {
                EXPECT_FALSE(watched.expired());
                *kept = 2;
            }
        } atExit{life, watch};
        GetParam().act(emitter, own);
    });
    try {
        emitter->emit(1);
    } catch (const std::runtime_error&) {
    }
    EXPECT_TRUE(watch.expired());
    EXPECT_FALSE(own.isConnected());
}

INSTANTIATE_TEST_SUITE_P(Signal, Closure, testing::ValuesIn(closureRows),
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
