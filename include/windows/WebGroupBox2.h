#pragma once

#include <string>

#include "toolkit/DVGroupBox2.h"
#include "windows/WebContainer2.h"

namespace DOVA {

/// The group box of the web. Getters answer what was last set; every message of the page is
/// ignored.
class DOVA_WEB_EXPORT WebGroupBox2 : public WebContainer2 {
public:
    WebGroupBox2(DVGroupBox2* front, DVGroupBox2Emitters* emitters, DVObject* parent);
    ~WebGroupBox2() override;

    /// UTF-8.
    virtual void doSetTitle(const std::string& title);
    virtual void doSetTitleU(const std::u16string& title);
    virtual void doSetFlat(bool flat);
    virtual std::string doGetTitle() const;
    virtual std::u16string doGetTitleU() const;
    virtual bool doIsFlat() const;

    void handleJSONMessage(const QJsonObject& message) override;
    std::string getTypeName() const override;

private:
    std::u16string m_title;
    bool m_flat = false;
};

}  // namespace DOVA
