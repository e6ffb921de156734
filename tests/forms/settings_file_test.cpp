// The settings file as the program keeps it: what is written comes back in
// another store, byte for byte, found without regard to case and grouped
// by section; where the file lies for the user; and files damaged or edited
// by hand read as far as they are good.
#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/stat.h>

#include <cstdlib>
#include <optional>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "forms/settings_file.h"
#include "tests/forms/scratch_folder.h"

namespace forms {
namespace {

namespace fs = std::filesystem;
using testfiles::NamesIn;
using testfiles::ReadBytes;
using testfiles::ScratchFolder;
using testfiles::WriteBytes;
using Entry = SettingsStore::Entry;

bool SameEntries(const std::vector<Entry>& a, const std::vector<Entry>& b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (a[i].section != b[i].section || a[i].key != b[i].key || a[i].value != b[i].value) {
            return false;
        }
    }
    return true;
}

// Sets or clears an environment variable for one test and puts it back.
class ScopedEnv {
  public:
    ScopedEnv(const char* name, const char* value) : name_(name) {
        if (const char* old = std::getenv(name)) old_ = old;
        if (value != nullptr) {
            ::setenv(name, value, 1);
        } else {
            ::unsetenv(name);
        }
    }
    ScopedEnv(const ScopedEnv&) = delete;
    ScopedEnv& operator=(const ScopedEnv&) = delete;
    ~ScopedEnv() {
        if (old_) {
            ::setenv(name_.c_str(), old_->c_str(), 1);
        } else {
            ::unsetenv(name_.c_str());
        }
    }

  private:
    std::string name_;
    std::optional<std::string> old_;
};

TEST(FileSettingsStore, WritesSurviveIntoAnotherStore) {
    ScratchFolder folder;
    const fs::path file = folder / "Lathmark.conf";
    {
        FileSettingsStore first(file);
        EXPECT_TRUE(first.Entries().empty());
        first.Write("Colors", "CalcBackground", "8421376");
        first.Write("Settings", "Zoom", "True");
        first.Write("Settings", "CalcTop", "-200");
        first.Flush();
    }
    FileSettingsStore second(file);
    EXPECT_EQ(second.Read("Colors", "CalcBackground"), "8421376");
    EXPECT_EQ(second.Read("Settings", "Zoom"), "True");
    EXPECT_EQ(second.Read("Settings", "CalcTop"), "-200");
    EXPECT_EQ(second.Read("Settings", "CalcLeft"), std::nullopt);
    EXPECT_EQ(second.Entries().size(), 3u);
}

TEST(FileSettingsStore, TheFileIsPlainSectionsAndKeys) {
    ScratchFolder folder;
    const fs::path file = folder / "Lathmark.conf";
    FileSettingsStore store(file);
    store.Write("Colors", "CalcBackground", "8421376");
    store.Write("Settings", "Zoom", "False");
    store.Flush();
    EXPECT_EQ(ReadBytes(file), "[Colors]\nCalcBackground=8421376\n\n[Settings]\nZoom=False\n");
}

TEST(FileSettingsStore, KeysAndSectionsAreFoundWithoutRegardToCase) {
    ScratchFolder folder;
    const fs::path file = folder / "Lathmark.conf";
    FileSettingsStore store(file);
    store.Write("Colors", "CalcBackGround", "1");
    store.Write("Colors", "CalcBackground", "8421376");
    EXPECT_EQ(store.Read("Colors", "CalcBackGround"), "8421376");
    EXPECT_EQ(store.Read("colors", "CALCBACKGROUND"), "8421376");
    ASSERT_EQ(store.Entries().size(), 1u);
    store.Flush();

    FileSettingsStore again(file);
    EXPECT_EQ(again.Read("COLORS", "CalcBackGround"), "8421376");
    ASSERT_EQ(again.Entries().size(), 1u);
    EXPECT_EQ(again.Entries()[0].value, "8421376");
}

TEST(FileSettingsStore, OneKeyInTwoSectionsIsTwoEntries) {
    ScratchFolder folder;
    const fs::path file = folder / "Lathmark.conf";
    FileSettingsStore store(file);
    store.Write("Settings", "Converter", "True");
    store.Write("Colors", "Converter", "8421376");
    store.Flush();
    FileSettingsStore again(file);
    EXPECT_EQ(again.Read("Settings", "Converter"), "True");
    EXPECT_EQ(again.Read("Colors", "Converter"), "8421376");
}

TEST(FileSettingsStore, EntriesFollowTheFileGroupedBySection) {
    ScratchFolder folder;
    const fs::path file = folder / "Lathmark.conf";
    FileSettingsStore store(file);
    store.Write("Colors", "A", "1");
    store.Write("Settings", "B", "2");
    store.Write("colors", "C", "3");
    const std::vector<Entry> expected = {
        {"Colors", "A", "1"}, {"Colors", "C", "3"}, {"Settings", "B", "2"}};
    EXPECT_TRUE(SameEntries(store.Entries(), expected));
    store.Flush();
    FileSettingsStore again(file);
    EXPECT_TRUE(SameEntries(again.Entries(), expected));
}

TEST(FileSettingsStore, AwkwardValuesComeBackByteForByte) {
    ScratchFolder folder;
    const fs::path file = folder / "Lathmark.conf";
    const std::vector<std::string> values = {
        "",
        "line one\nline two",
        "back\\slash and \\n not a newline",
        "ends with a backslash\\",
        "carriage\rreturn\r\n",
        " 12'- 3 1/2\" ",
        "a=b=c",
        "[Not a section]",
        "; not a comment",
        "tab\there",
        std::string("nul") + '\0' + "byte\x01\x1f",
        "caf\xC3\xA9 \xE2\x80\x99",
        "not utf-8: \xFF\xC3(\x80",
    };
    {
        FileSettingsStore store(file);
        for (std::size_t i = 0; i < values.size(); ++i) {
            store.Write("Values", "v" + std::to_string(i), values[i]);
        }
        store.Flush();
    }
    // One header and one line per value: nothing broke a line.
    const std::string text = ReadBytes(file);
    EXPECT_EQ(static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')),
              values.size() + 1);
    FileSettingsStore again(file);
    for (std::size_t i = 0; i < values.size(); ++i) {
        EXPECT_EQ(again.Read("Values", "v" + std::to_string(i)), values[i]) << "value " << i;
    }
}

TEST(FileSettingsStore, AwkwardNamesComeBack) {
    ScratchFolder folder;
    const fs::path file = folder / "Lathmark.conf";
    const std::vector<std::string> names = {"",   "a=b", "[k", ";k",   "#k",  " k ",
                                            "\t", "k\\", "k]", "x\ny", "[s]", "a\\=b"};
    {
        FileSettingsStore store(file);
        for (const auto& name : names) {
            store.Write(name, name, "section and key " + name);
        }
        store.Flush();
    }
    FileSettingsStore again(file);
    ASSERT_EQ(again.Entries().size(), names.size());
    for (const auto& name : names) {
        EXPECT_EQ(again.Read(name, name), "section and key " + name) << "name '" << name << "'";
    }
}

TEST(FileSettingsStore, DefaultPathFollowsXdgConfigHome) {
    const ScopedEnv home("HOME", "/home/someone");
    {
        const ScopedEnv config("XDG_CONFIG_HOME", "/somewhere/config");
        EXPECT_EQ(FileSettingsStore::DefaultPath(),
                  fs::path("/somewhere/config/lathmark/Lathmark.conf"));
    }
    {
        const ScopedEnv config("XDG_CONFIG_HOME", nullptr);
        EXPECT_EQ(FileSettingsStore::DefaultPath(),
                  fs::path("/home/someone/.config/lathmark/Lathmark.conf"));
    }
    {
        const ScopedEnv config("XDG_CONFIG_HOME", "");
        EXPECT_EQ(FileSettingsStore::DefaultPath(),
                  fs::path("/home/someone/.config/lathmark/Lathmark.conf"));
    }
    {
        // A relative XDG_CONFIG_HOME is not to be used.
        const ScopedEnv config("XDG_CONFIG_HOME", "relative/config");
        EXPECT_EQ(FileSettingsStore::DefaultPath(),
                  fs::path("/home/someone/.config/lathmark/Lathmark.conf"));
    }
}

TEST(FileSettingsStore, DefaultPathWithoutHomeStillNamesTheFile) {
    const ScopedEnv config("XDG_CONFIG_HOME", nullptr);
    const ScopedEnv home("HOME", nullptr);
    const fs::path path = FileSettingsStore::DefaultPath();
    EXPECT_EQ(path.filename(), "Lathmark.conf");
    EXPECT_EQ(path.parent_path().filename(), "lathmark");
}

TEST(FileSettingsStore, SaveMakesMissingFoldersPrivately) {
    ScratchFolder folder;
    const fs::path file = folder / "config/lathmark/Lathmark.conf";
    FileSettingsStore store(file);
    EXPECT_TRUE(store.Entries().empty());
    store.Write("Settings", "ShowTape", "True");
    store.Flush();
    ASSERT_TRUE(fs::is_regular_file(file));
    EXPECT_EQ(fs::status(file).permissions() & fs::perms::all,
              fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(fs::status(file.parent_path()).permissions() & fs::perms::all, fs::perms::owner_all);
    EXPECT_EQ(FileSettingsStore(file).Read("Settings", "ShowTape"), "True");
}

TEST(FileSettingsStore, SaveKeepsThePermissionsOfTheOldFile) {
    ScratchFolder folder;
    const fs::path file = folder / "Lathmark.conf";
    WriteBytes(file, "[Settings]\nZoom=True\n");
    fs::permissions(file, fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read |
                              fs::perms::others_read);
    FileSettingsStore store(file);
    store.Write("Settings", "Zoom", "False");
    store.Flush();
    EXPECT_EQ(fs::status(file).permissions() & fs::perms::all,
              fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read |
                  fs::perms::others_read);
}

TEST(FileSettingsStore, RandomBytesReadAsEmpty) {
    ScratchFolder folder;
    const fs::path file = folder / "Lathmark.conf";
    std::mt19937 random(20240611u);
    std::string garbage;
    for (int i = 0; i < 8192; ++i) garbage += static_cast<char>(random() & 0xFF);
    // Lines that would be good on their own do not make garbage trusted.
    garbage = "[Settings]\nZoom=True\n" + garbage;
    WriteBytes(file, garbage);
    FileSettingsStore store(file);
    EXPECT_TRUE(store.Entries().empty());
    EXPECT_EQ(store.Read("Settings", "Zoom"), std::nullopt);
    // The next save replaces the garbage with a good file.
    store.Write("Settings", "Zoom", "False");
    store.Flush();
    EXPECT_EQ(FileSettingsStore(file).Read("Settings", "Zoom"), "False");
}

TEST(FileSettingsStore, InvalidUtf8ReadsAsEmpty) {
    ScratchFolder folder;
    const fs::path file = folder / "Lathmark.conf";
    WriteBytes(file, "[Settings]\nZoom=True\nName=\xC0\xAF\n");
    EXPECT_TRUE(FileSettingsStore(file).Entries().empty());
}

TEST(FileSettingsStore, DamagedLinesArePassedOverAndGoodOnesKept) {
    ScratchFolder folder;
    const fs::path file = folder / "Lathmark.conf";
    WriteBytes(file,
               "Orphan=before any section\n"
               "[Settings]\n"
               "Zoom=True\n"
               "a line without a separator\n"
               "BadEscape=\\x4\n"
               "CutShort=abc\\\n"
               "[Broken header\n"
               "Lost=under the broken header\n"
               "[Colors]\n"
               "  ; a comment\n"
               "# another\n"
               "\n"
               "ConvResult=123\n"
               "ConvResult=456\n");
    FileSettingsStore store(file);
    const std::vector<Entry> expected = {{"Settings", "Zoom", "True"},
                                         {"Colors", "ConvResult", "456"}};
    EXPECT_TRUE(SameEntries(store.Entries(), expected));
}

TEST(FileSettingsStore, HandEditedFilesAreRead) {
    ScratchFolder folder;
    const fs::path file = folder / "Lathmark.conf";
    // A byte order mark, Windows line ends, blanks around names.
    WriteBytes(file, "\xEF\xBB\xBF  [ Settings ]  \r\n  Zoom =True\r\nCalcTop=-200\r\n");
    FileSettingsStore store(file);
    EXPECT_EQ(store.Read("settings", "zoom"), "True");
    EXPECT_EQ(store.Read("Settings", "CalcTop"), "-200");
    EXPECT_EQ(store.Entries().size(), 2u);
}

}  // namespace
}  // namespace forms
