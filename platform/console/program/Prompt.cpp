#include "Prompt.h"

// The line editor's own interface: the readline one keeps writing to where a line was before it
// grew beyond a kilobyte.
#include <histedit.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <new>
#include <utility>

#include "host/Console.h"

namespace DOVA::console {

namespace {

char s_first[] = "> ";
char s_further[] = ">> ";

std::string_view textOf(const char* begin, const char* end) {
    return {begin, static_cast<std::size_t>(end - begin)};
}

/// What all begin with.
std::string commonBeginning(const std::vector<std::string>& texts) {
    std::string common = texts.front();
    for (const std::string& text : texts) {
        const std::size_t most = std::min(common.size(), text.size());
        const auto end = common.begin() + static_cast<std::ptrdiff_t>(most);
        common.erase(std::mismatch(common.begin(), end, text.begin()).first, common.end());
    }
    return common;
}

/// How much of the beginning of `word` stands at the end of `text`.
std::size_t begunIn(std::string_view text, std::string_view word) {
    std::size_t size = std::min(text.size(), word.size());
    while (text.substr(text.size() - size) != word.substr(0, size)) {
        --size;
    }
    return size;
}

}  // namespace

Prompt::Prompt(const ScriptConsole& console, Handler handler)
    : m_console(console),
      m_handler(std::move(handler)),
      m_editor(::el_init("dova-host", stdin, stdout, stderr)) {
    if (!m_editor) {
        throw std::bad_alloc();
    }
    ::el_set(m_editor.get(), EL_CLIENTDATA, this);
    ::el_set(m_editor.get(), EL_PROMPT, mark);
    ::el_set(m_editor.get(), EL_SIGNAL, 0);  // they are the program's
    m_history.offerTo(m_editor.get());
    bindKeys();
}

Prompt::~Prompt() {
    hide();
}

void Prompt::Closer::operator()(struct editline* editor) const {
    ::el_end(editor);
}

void Prompt::bindKeys() {
    struct editline* const editor = m_editor.get();
    ::el_set(editor, EL_EDITOR, "emacs");
    ::el_source(editor, nullptr);  // the user's own
    // Wide, for of others the editor makes copies that nobody frees.
    ::el_wset(editor, EL_ADDFN, L"dova-complete", L"Complete the name", onTab);
    ::el_wset(editor, EL_ADDFN, L"dova-end", L"End the program, or delete a character", onEnd);
    const std::pair<const char*, const char*> keys[] = {
        {"^I", "dova-complete"},           {"^D", "dova-end"},
        {"^R", "em-inc-search-prev"},      {"^W", "ed-delete-prev-word"},
        {"\\e[1~", "ed-move-to-beg"},      {"\\e[4~", "ed-move-to-end"},
        {"\\e[H", "ed-move-to-beg"},       {"\\e[F", "ed-move-to-end"},
        {"\\e[3~", "ed-delete-next-char"}, {"\\e[1;5C", "em-next-word"},
        {"\\e[1;5D", "ed-prev-word"},
    };
    for (const auto& [key, command] : keys) {
        ::el_set(editor, EL_BIND, key, command, nullptr);
    }
}

Prompt& Prompt::of(struct editline* editor) {
    void* prompt = nullptr;
    ::el_get(editor, EL_CLIENTDATA, &prompt);
    return *static_cast<Prompt*>(prompt);
}

char* Prompt::mark(struct editline* editor) {
    return of(editor).m_entry.empty() ? s_first : s_further;
}

void Prompt::show() {
    host::endLine();
    m_isShown = true;
    ::el_set(m_editor.get(), EL_UNBUFFERED, 1);
    if (!m_typed.empty()) {
        ::el_insertstr(m_editor.get(), std::exchange(m_typed, {}).c_str());
        std::fputs("\r", stdout);  // over the prompt that stands there already
        ::el_set(m_editor.get(), EL_REFRESH);
    }
}

void Prompt::hide() {
    if (m_isShown) {
        const LineInfo* line = ::el_line(m_editor.get());
        m_typed = textOf(line->buffer, line->lastchar);
        std::fputs("\r", stdout);
        leave();
    }
}

void Prompt::leave() {
    ::el_set(m_editor.get(), EL_UNBUFFERED, 0);
    std::fflush(stdout);
    m_isShown = false;
}

void Prompt::readKey() {
    if (!m_isShown) {
        return;  // it stays there until the prompt comes back
    }
    int waiting = 0;
    const bool isTerminalThere = ::ioctl(STDIN_FILENO, FIONREAD, &waiting) == 0 && waiting > 0;
    int count = 0;
    const wchar_t* typed = isTerminalThere ? ::el_wgets(m_editor.get(), &count) : nullptr;
    if (m_isOver || !isTerminalThere) {
        leave();
        m_handler(nullptr);
    } else if (typed != nullptr && count > 0 && typed[count - 1] == L'\n') {
        const LineInfo* line = ::el_line(m_editor.get());
        const std::string text(textOf(line->buffer, line->lastchar - 1));
        leave();
        take(text);
    }
}

void Prompt::discard() {
    leave();
    m_entry.clear();
    std::fputs("\n", stdout);
    std::fflush(stdout);
    show();
}

void Prompt::take(const std::string& line) {
    m_history.add(line);
    m_entry += line;
    if (m_console.isIncomplete(m_entry)) {
        m_entry += '\n';
        show();
        return;
    }
    const std::string entry = std::exchange(m_entry, {});
    m_handler(&entry);
}

unsigned char Prompt::onEnd(struct editline* editor, int) {
    const LineInfoW* line = ::el_wline(editor);
    if (line->buffer == line->lastchar) {
        of(editor).m_isOver = true;
        return CC_EOF;
    }
    if (line->cursor == line->lastchar) {
        return CC_ERROR;
    }
    const int at = static_cast<int>(line->cursor - line->buffer);
    ::el_deletestr1(editor, at, at + 1);
    return CC_REFRESH;
}

unsigned char Prompt::onTab(struct editline* editor, int) {
    const LineInfo* line = ::el_line(editor);
    const std::string before(textOf(line->buffer, line->cursor));
    // At the beginning of a line the key indents; a pasted text has such tabs.
    if (before.find_first_not_of(" \t") == before.npos) {
        return ::el_insertstr(editor, "\t") == 0 ? CC_REFRESH : CC_ERROR;
    }
    return of(editor).complete(before);
}

/// Goes as far as there is one way; where there are several, the second key shows them.
unsigned char Prompt::complete(std::string_view before) {
    const std::vector<std::string> candidates = m_console.complete(before);
    if (candidates.empty()) {
        return CC_ERROR;
    }
    const std::string common = commonBeginning(candidates);
    const std::string rest = common.substr(begunIn(before, common));
    if (!rest.empty()) {
        ::el_insertstr(m_editor.get(), rest.c_str());
        return candidates.size() == 1 ? CC_REFRESH : CC_REFRESH_BEEP;
    }
    if (candidates.size() == 1 || std::exchange(m_tabbed, before) != before) {
        return CC_ERROR;
    }
    list(candidates);
    return CC_REDISPLAY;
}

void Prompt::list(const std::vector<std::string>& candidates) const {
    int columns = 0;
    ::el_get(m_editor.get(), EL_GETTC, "co", &columns, nullptr);
    std::size_t width = 0;
    for (const std::string& each : candidates) {
        width = std::max(width, each.size() + 2);
    }
    const std::size_t inLine = std::max<std::size_t>(static_cast<std::size_t>(columns) / width, 1);
    for (std::size_t index = 0; index < candidates.size(); ++index) {
        std::fputs(index % inLine == 0 ? "\n" : "", stdout);
        std::fprintf(stdout, "%-*s", static_cast<int>(width), candidates[index].c_str());
    }
    std::fputs("\n", stdout);
}

}  // namespace DOVA::console
