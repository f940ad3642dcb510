// Made from protocol/ by protocol/generate.mjs; do not edit.
#pragma once

#include "CloseReason.h"

/// Every reason for which the gateway closes.
namespace DOVA::gateway::close_reason {

inline constexpr CloseReason kSessionEnded = {1000, "session ended"};
inline constexpr CloseReason kProgramEnded = {1001, "program ended"};
inline constexpr CloseReason kBinaryFrame = {1003, "text frames only"};
inline constexpr CloseReason kUnreadableFrame = {1007, "unreadable frame"};
inline constexpr CloseReason kFrameTooLong = {1009, "frame too long"};
inline constexpr CloseReason kSessionLost = {4000, "session lost"};
inline constexpr CloseReason kTooMuchUnacknowledged = {4000, "too much is unacknowledged"};
inline constexpr CloseReason kOpenedInAnotherTab = {4001, "opened in another tab"};
inline constexpr CloseReason kLaterAttempt = {4001, "a later connection was there first"};
inline constexpr CloseReason kTakenOver = {4002, "taken over by another page"};
inline constexpr CloseReason kMalformedFrame = {4003, "malformed frame"};
inline constexpr CloseReason kGap = {4003, "a number is missing"};
inline constexpr CloseReason kFalseAcknowledgement = {4003, "acknowledges what was never sent"};
inline constexpr CloseReason kTooManyEvents = {4003, "too many events in one text"};
inline constexpr CloseReason kTooManyControlFrames = {4003, "too many control frames"};
inline constexpr CloseReason kTooManyEmptyFrames = {4003, "too many empty frames"};
inline constexpr CloseReason kChannelNotAllowed = {4004, "channel not allowed"};

}  // namespace DOVA::gateway::close_reason
