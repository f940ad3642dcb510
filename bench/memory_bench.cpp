// What one more widget costs a program: bytes and blocks of the heap that it keeps, and how often
// it asked for one on the way. Counted, not timed: the figures are the same on every machine.

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "BenchWindow.h"
#include "toolkit/DVCheckBox2.h"
#include "toolkit/DVComboBox2.h"
#include "toolkit/DVEdit2.h"
#include "toolkit/DVText2.h"

namespace {

struct Heap {
    long bytes = 0;
    long blocks = 0;
    long requests = 0;

    Heap operator-(const Heap& other) const {
        return {bytes - other.bytes, blocks - other.blocks, requests - other.requests};
    }
};

Heap s_heap;  // the library and the benchmark have one thread

// With the word that the heap keeps before each block.
long sizeOf(void* block) {
    return static_cast<long>(malloc_usable_size(block) + sizeof(std::size_t));
}

void* given(void* block) {
    if (block) {
        s_heap.bytes += sizeOf(block);
        ++s_heap.blocks;
        ++s_heap.requests;
    }
    return block;
}

void takenBack(void* block) {
    if (block) {
        s_heap.bytes -= sizeOf(block);
        --s_heap.blocks;
    }
}

}  // namespace

// In the place of the C library's own, and with its names of arguments, for this program and every
// library that it loads.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t nmemb, std::size_t size);
void* __libc_realloc(void* ptr, std::size_t size);
void __libc_free(void* ptr);

void* malloc(std::size_t size) {
    return given(__libc_malloc(size));
}
void* calloc(std::size_t nmemb, std::size_t size) {
    return given(__libc_calloc(nmemb, size));
}
void* realloc(void* ptr, std::size_t size) {
    takenBack(ptr);
    return given(__libc_realloc(ptr, size));
}
void free(void* ptr) {
    takenBack(ptr);
    __libc_free(ptr);
}
}

namespace {

std::u16string numbered(const char16_t* text, int number) {
    const std::string digits = std::to_string(number);
    return text + std::u16string(digits.begin(), digits.end());
}

/// A form's row, one of each kind.
struct Row {
    explicit Row(int number)
        : name(nullptr, numbered(u"Name ", number)),
          value(nullptr, numbered(u"value ", number)),
          option(nullptr, numbered(u"Option ", number)),
          color(nullptr, {u"red", u"orange", u"yellow", u"green", u"blue"}),
          open(nullptr, numbered(u"Row ", number)) {
        color.setSelection(number % 5);
    }
    static constexpr int Widgets = 5;

    DOVA::DVText2 name;
    DOVA::DVEdit2 value;
    DOVA::DVCheckBox2 option;
    DOVA::DVComboBox2 color;
    DOVA::DVButton2 open;
};

/// What a shown window with so many rows keeps of the heap.
Heap heapOfRows(int count) {
    const bench::Window window(0);
    const Heap before = s_heap;
    std::vector<std::unique_ptr<Row>> rows;
    rows.reserve(static_cast<std::size_t>(count));
    DOVA::DVDialog2 dialog;
    DOVA::DVBoxLayout2 layout;
    dialog.setLayout(&layout);
    for (int i = 0; i < count; ++i) {
        Row& row = *rows.emplace_back(std::make_unique<Row>(i));
        const std::initializer_list<DOVA::DVObject*> widgets = {&row.name, &row.value, &row.option,
                                                                &row.color, &row.open};
        for (DOVA::DVObject* widget : widgets) {
            layout.addWidget(widget);
        }
    }
    dialog.show();
    return s_heap - before;
}

// The second window finds what the first has left in the process, so only what grows with the rows
// is in their difference.
void oneMoreWidget(benchmark::State& state) {
    constexpr int rows = 2000;
    heapOfRows(rows);
    Heap more;
    for (auto _ : state) {
        more = heapOfRows(2 * rows) - heapOfRows(rows);
    }
    const auto each = [](long sum) { return static_cast<double>(sum) / (rows * Row::Widgets); };
    state.counters["bytes"] = each(more.bytes);
    state.counters["blocks"] = each(more.blocks);
    state.counters["requests"] = each(more.requests);
}
BENCHMARK(oneMoreWidget)->Iterations(1);

}  // namespace
