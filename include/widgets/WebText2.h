#pragma once

#include <cstdint>
#include <string>

#include "toolkit/DVText2.h"
#include "widgets/WebWidget2.h"

namespace DOVA {

/// The static text of the web. The text lives in the model element, the buddy here. Every message
/// of the page is ignored.
class DOVA_WEB_EXPORT WebText2 : public WebWidget2 {
public:
    WebText2(DVText2* front, DVText2Emitters* emitters, DVObject* parent);
    ~WebText2() override;

    /// The text that is shown already is neither stored nor sent.
    virtual void doSetTextU(const std::u16string& text);
    /// The argument is not used.
    virtual std::u16string doGetTextU(bool) const;
    /// Sends the buddy's identifier as decimal text. Null takes no buddy and changes nothing.
    virtual void doSetBuddy(DVObject* buddy);
    /// Null if there is no buddy or it is not alive any more.
    virtual DVObject* doGetBuddy();

    void handleJSONMessage(const QJsonObject& message) override;
    QJsonObject getJSonObject() const override;

private:
    static const WireForm& form();
    static constexpr Identifier NoBuddy = 0xFFFFFFFF;

    Identifier m_buddy = NoBuddy;
};

}  // namespace DOVA
