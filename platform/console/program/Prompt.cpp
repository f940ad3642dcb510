#include "Prompt.h"

#include <cstdio>
//
#include <editline/readline.h>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <string_view>
#include <utility>

namespace DOVA::console {

namespace {

constexpr const char* s_first = "> ";
constexpr const char* s_further = ">> ";
// Everything that a name with dots and colons does not have.
char s_wordBreaks[] = " \t\n\"'`=~<>;,|&()[]{}+-*/%^#";

}  // namespace

Prompt* Prompt::s_current = nullptr;

Prompt::Prompt(const ScriptConsole& console, Handler handler)
    : m_console(console), m_handler(std::move(handler)) {
    s_current = this;
    rl_readline_name = "dova-host";
    rl_basic_word_break_characters = s_wordBreaks;
    rl_completer_word_break_characters = s_wordBreaks;
    rl_attempted_completion_function = complete;
}

Prompt::~Prompt() {
    hide();
    s_current = nullptr;
}

void Prompt::show() {
    m_isShown = true;
    rl_callback_handler_install(m_entry.empty() ? s_first : s_further, onLine);
    if (!m_typed.empty()) {
        rl_insert_text(std::exchange(m_typed, {}).c_str());
        std::fputs("\r", stdout);  // over the prompt that stands there already
        std::fflush(stdout);
        rl_forced_update_display();
    }
}

void Prompt::hide() {
    if (m_isShown) {
        m_typed.assign(rl_line_buffer, static_cast<std::size_t>(rl_end));
        std::fputs("\r", stdout);
        leave();
    }
}

void Prompt::leave() {
    rl_callback_handler_remove();
    m_isShown = false;
}

void Prompt::readKey() {
    rl_callback_read_char();
}

void Prompt::discard() {
    leave();
    m_entry.clear();
    std::fputs("\n", stdout);
    std::fflush(stdout);
    show();
}

void Prompt::onLine(char* line) {
    const std::unique_ptr<char, decltype(&std::free)> owned(line, std::free);
    s_current->leave();
    s_current->take(line);
}

void Prompt::take(const char* line) {
    if (line == nullptr) {
        m_handler(nullptr);
        return;
    }
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

char** Prompt::complete(const char* word, int, int) {
    rl_attempted_completion_over = 1;  // files are not meant
    rl_completion_append_character = 0;
    // At the beginning of a line the key indents; a pasted text has such tabs.
    const std::string_view before(rl_line_buffer, static_cast<std::size_t>(rl_point));
    const bool isBlank = before.find_first_not_of(" \t") == before.npos;
    s_current->m_candidates =
        isBlank ? std::vector<std::string>{"\t"} : s_current->m_console.complete(word);
    return rl_completion_matches(word, nextCandidate);
}

char* Prompt::nextCandidate(const char*, int index) {
    // Asked with 0 and then with any other number, until there are no more.
    static std::size_t next = 0;
    next = index == 0 ? 0 : next + 1;
    const auto& candidates = s_current->m_candidates;
    return next < candidates.size() ? ::strdup(candidates[next].c_str()) : nullptr;
}

}  // namespace DOVA::console
