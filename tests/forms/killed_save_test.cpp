// Saves that do not finish: a program killed while it writes a memory file
// or its settings leaves the earlier file as it was and no temporary file
// behind for good. Where the file system makes the new file without a name
// until it is whole, nothing is left at all; a temporary of the program's
// own naming that a killed save did leave is removed by the next save.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <thread>

#include "forms/disk_files.h"
#include "forms/settings_file.h"
#include "tests/forms/scratch_folder.h"

namespace {

namespace fs = std::filesystem;

class KilledSave : public ::testing::Test {
  protected:
    void SetUp() override { ASSERT_FALSE(folder.empty()); }

    std::set<std::string> Names() const { return testfiles::NamesIn(folder); }
    void WriteBytes(const std::string& name, const std::string& bytes) {
        testfiles::WriteBytes(folder / name, bytes);
    }
    std::string ReadBytes(const std::string& name) { return testfiles::ReadBytes(folder / name); }

    testfiles::ScratchFolder scratch{"lmkill"};
    fs::path folder = scratch.path();
};

// The bytes a process has handed to write(2) so far, from /proc.
long long BytesWritten(pid_t pid) {
    std::ifstream io("/proc/" + std::to_string(pid) + "/io");
    std::string field;
    long long value = 0;
    while (io >> field >> value) {
        if (field == "wchar:") return value;
    }
    return -1;
}

// A child that saves a memory file of 256 MiB is killed once it has
// written the first 16 MiB of it.
TEST_F(KilledSave, AMemoryFileSaveKilledHalfWayLeavesNoTemporary) {
    WriteBytes("job.mem", "the earlier file\r\n");
    const std::string path = (folder / "job.mem").string();
    std::fflush(nullptr);
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        forms::DiskFiles files(folder.string());
        const std::string content(256u * 1024 * 1024, 'x');
        files.Replace(path, content);
        ::_exit(0);
    }
    const long long before = BytesWritten(child);
    ASSERT_GE(before, 0) << "no /proc to watch the child by";
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (BytesWritten(child) < before + 16 * 1024 * 1024 &&
           std::chrono::steady_clock::now() < deadline) {
        std::this_thread::sleep_for(std::chrono::microseconds(200));
    }
    ::kill(child, SIGKILL);
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status)) << "the save ended before it was killed";

    EXPECT_EQ(Names(), std::set<std::string>{"job.mem"});
    EXPECT_EQ(ReadBytes("job.mem"), "the earlier file\r\n");

    // Whatever was left, the next save leaves the new file alone.
    forms::DiskFiles files(folder.string());
    EXPECT_EQ(files.Replace(path, "new\r\n"), "");
    EXPECT_EQ(Names(), std::set<std::string>{"job.mem"});
    EXPECT_EQ(ReadBytes("job.mem"), "new\r\n");
}

// Temporaries of the program's naming, a dot, the file's name, a dot and
// six letters or digits, that no save holds any more, go with the next
// save of that file; other files stay, and so does the temporary of a save
// still under way.
TEST_F(KilledSave, TheNextSaveRemovesTheTemporariesOfKilledSaves) {
    WriteBytes("job.mem", "old\r\n");
    for (const char* name : {".job.mem.Ab12Cd", ".job.mem.zzzzzz", ".job.mem.bak", "job.mem.Ab12Cd",
                             ".job.mem.Ab12Cd7", ".other.mem.Ab12Cd", ".job.mem.under1"}) {
        WriteBytes(name, "left over");
    }
    // A save under way holds its temporary locked.
    const int busy = ::open((folder / ".job.mem.under1").c_str(), O_RDONLY | O_CLOEXEC);
    ASSERT_GE(busy, 0);
    ASSERT_EQ(::flock(busy, LOCK_EX), 0);

    forms::DiskFiles files(folder.string());
    EXPECT_EQ(files.Replace((folder / "job.mem").string(), "new\r\n"), "");
    ::close(busy);
    EXPECT_EQ(Names(),
              (std::set<std::string>{"job.mem", ".job.mem.bak", "job.mem.Ab12Cd",
                                     ".job.mem.Ab12Cd7", ".other.mem.Ab12Cd", ".job.mem.under1"}));
    EXPECT_EQ(ReadBytes("job.mem"), "new\r\n");
}

TEST_F(KilledSave, TheNextSettingsSaveRemovesTheTemporariesOfKilledSaves) {
    const fs::path file = folder / "Lathmark.conf";
    WriteBytes("Lathmark.conf", "[Settings]\nZoom=True\n");
    WriteBytes(".Lathmark.conf.Xy12Zw", "[Settings]\nZoom=Fa");
    WriteBytes(".Lathmark.conf.keep", "not ours");
    forms::FileSettingsStore store(file);
    store.Write("Settings", "Zoom", "False");
    EXPECT_TRUE(store.Save());
    EXPECT_EQ(Names(), (std::set<std::string>{"Lathmark.conf", ".Lathmark.conf.keep"}));
    EXPECT_EQ(forms::FileSettingsStore(file).Read("Settings", "Zoom"), "False");
}

}  // namespace
