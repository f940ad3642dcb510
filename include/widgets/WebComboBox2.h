#pragma once

#include <string>
#include <vector>

#include "toolkit/DVComboBox2.h"
#include "widgets/WebWidget2.h"

namespace DOVA {

/// The combo box of the web. Items, current index, text, placeholder and the editable flag live in
/// the model element; without one, setters still send and getters answer empty values. No property
/// message carries the items: they reach the page with descriptions and with the model document.
///
/// Client events, emitted without the object lock: "onSelectionChange" with the number "index" (0
/// if it is absent or no whole number) becomes a select event, "onEdit" and "onEditFinish" edit
/// events. Every message with an "event", known or not, first makes its text "value", empty if it
/// is absent or no text, the element's text; a selection makes "index" the current index. Nothing
/// is sent back, since the page shows the new state already.
class DOVA_WEB_EXPORT WebComboBox2 : public WebWidget2 {
public:
    WebComboBox2(DVComboBox2* front, DVComboBox2Emitters* emitters, DVObject* parent);
    ~WebComboBox2() override;

    /// The text that the field has already is neither stored nor sent.
    virtual void doSetTextU(const std::u16string& text);
    virtual std::u16string doGetTextU() const;
    /// Appends the items, each as a change of the model document of its own; a turn's changes reach
    /// the page together. The byte string is not used.
    virtual void doAddItemsU(const std::vector<std::u16string>& items, const std::string&);
    /// Puts the items before position `index`, as one change; a negative index, or one that no item
    /// has, appends as above. The byte string is not used.
    virtual void doInsertItemsU(int index, const std::vector<std::u16string>& items,
                                const std::string&);
    /// Takes one item out; -1 takes all, any other index that no item has takes none.
    virtual void doRemoveItems(int index);
    virtual void doSetEditable(bool editable);
    /// The index is not compared with the number of items.
    virtual void doSetSelection(int index);
    virtual void doSetPlaceholderText(const std::u16string& text);
    virtual std::vector<std::u16string> doGetItemsU() const;
    /// Empty for an index that no item has, and for 0: callers rely on the first item's being left
    /// out.
    virtual std::u16string doGetItemAtU(int index) const;
    virtual bool doIsEditable() const;
    virtual int doGetCount() const;
    /// The current index, -1 at first.
    virtual int doGetSelection() const;
    virtual std::u16string doGetPlaceholderText() const;

    /// For tests of programs: each asks the page to show a text or an item. A repeated value is
    /// not sent. The element changes only when the page answers. doimSelectByString() is answered
    /// like a user's choice, with its event. The other two are ordinary writes for the page: it
    /// answers at most with the text in the field of an editable box, without an event. UTF-8.
    virtual void doimEdit(const std::string& text);
    virtual void doimSelect(int index);
    virtual void doimSelectByString(const std::string& text);

    void handleJSONMessage(const QJsonObject& message) override;
    /// Without the placeholder, which is sent when it is set.
    QJsonObject getJSonObject() const override;

private:
    static const WireForm& form();
    void receive(const ReceivedMessage& message);
    void putBack(int index, const std::u16string& text);
};

}  // namespace DOVA
