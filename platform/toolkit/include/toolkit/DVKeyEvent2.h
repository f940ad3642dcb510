#pragma once

#include <string>
#include <utility>

namespace DOVA {

class DVObject2;

/// A key press. Printable keys have the code of their Latin-1 capital or sign, the others codes
/// from 0x01000000 on.
class DVKeyEvent2 {
public:
    static constexpr int KeyEscape = 0x01000000;
    static constexpr int KeyMinus = 45;
    static constexpr int KeyEqual = 61;
    static constexpr unsigned NoModifier = 0;
    static constexpr unsigned ControlModifier = 0x04000000;
    static constexpr unsigned NoMouseButton = 0;

    /// `text`: what the key types; `count`: how many presses this event stands for; `synthetic`:
    /// made by a program rather than by a keyboard.
    DVKeyEvent2(DVObject2* receiver, int key, unsigned modifiers, std::u16string text,
                bool autoRepeat, unsigned mouseButtons, int count, bool synthetic)
        : m_receiver(receiver),
          m_key(key),
          m_modifiers(modifiers),
          m_text(std::move(text)),
          m_autoRepeat(autoRepeat),
          m_mouseButtons(mouseButtons),
          m_count(count),
          m_synthetic(synthetic) {}

    DVObject2* receiver() const { return m_receiver; }
    int key() const { return m_key; }
    unsigned modifiers() const { return m_modifiers; }
    const std::u16string& text() const { return m_text; }
    bool isAutoRepeat() const { return m_autoRepeat; }
    unsigned mouseButtons() const { return m_mouseButtons; }
    int count() const { return m_count; }
    bool isSynthetic() const { return m_synthetic; }

private:
    DVObject2* m_receiver;
    int m_key;
    unsigned m_modifiers;
    std::u16string m_text;
    bool m_autoRepeat;
    unsigned m_mouseButtons;
    int m_count;
    bool m_synthetic;
};

}  // namespace DOVA
