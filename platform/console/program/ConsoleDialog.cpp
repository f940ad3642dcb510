#include "ConsoleDialog.h"

#include <utility>

#include "host/Utf8.h"

namespace DOVA::console {

ConsoleDialog::ConsoleDialog(std::function<void(const std::string& line)> onRun)
    : m_onRun(std::move(onRun)) {
    setTitle(u"Script console");
    setLayout(&m_rows);
    m_rows.addWidget(&m_output);
    m_rows.addWidget(&m_label);
    m_rows.addWidget(&m_line);
    m_rows.addWidget(&m_run);
    m_label.setBuddy(&m_line);
    m_run.setDefault(true);
    m_run.onClick([this] { run(); });
    onCloseRequest([this] { close(); });
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
