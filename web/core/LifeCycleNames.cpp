// Made from protocol/ by protocol/generate.mjs; do not edit.
#include "LifeCycleNames.h"

namespace DOVA::lifecycle {

const QString ping = QStringLiteral("ping");
const QString clientReady = QStringLiteral("clientReady");
const QString clientDestroyed = QStringLiteral("clientDestroyed");
const QString dialogDestroyed = QStringLiteral("dialogDestroyed");
const QString dialogReady = QStringLiteral("dialogReady");

}  // namespace DOVA::lifecycle

namespace DOVA::lifecycle {

const std::string rootChannel = "/dova2/web";

}  // namespace DOVA::lifecycle
