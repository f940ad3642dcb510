#pragma once

#include "toolkit/Admission.h"
#include "toolkit/DVEdit2Emitters.h"
#include "toolkit/DVEditEvent2.h"
#include "toolkit/DVWidget2.h"
#include "wiro/CallableConnection.h"

namespace DOVA {

/// A field for one line of text.
class DOVA_TOOLKIT_EXPORT DVEdit2 : public DVWidget2 {
public:
    explicit DVEdit2(DVObject* parent = nullptr, const std::u16string& text = {});
    ~DVEdit2() override;

    void setText(const std::u16string& text) { emitters()->setTextU(text); }
    /// Follows what the user types.
    std::u16string text() const { return emitters()->getTextU(false); }

    /// The user changed the text; text() answers the new one already.
    template <class Callable>
    WIRO::Subscription onEdit(Callable&& callable) {
        return WIRO::connect(m_edit, Admission::handler(std::forward<Callable>(callable)));
    }
    /// The user finished: pressed Enter, or left the field after a change. text() answers what was
    /// typed, or what an onEdit handler has set in its place; the event may still have the former.
    template <class Callable>
    WIRO::Subscription onEditFinish(Callable&& callable) {
        return WIRO::connect(m_editFinished, Admission::handler(std::forward<Callable>(callable)));
    }

    WIRO::Emitter<void(const DVEditEvent2&)>& editEmitter() { return m_edit; }
    WIRO::Emitter<void(const DVEditEvent2&)>& editFinishedEmitter() { return m_editFinished; }
    DVEdit2Emitters* emitters() const {
        return static_cast<DVEdit2Emitters*>(DVObject2::emitters());
    }

private:
    bool isDescribedWhole() const override { return false; }
    WIRO::Emitter<void(const DVEditEvent2&)> m_edit;
    WIRO::Emitter<void(const DVEditEvent2&)> m_editFinished;
    std::u16string m_typed;
};

}  // namespace DOVA
