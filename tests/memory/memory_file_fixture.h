// A started program whose files live in a scratch folder of the test and
// whose file dialog answers what the test queued: a name, or a cancel when
// nothing is queued.
#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>

#include <deque>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "forms/disk_files.h"
#include "forms/headless_services.h"
#include "memory/cells.h"
#include "shell/lathmark_app.h"

class QueuedFileDialogs : public forms::FileDialogs {
  public:
    std::optional<std::string> Show(const forms::FileDialogRequest& request) override {
        shown.push_back(request);
        if (answers.empty()) return std::nullopt;
        auto answer = answers.front();
        answers.pop_front();
        return answer;
    }
    std::deque<std::optional<std::string>> answers;
    std::vector<forms::FileDialogRequest> shown;
};

class MemoryFileApp : public ::testing::Test {
  protected:
    void SetUp() override {
        std::string pattern = (std::filesystem::temp_directory_path() / "lmfile.XXXXXX").string();
        ASSERT_NE(::mkdtemp(pattern.data()), nullptr);
        folder = pattern;
        files = MakeFiles();
        forms::Services services{&beeper, &messages, &settings};
        services.fileDialogs = &dialogs;
        services.files = files.get();
        services.textMeasure = &measure;
        app = std::make_unique<shell::LathmarkApp>(services, forms::ScreenInfo{});
        app->Start();
        app->MainLoopPass();
    }
    void TearDown() override {
        app.reset();
        std::error_code error;
        std::filesystem::permissions(folder, std::filesystem::perms::owner_all,
                                     std::filesystem::perm_options::add, error);
        std::filesystem::remove_all(folder, error);
    }
    virtual std::unique_ptr<forms::DiskFiles> MakeFiles() {
        return std::make_unique<forms::DiskFiles>(folder);
    }

    core::Program& P() { return app->Program(); }
    void Menu(const char* name) {
        P().Calculator->GetMenu(name).Click();
        app->MainLoopPass();
    }
    std::string PathOf(const std::string& name) { return (folder / name).string(); }
    // The next dialog picks this file of the scratch folder.
    void Choose(const std::string& name) { dialogs.answers.emplace_back(PathOf(name)); }
    void Cancel() { dialogs.answers.emplace_back(std::nullopt); }

    std::string ReadBytes(const std::string& name) {
        std::ifstream in(PathOf(name), std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), {});
    }
    void WriteBytes(const std::string& name, const std::string& bytes) {
        std::ofstream(PathOf(name), std::ios::binary) << bytes;
    }
    // Lines each ended by CR LF.
    void WriteLines(const std::string& name, const std::vector<std::string>& lines) {
        std::string bytes;
        for (const auto& line : lines) bytes += line + "\r\n";
        WriteBytes(name, bytes);
    }

    std::vector<forms::Form*> Cells() {
        std::vector<forms::Form*> cells;
        for (forms::Form* form : P().runtime.OpenForms()) {
            if (memory::IsCell(*form)) cells.push_back(form);
        }
        return cells;
    }
    std::string Value(forms::Form& cell) { return memory::ValueLabel(cell).Caption(); }
    std::string Tag(forms::Form& cell) { return memory::ValueLabel(cell).Tag(); }

    // A cell named and valued as given, through New Memory.
    forms::Form& MakeCell(const std::string& name, const std::string& value) {
        Menu("NewMemory");
        forms::Form& cell = *Cells().back();
        cell.SetCaption(name);
        memory::ValueLabel(cell).SetCaption(value);
        return cell;
    }
    // The memory window put somewhere without its Resize taking a hand.
    void PlaceParent(double left, double top, double width, double height) {
        P().ArrangingMemory = 1;
        P().MDIForm1->Move(left, top, width, height);
        P().ArrangingMemory = 0;
    }

    std::filesystem::path folder;
    forms::CountingBeeper beeper;
    forms::RecordingMessageBoxes messages;
    forms::MemorySettingsStore settings;
    forms::HalfEmTextMeasure measure;
    QueuedFileDialogs dialogs;
    std::unique_ptr<forms::DiskFiles> files;
    std::unique_ptr<shell::LathmarkApp> app;
};
