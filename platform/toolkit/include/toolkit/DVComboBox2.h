#pragma once

#include <string>
#include <vector>

#include "toolkit/Admission.h"
#include "toolkit/DVComboBox2Emitters.h"
#include "toolkit/DVComboBoxEditEvent2.h"
#include "toolkit/DVComboBoxSelectEvent2.h"
#include "toolkit/DVWidget2.h"
#include "wiro/CallableConnection.h"

namespace DOVA {

/// A list of items; the user chooses one. With setEditable(true) they may type another text, too.
/// The placeholder is set on the backend's own object.
///
///     DVComboBox2 size(&dialog, {u"small", u"large"});
///     size.setSelection(0);
///     size.onSelect([&] { order.setSize(size.selectedItem()); });
class DOVA_TOOLKIT_EXPORT DVComboBox2 : public DVWidget2 {
public:
    explicit DVComboBox2(DVObject* parent = nullptr, const std::vector<std::u16string>& items = {});
    ~DVComboBox2() override;

    void addItem(const std::u16string& item);
    void addItems(const std::vector<std::u16string>& items);
    /// Puts the items before position `index` in their order; an index that no item has appends.
    /// The selection keeps its number, so that another item may be selected afterwards.
    void insertItems(int index, const std::vector<std::u16string>& items) {
        emitters()->insertItemsU(index, items, std::string());
    }
    /// Takes one item out; an index that no item has changes nothing. The selection as above.
    void removeItem(int index);
    /// Takes every item out.
    void clear();
    std::vector<std::u16string> items() const { return emitters()->getItemsU(); }
    int count() const;

    /// Selects the item at `index`, -1 for none. An index that no item has is kept as it is. In an
    /// editable box the item becomes the text of the field; -1 empties the field.
    void setSelection(int index);
    /// What was last set, or chosen by the user; -1 at first, and after the display reported an
    /// item that does not exist.
    int selection() const;
    /// The text of the selected item; empty if there is none.
    std::u16string selectedItem() const;

    /// Lets the user type in the field, which begins with the selected item if it has no text yet.
    void setEditable(bool editable);
    /// Puts a text into the field, whatever is selected.
    void setText(const std::u16string& text);
    /// The text of the field: what was last set, typed or chosen by the user.
    std::u16string text() const;

    /// The user chose an item; selection() gives it already. Not called when the display reports
    /// what setSelection() has just chosen.
    template <class Callable>
    WIRO::Subscription onSelect(Callable&& callable) {
        return WIRO::connect(m_selection, Admission::handler(std::forward<Callable>(callable)));
    }
    /// The user changed the text of the field, which the event brings.
    template <class Callable>
    WIRO::Subscription onEdit(Callable&& callable) {
        return WIRO::connect(m_edit, Admission::handler(std::forward<Callable>(callable)));
    }
    /// The user finished typing: pressed Enter, or left the field after a change.
    template <class Callable>
    WIRO::Subscription onEditFinish(Callable&& callable) {
        return WIRO::connect(m_editFinished, Admission::handler(std::forward<Callable>(callable)));
    }

    WIRO::Emitter<void(const DVComboBoxSelectEvent2&)>& selectionEmitter() { return m_selection; }
    WIRO::Emitter<void(const DVComboBoxEditEvent2&)>& editEmitter() { return m_edit; }
    WIRO::Emitter<void(const DVComboBoxEditEvent2&)>& editFinishedEmitter() {
        return m_editFinished;
    }
    DVComboBox2Emitters* emitters() const {
        return static_cast<DVComboBox2Emitters*>(DVObject2::emitters());
    }

private:
    static constexpr int s_reported = -2;

    bool isDescribedWhole() const override { return false; }
    void tellLeftOut() const override;
    void judge();
    void judgeChoice(const DVComboBoxSelectEvent2& event);
    bool isEditable() const;
    void takeItem();
    void noteText(bool isEmptied);
    bool hasItem(int index) const { return index >= 0 && index < count(); }

    int m_ownChoice = s_reported;  // what setSelection() chose, until the display has something new
    bool m_isEmptied = false;      // the field is empty, whatever is selected
    bool m_isAstray = false;       // the backend took over the number of no item from the display
    WIRO::Emitter<void(const DVComboBoxSelectEvent2&)> m_selection;
    WIRO::Emitter<void(const DVComboBoxEditEvent2&)> m_edit;
    WIRO::Emitter<void(const DVComboBoxEditEvent2&)> m_editFinished;
};

}  // namespace DOVA
