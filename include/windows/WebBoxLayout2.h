#pragma once

#include "toolkit/DVBoxLayout2.h"
#include "windows/WebLayout2.h"

namespace DOVA {

/// The box layout of the web. Unlike the grid layout it does not attach itself to its parent: it is
/// nowhere until a container or a layout takes it.
class DOVA_WEB_EXPORT WebBoxLayout2 : public WebLayout2 {
public:
    WebBoxLayout2(DVBoxLayout2* front, DVBoxLayout2Emitters* emitters, DVObject* parent);
    ~WebBoxLayout2() override;

    virtual void doBoxAddWidget(DVObject* widget, int stretch, Alignment alignment);
    virtual void doInsertWidget(DVObject* widget, int index, int stretch,
                                Alignment alignment);                // no effect
    virtual void doInsertSpacer(int index, int size, int stretch);   // no effect
    virtual void doSetStretchFactor(DVObject* widget, int stretch);  // no effect

    std::string getTypeName() const override;
};

}  // namespace DOVA
