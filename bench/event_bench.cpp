// An incoming event: from the text to the front object's listener, against parsing that text with
// Qt alone and reading its members.

#include <benchmark/benchmark.h>

#include <QJsonDocument>
#include <QJsonObject>

#include "BenchWindow.h"

namespace {

/// One window for both: what the parser allocates costs more in a heap that holds a window's
/// objects, and how much more depends on where they lie.
struct Scene {
    Scene() {
        window.show();
        window.button(500).onClick([this] { ++clicks; });
    }

    bench::Window window{1000};
    std::size_t clicks = 0;
    std::string text =
        R"({"id":")" + std::to_string(window.button(500).identifier()) + R"(","event":"onClick"})";
};

Scene& scene() {
    static Scene scene;
    return scene;
}

void eventFloor(benchmark::State& state) {
    const std::string& text = scene().text;
    const QString id = QStringLiteral("id");
    const QString event = QStringLiteral("event");
    for (auto _ : state) {
        const QJsonObject message =
            QJsonDocument::fromJson(
                QByteArray::fromRawData(text.data(), static_cast<int>(text.size())))
                .object();
        benchmark::DoNotOptimize(message.value(id).toString());
        benchmark::DoNotOptimize(message.value(event).toString());
    }
}
BENCHMARK(eventFloor);

void eventDelivered(benchmark::State& state) {
    const std::string channel = scene().window.channel();
    const auto& deliver = bench::CountingBus::instance().callback(channel);
    const std::size_t before = scene().clicks;
    std::size_t sent = 0;
    for (auto _ : state) {
        deliver(channel, scene().text);
        ++sent;
    }
    if (scene().clicks - before != sent) {
        state.SkipWithError("not every event arrived");
    }
}
BENCHMARK(eventDelivered);

}  // namespace
