#pragma once

#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/beast/core/buffers_to_string.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/websocket/stream.hpp>
#include <functional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "Frame.h"
#include "Ledger.h"
#include "TargetWindow.h"

namespace DOVA::load {

/// Speaks to one page like a program with the target's window, but for what a lie does.
class LyingServer {
public:
    /// What becomes of the action that came, as the texts that the program says.
    using Lie = std::function<std::vector<std::string>(Ledger&, const Action&)>;

    explicit LyingServer(Lie lie) : m_lie(std::move(lie)), m_thread([this] { serve(); }) {}
    LyingServer(const LyingServer&) = delete;
    LyingServer& operator=(const LyingServer&) = delete;
    ~LyingServer() { m_thread.join(); }

    std::string address() const {
        return "http://127.0.0.1:" + std::to_string(m_acceptor.local_endpoint().port()) + "/#token";
    }

private:
    /// Ends with the page.
    void serve() {
        m_stream.next_layer() = m_acceptor.accept();
        m_stream.accept();
        write(R"({"session":"new","received":0})");
        try {
            while (true) {
                boost::beast::flat_buffer buffer;
                m_stream.read(buffer);
                take(boost::beast::buffers_to_string(buffer.data()));
            }
        } catch (const boost::system::system_error&) {
        }
    }

    void take(const std::string& text) {
        const auto frame = Frame::parse(text);
        frame->each(0, [this](std::string_view channel, std::string_view record) {
            ++m_received;
            const std::size_t value = record.find("\"value\":\"");
            if (channel == "/dova2/web") {
                const std::string title = TargetWindow::s_title;
                say(".",
                    R"({"id":"1","type":"Dialog","title":")" + title +
                        R"(","contents":[{"id":"2","type":"Edit"},{"id":"3","type":"Text"}]})");
            } else if (value != record.npos) {
                const std::string typed(record.substr(value + 9));
                handle(*Action::parse(typed.substr(0, typed.find('"'))));
            }
        });
    }

    void handle(const Action& action) {
        for (const std::string& text : m_lie(m_ledger, action)) {
            say("./1", R"([{"id":"3","text":")" + text + "\"}]");
        }
    }

    void say(const std::string& channel, const std::string& text) {
        write(std::to_string(++m_said) + "," + std::to_string(m_received) +
              Frame::record(channel, text));
    }
    void write(const std::string& text) { m_stream.write(boost::asio::buffer(text)); }

    const Lie m_lie;
    Ledger m_ledger;
    std::uint64_t m_received = 0;
    std::uint64_t m_said = 0;
    boost::asio::io_context m_loop;
    boost::asio::ip::tcp::acceptor m_acceptor{m_loop, {boost::asio::ip::address_v4::loopback(), 0}};
    boost::beast::websocket::stream<boost::asio::ip::tcp::socket> m_stream{m_loop};
    std::thread m_thread;
};

}  // namespace DOVA::load
