// A property write: from the front object's setter to the text handed to the bus, against building
// and writing the same message with Qt's JSON alone.

#include <benchmark/benchmark.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "BenchWindow.h"

namespace {

const QString s_texts[2] = {QStringLiteral("first text"), QStringLiteral("other text")};
const std::u16string s_labels[2] = {u"first text", u"other text"};

void propertyWriteFloor(benchmark::State& state) {
    const QString id = QStringLiteral("1234");
    const QString type = QStringLiteral("Button");
    std::size_t turn = 0;
    for (auto _ : state) {
        QJsonObject message;
        message.insert(QStringLiteral("id"), id);
        message.insert(QStringLiteral("type"), type);
        message.insert(QStringLiteral("label"), s_texts[++turn % 2]);
        benchmark::DoNotOptimize(QJsonDocument(QJsonArray{message}).toJson(QJsonDocument::Compact));
    }
}
BENCHMARK(propertyWriteFloor);

void writeLabels(benchmark::State& state, bool shown) {
    bench::Window window(1000);
    if (shown) {
        window.show();
    }
    DOVA::DVButton2& button = window.button(500);
    const std::size_t before = bench::CountingBus::instance().texts;
    std::size_t turn = 0;
    for (auto _ : state) {
        button.setLabel(s_labels[++turn % 2]);
    }
    const std::size_t sent = bench::CountingBus::instance().texts - before;
    if (sent != (shown ? turn : 0)) {
        state.SkipWithError("not every write was sent");
    }
}

void propertyWriteShown(benchmark::State& state) {
    writeLabels(state, true);
}
BENCHMARK(propertyWriteShown);

void propertyWriteUnserved(benchmark::State& state) {
    writeLabels(state, false);
}
BENCHMARK(propertyWriteUnserved);

// The other path: a property of an object without a model element, stored and sent.
void writeTitles(benchmark::State& state, bool shown) {
    bench::Window window(1000);
    if (shown) {
        window.show();
    }
    std::size_t turn = 0;
    for (auto _ : state) {
        window.dialog().setTitle(s_labels[++turn % 2]);
    }
}

void storedPropertyWriteShown(benchmark::State& state) {
    writeTitles(state, true);
}
BENCHMARK(storedPropertyWriteShown);

void storedPropertyWriteUnserved(benchmark::State& state) {
    writeTitles(state, false);
}
BENCHMARK(storedPropertyWriteUnserved);

}  // namespace
