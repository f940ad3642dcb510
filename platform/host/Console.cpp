#include "host/Console.h"

#include <atomic>
#include <cstdarg>
#include <cstdio>
#include <memory>
#include <mutex>
#include <string>
#include <utility>

namespace {

/// Where the console goes. Shared, so that a sink may be replaced while it runs.
struct Console {
    std::mutex mutex;
    std::shared_ptr<host::ConsoleSink> sink = std::make_shared<host::ConsoleSink>();
};

Console& console() {
    static Console& instance = *new Console;  // printing works until the very end of the process
    return instance;
}

std::atomic<bool> s_isInLine{false};
std::atomic<void (*)()> s_flushBuffer{nullptr};

void flushBuffer() {
    if (void (*flush)() = s_flushBuffer) {
        flush();
    }
}

void print(std::string_view text) {
    s_isInLine = text.back() != '\n';
    std::shared_ptr<host::ConsoleSink> sink;
    {
        const std::lock_guard<std::mutex> lock(console().mutex);
        sink = console().sink;
    }
    if (*sink) {
        (*sink)(text);
        return;
    }
    std::fwrite(text.data(), 1, text.size(), stdout);
    std::fflush(stdout);
}

/// The formatted text in `result`; the same value as `vsnprintf`.
int format(std::string& result, const char* pattern, std::va_list arguments) {
    std::va_list again;
    va_copy(again, arguments);
    const int length = std::vsnprintf(nullptr, 0, pattern, arguments);
    if (length > 0) {
        result.resize(static_cast<std::size_t>(length) + 1);  // with room for the end mark
        std::vsnprintf(result.data(), result.size(), pattern, again);
        result.pop_back();
    }
    va_end(again);
    return length;
}

}  // namespace

int utPrintf(const char* pattern, ...) {
    std::string text;
    std::va_list arguments;
    va_start(arguments, pattern);
    const int length = format(text, pattern, arguments);
    va_end(arguments);
    if (length > 0) {
        flushBuffer();
        print(text);
    }
    return length;
}

namespace host {

void printText(std::string_view text) {
    if (!text.empty()) {
        flushBuffer();
        print(text);
    }
}

void printBuffered(std::string_view text) {
    if (!text.empty()) {
        print(text);
    }
}

void setConsoleBuffer(void (*flush)()) {
    s_flushBuffer = flush;
}

void endLine() {
    flushBuffer();
    if (s_isInLine) {
        print("\n");
    }
}

ConsoleSink redirectConsole(ConsoleSink sink) {
    auto next = std::make_shared<ConsoleSink>(std::move(sink));
    const std::lock_guard<std::mutex> lock(console().mutex);
    next.swap(console().sink);
    return *next;
}

}  // namespace host
