// Made from protocol/ by protocol/generate.mjs; do not edit.
#pragma once

#include <QString>
#include <string>

/// The keys of the messages that tell of clients and dialogs rather than of objects.
namespace DOVA::lifecycle {

extern const QString ping;
extern const QString clientReady;
extern const QString clientDestroyed;
extern const QString dialogDestroyed;
extern const QString dialogReady;

}  // namespace DOVA::lifecycle

/// The channel that all others of a page begin with.
namespace DOVA::lifecycle {

extern const std::string rootChannel;

}  // namespace DOVA::lifecycle
