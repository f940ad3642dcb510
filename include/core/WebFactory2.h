#pragma once

#include <cstdint>
#include <string>

#include "core/WebExport.h"
#include "seam/Platform.h"
#include "toolkit/DVFactory2.h"
#include "toolkit/Enumerations.h"
#include "wiro/Listener.h"

namespace DOVA {

/// Answers the toolkit's creation requests with web objects. One for the process; lives until it
/// ends. Main thread.
class DOVA_WEB_EXPORT WebFactory2 : public WIRO::Listener {
public:
    virtual ~WebFactory2();

    /// Binds the web factory to the toolkit's factory; a second call does nothing.
    static void createFactory(DVFactory2* factory);
    /// The model document that the widgets' elements live in, made on the first call.
    static seam::ModelReference getModel();

    /// Each of these makes the web object behind a front object. It registers itself, and is
    /// deleted through destroyObject.
    void createDialog2(DVDialog2* front, DVDialog2Emitters* emitters, DVObject* parent,
                       unsigned int flags);  // flags: the page gets them by the setters only
    void createCheckBox2(DVCheckBox2* front, DVCheckBox2Emitters* emitters, DVObject* parent);
    void createBoxLayout2(DVBoxLayout2* front, DVBoxLayout2Emitters* emitters, DVObject* parent,
                          Direction direction);  // direction: the page lays out by itself
    void createGridLayout2(DVGridLayout2* front, DVGridLayout2Emitters* emitters, DVObject* parent);
    void createGroupBox2(DVGroupBox2* front, DVGroupBox2Emitters* emitters, DVObject* parent);
    void createPanel2(DVPanel2* front, DVPanel2Emitters* emitters, DVObject* parent,
                      bool framed);  // framed: the page draws no frames
    void createText2(DVText2* front, DVText2Emitters* emitters, DVObject* parent);
    void createButton2(DVButton2* front, DVButton2Emitters* emitters, DVObject* parent);
    void createEdit2(DVEdit2* front, DVEdit2Emitters* emitters, DVObject* parent);
    void createComboBox2(DVComboBox2* front, DVComboBox2Emitters* emitters, DVObject* parent);
    void createTab2(DVTab2* front, DVTab2Emitters* emitters, DVObject* parent);
    void createTabContainer2(DVTabContainer2* front, DVTabContainer2Emitters* emitters,
                             DVObject* parent);

    /// Deletes the web object with this identifier; an unknown one is ignored.
    void destroyObject(unsigned int id);

    /// Whether this button can be switched on and off; false for anything else.
    bool isCheckable(unsigned int id);
    /// The same for combo boxes. Anything else answers false or an empty text, and takes no text.
    bool isEditable(unsigned int id);
    std::u16string fieldText(unsigned int id);
    void setFieldText(unsigned int id, const std::u16string& text);
    void tellFieldText(unsigned int id);
    /// The front object refuses the event that its web object is emitting. The web object restores
    /// the state from before the event and sends it. Does nothing while no message is handled.
    void putBack(unsigned int id);

private:
    friend void endModule() noexcept;

    explicit WebFactory2(DVFactory2* factory);

    static WebFactory2* s_factory;
};

}  // namespace DOVA
