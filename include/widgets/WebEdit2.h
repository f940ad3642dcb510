#pragma once

#include <string>

#include "toolkit/DVEdit2.h"
#include "widgets/WebWidget2.h"

namespace DOVA {

/// The edit of the web. Text and placeholder live in the model element. Client events: "onEdit" and
/// "onEditFinish" with the text "value", empty if it is absent or no text, become edit events on
/// the front edit's two emitters, without the object lock; the front edit changes the element.
class DOVA_WEB_EXPORT WebEdit2 : public WebWidget2 {
public:
    WebEdit2(DVEdit2* front, DVEdit2Emitters* emitters, DVObject* parent);
    ~WebEdit2() override;

    /// The text that the edit has already is neither stored nor sent.
    virtual void doSetTextU(const std::u16string& text);
    /// The argument is not used.
    virtual std::u16string doGetTextU(bool) const;
    virtual void doSetPlaceHolderText(const std::u16string& text);
    virtual std::u16string doGetPlaceHolderText() const;

    void handleJSONMessage(const QJsonObject& message) override;
    /// Without the placeholder, which is sent when it is set.
    QJsonObject getJSonObject() const override;

private:
    static const WireForm& form();
    void receive(const ReceivedMessage& message);
};

}  // namespace DOVA
