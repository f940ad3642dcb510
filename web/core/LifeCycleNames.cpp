#include "LifeCycleNames.h"

namespace DOVA::lifecycle {

const QString clientReady = QStringLiteral("clientReady");
const QString clientDestroyed = QStringLiteral("clientDestroyed");
const QString ping = QStringLiteral("ping");
const QString dialogReady = QStringLiteral("dialogReady");
const QString dialogDestroyed = QStringLiteral("dialogDestroyed");
const std::string rootChannel = "/dova2/web";

}  // namespace DOVA::lifecycle
