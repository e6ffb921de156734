#include "memory/memory_file_menu.h"

#include <optional>
#include <string>

#include "memory/memory_file.h"

namespace memory {

namespace {

constexpr int kHideReadOnlyNoQuestion = 4;

// Shows CMDialog1 as it is set up, for opening or for saving: the name
// chosen, or nothing when the user cancels.
std::optional<std::string> ShowDialog(core::Program& p, bool save) {
    core::CommonDialog& d = p.CMDialog1;
    forms::FileDialogs* dialogs = p.runtime.GetServices().fileDialogs;
    if (!dialogs) return std::nullopt;
    forms::FileDialogRequest request;
    request.save = save;
    request.title = d.DialogTitle;
    request.filter = d.Filter;
    request.filterIndex = d.FilterIndex;
    request.defaultExt = d.DefaultExt;
    request.initDir = d.InitDir;
    request.fileName = d.FileName;
    auto chosen = dialogs->Show(request);
    if (chosen) d.FileName = *chosen;
    return chosen;
}

// The folder of the program, where the dialogs start.
std::string ProgramFolder(core::Program& p) {
    forms::FileStore* files = p.runtime.GetServices().files;
    return files ? files->ProgramFolder() : std::string();
}

}  // namespace

void SaveClick(core::Program& p) {
    if (p.MemoryCount == 1) return;
    if (!p.MemoryFileName.empty()) {
        WriteMemoryFile(p);
    } else {
        SaveAsClick(p);
    }
}

void SaveAsClick(core::Program& p) {
    if (p.MemoryCount == 1) return;
    core::CommonDialog& d = p.CMDialog1;
    d.DialogTitle = "Save As";
    d.CancelError = true;
    d.InitDir = ProgramFolder(p);
    d.DefaultExt = "mem";
    d.Filter = kMemoryFilter;
    d.FilterIndex = 1;
    d.Flags = kHideReadOnlyNoQuestion;
    // Cancelled: the name stays as it was.
    auto chosen = ShowDialog(p, true);
    if (!chosen) return;
    p.MemoryFileName = *chosen;
    WriteMemoryFile(p);
}

void OpenClick(core::Program& p) {
    // Any cell made since the last erase, even one closed since, means
    // there is something to lose.
    if (p.NextMemoryNumber > 1) {
        forms::MessageBoxes* boxes = p.runtime.GetServices().messages;
        const auto answer =
            boxes ? boxes->Show(
                        "Existing memory and memory tapes will be erased. Are you sure "
                        "you want to continue?",
                        "Lathmark Calculator", forms::MessageButtons::OkCancel,
                        forms::MessageIcon::Exclamation)
                  : forms::MessageAnswer::Cancel;
        if (answer == forms::MessageAnswer::Cancel) return;
    }
    core::CommonDialog& d = p.CMDialog1;
    // The title stays as the last use left it: after a Save As, the dialog
    // for opening is titled "Save As" too.
    d.CancelError = true;
    d.InitDir = ProgramFolder(p);
    d.Filter = kMemoryFilter;
    d.FilterIndex = 1;
    auto chosen = ShowDialog(p, false);
    if (!chosen) return;
    p.MemoryFileName = *chosen;
    ReadMemoryFile(p);
}

}  // namespace memory
