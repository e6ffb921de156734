// Services for runs without a desktop: they answer at once and keep a record
// of what happened, for tests and the scenario tool.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "forms/services.h"
#include "forms/settings_table.h"

namespace forms {

class CountingBeeper : public Beeper {
  public:
    void Beep() override { ++count; }
    int count = 0;
};

class RecordingMessageBoxes : public MessageBoxes {
  public:
    struct Shown {
        std::string text, title;
        MessageButtons buttons;
        MessageIcon icon;
    };
    MessageAnswer Show(const std::string& text, const std::string& title, MessageButtons buttons,
                       MessageIcon icon) override;

    std::vector<Shown> shown;
    // The answer of the next box that asks; then back to the default.
    MessageAnswer nextAnswer = MessageAnswer::Ok;
};

// A settings store held in memory, keys compared without regard to case;
// Entries() in the order of first writing.
class MemorySettingsStore : public SettingsStore {
  public:
    std::optional<std::string> Read(const std::string& section,
                                    const std::string& key) const override;
    void Write(const std::string& section, const std::string& key,
               const std::string& value) override;
    std::vector<Entry> Entries() const override { return table_.Entries(); }

  private:
    SettingsTable table_;
};

const char* IconName(MessageIcon icon);

// The measure of text without a desktop: every character half an em wide,
// that is ten twips for each point of the font's size. Tests can count on it.
double HalfEmTextWidth(const Font& font, const std::string& text);

class HalfEmTextMeasure : public TextMeasure {
  public:
    double TextWidth(const Font& font, const std::string& text) const override {
        return HalfEmTextWidth(font, text);
    }
};

// A printer that keeps every document it is sent: the font and the lines.
class RecordingPrinter : public Printer {
  public:
    struct Document {
        std::string fontName;
        std::vector<std::string> lines;
    };
    void SetFontName(const std::string& name) override;
    void PrintLine(const std::string& line) override;
    void EndDoc() override;

    std::vector<Document> printed;

  private:
    std::string fontName_;
    std::vector<std::string> lines_;  // of the document under way
};

// Help with no window: remembers each file it was asked to show, as read.
class RecordingHelpSystem : public HelpSystem {
  public:
    explicit RecordingHelpSystem(std::string executableFolder = "")
        : folder_(std::move(executableFolder)) {}
    std::string ExecutableFolder() const override { return folder_; }
    void SetExecutableFolder(std::string folder) { folder_ = std::move(folder); }
    void ShowContents(const std::string& helpFile) override { shown.push_back(UpToNul(helpFile)); }

    std::vector<std::string> shown;

  private:
    std::string folder_;
};

// A system information tool as the test says: found or not, and every start
// asked of it remembered.
class ScriptedSystemInfoTool : public SystemInfoTool {
  public:
    std::optional<std::string> Find() const override { return found; }
    bool Start(const std::string& path) override {
        started.push_back(path);
        return startWorks;
    }

    std::optional<std::string> found;
    bool startWorks = true;
    std::vector<std::string> started;
};

}  // namespace forms
