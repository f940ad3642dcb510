#pragma once

#include "toolkit/DVAbstractButton2.h"
#include "toolkit/DVButton2Emitters.h"

namespace DOVA {

/// A push button. One that is not checkable has no toggles.
class DOVA_TOOLKIT_EXPORT DVButton2 : public DVAbstractButton2 {
public:
    explicit DVButton2(DVObject* parent = nullptr, const std::u16string& label = {});
    ~DVButton2() override;

    /// The default button is pressed by Enter.
    void setDefault(bool isDefault) { emitters()->setDefault(isDefault); }
    bool isDefault() const { return emitters()->isDefault(); }

    DVButton2Emitters* emitters() const {
        return static_cast<DVButton2Emitters*>(DVObject2::emitters());
    }

private:
    void takeToggle(const DVButtonToggleEvent2& event);
};

}  // namespace DOVA
