#pragma once

#include "toolkit/DVPanel2.h"
#include "windows/WebContainer2.h"

namespace DOVA {

/// The plain container of the web. Every message of the page is ignored.
class DOVA_WEB_EXPORT WebPanel2 : public WebContainer2 {
public:
    WebPanel2(DVPanel2* front, DVPanel2Emitters* emitters, DVObject* parent);
    ~WebPanel2() override;

    virtual void doUpdateSize();  // no effect: the page sizes panels
    /// No effect: panels show their parent's colours.
    void doSetColor(ColorRole role, Color color) override;
    /// Marks the panel as a row of standard buttons; stored only.
    void setButtonPanel(bool buttonPanel);  // false marks it too, pages rely on the mark

    void handleJSONMessage(const QJsonObject& message) override;
    std::string getTypeName() const override;

private:
    bool m_buttonPanel = false;
};

}  // namespace DOVA
