#include "ConsoleDialog.h"

#include <utility>

#include "host/Utf8.h"

namespace DOVA::console {

ConsoleDialog::ConsoleDialog(std::function<void(const std::string& line)> onRun)
    : m_onRun(std::move(onRun)) {
    setTitle(u"Script console");
    setLayout(&m_rows);
    addOutput();
    m_rows.addWidget(&m_entry);
    m_entry.addWidget(&m_label);
    m_entry.addWidget(&m_line);
    m_entry.addWidget(&m_run);
    m_label.setBuddy(&m_line);
    m_run.setDefault(true);
    m_run.onClick([this] { run(); });
    onCloseRequest([this] { close(); });
}

// As large as what it may show, so that the line to type in stays where it is; and in a second
// panel, which scrolls where the page is lower than that.
void ConsoleDialog::addOutput() {
    m_rows.addWidget(&m_shelf);
    m_shelf.setLayout(&m_shelfRows);
    m_shelfRows.addWidget(&m_screen);
    m_screen.setMinimumSize({640, 400});
    m_screen.setLayout(&m_screenRows);
    m_screenRows.addWidget(&m_output);
}

void ConsoleDialog::showOutput(const std::string& text) {
    m_output.setText(host::fromUtf8(text));
}

void ConsoleDialog::run() {
    const std::string line = host::toUtf8(m_line.text());
    m_line.setText({});
    const auto onRun = m_onRun;  // a script may end the dialog
    onRun(line);
}

}  // namespace DOVA::console
