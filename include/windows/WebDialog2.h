#pragma once

#include "toolkit/DVDialog2.h"
#include "windows/WebAbstractWindow2.h"

namespace DOVA {

/// The dialog of the web. Client events, by the presence of a key, whatever its value:
/// "increaseFontSize" and "decreaseFontSize" become key presses of Ctrl+"=" and Ctrl+"-", "resize"
/// a resize event without sizes, whose receiver asks for the geometry. Several keys in one message
/// make several events, in the order of the keys.
class DOVA_WEB_EXPORT WebDialog2 : public WebAbstractWindow2 {
public:
    WebDialog2(DVDialog2* front, DVDialog2Emitters* emitters, DVObject* parent);
    ~WebDialog2() override;

    virtual void doUpdateSize();               // no effect: the page sizes dialogs
    virtual void doSetWindowFlag(unsigned);    // no effect
    virtual unsigned doGetWindowFlag() const;  // always 0
    virtual void doSetTransient(bool transient);
    /// Stored and never asked for: resizes are reported always.
    virtual void doMonitorResize(bool monitor);
    /// Stored only: it reaches the page with the first show.
    virtual void doSetScrollable(bool scrollable);
    virtual bool doIsTransient() const;
    virtual void doSetModal(bool modal);
    virtual bool doIsModal() const;
    /// Emits the key press of the accelerators for zooming and closing; others are ignored.
    virtual void doSendAccKey(DVDialog2::DVDialogAccel accelerator);
    /// Emits the press of Escape.
    virtual void closeDialog();

    void handleJSONMessage(const QJsonObject& message) override;
    std::string getTypeName() const override;

private:
    void emitKey(int key, unsigned modifiers);

    bool m_transient = false;
    bool m_monitorResize = false;
    bool m_modal = false;
    bool m_scrollable = false;
};

}  // namespace DOVA
