#pragma once

#include <QString>
#include <string>

/// The keys of the messages that tell of clients and dialogs rather than of objects, and the
/// channel that they begin with.
namespace DOVA::lifecycle {

extern const QString clientReady;
extern const QString clientDestroyed;
extern const QString ping;
extern const QString dialogReady;
extern const QString dialogDestroyed;
extern const std::string rootChannel;

}  // namespace DOVA::lifecycle
