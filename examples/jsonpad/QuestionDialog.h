#pragma once

#include <functional>
#include <string>

#include "toolkit/DVBoxLayout2.h"
#include "toolkit/DVDialog2.h"
#include "toolkit/DVPanel2.h"
#include "toolkit/DVText2.h"

namespace jsonpad {

/// A modal question with a button for each answer. Whoever asks deletes it, also from within an
/// answer.
class QuestionDialog : public DOVA::DVDialog2 {
public:
    using Answer = std::function<void()>;

    /// `onCancel` is what a closed window means; its button, the last one, is called "Cancel".
    QuestionDialog(const std::u16string& title, const std::u16string& question, Answer onCancel);
    ~QuestionDialog() override;

    /// Adds a button before the last one; the first one added is pressed by Enter.
    void addAnswer(const std::u16string& label, Answer answer);
    /// Shows the question with all its buttons.
    void ask();

private:
    void addButton(const std::u16string& label, Answer answer, bool isDefault);

    DOVA::DVBoxLayout2 m_rows;
    DOVA::DVText2 m_question;
    DOVA::DVPanel2 m_buttons;
    DOVA::DVBoxLayout2 m_buttonRow;
    Answer m_onCancel;
    bool m_hasAnswer = false;
};

}  // namespace jsonpad
