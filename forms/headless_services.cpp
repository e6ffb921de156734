#include "forms/headless_services.h"

namespace forms {

MessageAnswer RecordingMessageBoxes::Show(const std::string& text, const std::string& title,
                                          MessageButtons buttons, MessageIcon icon) {
    shown.push_back({text, title, buttons, icon});
    MessageAnswer answer = nextAnswer;
    nextAnswer = MessageAnswer::Ok;
    if (buttons == MessageButtons::OkOnly) return MessageAnswer::Ok;
    return answer;
}

std::optional<std::string> MemorySettingsStore::Read(const std::string& section,
                                                     const std::string& key) const {
    if (const std::string* value = table_.Find(section, key)) return *value;
    return std::nullopt;
}

void MemorySettingsStore::Write(const std::string& section, const std::string& key,
                                const std::string& value) {
    table_.Set(section, key, value);
}

void RecordingPrinter::SetFontName(const std::string& name) {
    fontName_ = name;
}

void RecordingPrinter::PrintLine(const std::string& line) {
    lines_.push_back(line);
}

void RecordingPrinter::EndDoc() {
    // A document is begun by its first line: with none there is nothing.
    if (lines_.empty()) return;
    printed.push_back({fontName_, std::move(lines_)});
    lines_.clear();
}

double HalfEmTextWidth(const Font& font, const std::string& text) {
    return static_cast<double>(text.size()) * font.Size * 10.0;
}

const char* IconName(MessageIcon icon) {
    switch (icon) {
        case MessageIcon::None:
            return "None";
        case MessageIcon::Critical:
            return "Critical";
        case MessageIcon::Question:
            return "Question";
        case MessageIcon::Exclamation:
            return "Exclamation";
        case MessageIcon::Information:
            return "Information";
    }
    return "None";
}

}  // namespace forms
