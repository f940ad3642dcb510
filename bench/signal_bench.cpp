// What a signal costs: an emission against a virtual call, and the making and cutting of
// connections.

#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

#include "core/ConnectionImplX.h"
#include "wiro/CallableConnection.h"
#include "wiro/Emitter.h"
#include "wiro/Listener.h"

namespace {

/// What is called in every case: adds to a number where the compiler cannot see it.
class Target : public WIRO::Listener {
public:
    virtual ~Target() { disconnectAll(); }
    virtual void add(int value) {
        m_sum += value;
        benchmark::DoNotOptimize(m_sum);
    }
    long sum() const { return m_sum; }

private:
    long m_sum = 0;
};

/// Never called; without it the compiler would know the one class there is and inline the floor.
class OtherTarget : public Target {
public:
    void add(int value) override { Target::add(2 * value); }
};

using Event = WIRO::Emitter<void(int)>;

/// The floor.
void virtualCall(benchmark::State& state) {
    const std::unique_ptr<Target> target =
        state.threads() == 1 ? std::make_unique<Target>() : std::make_unique<OtherTarget>();
    Target* called = target.get();
    for (auto _ : state) {
        benchmark::DoNotOptimize(called);
        called->add(1);
    }
}
BENCHMARK(virtualCall);

/// Reaches operations of one listener through so many connections.
void emit(benchmark::State& state, long connections) {
    Target target;
    Event emitter;
    for (long i = 0; i < connections; ++i) {
        WIRO::bind(emitter, &target, &Target::add);
    }
    Event* emitting = &emitter;
    for (auto _ : state) {
        benchmark::DoNotOptimize(emitting);
        emitting->emit(1);
    }
    if ((target.sum() == 0) != (connections == 0)) {
        state.SkipWithError("the wrong number of calls arrived");
    }
}

void signalOneConnection(benchmark::State& state) {
    emit(state, 1);
}
BENCHMARK(signalOneConnection);

void signalConnections(benchmark::State& state) {
    emit(state, state.range(0));
}
BENCHMARK(signalConnections)->Arg(0)->Arg(2)->Arg(8);

void signalToCallable(benchmark::State& state) {
    Event emitter;
    long sum = 0;
    WIRO::connect(emitter, [&sum](int value) {
        sum += value;
        benchmark::DoNotOptimize(sum);
    });
    Event* emitting = &emitter;
    for (auto _ : state) {
        benchmark::DoNotOptimize(emitting);
        emitting->emit(1);
    }
}
BENCHMARK(signalToCallable);

/// One connection more and less, on an emitter that has `present` already.
void connectAndDisconnect(benchmark::State& state) {
    Event emitter;
    for (int i = 0; i < state.range(0); ++i) {
        WIRO::connect(emitter, [] {});
    }
    for (auto _ : state) {
        WIRO::connect(emitter, [] {}).disconnect();
    }
}
BENCHMARK(connectAndDisconnect)->ArgName("present")->Arg(0)->Arg(1)->Arg(8);

/// What a web object does: binds thirty emitters, and lets them go with its own end.
void bindThirtyAndDestroy(benchmark::State& state) {
    constexpr int emitters = 30;
    std::vector<Event> front(emitters);
    for (auto _ : state) {
        Target target;
        for (Event& emitter : front) {
            WIRO::bind(emitter, &target, &Target::add);
        }
    }
    state.SetItemsProcessed(state.iterations() * emitters);
}
BENCHMARK(bindThirtyAndDestroy);

}  // namespace
