#include "History.h"

#include <histedit.h>
#include <sys/stat.h>

#include <cstdlib>
#include <iostream>
#include <new>
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

History::History(fs::path file) : m_file(std::move(file)), m_lines(::history_init()) {
    if (!m_lines) {
        throw std::bad_alloc();
    }
    HistEvent event;
    ::history(m_lines.get(), &event, H_SETSIZE, s_mostLines);
    if (!m_file.empty()) {
        ::history(m_lines.get(), &event, H_LOAD, m_file.c_str());
    }
}

History::~History() {
    if (!m_file.empty() && !save()) {
        std::cerr << "dova-host: cannot keep the history in " + m_file.string() + "\n";
    }
}

void History::Closer::operator()(struct ::history* lines) const {
    ::history_end(lines);
}

void History::offerTo(struct editline* editor) const {
    ::el_set(editor, EL_HIST, ::history, m_lines.get());
}

bool History::save() const {
    std::error_code error;
    fs::create_directories(m_file.parent_path(), error);
    const mode_t before = ::umask(S_IRWXG | S_IRWXO);
    HistEvent event;
    const bool isWritten = ::history(m_lines.get(), &event, H_SAVE, m_file.c_str()) >= 0;
    ::umask(before);
    return isWritten;
}

void History::add(const std::string& line) {
    if (!line.empty() && line != m_last) {
        HistEvent event;
        ::history(m_lines.get(), &event, H_ENTER, line.c_str());
        m_last = line;
    }
}

}  // namespace DOVA::console
