#include "toolkit/DVEdit2.h"

#include "Implementation.h"

namespace DOVA {

DVEdit2::DVEdit2(DVObject* parent, const std::u16string& text)
    : DVWidget2(std::make_unique<DVEdit2Emitters>()) {
    implementBelow(parent, factory(), &DVFactory2::createEdit2, this);
    if (!text.empty()) {
        setText(text);
    }
    // The backend tells what was typed and leaves the text to the front object. These come first,
    // so that the program's handlers find the new text already.
    WIRO::connect(m_edit, [this](const DVEditEvent2& event) {
        if (admit(&event)) {
            m_typed = event.text();
            setText(m_typed);
        }
    });
    // What was taken over already is not taken back: a handler may have set another text since.
    WIRO::connect(m_editFinished, [this](const DVEditEvent2& event) {
        if (admit(&event) && event.text() != m_typed) {
            setText(event.text());
        }
    });
}

DVEdit2::~DVEdit2() {
    dismantle();
}

}  // namespace DOVA
