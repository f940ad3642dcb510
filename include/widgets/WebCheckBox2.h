#pragma once

#include "toolkit/DVCheckBox2.h"
#include "widgets/WebAbstractButton2.h"

namespace DOVA {

/// The check box of the web. Client event: "onToggle" with the bool "value", taken as false if it
/// is absent or no bool. The element follows at once, listener or not; nothing is sent back, since
/// the page shows the new state already. Then the front box gets a toggle event.
class DOVA_WEB_EXPORT WebCheckBox2 : public WebAbstractButton2 {
public:
    WebCheckBox2(DVCheckBox2* front, DVCheckBox2Emitters* emitters, DVObject* parent);
    ~WebCheckBox2() override;

    void handleJSONMessage(const QJsonObject& message) override;
    QJsonObject getJSonObject() const override;

private:
    static const WireForm& form();
    void receive(const ReceivedMessage& message);
};

}  // namespace DOVA
