#pragma once

#include "toolkit/DVText2Emitters.h"
#include "toolkit/DVWidget2.h"

namespace DOVA {

/// A text that the user reads.
class DOVA_TOOLKIT_EXPORT DVText2 : public DVWidget2 {
public:
    explicit DVText2(DVObject* parent = nullptr, const std::u16string& text = {});
    ~DVText2() override;

    void setText(const std::u16string& text) { emitters()->setTextU(text); }
    std::u16string text() const { return emitters()->getTextU(false); }
    /// Makes the text the label of another widget, which must not be null.
    void setBuddy(DVObject* buddy) { emitters()->setBuddy(buddy); }
    /// The widget that the text is the label of, null if none or destroyed.
    DVObject* buddy() const { return emitters()->getBuddy(); }

    DVText2Emitters* emitters() const {
        return static_cast<DVText2Emitters*>(DVObject2::emitters());
    }

private:
    bool isDescribedWhole() const override { return false; }
};

}  // namespace DOVA
