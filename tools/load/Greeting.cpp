#include "Greeting.h"

#include <QJsonDocument>
#include <QJsonObject>

#include "ProtocolNames.h"

namespace DOVA::load {

Greeting Greeting::parse(std::string_view text) {
    const QJsonObject greeting =
        QJsonDocument::fromJson(QByteArray::fromRawData(text.data(), static_cast<int>(text.size())))
            .object();
    const QString session = greeting[QLatin1String(keys::session)].toString();
    const double received = greeting[QLatin1String(keys::received)].toDouble(-1);
    if (session == QLatin1String(words::fresh)) {
        return {Session::Fresh, 0};
    }
    if (session == QLatin1String(words::resumed) && received >= 0) {
        return {Session::Resumed, static_cast<std::uint64_t>(received)};
    }
    return {};
}

}  // namespace DOVA::load
