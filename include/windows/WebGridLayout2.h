#pragma once

#include <vector>

#include "toolkit/DVGridLayout2.h"
#include "windows/WebLayout2.h"

namespace DOVA {

/// The grid layout of the web. Unlike the box layout it attaches itself to its parent at once.
class DOVA_WEB_EXPORT WebGridLayout2 : public WebLayout2 {
public:
    WebGridLayout2(DVGridLayout2* front, DVGridLayout2Emitters* emitters, DVObject* parent);
    ~WebGridLayout2() override;

    virtual void doGridAddWidget(DVObject* widget, diagram::RectTemplate<int> cell,
                                 Alignment alignment);
    virtual void doGridAddSpacer(diagram::RectTemplate<int> cell,
                                 diagram::TSize<int> size);  // no effect
    virtual void doSetRowStretch(int row, int stretch);      // no effect
    virtual void doSetColStretch(int column, int stretch);   // no effect
    virtual void doSetStretchFactors(std::vector<int> rows,
                                     std::vector<int> columns);  // no effect
    virtual int doGetRowStretch(int row) const;                  // always 0
    virtual int doGetColStretch(int column) const;               // always 0

    std::string getTypeName() const override;
};

}  // namespace DOVA
