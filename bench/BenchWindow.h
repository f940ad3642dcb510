#pragma once

#include <memory>
#include <string>
#include <vector>

#include "CountingBus.h"
#include "core/KorvidOnlineFlag.h"
#include "core/ModuleEntry.h"
#include "toolkit/DVBoxLayout2.h"
#include "toolkit/DVButton2.h"
#include "toolkit/DVDialog2.h"
#include "toolkit/DVPanel2.h"

namespace bench {

/// Loads the library with a client connected, once.
inline void start() {
    static const bool started = [] {
        CountingBus::instance();
        initialize_dova2_web();
        DOVA::web::KorvidOnlineFlag::set(true);
        CountingBus::instance().deliver("/dova2/web", R"({"clientReady":"bench"})");
        return true;
    }();
    (void)started;
}

/// A dialog of `count` buttons in a box layout five levels down: dialog, layout, panel, layout,
/// button.
class Window {
public:
    explicit Window(int count) {
        m_dialog.setLayout(&m_outer);
        m_outer.addWidget(&m_panel);
        m_panel.setLayout(&m_rows);
        for (int i = 0; i < count; ++i) {
            m_buttons.push_back(std::make_unique<DOVA::DVButton2>(nullptr, u"Button"));
            m_rows.addWidget(m_buttons.back().get());
        }
    }

    void show() { m_dialog.show(); }
    DOVA::DVDialog2& dialog() { return m_dialog; }
    DOVA::DVButton2& button(std::size_t index) { return *m_buttons.at(index); }
    std::string channel() const {
        return "/dova2/web/bench/" + std::to_string(m_dialog.identifier());
    }

private:
    struct Started {
        Started() { start(); }
    };

    Started m_started;  // first: front objects ask for their web objects when they are made
    DOVA::DVDialog2 m_dialog;
    DOVA::DVBoxLayout2 m_outer;
    DOVA::DVPanel2 m_panel;
    DOVA::DVBoxLayout2 m_rows;
    std::vector<std::unique_ptr<DOVA::DVButton2>> m_buttons;
};

}  // namespace bench
