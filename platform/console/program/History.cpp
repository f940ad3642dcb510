#include "History.h"

// The header needs FILE, and brings macros of its own.
#include <cstdio>
//
#include <editline/readline.h>
#include <sys/stat.h>

#include <cstdlib>
#include <iostream>
#include <system_error>
#include <utility>

namespace DOVA::console {

namespace fs = std::filesystem;

namespace {

constexpr int s_mostLines = 1000;

}  // namespace

fs::path History::defaultFile() {
    const char* const state = std::getenv("XDG_STATE_HOME");
    const char* const home = std::getenv("HOME");
    const fs::path name = fs::path("dova-host") / "history";
    if (state != nullptr && fs::path(state).is_absolute()) {  // others are to be ignored
        return state / name;
    }
    return home != nullptr && *home != 0 ? home / fs::path(".local/state") / name : fs::path();
}

History::History(fs::path file) : m_file(std::move(file)) {
    rl_catch_signals = 0;  // they are the program's; what follows starts the line editor
    using_history();
    stifle_history(s_mostLines);
    if (!m_file.empty()) {
        read_history(m_file.c_str());
    }
}

History::~History() {
    if (!m_file.empty() && !save()) {
        std::cerr << "dova-host: cannot keep the history in " + m_file.string() + "\n";
    }
    clear_history();
}

bool History::save() const {
    std::error_code error;
    fs::create_directories(m_file.parent_path(), error);
    const mode_t before = ::umask(S_IRWXG | S_IRWXO);
    const bool isWritten = write_history(m_file.c_str()) == 0;
    ::umask(before);
    return isWritten;
}

void History::add(const std::string& line) {
    if (!line.empty() && line != m_last) {
        add_history(line.c_str());
        m_last = line;
    }
}

}  // namespace DOVA::console
