// The program behind the browser benchmarks: a dialog with a button that changes a text, a button
// that sends a burst of writes, one that opens a window of rows, one that opens a window of labels
// and fields, and as many widgets as asked for: bench_program WIDGETS ROWS WRITES [FIELDS]. Prints
// its address on one line.

#include <cstdlib>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "runtime/Host.h"
#include "runtime/StartError.h"
#include "toolkit/DVBoxLayout2.h"
#include "toolkit/DVButton2.h"
#include "toolkit/DVDialog2.h"
#include "toolkit/DVEdit2.h"
#include "toolkit/DVGridLayout2.h"
#include "toolkit/DVText2.h"

namespace {

std::u16string decimal(int number) {
    const std::string digits = std::to_string(number);
    return std::u16string(digits.begin(), digits.end());
}

struct Sizes {
    int widgets;
    int rows;
    int writes;
    int fields;
};

/// A dialog with `count` buttons, apart from the one that is measured.
class Rows {
public:
    explicit Rows(int count) {
        m_dialog.setLayout(&m_layout);
        for (int i = 0; i < count; ++i) {
            m_layout.addWidget(&m_dialog.make<DOVA::DVButton2>(u"Row " + decimal(i)));
        }
        m_dialog.show();
    }

private:
    DOVA::DVDialog2 m_dialog;
    DOVA::DVBoxLayout2 m_layout{&m_dialog};
};

/// A dialog with `count` fields, each behind its label.
class Fields {
public:
    explicit Fields(int count) {
        m_dialog.setLayout(&m_layout);
        for (int i = 0; i < count; ++i) {
            auto& label = m_dialog.make<DOVA::DVText2>(u"Label of row " + decimal(i));
            auto& field = m_dialog.make<DOVA::DVEdit2>(u"value " + decimal(i));
            label.setBuddy(&field);
            m_grid.addWidget(&label);
            m_grid.addWidget(&field);
        }
        m_layout.addWidget(&m_grid);
        m_dialog.show();
    }

private:
    DOVA::DVDialog2 m_dialog;
    DOVA::DVBoxLayout2 m_layout{&m_dialog};
    DOVA::DVGridLayout2 m_grid;
};

class Measured {
public:
    explicit Measured(Sizes sizes) : m_sizes(sizes) {
        m_dialog.setTitle(u"Measured");
        m_dialog.setLayout(&m_layout);
        for (DOVA::DVObject* widget :
             {static_cast<DOVA::DVObject*>(&m_answer), static_cast<DOVA::DVObject*>(&m_click),
              static_cast<DOVA::DVObject*>(&m_burst), static_cast<DOVA::DVObject*>(&m_open),
              static_cast<DOVA::DVObject*>(&m_openFields)}) {
            m_layout.addWidget(widget);
        }
        for (int i = 0; i < sizes.widgets; ++i) {
            m_layout.addWidget(&m_dialog.make<DOVA::DVButton2>(u"Idle " + decimal(i)));
        }
        m_click.onClick([this] { m_answer.setText(decimal(++m_clicks)); });
        m_burst.onClick([this] { writeBurst(); });
        m_open.onClick([this] { m_rows = std::make_unique<Rows>(m_sizes.rows); });
        m_openFields.onClick([this] { m_fields = std::make_unique<Fields>(m_sizes.fields); });
        m_dialog.show();
    }

private:
    void writeBurst() {
        for (int i = 1; i <= m_sizes.writes; ++i) {
            m_answer.setText(u"burst " + decimal(i));
        }
    }

    Sizes m_sizes;
    int m_clicks = 0;
    DOVA::DVDialog2 m_dialog;
    DOVA::DVBoxLayout2 m_layout{&m_dialog};
    DOVA::DVText2 m_answer{&m_dialog, u"0"};
    DOVA::DVButton2 m_click{&m_dialog, u"Click"};
    DOVA::DVButton2 m_burst{&m_dialog, u"Burst"};
    DOVA::DVButton2 m_open{&m_dialog, u"Open"};
    DOVA::DVButton2 m_openFields{&m_dialog, u"Fields"};
    std::unique_ptr<Rows> m_rows;
    std::unique_ptr<Fields> m_fields;
};

}  // namespace

int main(int argc, char** argv) {
    if (argc != 4 && argc != 5) {
        std::cerr << "bench_program: usage: bench_program WIDGETS ROWS WRITES [FIELDS]\n";
        return 2;
    }
    const Sizes sizes{std::atoi(argv[1]), std::atoi(argv[2]), std::atoi(argv[3]),
                      argc == 5 ? std::atoi(argv[4]) : 0};
    try {
        DOVA::runtime::HostOptions options;
        options.port = 0;
        DOVA::runtime::Host host(options);
        std::unique_ptr<Measured> measured;
        host.onPage([&] { measured = std::make_unique<Measured>(sizes); });
        host.onShutdown([&] { measured.reset(); });
        std::cout << host.address() << std::endl;
        return host.run();
    } catch (const DOVA::runtime::StartError& error) {
        std::cerr << "bench_program: " << error.what() << "\n";
        return 1;
    }
}
