#pragma once

#include "toolkit/Admission.h"
#include "toolkit/DVAbstractWindow2.h"
#include "toolkit/DVDialog2Emitters.h"
#include "toolkit/DVKeyEvent2.h"
#include "toolkit/DVResizeEvent2.h"

namespace DOVA {

/// A dialog. With a parent it belongs to that: it is a window of its own all the same, none of the
/// parent's children(), and goes from the display for good when the parent does, closed, destroyed
/// or with what it is in.
class DOVA_TOOLKIT_EXPORT DVDialog2 : public DVAbstractWindow2 {
public:
    using DVDialogAccel = DOVA::DVDialogAccel;

    explicit DVDialog2(DVObject* parent = nullptr, DVFlags<DialogFlag> flags = {});
    ~DVDialog2() override;

    /// What the dialog was given at construction or by setParent(), null once that is gone.
    DVObject* parent() const override;

    /// A transient dialog is there for a short while: the web client gives it no button to minimise
    /// it, and Escape asks to close it.
    void setTransient(bool transient);
    bool isTransient() const;
    /// A modal dialog keeps the user from all other windows while it is open and not minimised; of
    /// two modal ones that which came to the front last does.
    void setModal(bool modal);
    bool isModal() const;
    /// Takes effect with the next full description of the dialog.
    void setScrollable(bool scrollable);
    /// Resize notices come whether asked for or not; kept for programs that ask.
    void monitorResize(bool monitor);
    /// Acts as if the user had pressed a shortcut of the dialog, also where the user cannot.
    void sendAccKey(DVDialogAccel accelerator);

    /// A key that the dialog handles as a whole: zoom and Escape.
    template <class Callable>
    WIRO::Subscription onKey(Callable&& callable) {
        return WIRO::connect(m_key, Admission::handler(std::forward<Callable>(callable)));
    }
    /// The user changed the size, or the display did; geometry() answers the new one. Comes whether
    /// the dialog can be used or not, like a close request.
    template <class Callable>
    WIRO::Subscription onResize(Callable&& callable) {
        return WIRO::connect(m_resize, std::forward<Callable>(callable));
    }

    WIRO::Emitter<void(const DVKeyEvent2&)>& keyEmitter() { return m_key; }
    WIRO::Emitter<void(const DVResizeEvent2&)>& resizeEmitter() { return m_resize; }
    DVDialog2Emitters* emitters() const {
        return static_cast<DVDialog2Emitters*>(DVObject2::emitters());
    }

private:
    bool keepsAway(const DVWidget2* child) const override;
    void cameToFront() override;
    bool shutsOffOthers() const;

    WIRO::Emitter<void(const DVKeyEvent2&)> m_key;
    WIRO::Emitter<void(const DVResizeEvent2&)> m_resize;
};

}  // namespace DOVA
