// What a signal costs: an emission against a virtual call.

#include <benchmark/benchmark.h>

#include <memory>

#include "core/ConnectionImplX.h"
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

void signalOneConnection(benchmark::State& state) {
    Target target;
    Event emitter;
    WIRO::bind(emitter, &target, &Target::add);
    Event* emitting = &emitter;
    for (auto _ : state) {
        benchmark::DoNotOptimize(emitting);
        emitting->emit(1);
    }
    if (target.sum() == 0) {
        state.SkipWithError("no call arrived");
    }
}
BENCHMARK(signalOneConnection);

}  // namespace
