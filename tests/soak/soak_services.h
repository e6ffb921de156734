// The desktop of the long random session: services that answer every modal
// thing at once and at random (message boxes, the name prompt, the file
// dialog), files held in memory, a settings store that outlives each run of
// the program, and an observer that checks each line written on a tape and
// remembers the popup menu the program asks for.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "forms/grid.h"
#include "forms/headless_services.h"
#include "forms/runtime_observer.h"
#include "forms/services.h"

namespace soak {

using Random = std::mt19937_64;

// A whole number from 0 to n - 1.
inline std::size_t Below(Random& random, std::size_t n) {
    return n == 0 ? 0 : static_cast<std::size_t>(random() % n);
}

class RandomMessageBoxes : public forms::MessageBoxes {
  public:
    explicit RandomMessageBoxes(Random& random) : random_(random) {}
    forms::MessageAnswer Show(const std::string&, const std::string&, forms::MessageButtons buttons,
                              forms::MessageIcon) override;
    long shown = 0;

  private:
    Random& random_;
};

// The name prompt, answered by its own buttons: OK on the proposed name, OK
// on a name from a small list (an empty one among them), or Cancel.
class RandomPrompt : public forms::ModalHost {
  public:
    explicit RandomPrompt(Random& random) : random_(random) {}
    void RunModal(forms::Form& form) override;

  private:
    Random& random_;
};

// The user's files, in memory. Paths under kNoFolder cannot be written.
class MemoryFiles : public forms::FileStore {
  public:
    static constexpr const char* kNoFolder = "/nowhere/";
    bool Exists(const std::string& path) const override { return files.contains(path); }
    OpenResult OpenLines(const std::string& path) const override;
    std::string Replace(const std::string& path, const std::string& content) override;
    std::string ProgramFolder() override { return "/soak"; }

    std::map<std::string, std::string> files;
};

// The file dialog: Cancel, or one of a few names, some of which exist.
class RandomFileDialogs : public forms::FileDialogs {
  public:
    explicit RandomFileDialogs(Random& random) : random_(random) {}
    std::optional<std::string> Show(const forms::FileDialogRequest& request) override;

  private:
    Random& random_;
};

// The colour dialog: Cancel, black, or any colour.
class RandomColorDialogs : public forms::ColorDialogs {
  public:
    explicit RandomColorDialogs(Random& random) : random_(random) {}
    std::optional<std::uint32_t> Show(std::uint32_t initial) override;

  private:
    Random& random_;
};

// The settings store of the user, kept across the runs. While `capturing`
// its writes go to `captured` instead, so that what a run would write can
// be seen without writing it.
class SoakSettings : public forms::SettingsStore {
  public:
    std::optional<std::string> Read(const std::string& section,
                                    const std::string& key) const override {
        return store.Read(section, key);
    }
    void Write(const std::string& section, const std::string& key,
               const std::string& value) override {
        (capturing ? captured : store).Write(section, key, value);
    }
    std::vector<Entry> Entries() const override { return store.Entries(); }

    forms::MemorySettingsStore store, captured;
    bool capturing = false;
};

// Hears every change of the model. Each text written into the tape grid is
// checked where it lands (rows from 1 on end in a blank); the popup menu
// asked for is kept for the session to pick from.
class SoakObserver : public forms::RuntimeObserver {
  public:
    void ControlChanged(forms::Control& control) override;
    void PopupMenuRequested(forms::MenuItem& menu) override { popup = &menu; }

    forms::Grid* grid = nullptr;
    forms::MenuItem* popup = nullptr;
    std::string failure;  // the first bad line seen, told once
};

}  // namespace soak
