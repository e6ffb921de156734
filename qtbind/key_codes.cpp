#include "qtbind/key_codes.h"

#include <QKeyEvent>

namespace qtbind {

namespace {

std::optional<std::int16_t> KeypadCode(int key) {
    if (key >= Qt::Key_0 && key <= Qt::Key_9) return 96 + (key - Qt::Key_0);
    switch (key) {
        case Qt::Key_Asterisk:
            return 106;
        case Qt::Key_Plus:
            return 107;
        case Qt::Key_Minus:
            return 109;
        case Qt::Key_Period:
        case Qt::Key_Comma:
            return 110;
        case Qt::Key_Slash:
            return 111;
        default:
            return std::nullopt;
    }
}

// Shifted digits report the digit key, as on the US layout.
std::optional<std::int16_t> ShiftedDigit(int key) {
    switch (key) {
        case Qt::Key_ParenRight:
            return 48;
        case Qt::Key_Exclam:
            return 49;
        case Qt::Key_At:
            return 50;
        case Qt::Key_NumberSign:
            return 51;
        case Qt::Key_Dollar:
            return 52;
        case Qt::Key_Percent:
            return 53;
        case Qt::Key_AsciiCircum:
            return 54;
        case Qt::Key_Ampersand:
            return 55;
        case Qt::Key_Asterisk:
            return 56;
        case Qt::Key_ParenLeft:
            return 57;
        default:
            return std::nullopt;
    }
}

std::optional<std::int16_t> PunctuationCode(int key) {
    switch (key) {
        case Qt::Key_Semicolon:
        case Qt::Key_Colon:
            return 186;
        case Qt::Key_Equal:
        case Qt::Key_Plus:
            return 187;
        case Qt::Key_Comma:
        case Qt::Key_Less:
            return 188;
        case Qt::Key_Minus:
        case Qt::Key_Underscore:
            return 189;
        case Qt::Key_Period:
        case Qt::Key_Greater:
            return 190;
        case Qt::Key_Slash:
        case Qt::Key_Question:
            return 191;
        case Qt::Key_QuoteLeft:
        case Qt::Key_AsciiTilde:
            return 192;
        case Qt::Key_BracketLeft:
        case Qt::Key_BraceLeft:
            return 219;
        case Qt::Key_Backslash:
        case Qt::Key_Bar:
            return 220;
        case Qt::Key_BracketRight:
        case Qt::Key_BraceRight:
            return 221;
        case Qt::Key_Apostrophe:
        case Qt::Key_QuoteDbl:
            return 222;
        default:
            return std::nullopt;
    }
}

std::optional<std::int16_t> ControlKeyCode(int key) {
    if (key >= Qt::Key_F1 && key <= Qt::Key_F16) return 112 + (key - Qt::Key_F1);
    switch (key) {
        case Qt::Key_Backspace:
            return 8;
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
            return 9;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return 13;
        case Qt::Key_Shift:
            return 16;
        case Qt::Key_Control:
            return 17;
        case Qt::Key_Alt:
            return 18;
        case Qt::Key_Pause:
            return 19;
        case Qt::Key_CapsLock:
            return 20;
        case Qt::Key_Escape:
            return 27;
        case Qt::Key_Space:
            return 32;
        case Qt::Key_PageUp:
            return 33;
        case Qt::Key_PageDown:
            return 34;
        case Qt::Key_End:
            return 35;
        case Qt::Key_Home:
            return 36;
        case Qt::Key_Left:
            return 37;
        case Qt::Key_Up:
            return 38;
        case Qt::Key_Right:
            return 39;
        case Qt::Key_Down:
            return 40;
        case Qt::Key_Insert:
            return 45;
        case Qt::Key_Delete:
            return 46;
        case Qt::Key_NumLock:
            return 144;
        case Qt::Key_ScrollLock:
            return 145;
        default:
            return std::nullopt;
    }
}

}  // namespace

std::optional<std::int16_t> KeyAscii(const QKeyEvent& event) {
    // Keys held with Ctrl or Alt are commands, not characters.
    if (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) return std::nullopt;
    switch (event.key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return 13;
        case Qt::Key_Escape:
            return 27;
        case Qt::Key_Backspace:
            return 8;
        default:
            break;
    }
    const QString text = event.text();
    if (text.size() != 1) return std::nullopt;
    const char16_t c = text.front().unicode();
    // The program's characters are single bytes of Latin-1.
    if (c < 32 || c > 255 || c == 127) return std::nullopt;
    return static_cast<std::int16_t>(c);
}

std::optional<std::int16_t> KeyCode(const QKeyEvent& event) {
    const int key = event.key();
    if (event.modifiers() & Qt::KeypadModifier) {
        if (auto code = KeypadCode(key)) return code;
    }
    if (key >= Qt::Key_A && key <= Qt::Key_Z) return static_cast<std::int16_t>(key);
    if (key >= Qt::Key_0 && key <= Qt::Key_9) return static_cast<std::int16_t>(key);
    if (auto code = ControlKeyCode(key)) return code;
    if (auto code = ShiftedDigit(key)) return code;
    return PunctuationCode(key);
}

int ShiftState(Qt::KeyboardModifiers modifiers) {
    int shift = 0;
    if (modifiers & Qt::ShiftModifier) shift |= 1;
    if (modifiers & Qt::ControlModifier) shift |= 2;
    if (modifiers & Qt::AltModifier) shift |= 4;
    return shift;
}

}  // namespace qtbind
