// Putting new content in place of a file: through a file without a name
// where the file system makes one, through a temporary of the program's
// naming where it does not; what each road calls on the system; what a
// save killed half way leaves, on either road; and the removal of the
// temporaries that killed saves left.
#include "forms/file_replace.h"

#include <dirent.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "forms/settings_file.h"
#include "tests/forms/scratch_folder.h"

namespace forms {
namespace {

namespace fs = std::filesystem;

// The system's calls, counted and remembered.
class CountingCalls : public FileSystemCalls {
  public:
    int OpenAt(int folder, const char* path, int flags, mode_t mode) override {
        if ((flags & O_TMPFILE) == O_TMPFILE) {
            ++unnamedOpens;
            if (refuseUnnamed) {
                errno = EOPNOTSUPP;
                return -1;
            }
        } else {
            opened.push_back(path);
        }
        return FileSystemCalls::OpenAt(folder, path, flags, mode);
    }
    int Fsync(int fd) override {
        ++fsyncs;
        return FileSystemCalls::Fsync(fd);
    }
    int LinkAt(int fromFolder, const char* from, int toFolder, const char* to, int flags) override {
        linked.push_back(to);
        return FileSystemCalls::LinkAt(fromFolder, from, toFolder, to, flags);
    }
    int RenameAt(int fromFolder, const char* from, int toFolder, const char* to) override {
        renamed.push_back(std::string(from) + " -> " + to);
        return FileSystemCalls::RenameAt(fromFolder, from, toFolder, to);
    }
    int UnlinkAt(int folder, const char* path) override {
        removed.push_back(path);
        return FileSystemCalls::UnlinkAt(folder, path);
    }

    bool refuseUnnamed = false;
    int unnamedOpens = 0, fsyncs = 0;
    std::vector<std::string> opened, linked, renamed, removed;
};

// Writes the first piece of the content, tells the test through a pipe,
// and waits there to be killed.
class StoppingCalls : public CountingCalls {
  public:
    explicit StoppingCalls(int tell) : tell_(tell) {}
    ssize_t Write(int fd, const void* data, std::size_t size) override {
        const ssize_t wrote = FileSystemCalls::Write(fd, data, size < 4096 ? size : 4096);
        const char byte = 'w';
        (void)!::write(tell_, &byte, 1);
        for (;;) ::pause();
        return wrote;
    }

  private:
    int tell_;
};

using testfiles::ReadBytes;
using testfiles::WriteBytes;

class FileReplace : public ::testing::Test {
  protected:
    void SetUp() override { ASSERT_FALSE(folder.empty()); }

    // Whether this folder's file system makes files without a name.
    bool MakesUnnamedFiles() const {
        const int fd = ::open(folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0600);
        if (fd < 0) return false;
        ::close(fd);
        return true;
    }
    std::set<std::string> Names() const { return testfiles::NamesIn(folder); }

    // Runs `save` in a child that stops in its first write, and kills it
    // there.
    template <typename Save>
    void KillHalfWay(Save save) {
        int pipe[2];
        ASSERT_EQ(::pipe2(pipe, O_CLOEXEC), 0);
        std::fflush(nullptr);
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            StoppingCalls calls(pipe[1]);
            save(calls);
            ::_exit(0);
        }
        ::close(pipe[1]);
        char byte = 0;
        const ssize_t told = ::read(pipe[0], &byte, 1);
        ::close(pipe[0]);
        ::kill(child, SIGKILL);
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        ASSERT_EQ(told, 1) << "the save never wrote";
        ASSERT_TRUE(WIFSIGNALED(status));
    }

    testfiles::ScratchFolder scratch{"lmreplace"};
    fs::path folder = scratch.path();
    fs::path target = folder / "job.mem";
};

TEST_F(FileReplace, ThroughAFileWithoutANameOneRenameAndTwoFlushes) {
    if (!MakesUnnamedFiles()) GTEST_SKIP() << "this file system makes no files without a name";
    WriteBytes(target, "old");
    CountingCalls calls;
    ASSERT_EQ(ReplaceFile(target, "new content", 0600, calls), 0);
    EXPECT_EQ(ReadBytes(target), "new content");
    EXPECT_EQ(calls.unnamedOpens, 1);
    EXPECT_TRUE(calls.opened.empty()) << "a named file was made";
    ASSERT_EQ(calls.linked.size(), 1u);
    EXPECT_TRUE(IsTemporaryName("job.mem", calls.linked[0])) << calls.linked[0];
    ASSERT_EQ(calls.renamed.size(), 1u);
    EXPECT_EQ(calls.renamed[0], calls.linked[0] + " -> job.mem");
    EXPECT_EQ(calls.fsyncs, 2);  // the file, then the folder
    EXPECT_EQ(Names(), std::set<std::string>{"job.mem"});
}

TEST_F(FileReplace, ANewFileTakesItsNameAtOnce) {
    if (!MakesUnnamedFiles()) GTEST_SKIP() << "this file system makes no files without a name";
    CountingCalls calls;
    ASSERT_EQ(ReplaceFile(target, "first", 0640, calls), 0);
    EXPECT_EQ(ReadBytes(target), "first");
    EXPECT_EQ(calls.linked, std::vector<std::string>{"job.mem"});
    EXPECT_TRUE(calls.renamed.empty());
    EXPECT_EQ(calls.fsyncs, 2);
    EXPECT_EQ(fs::status(target).permissions() & fs::perms::all,
              fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
}

TEST_F(FileReplace, WhereNoFileWithoutANameIsMadeATemporaryOfOurNamingServes) {
    WriteBytes(target, "old");
    ::chmod(target.c_str(), 0644);
    CountingCalls calls;
    calls.refuseUnnamed = true;
    ASSERT_EQ(ReplaceFile(target, "new content", 0600, calls), 0);
    EXPECT_EQ(ReadBytes(target), "new content");
    ASSERT_EQ(calls.opened.size(), 1u);
    EXPECT_TRUE(IsTemporaryName("job.mem", calls.opened[0])) << calls.opened[0];
    ASSERT_EQ(calls.renamed.size(), 1u);
    EXPECT_EQ(calls.renamed[0], calls.opened[0] + " -> job.mem");
    EXPECT_EQ(calls.fsyncs, 2);
    EXPECT_EQ(Names(), std::set<std::string>{"job.mem"});
    // The old file's permissions stay.
    EXPECT_EQ(fs::status(target).permissions() & fs::perms::all,
              fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read |
                  fs::perms::others_read);
}

TEST_F(FileReplace, AKilledSaveThroughAFileWithoutANameLeavesNothing) {
    if (!MakesUnnamedFiles()) GTEST_SKIP() << "this file system makes no files without a name";
    WriteBytes(target, "old");
    KillHalfWay([&](FileSystemCalls& calls) {
        ReplaceFile(target, std::string(1024 * 1024, 'x'), 0600, calls);
    });
    EXPECT_EQ(Names(), std::set<std::string>{"job.mem"});
    EXPECT_EQ(ReadBytes(target), "old");
}

TEST_F(FileReplace, AKilledSaveThroughATemporaryLeavesOneTheNextSaveRemoves) {
    WriteBytes(target, "old");
    KillHalfWay([&](FileSystemCalls& calls) {
        static_cast<CountingCalls&>(calls).refuseUnnamed = true;
        ReplaceFile(target, std::string(1024 * 1024, 'x'), 0600, calls);
    });
    EXPECT_EQ(ReadBytes(target), "old");
    std::set<std::string> left = Names();
    left.erase("job.mem");
    ASSERT_EQ(left.size(), 1u);
    EXPECT_TRUE(IsTemporaryName("job.mem", *left.begin())) << *left.begin();

    CountingCalls calls;
    calls.refuseUnnamed = true;
    ASSERT_EQ(ReplaceFile(target, "new", 0600, calls), 0);
    EXPECT_EQ(calls.removed, std::vector<std::string>{*left.begin()});
    EXPECT_EQ(Names(), std::set<std::string>{"job.mem"});
    EXPECT_EQ(ReadBytes(target), "new");
}

// Killed while it saves, the settings file is the old one whole: never old
// sections and new ones mixed.
TEST_F(FileReplace, AKilledSettingsSaveLeavesTheOldFileWhole) {
    const fs::path file = folder / "Lathmark.conf";
    const std::string old = "[Colors]\nCalcBackground=1\n\n[Settings]\nZoom=True\nCalcTop=5\n";
    WriteBytes(file, old);
    for (const bool refuse : {false, true}) {
        KillHalfWay([&](FileSystemCalls& calls) {
            static_cast<CountingCalls&>(calls).refuseUnnamed = refuse;
            FileSettingsStore store(file, calls);
            store.Write("Colors", "CalcBackground", "2");
            store.Write("Settings", "Zoom", "False");
            store.Write("Settings", "Big", std::string(64 * 1024, 'x'));
            store.Flush();
        });
        EXPECT_EQ(ReadBytes(file), old);
    }
    FileSettingsStore store(file);
    store.Write("Settings", "Zoom", "False");
    store.Flush();
    EXPECT_EQ(Names(), std::set<std::string>{"Lathmark.conf"});
}

TEST_F(FileReplace, OnlyPlainFilesOfOurNamingGoAsLeftovers) {
    WriteBytes(target, "old");
    fs::create_directory(folder / ".job.mem.folder");
    fs::create_symlink(target, folder / ".job.mem.linked");
    WriteBytes(folder / ".job.mem.ab_def", "not our letters");
    WriteBytes(folder / ".job.mem.abcdef", "left over");
    ASSERT_EQ(ReplaceFile(target, "new", 0600), 0);
    EXPECT_EQ(Names(), (std::set<std::string>{"job.mem", ".job.mem.folder", ".job.mem.linked",
                                              ".job.mem.ab_def"}));
}

TEST_F(FileReplace, AFailedSaveLeavesTheOldFileAndNoTemporary) {
    WriteBytes(target, "old");
    class FullDisk : public CountingCalls {
      public:
        ssize_t Write(int, const void*, std::size_t) override {
            errno = ENOSPC;
            return -1;
        }
    };
    for (const bool refuse : {false, true}) {
        FullDisk calls;
        calls.refuseUnnamed = refuse;
        EXPECT_EQ(ReplaceFile(target, "new", 0600, calls), ENOSPC);
        EXPECT_EQ(ReadBytes(target), "old");
        EXPECT_EQ(Names(), std::set<std::string>{"job.mem"});
    }
}

TEST_F(FileReplace, AFolderInPlaceOfTheFileIsRefused) {
    fs::create_directory(target);
    EXPECT_EQ(ReplaceFile(target, "new", 0600), EISDIR);
    EXPECT_TRUE(fs::is_directory(target));
}

// A folder the user may write in but not list (-wx): the file is still
// replaced; no leftover can be looked for there. Root lists any folder, so
// as root the save runs in a child that has become nobody.
TEST_F(FileReplace, AFolderThatCannotBeListedStillTakesTheFile) {
    WriteBytes(target, "old");
    ASSERT_EQ(::chmod(target.c_str(), 0666), 0);
    ASSERT_EQ(::chmod(folder.c_str(), ::geteuid() == 0 ? 0333 : 0300), 0);
    std::fflush(nullptr);
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        if (::geteuid() == 0 &&
            (::setresgid(65534, 65534, 65534) != 0 || ::setresuid(65534, 65534, 65534) != 0)) {
            ::_exit(3);
        }
        if (::opendir(folder.c_str()) != nullptr) ::_exit(4);
        ::_exit(ReplaceFile(target, "new", 0600) == 0 ? 0 : 5);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ::chmod(folder.c_str(), 0700);
    ASSERT_TRUE(WIFEXITED(status));
    ASSERT_NE(WEXITSTATUS(status), 3) << "the child could not become nobody";
    ASSERT_NE(WEXITSTATUS(status), 4) << "the folder could still be listed";
    EXPECT_EQ(WEXITSTATUS(status), 0) << "the save failed";
    EXPECT_EQ(ReadBytes(target), "new");
    EXPECT_EQ(Names(), std::set<std::string>{"job.mem"});
}

TEST(TemporaryName, IsADotTheNameADotAndSixLettersOrDigits) {
    EXPECT_TRUE(IsTemporaryName("Lathmark.conf", ".Lathmark.conf.a1B2c3"));
    EXPECT_TRUE(IsTemporaryName("job.mem", ".job.mem.ZZZZZZ"));
    EXPECT_FALSE(IsTemporaryName("job.mem", "job.mem.a1B2c3"));
    EXPECT_FALSE(IsTemporaryName("job.mem", ".job.mem.a1B2c"));
    EXPECT_FALSE(IsTemporaryName("job.mem", ".job.mem.a1B2c34"));
    EXPECT_FALSE(IsTemporaryName("job.mem", ".job.mem-a1B2c3"));
    EXPECT_FALSE(IsTemporaryName("job.mem", ".job.mex.a1B2c3"));
    EXPECT_FALSE(IsTemporaryName("job.mem", ".job.mem.a1B-c3"));
    EXPECT_FALSE(IsTemporaryName("job.mem", ".job.mem"));
    EXPECT_FALSE(IsTemporaryName("", "."));
}

}  // namespace
}  // namespace forms
