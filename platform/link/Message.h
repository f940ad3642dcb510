#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "CloseReason.h"
#include "SessionEnd.h"

namespace DOVA::link {

/// What travels between a gateway and a program. `link` names the connection of a page; the gateway
/// makes the name, of at most 255 bytes.
///
/// On a stream each message stands behind its length, four bytes, the highest first: its kind, one
/// byte; the length of `link`, one byte; `link`; the rest.
struct Message {
    enum class Kind : char {
        Hello = 'h',    ///< to the gateway, once: what program this is; no link
        Open = 'o',     ///< to the program: a page's connection
        Frame = 'f',    ///< both ways: a frame, or the greeting, byte for byte
        Written = 'w',  ///< to the program: so many bytes have gone out to the page
        Taken = 'u',    ///< to the gateway: so many bytes of the page are worked off
        Closed = 'c',   ///< to the program: the page's connection is gone, and why
        End = 'e',      ///< to the gateway: the connection is to be closed, and why
    };

    Kind kind;
    std::string_view link;
    std::string_view rest;
};

/// So much may be on its way to a page that does not read, and as much of what it sends may wait to
/// be worked off. Each side tells of it in quarters.
inline constexpr std::size_t s_windowBytes = std::size_t{1} << 20;
inline constexpr std::size_t s_creditBytes = s_windowBytes / 4;

/// The forms of messages. What reads answers nothing for what has another form.
namespace message {

/// What stands before the rest of a message, which is to have so many bytes.
std::string head(Message::Kind kind, std::string_view link, std::size_t restBytes);

/// Longer ones are a fault of the other side.
inline constexpr std::size_t s_mostBytes = std::size_t{256} << 20;
inline constexpr std::size_t s_lengthBytes = 4;

/// The length that these bytes tell.
std::size_t lengthAt(const char* bytes);

/// A message without its length.
std::optional<Message> parse(std::string_view text);

/// The rest of Open.
std::string opening(const Opening& opening);
std::optional<Opening> readOpening(std::string_view rest);

/// The rest of Written and Taken.
std::string count(std::size_t bytes);
std::optional<std::size_t> readCount(std::string_view rest);

/// The rest of Closed and End.
struct Reason {
    std::uint16_t code;
    std::string text;
};
std::string reason(const session::CloseReason& reason);
std::optional<Reason> readReason(std::string_view rest);

/// The rest of Hello.
using Properties = std::map<std::string, std::string, std::less<>>;
std::string hello(const Properties& properties);
std::optional<Properties> readHello(std::string_view rest);

}  // namespace message

}  // namespace DOVA::link
