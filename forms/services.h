// The services of the desktop that the program uses, each behind a small
// interface: the real desktop and the headless test runs supply their own.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "forms/font.h"

namespace forms {

class Form;

class Beeper {
  public:
    virtual ~Beeper() = default;
    virtual void Beep() = 0;
};

enum class MessageIcon { None, Critical, Question, Exclamation, Information };
enum class MessageButtons { OkOnly, OkCancel, YesNo, YesNoCancel };
enum class MessageAnswer { Ok, Cancel, Yes, No };

class MessageBoxes {
  public:
    virtual ~MessageBoxes() = default;
    // Shows a modal box and waits for the answer.
    virtual MessageAnswer Show(const std::string& text, const std::string& title,
                               MessageButtons buttons, MessageIcon icon) = 0;
};

// The per-user store of the program's settings: text values by section and
// key. Keys are found without regard to case.
class SettingsStore {
  public:
    struct Entry {
        std::string section, key, value;
    };
    virtual ~SettingsStore() = default;
    virtual std::optional<std::string> Read(const std::string& section,
                                            const std::string& key) const = 0;
    virtual void Write(const std::string& section, const std::string& key,
                       const std::string& value) = 0;
    virtual std::vector<Entry> Entries() const = 0;
};

// Runs a form shown modally: returns once the form is hidden or unloaded,
// which its own buttons see to.
class ModalHost {
  public:
    virtual ~ModalHost() = default;
    virtual void RunModal(Form& form) = 0;
};

// Measures a text as a form's font would draw it.
class TextMeasure {
  public:
    virtual ~TextMeasure() = default;
    // The width of `text` in twips.
    virtual double TextWidth(const Font& font, const std::string& text) const = 0;
};

// The screen's size in twips and its resolution.
struct ScreenInfo {
    double width = 1920 * 15.0;
    double height = 1080 * 15.0;
    double twipsPerPixelX = 15.0;
    double twipsPerPixelY = 15.0;
};

struct Services {
    Beeper* beeper = nullptr;
    MessageBoxes* messages = nullptr;
    SettingsStore* settings = nullptr;
    ModalHost* modal = nullptr;
    TextMeasure* textMeasure = nullptr;
};

}  // namespace forms
