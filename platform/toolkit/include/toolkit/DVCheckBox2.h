#pragma once

#include "toolkit/DVAbstractButton2.h"
#include "toolkit/DVCheckBox2Emitters.h"

namespace DOVA {

/// A box with a label that is checked or not.
class DOVA_TOOLKIT_EXPORT DVCheckBox2 : public DVAbstractButton2 {
public:
    explicit DVCheckBox2(DVObject* parent = nullptr, const std::u16string& label = {});
    ~DVCheckBox2() override;

    DVCheckBox2Emitters* emitters() const {
        return static_cast<DVCheckBox2Emitters*>(DVObject2::emitters());
    }
};

}  // namespace DOVA
