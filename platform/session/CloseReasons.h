// Made from protocol/ by protocol/generate.mjs; do not edit.
#pragma once

#include "CloseReason.h"

/// Every reason for which the connection of a page is closed.
namespace DOVA::session::close_reason {

inline constexpr CloseReason s_sessionEnded = {1000, "session ended"};
inline constexpr CloseReason s_programEnded = {1001, "program ended"};
inline constexpr CloseReason s_binaryFrame = {1003, "text frames only"};
inline constexpr CloseReason s_unreadableFrame = {1007, "unreadable frame"};
inline constexpr CloseReason s_frameTooLong = {1009, "frame too long"};
inline constexpr CloseReason s_gap = {1012, "a number is missing"};
inline constexpr CloseReason s_restart = {1012, "the gateway ends"};
inline constexpr CloseReason s_sessionLost = {4000, "session lost"};
inline constexpr CloseReason s_tooMuchUnacknowledged = {4000, "too much is unacknowledged"};
inline constexpr CloseReason s_openedInAnotherTab = {4001, "opened in another tab"};
inline constexpr CloseReason s_laterAttempt = {4001, "a later connection was there first"};
inline constexpr CloseReason s_takenOver = {4002, "taken over by another page"};
inline constexpr CloseReason s_malformedFrame = {4003, "malformed frame"};
inline constexpr CloseReason s_falseAcknowledgement = {4003, "acknowledges what was never sent"};
inline constexpr CloseReason s_tooManyEvents = {4003, "too many events in one text"};
inline constexpr CloseReason s_tooManyControlFrames = {4003, "too many control frames"};
inline constexpr CloseReason s_tooManyEmptyFrames = {4003, "too many empty frames"};
inline constexpr CloseReason s_channelNotAllowed = {4004, "channel not allowed"};

}  // namespace DOVA::session::close_reason
