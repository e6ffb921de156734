// How the settings go back on the disk: every write waits for one save,
// which stays within the size the reader takes, and reading and writing
// cost in proportion to the file.
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "forms/settings_file.h"
#include "tests/forms/scratch_folder.h"

namespace forms {
namespace {

namespace fs = std::filesystem;
using testfiles::NamesIn;
using testfiles::ReadBytes;
using testfiles::ScratchFolder;
using testfiles::WriteBytes;

TEST(FileSettingsStore, WritesWaitForTheFlushAndGoOutTogether) {
    ScratchFolder folder;
    const fs::path file = folder / "Lathmark.conf";
    WriteBytes(file, "[Settings]\nZoom=True\n");
    FileSettingsStore store(file);
    for (int i = 0; i < 18; ++i) store.Write("Settings", "Key" + std::to_string(i), "v");
    EXPECT_EQ(store.Read("Settings", "Key17"), "v");
    EXPECT_EQ(ReadBytes(file), "[Settings]\nZoom=True\n");
    store.Flush();
    FileSettingsStore back(file);
    EXPECT_EQ(back.Entries().size(), 19u);
    EXPECT_EQ(back.Read("Settings", "Key0"), "v");
    EXPECT_EQ(back.Read("Settings", "Zoom"), "True");

    // Nothing written since: no save.
    WriteBytes(file, "changed by hand\n");
    store.Flush();
    EXPECT_EQ(ReadBytes(file), "changed by hand\n");
}

TEST(FileSettingsStore, NoStoreOfNothingWrittenMakesAFile) {
    ScratchFolder folder;
    const fs::path file = folder / "Lathmark.conf";
    FileSettingsStore store(file);
    store.Flush();
    EXPECT_FALSE(fs::exists(file));
}

// A file just under the limit, all of it another program's, and the
// program's own entries on top: the file saved stays within the limit by
// leaving out the other program's last entries, never the program's own.
TEST(FileSettingsStore, TheFileSavedKeepsWithinTheLimit) {
    ScratchFolder folder;
    const fs::path file = folder / "Lathmark.conf";
    std::string text = "[Other]\n";
    int keys = 0;
    while (text.size() < FileSettingsStore::kMaxFileSize - 30) {
        text += "k" + std::to_string(keys++) + "=" + std::string(20, 'o') + "\n";
    }
    text += "\n[Last]\nk=v\n";
    ASSERT_LE(text.size(), FileSettingsStore::kMaxFileSize);
    WriteBytes(file, text);

    FileSettingsStore store(file);
    ASSERT_EQ(store.Entries().size(), static_cast<std::size_t>(keys) + 1);
    store.Write("Settings", "CalcTop", "1635");
    store.Write("Last", "Mine", std::string(200, 'm'));
    EXPECT_TRUE(store.Save());
    EXPECT_LE(fs::file_size(file), FileSettingsStore::kMaxFileSize);

    FileSettingsStore back(file);
    EXPECT_EQ(back.Read("Settings", "CalcTop"), "1635");
    EXPECT_EQ(back.Read("Last", "Mine"), std::string(200, 'm'));
    EXPECT_EQ(back.Read("Other", "k0"), std::string(20, 'o'));
    // Only what had to go went: the last entries read from the file.
    EXPECT_EQ(back.Read("Last", "k"), std::nullopt);
    EXPECT_EQ(back.Read("Other", "k" + std::to_string(keys - 1)), std::nullopt);
    EXPECT_GT(back.Entries().size(), static_cast<std::size_t>(keys) - 20);
    // The store itself still holds them for the rest of the run.
    EXPECT_EQ(store.Read("Last", "k"), "v");
}

TEST(FileSettingsStore, WhatWasWrittenAloneBeyondTheLimitIsNotSaved) {
    ScratchFolder folder;
    const fs::path file = folder / "Lathmark.conf";
    WriteBytes(file, "[Settings]\nZoom=True\n");
    FileSettingsStore store(file);
    store.Write("Settings", "Huge", std::string(FileSettingsStore::kMaxFileSize, 'h'));
    EXPECT_FALSE(store.Save());
    EXPECT_EQ(ReadBytes(file), "[Settings]\nZoom=True\n");
}

// The cost of the store is counted in the entries it looks at: reading a
// file, finding and writing the program's settings and saving it all back
// look at each entry a few times, however many there are, in one section
// or in as many sections as keys.
TEST(FileSettingsStore, ReadingAndWritingCostInProportionToTheFile) {
    for (const bool oneSection : {true, false}) {
        ScratchFolder folder;
        const fs::path file = folder / "Lathmark.conf";
        constexpr std::size_t kEntries = 30000;
        std::string text = oneSection ? "[Other]\n" : "";
        for (std::size_t i = 0; i < kEntries; ++i) {
            if (!oneSection) text += "[s" + std::to_string(i) + "]\n";
            text += "k" + std::to_string(i) + "=v\n";
        }
        WriteBytes(file, text);

        FileSettingsStore store(file);
        ASSERT_EQ(store.Entries().size(), kEntries);
        for (const char* key : {"Zoom", "Accuracy", "Converter", "ShowKeys", "ShowTape"}) {
            store.Read("Settings", key);
        }
        for (int i = 0; i < 18; ++i) store.Write("Settings", "Key" + std::to_string(i), "1");
        store.Flush();
        EXPECT_LE(store.Steps(), 4 * kEntries)
            << (oneSection ? "one section" : "one section a key");
        EXPECT_EQ(FileSettingsStore(file).Entries().size(), kEntries + 18);
    }
}

TEST(FileSettingsStore, AFileBeyondTheLimitReadsAsEmpty) {
    ScratchFolder folder;
    const fs::path file = folder / "Lathmark.conf";
    std::string text = "[Settings]\nZoom=True\n";
    const std::string padding = "; " + std::string(97, '-') + "\n";
    while (text.size() <= FileSettingsStore::kMaxFileSize) text += padding;
    WriteBytes(file, text);
    EXPECT_TRUE(FileSettingsStore(file).Entries().empty());

    // Just within the limit it is read.
    text.resize(FileSettingsStore::kMaxFileSize - 1);
    text += '\n';
    WriteBytes(file, text);
    EXPECT_EQ(FileSettingsStore(file).Read("Settings", "Zoom"), "True");
}

}  // namespace
}  // namespace forms
