// What the model's keyboard events take: the character of a key press as a
// KeyAscii code, the key itself as a key code of the program's platform
// (letters 65 to 90, Left 37, Up 38, ...), and the shift state as the sum
// of Shift 1, Ctrl 2 and Alt 4.
#pragma once

#include <cstdint>
#include <optional>

#include <Qt>

class QKeyEvent;

namespace qtbind {

// nullopt when the key types no character that the program could see.
std::optional<std::int16_t> KeyAscii(const QKeyEvent& event);
// nullopt for keys that the platform had no code for: they raise no event.
std::optional<std::int16_t> KeyCode(const QKeyEvent& event);
int ShiftState(Qt::KeyboardModifiers modifiers);

}  // namespace qtbind
