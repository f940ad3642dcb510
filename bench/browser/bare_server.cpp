// The floor of the browser benchmarks: a bare WebSocket server without sessions, bus or program.
// It echoes every text; the text "burst N SIZE" is answered with N texts of SIZE bytes, joined in
// frames of about 256 KiB and parted by U+001E. Prints its port on one line.

#include <boost/asio.hpp>
#include <boost/beast/core.hpp>
#include <boost/beast/websocket.hpp>
#include <iostream>
#include <sstream>
#include <string>

namespace {

namespace asio = boost::asio;
namespace beast = boost::beast;
using Socket = beast::websocket::stream<asio::ip::tcp::socket>;

constexpr std::size_t s_frameSize = 256 * 1024;

void sendBurst(Socket& socket, std::size_t count, std::size_t size) {
    std::string frame;
    for (std::size_t number = 1; number <= count; ++number) {
        std::string text = std::to_string(number);
        text.resize(size, ' ');
        frame += '\x1e' + text;
        if (frame.size() >= s_frameSize || number == count) {
            socket.write(asio::buffer(frame));
            frame.clear();
        }
    }
}

void serve(Socket& socket) {
    socket.next_layer().set_option(asio::ip::tcp::no_delay(true));
    socket.accept();
    socket.text(true);
    for (beast::flat_buffer buffer;; buffer.clear()) {
        socket.read(buffer);
        std::istringstream text(beast::buffers_to_string(buffer.data()));
        std::string command;
        std::size_t count = 0;
        std::size_t size = 0;
        if (text >> command >> count >> size && command == "burst") {
            sendBurst(socket, count, size);
        } else {
            socket.write(buffer.data());
        }
    }
}

}  // namespace

int main() try {
    asio::io_context context;
    asio::ip::tcp::acceptor acceptor(context, {asio::ip::make_address("127.0.0.1"), 0});
    std::cout << acceptor.local_endpoint().port() << std::endl;
    for (;;) {
        Socket socket(acceptor.accept());
        try {
            serve(socket);
        } catch (const beast::system_error&) {
            // The page has gone; the next one may come.
        }
    }
} catch (const std::exception& error) {
    std::cerr << "bare_server: " << error.what() << "\n";
    return 1;
}
