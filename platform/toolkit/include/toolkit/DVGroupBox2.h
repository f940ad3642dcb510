#pragma once

#include <string>

#include "toolkit/DVContainer2.h"
#include "toolkit/DVGroupBox2Emitters.h"

namespace DOVA {

/// A frame with a title around other widgets.
class DOVA_TOOLKIT_EXPORT DVGroupBox2 : public DVContainer2 {
public:
    explicit DVGroupBox2(DVObject* parent = nullptr, const std::u16string& title = {});
    ~DVGroupBox2() override;

    void setTitle(const std::u16string& title) { emitters()->setTitleU(title); }
    std::u16string title() const { return emitters()->getTitleU(); }
    /// A flat box has its title and no frame.
    void setFlat(bool flat) { emitters()->setFlat(flat); }
    bool isFlat() const { return emitters()->isFlat(); }

    DVGroupBox2Emitters* emitters() const {
        return static_cast<DVGroupBox2Emitters*>(DVObject2::emitters());
    }
};

}  // namespace DOVA
