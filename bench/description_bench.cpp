// A window's description as a page gets it, with the records of what the page shows, against
// building and writing the same tree with Qt's JSON alone; and the growth of an array property.

#include <benchmark/benchmark.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "BenchWindow.h"
#include "core/WebObjectLookup.h"
#include "windows/WebAbstractWindow2.h"

namespace {

QJsonObject floorObject(int id, const QString& type) {
    QJsonObject object;
    object.insert(QStringLiteral("id"), QString::number(id));
    object.insert(QStringLiteral("type"), type);
    return object;
}

QJsonObject floorButton(int id) {
    QJsonObject button = floorObject(id, QStringLiteral("Button"));
    button.insert(QStringLiteral("tooltip"), QString());
    button.insert(QStringLiteral("enable"), true);
    button.insert(QStringLiteral("visible"), true);
    button.insert(QStringLiteral("label"), QStringLiteral("Button"));
    button.insert(QStringLiteral("icon"), QString());
    button.insert(QStringLiteral("defaultbutton"), false);
    return button;
}

QJsonObject within(QJsonObject parent, const QJsonValue& content) {
    parent.insert(QStringLiteral("contents"), content);
    return parent;
}

QJsonObject floorTree(int count) {
    QJsonArray buttons;
    for (int i = 0; i < count; ++i) {
        buttons.append(floorButton(i + 5));
    }
    const QString box = QStringLiteral("BoxLayout");
    const QJsonObject rows = within(floorObject(4, box), buttons);
    const QJsonObject panel = within(floorObject(3, QStringLiteral("Panel")), QJsonArray{rows});
    const QJsonObject outer = within(floorObject(2, box), QJsonArray{panel});
    QJsonObject dialog = floorObject(1, QStringLiteral("Dialog"));
    dialog.insert(QStringLiteral("version"), QStringLiteral("0.5"));
    return within(dialog, QJsonArray{outer});
}

void descriptionFloor(benchmark::State& state) {
    const int count = static_cast<int>(state.range(0));
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            QJsonDocument(floorTree(count)).toJson(QJsonDocument::Compact).toStdString());
    }
}
BENCHMARK(descriptionFloor)->Arg(1000)->Arg(10000)->Arg(100000);

void descriptionPublished(benchmark::State& state) {
    const int count = static_cast<int>(state.range(0));
    bench::Window window(count);
    const std::size_t before = bench::CountingBus::instance().bytes;
    window.show();
    const std::size_t published = bench::CountingBus::instance().bytes - before;
    auto* web = DOVA::webObject<DOVA::WebAbstractWindow2>(window.dialog());
    for (auto _ : state) {
        web->doShowAgain();
    }
    if (published < static_cast<std::size_t>(count) * 50) {
        state.SkipWithError("the window was not described");
    }
}
BENCHMARK(descriptionPublished)->Arg(1000)->Arg(10000)->Arg(100000);

// One element more on an array of the given size, over and over: the array is put back to its size
// outside of the measured time every now and then.
void arrayAppend(benchmark::State& state) {
    bench::Window window(1);
    auto* web = DOVA::webObject<DOVA::WebObject2>(window.dialog());
    const auto size = static_cast<std::size_t>(state.range(0));
    const std::vector<std::u16string> full(size, u"entry");
    // Long enough that it is not the filling's traces in the heap that are measured.
    constexpr int batch = 1000;
    for (auto _ : state) {
        state.PauseTiming();
        web->setProperty(u"list", full, false);
        web->addToArrayProperty(u"list", u"first after filling", false);
        state.ResumeTiming();
        for (int i = 0; i < batch; ++i) {
            web->addToArrayProperty(u"list", u"entry", false);
        }
    }
    state.SetItemsProcessed(state.iterations() * batch);
}
BENCHMARK(arrayAppend)->Arg(100)->Arg(10000);

}  // namespace
