// Threads come and go; what the library keeps for each is used again.

#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <thread>

#include "Receiver.h"
#include "wiro/CallableConnection.h"
#include "wiro/Emission.h"

namespace {

/// Emits while its thread ends.
struct LateEmission {
    Event* emitter = nullptr;
    std::set<const void*>* places = nullptr;
    ~LateEmission() {
        emitter->emit(1);
        places->insert(WIRO::detail::t_pins);
    }
};

// An emission of a thread_local object, after the library's own thread_local state was gone, used
// to occupy a place for ever.
TEST(ThreadEnd, LeavesItsPlaceEvenIfItEmitsToTheLast) {
    Event emitter;
    const auto calls = std::make_shared<int>(0);
    WIRO::Subscription subscription = WIRO::connect(emitter, [calls] { ++*calls; });
    std::set<const void*> places;
    for (int i = 0; i < 20; ++i) {
        std::thread([&] {
            static thread_local LateEmission late;
            late.emitter = &emitter;
            late.places = &places;
            emitter.emit(1);
        }).join();
    }
    EXPECT_EQ(*calls, 40);
    EXPECT_EQ(places.size(), 1u);
    subscription.disconnect();
    EXPECT_EQ(calls.use_count(), 1);
}

}  // namespace
