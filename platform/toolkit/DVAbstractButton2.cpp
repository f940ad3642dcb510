#include "toolkit/DVAbstractButton2.h"

namespace DOVA {

DVAbstractButton2::~DVAbstractButton2() {
    dismantle();
}

void DVAbstractButton2::judgeClicks() {
    if (!m_judgesClicks) {
        m_judgesClicks = true;
        WIRO::connect(m_click, [this](const DVButtonClickEvent2& event) { admit(&event); });
    }
}

}  // namespace DOVA
