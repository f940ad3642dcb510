#include "PageChannels.h"

#include <initializer_list>

#include "ProtocolNames.h"

namespace DOVA::session {

namespace {

void skipSpace(std::string_view& text) {
    const std::size_t start = text.find_first_not_of(" \t\n\r");
    text.remove_prefix(start == std::string_view::npos ? text.size() : start);
}

/// Takes these JSON tokens off the front of the text, and the white space around them. No token
/// that is looked for can be spelled in two ways but with escapes, which no page of ours writes.
bool takeTokens(std::string_view& text, std::initializer_list<std::string_view> tokens) {
    skipSpace(text);
    for (const std::string_view token : tokens) {
        if (text.substr(0, token.size()) != token) {
            return false;
        }
        text.remove_prefix(token.size());
        skipSpace(text);
    }
    return true;
}

/// Whether a text says just this about the page itself.
bool isStatement(std::string_view text, std::string_view key, std::string_view clientId) {
    const std::string quoted = std::string("\"").append(clientId).append("\"");
    return takeTokens(text, {"{", key, ":", quoted, "}"}) && text.empty();
}

bool takeIf(std::string_view& text, std::initializer_list<std::string_view> tokens) {
    std::string_view rest = text;
    const bool isThere = takeTokens(rest, tokens);
    text = isThere ? rest : text;
    return isThere;
}

/// Takes a list of plain texts off the front. What they name is for the document to know; here it
/// counts that nothing else can hide among them.
bool takeNames(std::string_view& text) {
    if (!takeIf(text, {json::properties, ":", "["})) {
        return false;
    }
    const std::size_t end = text.find_first_of("[]{}\\");
    text.remove_prefix(end == std::string_view::npos ? text.size() : end);
    return takeIf(text, {"]"});
}

/// Whether a text asks for the model document, the whole of it or a list of properties.
bool isSnapshotRequest(std::string_view text, std::string_view clientId) {
    const std::string quoted = std::string("\"").append(clientId).append("\"");
    const auto takeClient = [&] { return takeIf(text, {json::snapshot, ":", quoted}); };
    if (!takeIf(text, {"{"})) {
        return false;
    }
    const bool isNamesFirst = takeNames(text);
    const bool isAsking = isNamesFirst ? takeIf(text, {","}) && takeClient()
                                       : takeClient() && (!takeIf(text, {","}) || takeNames(text));
    return isAsking && takeIf(text, {"}"}) && text.empty();
}

std::string statement(std::string_view key, std::string_view clientId) {
    return std::string("{").append(key).append(":\"").append(clientId).append("\"}");
}

}  // namespace

std::string PageChannels::own(const std::string& clientId) {
    return std::string(names::rootChannel) + "/" + clientId;
}

std::string PageChannels::shorten(std::string_view own, std::string_view channel) {
    if (channel.substr(0, own.size()) != own) {
        return std::string(channel);
    }
    return std::string(names::ownChannel).append(channel.substr(own.size()));
}

std::string PageChannels::expand(std::string_view own, std::string_view channel) {
    return std::string(own).append(channel.substr(1));
}

PageChannels::Kind PageChannels::classify(std::string_view clientId, std::string_view channel,
                                          std::string_view text) {
    if (channel == names::ownChannel || (channel.substr(0, 2) == "./" && channel.size() > 2)) {
        return Kind::Own;
    }
    if (channel == names::modelChannel) {
        return isSnapshotRequest(text, clientId) ? Kind::Snapshot : Kind::Refused;
    }
    if (channel != names::rootChannel) {
        return Kind::Refused;
    }
    if (isStatement(text, json::clientReady, clientId)) {
        return Kind::ClientReady;
    }
    return isStatement(text, json::clientDestroyed, clientId) ? Kind::ClientDestroyed
                                                              : Kind::Refused;
}

std::string PageChannels::clientReady(std::string_view clientId) {
    return statement(json::clientReady, clientId);
}

std::string PageChannels::clientDestroyed(std::string_view clientId) {
    return statement(json::clientDestroyed, clientId);
}

bool PageChannels::isPing(std::string_view text) {
    return takeTokens(text, {"{", json::ping, ":"});
}

}  // namespace DOVA::session
