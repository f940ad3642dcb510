#pragma once

#include "toolkit/DVButton2.h"
#include "widgets/WebAbstractButton2.h"

namespace DOVA {

/// The push button of the web. Client events: "onClick" becomes a click event; "onToggle" with the
/// bool "value" a toggle event; the front button changes the state.
class DOVA_WEB_EXPORT WebButton2 : public WebAbstractButton2 {
public:
    WebButton2(DVButton2* front, DVButton2Emitters* emitters, DVObject* parent);
    ~WebButton2() override;

    virtual void doSetDefault(bool isDefault);
    virtual bool doIsDefault() const;

    void handleJSONMessage(const QJsonObject& message) override;
    QJsonObject getJSonObject() const override;

private:
    static const WireForm& form();
    void receive(const ReceivedMessage& message);
};

}  // namespace DOVA
