// An incoming event: from the text to the front object's listener, against parsing that text with Qt
// alone and reading its members.

#include <benchmark/benchmark.h>

#include <QJsonDocument>
#include <QJsonObject>

#include "BenchWindow.h"

namespace {

void eventFloor(benchmark::State& state) {
    const std::string text = R"({"id":"1234","event":"onClick"})";
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
    bench::Window window(1000);
    window.show();
    DOVA::DVButton2& button = window.button(500);
    std::size_t clicks = 0;
    button.onClick([&] { ++clicks; });
    const std::string text =
        R"({"id":")" + std::to_string(button.identifier()) + R"(","event":"onClick"})";
    const std::string channel = window.channel();
    const auto& deliver = bench::CountingBus::instance().callback(channel);
    std::size_t sent = 0;
    for (auto _ : state) {
        deliver(channel, text);
        ++sent;
    }
    if (clicks != sent) {
        state.SkipWithError("not every event arrived");
    }
}
BENCHMARK(eventDelivered);

}  // namespace
