// The services of the desktop that the program uses, each behind a small
// interface: the real desktop and the headless test runs supply their own.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "forms/font.h"
#include "forms/line_reader.h"

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
    // Holds the value at once for Read; a store kept on the disk may wait
    // for Flush to put it there.
    virtual void Write(const std::string& section, const std::string& key,
                       const std::string& value) = 0;
    virtual std::vector<Entry> Entries() const = 0;
    // Puts every write so far where it lasts, all at once. The program
    // calls it when it has written all its settings.
    virtual void Flush() {}
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

// What the program asks of the desktop's dialog for a file name: the
// settings of its common dialog as they stand when it is shown.
struct FileDialogRequest {
    bool save = false;  // a dialog for saving; otherwise one for opening
    std::string title;
    // Pairs of description and pattern, each part ended by "|":
    // "Memory (*.mem)|*.mem|all files (*.*)|*.*".
    std::string filter;
    int filterIndex = 1;     // the pair chosen at first, from 1
    std::string defaultExt;  // added to a name typed without one
    std::string initDir;     // the folder the dialog starts in
    std::string fileName;    // the name it proposes
};

class FileDialogs {
  public:
    virtual ~FileDialogs() = default;
    // Waits for the user: the path chosen, or nothing when cancelled.
    virtual std::optional<std::string> Show(const FileDialogRequest& request) = 0;
};

// The desktop's dialog for choosing a colour. Colours are 32-bit numbers
// with red in the low byte.
class ColorDialogs {
  public:
    virtual ~ColorDialogs() = default;
    // Waits for the user: the colour chosen, or nothing when cancelled.
    virtual std::optional<std::uint32_t> Show(std::uint32_t initial) = 0;
};

// The user's files, as the program reads them, a line at a time, and
// writes them, whole.
class FileStore {
  public:
    struct OpenResult {
        std::unique_ptr<LineReader> lines;  // nothing when it could not be opened
        std::string error;                  // the platform's text of why not
    };
    virtual ~FileStore() = default;
    virtual bool Exists(const std::string& path) const = 0;
    // Opens the file for reading its lines (see LineReader for what a line
    // is and how long one may be).
    virtual OpenResult OpenLines(const std::string& path) const = 0;
    // Puts `content` in place of the file at `path`, whole or not at all: an
    // earlier file stays as it was when the write fails. Returns "" or the
    // platform's text of the failure.
    virtual std::string Replace(const std::string& path, const std::string& content) = 0;
    // The folder where the program keeps its own files for this user, made
    // when missing.
    virtual std::string ProgramFolder() = 0;
};

// The default printer, as the program prints to it: a document is begun by
// its first line and goes to the printer at EndDoc. Without a printer the
// lines go nowhere and nothing is said.
class Printer {
  public:
    virtual ~Printer() = default;
    // The font of the lines that follow: a name at the font's ordinary size.
    virtual void SetFontName(const std::string& name) = 0;
    virtual void PrintLine(const std::string& line) = 0;
    virtual void EndDoc() = 0;
};

// The text of a C string held in `text`: up to its first NUL.
inline std::string UpToNul(const std::string& text) {
    return text.substr(0, text.find('\0'));
}

// The program's help: its user's guide, shown in a window of the program.
class HelpSystem {
  public:
    virtual ~HelpSystem() = default;
    // The folder that holds the program's executable.
    virtual std::string ExecutableFolder() const = 0;
    // Opens the guide at its contents. `helpFile` is read up to its first
    // NUL, as the desktop's help call reads a C string.
    virtual void ShowContents(const std::string& helpFile) = 0;
};

// The system information tool that the desktop offers, if any.
class SystemInfoTool {
  public:
    virtual ~SystemInfoTool() = default;
    // The tool's path, or nothing when the desktop offers none.
    virtual std::optional<std::string> Find() const = 0;
    // Starts it apart from the program, its window in the normal state;
    // false when it could not be started.
    virtual bool Start(const std::string& path) = 0;
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
    FileDialogs* fileDialogs = nullptr;
    FileStore* files = nullptr;
    ColorDialogs* colorDialogs = nullptr;
    Printer* printer = nullptr;
    HelpSystem* help = nullptr;
    SystemInfoTool* systemInfo = nullptr;
};

}  // namespace forms
