#pragma once

#include "Stage.h"
#include "WireRows.h"
#include "support/RecordingClient.h"

namespace DOVA::test {

/// Sets a row's scene up, carries its steps out and compares. Differences are reported to
/// GoogleTest. The module is started on first use and stays as it is for the next row.
class RowPlayer {
public:
    explicit RowPlayer(const WireRow& row);
    ~RowPlayer();

    void play();
    /// Plays the row's single step with every proper prefix of its text instead, all of which must
    /// be dropped.
    void playPrefixes();

private:
    void startModule();
    void setScene();
    void listen();
    void perform(const QJsonArray& calls);
    void compare(const QJsonObject& step);
    /// The entries with every text in them as it stands on the wire.
    QJsonArray filledIn(const QJsonArray& entries) const;
    std::string channel(const QJsonObject& step) const;
    IdentifierOf identifierOf() const;

    WireRow m_row;
    RecordingClient m_client;
    Stage m_stage;
};

}  // namespace DOVA::test
