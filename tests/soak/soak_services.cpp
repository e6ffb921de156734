#include "soak_services.h"

#include "forms/form.h"

namespace soak {

forms::MessageAnswer RandomMessageBoxes::Show(const std::string&, const std::string&,
                                              forms::MessageButtons buttons, forms::MessageIcon) {
    ++shown;
    using forms::MessageAnswer;
    switch (buttons) {
        case forms::MessageButtons::OkCancel:
            return Below(random_, 2) ? MessageAnswer::Ok : MessageAnswer::Cancel;
        case forms::MessageButtons::YesNo:
            return Below(random_, 2) ? MessageAnswer::Yes : MessageAnswer::No;
        case forms::MessageButtons::YesNoCancel: {
            const MessageAnswer answers[] = {MessageAnswer::Yes, MessageAnswer::No,
                                             MessageAnswer::Cancel};
            return answers[Below(random_, 3)];
        }
        default:
            return MessageAnswer::Ok;
    }
}

void RandomPrompt::RunModal(forms::Form& form) {
    static const char* const names[] = {"", "Ridge", "Memory 1", "memory", " 5'- 3\" ", "x"};
    forms::Control* ok = form.Find("Command1");
    forms::Control* cancel = form.Find("Command2");
    forms::Control* text = form.Find("txtText1");
    switch (Below(random_, 4)) {
        case 0:
            if (cancel && cancel->Click) cancel->Click();
            return;
        case 1:
            if (text) text->SetCaption(names[Below(random_, std::size(names))]);
            break;
        default:
            break;  // OK on the name proposed
    }
    if (ok && ok->Click) ok->Click();
}

forms::FileStore::OpenResult MemoryFiles::OpenLines(const std::string& path) const {
    auto it = files.find(path);
    if (it == files.end()) return {nullptr, "No such file or directory"};
    return {std::make_unique<forms::TextLineReader>(it->second), ""};
}

std::string MemoryFiles::Replace(const std::string& path, const std::string& content) {
    if (path.rfind(kNoFolder, 0) == 0) return "No such file or directory";
    files[path] = content;
    return "";
}

std::optional<std::string> RandomFileDialogs::Show(const forms::FileDialogRequest&) {
    static const char* const paths[] = {"/soak/a.mem", "/soak/b.mem", "/soak/junk.mem",
                                        "/soak/missing.mem", "/nowhere/c.mem"};
    const std::size_t pick = Below(random_, std::size(paths) + 2);
    if (pick >= std::size(paths)) return std::nullopt;  // Cancel
    return paths[pick];
}

std::optional<std::uint32_t> RandomColorDialogs::Show(std::uint32_t initial) {
    switch (Below(random_, 5)) {
        case 0:
            return std::nullopt;
        case 1:
            return 0u;
        case 2:
            return initial;
        default:
            return static_cast<std::uint32_t>(Below(random_, 0x1000000));
    }
}

void SoakObserver::ControlChanged(forms::Control& control) {
    if (&control != grid || !failure.empty()) return;
    // A write raises the change with the written cell current.
    const int row = grid->Row(), col = grid->Col();
    const std::string& text = grid->Cell(row, col);
    if (row >= 1 && !text.empty() && text.back() != ' ') {
        failure = "tape " + std::to_string(col) + " row " + std::to_string(row) + " holds \"" +
                  text + "\", which does not end in a blank";
    }
}

}  // namespace soak
