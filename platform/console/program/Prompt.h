#pragma once

#include <functional>
#include <string>
#include <vector>

#include "History.h"
#include "console/ScriptConsole.h"

namespace DOVA::console {

/// The prompt of a terminal: line editing, completion with the tab key, history. Entries may have
/// several lines. One at a time in a process; standard input and output must be a terminal.
class Prompt {
public:
    /// Gets each whole entry, while the terminal is as it was before; null at its end (Ctrl-D).
    using Handler = std::function<void(const std::string* entry)>;

    /// `console` says what is whole and what completes; it must outlive the prompt.
    Prompt(const ScriptConsole& console, Handler handler);
    Prompt(const Prompt&) = delete;
    Prompt& operator=(const Prompt&) = delete;
    /// Leaves the terminal as it was.
    ~Prompt();

    /// Shows the prompt with what was typed of a line when it was hidden; between that and hide()
    /// the terminal is the prompt's.
    void show();
    void hide();
    /// Deals with a key; to be called when standard input has something.
    void readKey();
    /// Drops the entry so far and begins anew on the next line.
    void discard();

private:
    static void onLine(char* line);
    static char** complete(const char* word, int begin, int end);
    static char* nextCandidate(const char* word, int index);
    void take(const char* line);
    void leave();

    static Prompt* s_current;

    const ScriptConsole& m_console;
    const Handler m_handler;
    History m_history{History::defaultFile()};
    std::string m_entry;  ///< its lines so far
    std::string m_typed;  ///< of the next line, while the prompt is hidden
    std::vector<std::string> m_candidates;
    bool m_isShown = false;
};

}  // namespace DOVA::console
