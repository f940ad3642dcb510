#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "History.h"
#include "console/ScriptConsole.h"

namespace DOVA::console {

/// The prompt of a terminal: line editing, completion with the tab key, history. Entries may have
/// several lines, of any length. Standard input and output must be a terminal.
class Prompt {
public:
    /// Gets each whole entry, while the terminal is as it was before; null at its end: Ctrl-D,
    /// or a terminal that is gone.
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
    struct Closer {
        void operator()(struct editline* editor) const;
    };

    void bindKeys();
    static Prompt& of(struct editline* editor);
    static char* mark(struct editline* editor);
    static unsigned char onTab(struct editline* editor, int);
    static unsigned char onEnd(struct editline* editor, int);
    unsigned char complete(std::string_view before);
    void list(const std::vector<std::string>& candidates) const;
    void take(const std::string& line);
    void leave();

    const ScriptConsole& m_console;
    const Handler m_handler;
    History m_history{History::defaultFile()};
    std::unique_ptr<struct editline, Closer> m_editor;
    std::string m_entry;   ///< its lines so far
    std::string m_typed;   ///< of the next line, while the prompt is hidden
    std::string m_tabbed;  ///< what stood before the cursor when the tab key last did nothing
    bool m_isShown = false;
    bool m_isOver = false;
};

}  // namespace DOVA::console
