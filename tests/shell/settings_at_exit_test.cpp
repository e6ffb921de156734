// The settings file around a whole run of the program, headless: what the
// start finds, and how Exit puts the settings back on the disk. All the
// settings of one Exit go out as one replacement of the file, never as a
// file rewritten once for each of them; entries the program does not know
// stay; and whatever the program writes, its next start reads.
#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>

#include "forms/settings_file.h"
#include "shell/headless_program.h"

namespace {

namespace fs = std::filesystem;

class SettingsAtExit : public ::testing::Test {
  protected:
    void SetUp() override {
        std::string pattern = (fs::temp_directory_path() / "lmexit.XXXXXX").string();
        ASSERT_NE(::mkdtemp(pattern.data()), nullptr);
        folder = pattern;
        file = folder / "Lathmark.conf";
    }
    void TearDown() override {
        program.reset();
        store.reset();
        std::error_code error;
        fs::remove_all(folder, error);
    }

    // The program started on the settings file as it stands.
    void Start() {
        program.reset();
        store = std::make_unique<forms::FileSettingsStore>(file);
        program = std::make_unique<shell::HeadlessProgram>(store.get());
    }
    void Exit() {
        P().Calculator->GetMenu("Exit").Click();
        ASSERT_TRUE(program->App().Ended());
    }
    core::Program& P() { return program->P(); }

    void WriteBytes(const std::string& bytes) {
        std::ofstream out(file, std::ios::binary | std::ios::trunc);
        out << bytes;
    }
    std::string ReadBytes() {
        std::ifstream in(file, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), {});
    }

    fs::path folder, file;
    std::unique_ptr<forms::FileSettingsStore> store;
    std::unique_ptr<shell::HeadlessProgram> program;
};

// Watches a folder for the settings file being put in place: a rename onto
// its name, or a file made under it.
class FolderWatch {
  public:
    explicit FolderWatch(const fs::path& folder) {
        fd_ = ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
        if (fd_ >= 0) {
            ::inotify_add_watch(fd_, folder.c_str(), IN_MOVED_TO | IN_CREATE | IN_CLOSE_WRITE);
        }
    }
    ~FolderWatch() {
        if (fd_ >= 0) ::close(fd_);
    }
    bool Works() const { return fd_ >= 0; }

    // How often, since the watch began, a file appeared under `name` (moved
    // there or made there) and how often a file of that name was written.
    struct Counts {
        int replaced = 0, written = 0;
    };
    Counts CountFor(const std::string& name) {
        Counts counts;
        alignas(inotify_event) char buffer[64 * 1024];
        for (;;) {
            const ssize_t got = ::read(fd_, buffer, sizeof buffer);
            if (got <= 0) break;
            for (ssize_t at = 0; at < got;) {
                const auto* event = reinterpret_cast<const inotify_event*>(buffer + at);
                if (event->len > 0 && name == event->name) {
                    if (event->mask & (IN_MOVED_TO | IN_CREATE)) ++counts.replaced;
                    if (event->mask & IN_CLOSE_WRITE) ++counts.written;
                }
                at += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
            }
        }
        return counts;
    }

  private:
    int fd_ = -1;
};

TEST_F(SettingsAtExit, ExitReplacesTheFileOnceWithEverySetting) {
    WriteBytes("[Settings]\nZoom=False\n");
    Start();
    FolderWatch watch(folder);
    ASSERT_TRUE(watch.Works());
    Exit();
    const FolderWatch::Counts counts = watch.CountFor("Lathmark.conf");
    EXPECT_EQ(counts.replaced, 1) << "the file was put in place " << counts.replaced << " times";
    EXPECT_EQ(counts.written, 0) << "the file was written in place";

    forms::FileSettingsStore back(file);
    EXPECT_EQ(back.Entries().size(), 18u);
    for (const char* key : {"CalcBackground", "ReadoutBackground", "MemoryBackground",
                            "MemoryReadout", "Converter", "ConvReadout", "ConvResult"}) {
        EXPECT_TRUE(back.Read("Colors", key)) << key;
    }
    for (const char* key : {"CalcTop", "CalcLeft", "ConvTop", "ConvLeft", "MDITop", "MDILeft",
                            "Zoom", "Accuracy", "Converter", "ShowKeys", "ShowTape"}) {
        EXPECT_TRUE(back.Read("Settings", key)) << key;
    }
}

TEST_F(SettingsAtExit, EntriesTheProgramDoesNotKnowStay) {
    WriteBytes(
        "; kept by hand\n[Settings]\nZoom=True\nHandMade=1\n\n[Printer]\nQueue=office\n"
        "\n[colors]\nSpare=255\n");
    Start();
    Exit();
    forms::FileSettingsStore back(file);
    EXPECT_EQ(back.Read("Settings", "HandMade"), "1");
    EXPECT_EQ(back.Read("Printer", "Queue"), "office");
    EXPECT_EQ(back.Read("Colors", "Spare"), "255");
    EXPECT_EQ(back.Read("Settings", "Zoom"), "True");
    // In the order of the file: the sections as they stood, the program's
    // new keys after the ones that were there.
    const std::string text = ReadBytes();
    EXPECT_LT(text.find("[Settings]"), text.find("[Printer]"));
    EXPECT_LT(text.find("[Printer]"), text.find("[colors]"));
    EXPECT_LT(text.find("HandMade=1"), text.find("CalcTop="));
}

// A file near the reader's limit, full of entries of some other program:
// with the program's own entries added, the file it writes must still be
// one its next start reads.
TEST_F(SettingsAtExit, TheNextStartReadsWhatExitWroteOfAFileNearTheLimit) {
    std::string bytes = "[Other]\n";
    for (int i = 0; bytes.size() < forms::FileSettingsStore::kMaxFileSize - 64; ++i) {
        bytes += "key" + std::to_string(i) + "=" + std::string(40, 'v') + "\n";
    }
    WriteBytes(bytes);
    Start();
    ASSERT_EQ(P().runtime.GetServices().settings->Read("Other", "key0"), std::string(40, 'v'));
    // Something to come back: the calculator moved, accuracy 1/32.
    P().Calculator->Move(3000, 2000, P().Calculator->Width(), P().Calculator->Height());
    P().Calculator->GetMenu("thirtysecond").Click();
    Exit();

    struct stat info {};
    ASSERT_EQ(::stat(file.c_str(), &info), 0);
    EXPECT_LE(static_cast<std::size_t>(info.st_size), forms::FileSettingsStore::kMaxFileSize);

    Start();
    forms::SettingsStore& read = *P().runtime.GetServices().settings;
    EXPECT_EQ(read.Read("Settings", "CalcLeft"), "3000");
    EXPECT_EQ(read.Read("Settings", "CalcTop"), "2000");
    EXPECT_EQ(read.Read("Settings", "Accuracy"), "True");
    EXPECT_EQ(P().Calculator->Left(), 3000);
    EXPECT_EQ(P().AccuracyDenominator, 32);
    // The other program's entries come first in the file and are kept.
    EXPECT_EQ(read.Read("Other", "key0"), std::string(40, 'v'));
}

}  // namespace
