#pragma once

#include "toolkit/DVContainer2.h"
#include "widgets/WebWidget2.h"

namespace DOVA {

/// The web side of DVContainer2: a widget with one layout.
class DOVA_WEB_EXPORT WebContainer2 : public WebWidget2 {
public:
    /// Makes the layout a child of this container. Null, or a layout without a web object, is
    /// remembered and moves nothing.
    virtual void doSetLayout(DVLayout2* layout);
    /// The layout last set; null if there is none or it was destroyed.
    virtual DVLayout2* doGetLayout() const;
    /// Stored only, like every array. A count of 0 stores an empty one.
    virtual void doSetLayoutGrid(int* values, int count);

    std::string getTypeName() const override;

protected:
    WebContainer2(DVContainer2* front, DVContainer2Emitters* emitters);
    ~WebContainer2() override;

private:
    DVLayout2* m_layout = nullptr;
    Identifier m_layoutIdentifier = 0;
};

}  // namespace DOVA
