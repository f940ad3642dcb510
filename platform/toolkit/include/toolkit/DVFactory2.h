#pragma once

#include <string>

#include "toolkit/DVObject.h"
#include "toolkit/Enumerations.h"
#include "toolkit/Export.h"
#include "toolkit/StringID.h"
#include "wiro/Emitter.h"

namespace DOVA {

class DVBridge;
class DVBoxLayout2;
class DVButton2;
class DVCheckBox2;
class DVComboBox2;
class DVDialog2;
class DVEdit2;
class DVGridLayout2;
class DVGroupBox2;
class DVPanel2;
class DVTab2;
class DVTabContainer2;
class DVText2;
struct DVBoxLayout2Emitters;
struct DVButton2Emitters;
struct DVCheckBox2Emitters;
struct DVComboBox2Emitters;
struct DVDialog2Emitters;
struct DVEdit2Emitters;
struct DVGridLayout2Emitters;
struct DVGroupBox2Emitters;
struct DVPanel2Emitters;
struct DVTab2Emitters;
struct DVTabContainer2Emitters;
struct DVText2Emitters;

/// Asks a backend for the implementations of front objects. The backend binds the emitters of one
/// factory and registers it under its key. May be destroyed before the front objects that it
/// served. Main thread.
class DOVA_TOOLKIT_EXPORT DVFactory2 {
public:
    /// `bridge`: the backend's native event system, null if it has none; not owned.
    explicit DVFactory2(DVBridge* bridge);
    ~DVFactory2();
    DVFactory2(const DVFactory2&) = delete;
    DVFactory2& operator=(const DVFactory2&) = delete;

    DVBridge* bridge() const { return m_bridge; }

    /// Makes a factory known under its backend's key; a later one replaces it. Not owned. Null
    /// takes the entry out.
    static void registerFactory(const StringID& backend, DVFactory2* factory);
    /// The factory of a backend, null if there is none.
    static DVFactory2* getFactory(const StringID& backend);
    /// Chooses the backend of the front objects that are made from now on; "web" at first.
    static void chooseBackend(const StringID& backend);
    /// The factory of the chosen backend, null while it is not registered.
    static DVFactory2* current();

    /// Destroys the implementation of the front object with this identifier.
    WIRO::Emitter<void(unsigned)> destroy;
    /// Each asks for the implementation of a front object: the object, its emitters to bind, its
    /// parent (null for none), and what else its constructor was given.
    WIRO::Emitter<void(DVDialog2*, DVDialog2Emitters*, DVObject*, unsigned)> createDialog2;
    WIRO::Emitter<void(DVCheckBox2*, DVCheckBox2Emitters*, DVObject*)> createCheckBox2;
    WIRO::Emitter<void(DVBoxLayout2*, DVBoxLayout2Emitters*, DVObject*, Direction)>
        createBoxLayout2;
    WIRO::Emitter<void(DVGridLayout2*, DVGridLayout2Emitters*, DVObject*)> createGridLayout2;
    WIRO::Emitter<void(DVGroupBox2*, DVGroupBox2Emitters*, DVObject*)> createGroupBox2;
    WIRO::Emitter<void(DVPanel2*, DVPanel2Emitters*, DVObject*, bool)> createPanel2;
    WIRO::Emitter<void(DVText2*, DVText2Emitters*, DVObject*)> createText2;
    WIRO::Emitter<void(DVButton2*, DVButton2Emitters*, DVObject*)> createButton2;
    WIRO::Emitter<void(DVEdit2*, DVEdit2Emitters*, DVObject*)> createEdit2;
    WIRO::Emitter<void(DVComboBox2*, DVComboBox2Emitters*, DVObject*)> createComboBox2;
    WIRO::Emitter<void(DVTab2*, DVTab2Emitters*, DVObject*)> createTab2;
    WIRO::Emitter<void(DVTabContainer2*, DVTabContainer2Emitters*, DVObject*)> createTabContainer2;

    /// Whether a press switches the button with this identifier; its front object refuses a toggle
    /// otherwise.
    WIRO::Emitter<bool(unsigned)> isCheckable;
    /// What the combo box with this identifier has beside its items.
    WIRO::Emitter<bool(unsigned)> isEditable;
    WIRO::Emitter<std::u16string(unsigned)> fieldText;
    WIRO::Emitter<void(unsigned, const std::u16string&)> setFieldText;
    /// Tells the display the text of its field once more, though it has not changed.
    WIRO::Emitter<void(unsigned)> tellFieldText;
    /// The front object with this identifier refuses the event that its implementation is emitting.
    /// The implementation puts back what it took over from the display, and tells the display.
    WIRO::Emitter<void(unsigned)> putBack;

private:
    friend class DVObject2;

    /// False once `factory` is destroyed. Does not touch what it points to.
    static bool isLiving(DVFactory2* factory);

    DVBridge* m_bridge;
};

}  // namespace DOVA
