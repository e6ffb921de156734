// A settings file where the disk will not have it: a folder, a fifo or an
// unreadable file in its place, a folder that cannot be written or is a
// file, a write that fails half way, a linked file, no path at all. The
// old file stays as it was and no temporary file is left.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
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

bool RunningAsRoot() {
    return ::geteuid() == 0;
}

TEST(FileSettingsStore, AFolderInPlaceOfTheFile) {
    ScratchFolder folder;
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
    ScratchFolder folder;
    const fs::path file = folder / "Lathmark.conf";
    ASSERT_EQ(::mkfifo(file.c_str(), 0600), 0);
    FileSettingsStore store(file);
    EXPECT_TRUE(store.Entries().empty());
}

TEST(FileSettingsStore, AnUnreadableFileReadsAsEmpty) {
    if (RunningAsRoot()) GTEST_SKIP() << "root reads any file";
    ScratchFolder folder;
    const fs::path file = folder / "Lathmark.conf";
    WriteBytes(file, "[Settings]\nZoom=True\n");
    fs::permissions(file, fs::perms::none);
    EXPECT_TRUE(FileSettingsStore(file).Entries().empty());
}

TEST(FileSettingsStore, AMissingFileReadsAsEmpty) {
    ScratchFolder folder;
    EXPECT_TRUE(FileSettingsStore(folder / "nothing/here/Lathmark.conf").Entries().empty());
}

TEST(FileSettingsStore, AnUnwritableFolderFailsTheSaveAndKeepsTheOldFile) {
    ScratchFolder folder;
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
    ScratchFolder folder;
    const fs::path plain = folder / "plain";
    WriteBytes(plain, "not a folder");
    FileSettingsStore store(plain / "lathmark" / "Lathmark.conf");
    store.Write("Settings", "Zoom", "True");  // must not throw
    EXPECT_FALSE(store.Save());
    EXPECT_EQ(ReadBytes(plain), "not a folder");
    EXPECT_EQ(NamesIn(folder.path()), std::set<std::string>{"plain"});
}

TEST(FileSettingsStore, AWriteThatFailsHalfwayKeepsTheOldFile) {
    ScratchFolder folder;
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
    ScratchFolder folder;
    const fs::path file = folder / "Lathmark.conf";
    FileSettingsStore store(file);
    for (int i = 0; i < 20; ++i) store.Write("Settings", "Count", std::to_string(i));
    EXPECT_TRUE(store.Save());
    EXPECT_EQ(NamesIn(folder.path()), std::set<std::string>{"Lathmark.conf"});
    EXPECT_EQ(FileSettingsStore(file).Read("Settings", "Count"), "19");
}

TEST(FileSettingsStore, ALinkedFileStaysLinked) {
    ScratchFolder folder;
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
