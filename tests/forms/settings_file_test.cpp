#include "forms/settings_file.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <optional>
#include <random>
#include <set>
#include <sstream>
#include <string>
#include <system_error>
#include <vector>

namespace forms {
namespace {

namespace fs = std::filesystem;
using Entry = SettingsStore::Entry;

// A fresh folder per test, removed with everything in it afterwards.
class TempFolder {
  public:
    TempFolder() {
        std::string pattern = (fs::temp_directory_path() / "lathmark-settings-XXXXXX").string();
        std::vector<char> name(pattern.begin(), pattern.end());
        name.push_back('\0');
        if (::mkdtemp(name.data()) != nullptr) path_ = name.data();
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    ~TempFolder() {
        if (path_.empty()) return;
        std::error_code error;
        // Give back the rights a test took away, or the removal fails.
        for (auto it = fs::recursive_directory_iterator(path_, error);
             !error && it != fs::recursive_directory_iterator(); it.increment(error)) {
            if (!it->is_symlink(error)) {
                fs::permissions(it->path(), fs::perms::owner_all, fs::perm_options::add, error);
            }
        }
        fs::permissions(path_, fs::perms::owner_all, fs::perm_options::add, error);
        fs::remove_all(path_, error);
    }
    const fs::path& path() const { return path_; }
    fs::path operator/(const std::string& name) const { return path_ / name; }

  private:
    fs::path path_;
};

void WriteBytes(const fs::path& file, const std::string& bytes) {
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    out << bytes;
}

std::string ReadBytes(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

std::set<std::string> NamesIn(const fs::path& folder) {
    std::set<std::string> names;
    std::error_code error;
    for (const auto& item : fs::directory_iterator(folder, error)) {
        names.insert(item.path().filename().string());
    }
    return names;
}

bool RunningAsRoot() {
    return ::geteuid() == 0;
}

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
    TempFolder folder;
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
    TempFolder folder;
    const fs::path file = folder / "Lathmark.conf";
    FileSettingsStore store(file);
    store.Write("Colors", "CalcBackground", "8421376");
    store.Write("Settings", "Zoom", "False");
    store.Flush();
    EXPECT_EQ(ReadBytes(file), "[Colors]\nCalcBackground=8421376\n\n[Settings]\nZoom=False\n");
}

TEST(FileSettingsStore, KeysAndSectionsAreFoundWithoutRegardToCase) {
    TempFolder folder;
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
    TempFolder folder;
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
    TempFolder folder;
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
    TempFolder folder;
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
    TempFolder folder;
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
    TempFolder folder;
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
    TempFolder folder;
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
    TempFolder folder;
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
    TempFolder folder;
    const fs::path file = folder / "Lathmark.conf";
    WriteBytes(file, "[Settings]\nZoom=True\nName=\xC0\xAF\n");
    EXPECT_TRUE(FileSettingsStore(file).Entries().empty());
}

TEST(FileSettingsStore, DamagedLinesArePassedOverAndGoodOnesKept) {
    TempFolder folder;
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
    TempFolder folder;
    const fs::path file = folder / "Lathmark.conf";
    // A byte order mark, Windows line ends, blanks around names.
    WriteBytes(file, "\xEF\xBB\xBF  [ Settings ]  \r\n  Zoom =True\r\nCalcTop=-200\r\n");
    FileSettingsStore store(file);
    EXPECT_EQ(store.Read("settings", "zoom"), "True");
    EXPECT_EQ(store.Read("Settings", "CalcTop"), "-200");
    EXPECT_EQ(store.Entries().size(), 2u);
}

// ---- one save for all the writes, within the reader's limit, at a cost in
// proportion to the file --------------------------------------------------

TEST(FileSettingsStore, WritesWaitForTheFlushAndGoOutTogether) {
    TempFolder folder;
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
    TempFolder folder;
    const fs::path file = folder / "Lathmark.conf";
    FileSettingsStore store(file);
    store.Flush();
    EXPECT_FALSE(fs::exists(file));
}

// A file just under the limit, all of it another program's, and the
// program's own entries on top: the file saved stays within the limit by
// leaving out the other program's last entries, never the program's own.
TEST(FileSettingsStore, TheFileSavedKeepsWithinTheLimit) {
    TempFolder folder;
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
    TempFolder folder;
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
        TempFolder folder;
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
    TempFolder folder;
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

TEST(FileSettingsStore, AFolderInPlaceOfTheFile) {
    TempFolder folder;
    const fs::path file = folder / "Lathmark.conf";
    fs::create_directory(file);
    FileSettingsStore store(file);
    EXPECT_TRUE(store.Entries().empty());
    store.Write("Settings", "Zoom", "True");  // must not throw
    EXPECT_EQ(store.Read("Settings", "Zoom"), "True");
    EXPECT_FALSE(store.Save());
    EXPECT_TRUE(fs::is_directory(file));
    EXPECT_EQ(NamesIn(folder.path()), std::set<std::string>{"Lathmark.conf"});
}

TEST(FileSettingsStore, AFifoInPlaceOfTheFileDoesNotHang) {
    TempFolder folder;
    const fs::path file = folder / "Lathmark.conf";
    ASSERT_EQ(::mkfifo(file.c_str(), 0600), 0);
    FileSettingsStore store(file);
    EXPECT_TRUE(store.Entries().empty());
}

TEST(FileSettingsStore, AnUnreadableFileReadsAsEmpty) {
    if (RunningAsRoot()) GTEST_SKIP() << "root reads any file";
    TempFolder folder;
    const fs::path file = folder / "Lathmark.conf";
    WriteBytes(file, "[Settings]\nZoom=True\n");
    fs::permissions(file, fs::perms::none);
    EXPECT_TRUE(FileSettingsStore(file).Entries().empty());
}

TEST(FileSettingsStore, AMissingFileReadsAsEmpty) {
    TempFolder folder;
    EXPECT_TRUE(FileSettingsStore(folder / "nothing/here/Lathmark.conf").Entries().empty());
}

TEST(FileSettingsStore, AnUnwritableFolderFailsTheSaveAndKeepsTheOldFile) {
    TempFolder folder;
    const fs::path file = folder / "Lathmark.conf";
    WriteBytes(file, "[Settings]\nZoom=True\n");
    const std::string before = ReadBytes(file);

    FileSettingsStore store(file);
    fs::permissions(folder.path(), fs::perms::owner_read | fs::perms::owner_exec);
    if (::access(folder.path().c_str(), W_OK) == 0) {
        // Root writes into a read-only folder regardless. The next two tests
        // make failures that bind root too.
        GTEST_SKIP() << "the folder stays writable for this user";
    }
    store.Write("Settings", "Zoom", "False");
    EXPECT_FALSE(store.Save());
    EXPECT_EQ(store.Read("Settings", "Zoom"), "False");
    fs::permissions(folder.path(), fs::perms::owner_all);
    EXPECT_EQ(ReadBytes(file), before);
    EXPECT_EQ(NamesIn(folder.path()), std::set<std::string>{"Lathmark.conf"});
}

TEST(FileSettingsStore, AFolderThatIsAFileFailsTheSave) {
    TempFolder folder;
    const fs::path plain = folder / "plain";
    WriteBytes(plain, "not a folder");
    FileSettingsStore store(plain / "lathmark" / "Lathmark.conf");
    store.Write("Settings", "Zoom", "True");  // must not throw
    EXPECT_FALSE(store.Save());
    EXPECT_EQ(ReadBytes(plain), "not a folder");
    EXPECT_EQ(NamesIn(folder.path()), std::set<std::string>{"plain"});
}

TEST(FileSettingsStore, AWriteThatFailsHalfwayKeepsTheOldFile) {
    TempFolder folder;
    const fs::path file = folder / "Lathmark.conf";
    WriteBytes(file, "[Settings]\nZoom=True\n");
    const std::string before = ReadBytes(file);

    // A file size limit makes the write fail part way, as a full disk
    // would, even for root.
    rlimit saved{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &saved), 0);
    auto* const oldHandler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit small = saved;
    small.rlim_cur = 1024;
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);

    FileSettingsStore store(file);
    store.Write("Settings", "Big", std::string(64 * 1024, 'x'));
    const bool saved_ok = store.Save();

    ::setrlimit(RLIMIT_FSIZE, &saved);
    std::signal(SIGXFSZ, oldHandler);

    EXPECT_FALSE(saved_ok);
    EXPECT_EQ(ReadBytes(file), before);
    EXPECT_EQ(NamesIn(folder.path()), std::set<std::string>{"Lathmark.conf"});
    EXPECT_EQ(FileSettingsStore(file).Read("Settings", "Big"), std::nullopt);
}

TEST(FileSettingsStore, NoTemporaryFilesAfterSaves) {
    TempFolder folder;
    const fs::path file = folder / "Lathmark.conf";
    FileSettingsStore store(file);
    for (int i = 0; i < 20; ++i) store.Write("Settings", "Count", std::to_string(i));
    EXPECT_TRUE(store.Save());
    EXPECT_EQ(NamesIn(folder.path()), std::set<std::string>{"Lathmark.conf"});
    EXPECT_EQ(FileSettingsStore(file).Read("Settings", "Count"), "19");
}

TEST(FileSettingsStore, ALinkedFileStaysLinked) {
    TempFolder folder;
    const fs::path real = folder / "real.conf";
    const fs::path link = folder / "Lathmark.conf";
    WriteBytes(real, "[Settings]\nZoom=True\n");
    fs::create_symlink(real, link);
    FileSettingsStore store(link);
    EXPECT_EQ(store.Read("Settings", "Zoom"), "True");
    store.Write("Settings", "Zoom", "False");
    store.Flush();
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(FileSettingsStore(real).Read("Settings", "Zoom"), "False");
}

TEST(FileSettingsStore, AnEmptyPathNeverSaves) {
    FileSettingsStore store{fs::path()};
    EXPECT_TRUE(store.Entries().empty());
    store.Write("Settings", "Zoom", "True");
    EXPECT_FALSE(store.Save());
    EXPECT_EQ(store.Read("Settings", "Zoom"), "True");
}

}  // namespace
}  // namespace forms
