#pragma once

#include "toolkit/Admission.h"
#include "toolkit/DVAbstractButton2Emitters.h"
#include "toolkit/DVButtonClickEvent2.h"
#include "toolkit/DVButtonToggleEvent2.h"
#include "toolkit/DVWidget2.h"
#include "wiro/CallableConnection.h"

namespace DOVA {

/// What push buttons and check boxes share. Icon and checkable flag are set on the backend's own
/// object.
class DOVA_TOOLKIT_EXPORT DVAbstractButton2 : public DVWidget2 {
public:
    ~DVAbstractButton2() override;

    void setLabel(const std::u16string& label) { emitters()->setLabelU(label); }
    std::u16string label() const { return emitters()->getLabelU(); }
    void setChecked(bool checked) { emitters()->setChecked(checked); }
    /// Follows what the user switches.
    bool isChecked() const { return emitters()->isChecked(); }

    /// The user pressed the button.
    template <class Callable>
    WIRO::Subscription onClick(Callable&& callable) {
        judgeClicks();
        return WIRO::connect(m_click, Admission::handler(std::forward<Callable>(callable)));
    }
    /// The user switched the button; isChecked() answers the new state already.
    template <class Callable>
    WIRO::Subscription onToggle(Callable&& callable) {
        return WIRO::connect(m_toggle, Admission::handler(std::forward<Callable>(callable)));
    }

    WIRO::Emitter<void(const DVButtonClickEvent2&)>& clickEmitter() { return m_click; }
    WIRO::Emitter<void(const DVButtonToggleEvent2&)>& toggleEmitter() { return m_toggle; }
    DVAbstractButton2Emitters* emitters() const {
        return static_cast<DVAbstractButton2Emitters*>(DVObject2::emitters());
    }

protected:
    using DVWidget2::DVWidget2;

private:
    bool isDescribedWhole() const override { return false; }
    void judgeClicks();

    bool m_judgesClicks = false;  // most boxes are never asked about clicks
    WIRO::Emitter<void(const DVButtonClickEvent2&)> m_click;
    WIRO::Emitter<void(const DVButtonToggleEvent2&)> m_toggle;
};

}  // namespace DOVA
