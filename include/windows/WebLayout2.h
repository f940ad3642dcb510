#pragma once

#include "core/WebObject2.h"
#include "toolkit/DVLayout2.h"

namespace DOVA {

/// The web side of DVLayout2. The page lays out: a layout here only makes its widgets its
/// children, in the order in which they are added, and passes a few properties on. Alignments,
/// cells, stretch factors and spacers are accepted and dropped. Every message of the page is
/// ignored.
class DOVA_WEB_EXPORT WebLayout2 : public WebObject2 {
public:
    /// As for every object, but null changes nothing.
    void doSetParent(DVObject* parent) override;
    bool isLayout() const override;
    void handleJSONMessage(const QJsonObject& message) override;
    std::string getTypeName() const override;

    /// A widget without a web object is ignored.
    virtual void doAddWidget(DVObject* widget, Alignment alignment);
    virtual void doAddSpacer(diagram::TSize<int> size, int stretch);  // no effect
    /// Triggers: the page acts on every write.
    virtual void doInvalidate();
    virtual void doRefresh();
    /// Takes the widget out of the tree.
    virtual void doRemoveWidget(DVObject* widget);
    virtual void doSetEnabled(bool enabled);
    virtual void doSetMargins(diagram::RectTemplate<int> margins);  // no effect
    virtual void doSetSpacing(int spacing);
    virtual bool doIsEnabled() const;
    virtual diagram::RectTemplate<int> doGetMargins() const;  // always zeros
    virtual int doGetSpacing() const;

protected:
    WebLayout2(DVLayout2* front, DVLayout2Emitters* emitters, DVObject* parent);
    ~WebLayout2() override;

private:
    WebObject2* webObjectOf(const DVObject* widget) const;

    bool m_enabled = false;
    int m_spacing = 0;
};

}  // namespace DOVA
