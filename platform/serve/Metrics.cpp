#include "Metrics.h"

#include <unistd.h>

#include <fstream>
#include <sstream>

namespace DOVA::serve {

namespace {

/// A label's value as it may stand between quotation marks.
std::string escaped(const std::string& text) {
    std::string result;
    for (const char letter : text) {
        if (letter == '\n') {
            result += "\\n";
        } else {
            result += letter == '\\' || letter == '"' ? std::string("\\") + letter
                                                      : std::string(1, letter);
        }
    }
    return result;
}

class Writer {
public:
    explicit Writer(Form form) : m_form(form) {}

    /// The lines before the samples of a family.
    void family(const std::string& name, const char* type, const char* help) {
        m_text << "# HELP " << name << ' ' << help << "\n# TYPE " << name << ' ' << type << '\n';
    }

    /// The suffix of a counter's samples is a part of its name in one form only.
    void counters(const std::string& name, const char* help) {
        family(m_form == Form::Text ? name + "_total" : name, "counter", help);
    }

    template <typename Number>
    void sample(const std::string& name, Number value) {
        m_text << name << ' ' << value << '\n';
    }

    void samples(const std::string& name, const char* label,
                 const std::map<std::string, std::uint64_t>& values) {
        for (const auto& [key, value] : values) {
            m_text << name << '{' << label << "=\"" << escaped(key) << "\"} " << value << '\n';
        }
    }

    void gauge(const std::string& name, std::size_t value, const char* help) {
        family(name, "gauge", help);
        sample(name, value);
    }

    void counter(const std::string& name, std::uint64_t value, const char* help) {
        counters(name, help);
        sample(name + "_total", value);
    }

    std::string end() {
        m_text << (m_form == Form::OpenMetrics ? "# EOF\n" : "");
        return m_text.str();
    }

private:
    const Form m_form;
    std::ostringstream m_text;
};

void writeStarts(Writer& writer, const StartTimes& starts) {
    const std::string name = "dova_program_start_seconds";
    writer.family(name, "histogram", "From the start of a process to its first word.");
    for (std::size_t index = 0; index < StartTimes::s_milliseconds.size(); ++index) {
        std::ostringstream bound;
        bound << name << "_bucket{le=\"" << StartTimes::s_milliseconds[index] / 1000.0 << "\"}";
        writer.sample(bound.str(), starts.atMost(index));
    }
    writer.sample(name + "_bucket{le=\"+Inf\"}", starts.count());
    writer.sample(name + "_sum", static_cast<double>(starts.sum().count()) / 1000);
    writer.sample(name + "_count", starts.count());
}

}  // namespace

void StartTimes::add(std::chrono::milliseconds time) {
    for (std::size_t index = 0; index < s_milliseconds.size(); ++index) {
        m_atMost[index] += time.count() <= s_milliseconds[index] ? 1 : 0;
    }
    ++m_count;
    m_sum += time;
}

std::string text(const Metrics& metrics, Form form) {
    Writer writer(form);
    writer.gauge("dova_visitors", metrics.visitors, "Visitors who may come in.");
    writer.gauge("dova_programs", metrics.programs, "Programs that run.");
    writer.gauge("dova_pages", metrics.pages, "Pages that are connected.");
    writer.counter("dova_openings", metrics.passed.openings, "Connections of pages.");
    writer.counter("dova_resumptions", metrics.passed.resumptions,
                   "Connections that went on with a session.");
    writer.counter("dova_texts_up", metrics.passed.textsUp, "Texts that pages sent.");
    writer.counter("dova_bytes_up", metrics.passed.bytesUp, "Bytes that pages sent.");
    writer.counter("dova_bytes_down", metrics.passed.bytesDown, "Bytes that programs sent.");
    writer.counter("dova_program_faults", metrics.faults,
                   "Programs that could not be started, or failed.");
    writer.counters("dova_refusals", "Pages that were kept out, by reason.");
    writer.samples("dova_refusals_total", "reason", metrics.refusals);
    writer.family("dova_program_memory_bytes", "gauge", "Resident memory of the programs.");
    writer.samples("dova_program_memory_bytes", "visitor", metrics.memory);
    writeStarts(writer, metrics.starts);
    return writer.end();
}

std::uint64_t residentBytes(int pid) {
    std::ifstream file("/proc/" + std::to_string(pid) + "/statm");
    std::uint64_t all = 0, resident = 0;
    return file >> all >> resident ? resident * static_cast<std::uint64_t>(sysconf(_SC_PAGESIZE))
                                   : 0;
}

}  // namespace DOVA::serve
