#pragma once

#include <string>

#include "toolkit/DVTab2.h"
#include "windows/WebContainer2.h"

namespace DOVA {

class WebTabContainer2;

/// A page of the web's tab container. Every client message is ignored. Its property messages carry
/// the type of containers, "WebContainer2"; its description carries "Tab".
class DOVA_WEB_EXPORT WebTab2 : public WebContainer2 {
public:
    WebTab2(DVTab2* front, DVTab2Emitters* emitters, DVObject* parent);
    ~WebTab2() override;

    /// Stored only: it reaches the client with the next description.
    virtual void doSetName(const std::u16string& name);
    virtual std::u16string doGetName() const;
    /// Stored only. Without a parent nothing happens.
    ///
    /// REQUIRES: the parent, if there is one, is a tab container with its web object; else the
    /// process stops.
    virtual void doSetTabVisible(bool visible);  // hides or shows the whole container with the page
    /// True if the page, and its container if it has one, were made visible; false at first.
    /// REQUIRES as above.
    virtual bool doIsTabVisible() const;
    /// Sent. Without a tab container for parent nothing happens.
    virtual void doSetTabEnabled(bool enabled);
    virtual bool doIsTabEnabled() const;

    /// As every widget's: pages show colours, unlike panels.
    void doSetColor(ColorRole role, Color color) override;
    void handleJSONMessage(const QJsonObject& message) override;

private:
    Identifier holder() const;
    WebTabContainer2* container(Identifier holder) const;
    WebTabContainer2* requiredContainer() const;

    std::u16string m_name;
    bool m_tabVisible = false;
    bool m_tabEnabled = true;
};

}  // namespace DOVA
