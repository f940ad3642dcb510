#pragma once

#include "toolkit/Admission.h"
#include "toolkit/DVAbstractWindow2.h"
#include "toolkit/DVDialog2Emitters.h"
#include "toolkit/DVKeyEvent2.h"
#include "toolkit/DVResizeEvent2.h"

namespace DOVA {

/// A dialog. With a parent it is a window of its own all the same, not one of the parent's
/// children(). When the parent leaves the display for good (closed, destroyed, or with what it is
/// in), the dialog does so, too.
class DOVA_TOOLKIT_EXPORT DVDialog2 : public DVAbstractWindow2 {
public:
    using DVDialogAccel = DOVA::DVDialogAccel;

    /// `flags`: Modal is setModal(true); the web backend ignores the others.
    explicit DVDialog2(DVObject* parent = nullptr, DVFlags<DialogFlag> flags = {});
    ~DVDialog2() override;

    /// The parent from the constructor or setParent(); null once that is gone.
    DVObject* parent() const override;

    /// A transient dialog is there for a short while: the page gives it no button to minimise it,
    /// and Escape asks to close it.
    void setTransient(bool transient) { emitters()->setTransient(transient); }
    bool isTransient() const { return emitters()->isTransient(); }
    /// A modal dialog keeps the user from all other windows while it is open and not minimised. Of
    /// several modal ones, the one that came to the front last does.
    void setModal(bool modal);
    bool isModal() const { return emitters()->isModal(); }
    /// Takes effect with the next full description of the dialog.
    void setScrollable(bool scrollable) { emitters()->setScrollable(scrollable); }
    /// Not needed: onResize() hears of every resize. For programs that ask.
    void monitorResize(bool monitor) { emitters()->monitorResize(monitor); }
    /// Acts as if the user had pressed a shortcut of the dialog, also when it is out of reach. The
    /// web backend knows those for zooming and closing, which come to onKey().
    void sendAccKey(DVDialogAccel accelerator);

    /// The user pressed a key of the whole dialog: a zoom key or Escape.
    template <class Callable>
    WIRO::Subscription onKey(Callable&& callable) {
        return WIRO::connect(m_key, Admission::handler(std::forward<Callable>(callable)));
    }
    /// The user or the display changed the size; geometry() gives the new one. Comes also when the
    /// dialog is out of reach, like a close request.
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
