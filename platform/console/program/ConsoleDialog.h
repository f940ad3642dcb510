#pragma once

#include <functional>
#include <string>

#include "toolkit/DVBoxLayout2.h"
#include "toolkit/DVButton2.h"
#include "toolkit/DVDialog2.h"
#include "toolkit/DVEdit2.h"
#include "toolkit/DVPanel2.h"
#include "toolkit/DVText2.h"

namespace DOVA::console {

/// The dialog "Script console": a line to run, and the last lines of the output.
class ConsoleDialog : public DVDialog2 {
public:
    /// `onRun` gets the line, UTF-8. The dialog may be deleted meanwhile.
    explicit ConsoleDialog(std::function<void(const std::string& line)> onRun);

    /// UTF-8.
    void showOutput(const std::string& text);

private:
    void addOutput();
    void run();

    const std::function<void(const std::string&)> m_onRun;
    DVBoxLayout2 m_rows;
    DVPanel2 m_shelf{this};
    DVBoxLayout2 m_shelfRows;
    DVPanel2 m_screen{&m_shelf};
    DVBoxLayout2 m_screenRows;
    DVText2 m_output{&m_screen};
    DVBoxLayout2 m_entry{nullptr, Direction::LeftToRight};
    DVText2 m_label{this, u"Lua"};
    DVEdit2 m_line{this};
    DVButton2 m_run{this, u"Run"};
};

}  // namespace DOVA::console
