#pragma once

#include <string>

#include "toolkit/DVAbstractButton2.h"
#include "toolkit/Icon.h"
#include "widgets/WebWidget2.h"

namespace DOVA {

/// What push buttons and check boxes share. Label, icon, checkable and checked state live in the
/// model element; setters write it and send the property. Without an element setters still send,
/// and getters answer empty values.
class DOVA_WEB_EXPORT WebAbstractButton2 : public WebWidget2 {
public:
    /// The label that the element has already is neither stored nor sent.
    virtual void doSetLabelU(const std::u16string& label);
    /// The file of the icon's first image.
    virtual void doSetIcon(Icon icon);
    virtual void doSetCheckable(bool checkable);
    virtual void doSetChecked(bool checked);
    virtual void doSetExclusive(bool exclusive);  // no effect
    virtual std::u16string doGetLabelU() const;
    virtual Icon doGetIcon() const;
    virtual bool doIsCheckable() const;
    virtual bool doIsChecked() const;
    virtual bool doIsExclusive() const;

protected:
    WebAbstractButton2(DVAbstractButton2* front, DVAbstractButton2Emitters* emitters);
};

}  // namespace DOVA
