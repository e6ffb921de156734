// Saving the memory cells to a file and reading them back: the file to the
// byte, the round trip, the questions and dialogs around it, and every way a
// read or a write can fail.
#include <sys/fsuid.h>
#include <unistd.h>

#include <cerrno>

#include "memory/memory_file.h"
#include "memory_file_fixture.h"

namespace {

using MemoryFile = MemoryFileApp;

// The file of two cells, one of them named and valued, with the memory
// window at 1635, 1980, 3990 by 1040.
TEST_F(MemoryFile, TwoCellsWriteTheExampleFileToTheByte) {
    MakeCell("Memory 1", "0.");
    MakeCell("Ridge", " 6'  ");
    PlaceParent(1635, 1980, 3990, 1040);
    Choose("job.mem");
    Menu("mnuSaveAs");
    EXPECT_EQ(ReadBytes("job.mem"),
              " 1635 \r\n 1980 \r\n 3990 \r\n 1040 \r\n 2\r\n 1935\r\n"
              "Memory 1\r\n0.\r\nRidge\r\n 6'  \r\n");
    EXPECT_EQ(P().MemoryFileName, PathOf("job.mem"));
    // The writer leaves the window's caption alone.
    EXPECT_EQ(P().MDIForm1->Caption(), "Memory");
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_TRUE(P().OpenFileNumbers.empty());
}

TEST_F(MemoryFile, SaveAsSetsUpTheDialogForSaving) {
    MakeCell("Memory 1", "0.");
    Choose("a.mem");
    Menu("mnuSaveAs");
    ASSERT_EQ(dialogs.shown.size(), 1u);
    const forms::FileDialogRequest& shown = dialogs.shown[0];
    EXPECT_TRUE(shown.save);
    EXPECT_EQ(shown.title, "Save As");
    EXPECT_EQ(shown.filter, "Memory (*.mem)|*.mem|all files (*.*)|*.*");
    EXPECT_EQ(shown.filterIndex, 1);
    EXPECT_EQ(shown.defaultExt, "mem");
    EXPECT_EQ(shown.initDir, folder.string());
    EXPECT_EQ(P().CMDialog1.Flags, 4);
    EXPECT_TRUE(P().CMDialog1.CancelError);
}

TEST_F(MemoryFile, AFractionalOrHugeGeometryIsWrittenAsASingle) {
    MakeCell("Memory 1", "0.");
    // No window is larger than the screen lets it be: a desktop of many
    // screens, then, one above the other.
    app->Runtime().SetScreen({57600, 12345678, 15, 15});
    PlaceParent(-15, 0.5, 40000, 12345678);
    const std::string text = memory::MemoryFileText(P());
    EXPECT_EQ(text.substr(0, text.find(" 1\r\n")), "-15 \r\n .5 \r\n 40000 \r\n 1.234568E+07 \r\n");
}

TEST_F(MemoryFile, CancellingSaveAsKeepsTheName) {
    MakeCell("Memory 1", "0.");
    P().MemoryFileName = PathOf("kept.mem");
    Cancel();
    Menu("mnuSaveAs");
    EXPECT_EQ(P().MemoryFileName, PathOf("kept.mem"));
    EXPECT_FALSE(std::filesystem::exists(PathOf("kept.mem")));
}

TEST_F(MemoryFile, SaveWithANameWritesAtOnceWithoutADialog) {
    MakeCell("Memory 1", "0.");
    P().MemoryFileName = PathOf("direct.mem");
    Menu("mnuSave");
    EXPECT_TRUE(dialogs.shown.empty());
    EXPECT_TRUE(std::filesystem::exists(PathOf("direct.mem")));
}

TEST_F(MemoryFile, SaveWithoutANameIsSaveAs) {
    MakeCell("Memory 1", "0.");
    Choose("first.mem");
    Menu("mnuSave");
    ASSERT_EQ(dialogs.shown.size(), 1u);
    EXPECT_EQ(dialogs.shown[0].title, "Save As");
    EXPECT_TRUE(std::filesystem::exists(PathOf("first.mem")));
}

TEST_F(MemoryFile, SaveWithNoOpenCellDoesNothingEvenWithAName) {
    P().MemoryFileName = PathOf("never.mem");
    Menu("mnuSave");
    Menu("mnuSaveAs");
    EXPECT_TRUE(dialogs.shown.empty());
    EXPECT_FALSE(std::filesystem::exists(PathOf("never.mem")));
    // Cells made and closed again leave none open: still nothing.
    Menu("NewMemory");
    P().runtime.Unload(*Cells().front());
    Menu("mnuSave");
    EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(MemoryFile, RoundTripBringsBackOddNamesAndValuesExactly) {
    MakeCell("  leading", "  1'- 2\"  ");
    MakeCell("trailing  ", "- 3'- 0\" ");
    MakeCell("say \"ridge\"", "0.");
    MakeCell("Größe Ø €", "12.5");
    Choose("odd.names.mem");
    Menu("mnuSaveAs");
    const std::string saved = ReadBytes("odd.names.mem");

    Choose("odd.names.mem");
    Menu("mnuOpen");
    const auto cells = Cells();
    ASSERT_EQ(cells.size(), 4u);
    EXPECT_EQ(cells[0]->Caption(), "  leading");
    EXPECT_EQ(Value(*cells[0]), "  1'- 2\"  ");
    EXPECT_EQ(cells[1]->Caption(), "trailing  ");
    EXPECT_EQ(Value(*cells[1]), "- 3'- 0\" ");
    EXPECT_EQ(cells[2]->Caption(), "say \"ridge\"");
    EXPECT_EQ(cells[3]->Caption(), "Größe Ø €");
    EXPECT_EQ(Value(*cells[3]), "12.5");
    // Numbered anew from 1, the title cut at its first point.
    for (int i = 0; i < 4; ++i) EXPECT_EQ(Tag(*cells[i]), "memory " + std::to_string(i + 1));
    EXPECT_EQ(P().MDIForm1->Caption(), "odd");
    EXPECT_EQ(P().MemoryCount, 5);
    EXPECT_EQ(P().NextMemoryNumber, 5);
    // Saved again, the file is the same.
    Choose("again.mem");
    Menu("mnuSaveAs");
    EXPECT_EQ(ReadBytes("again.mem").substr(ReadBytes("again.mem").find(" 4\r\n")),
              saved.substr(saved.find(" 4\r\n")));
}

TEST_F(MemoryFile, AnEmptyNameIsSavedAndComesBackEmpty) {
    MakeCell("Memory 1", "0.");
    MakeCell("", "5'- ");
    Choose("empty.mem");
    Menu("mnuSaveAs");
    Choose("empty.mem");
    Menu("mnuOpen");
    const auto cells = Cells();
    ASSERT_EQ(cells.size(), 2u);
    EXPECT_EQ(cells[1]->Caption(), "");
    EXPECT_EQ(Value(*cells[1]), "5'- ");
}

// Read back, the cells are laid out by Arrange, each value in row 0 of
// its tape with the tape's count at 0; the calculator has the keys again.
TEST_F(MemoryFile, AReadCellsValueStandsInRowZeroOfItsTape) {
    WriteLines("two.mem", {" 1635 ", " 1980 ", " 3990 ", " 1040 ", " 2", " 1935", "Memory 1", "0.",
                           "Ridge", " 6'  "});
    Choose("two.mem");
    Menu("mnuOpen");
    const auto cells = Cells();
    ASSERT_EQ(cells.size(), 2u);
    forms::Grid& grid = P().tape->Grid1();
    EXPECT_EQ(grid.Cell(0, 1), "0.");
    EXPECT_EQ(grid.Cell(0, 2), " 6'  ");
    EXPECT_EQ(P().tape->TapeRowCount()[1], 0);
    EXPECT_EQ(P().tape->TapeRowCount()[2], 0);
    EXPECT_EQ(P().tape->TapeNames()[2], "Ridge");
    EXPECT_EQ(P().MemoryWidth, 1935);
    EXPECT_EQ(P().ArrangingMemory, 0);
    EXPECT_TRUE(P().OpenFileNumbers.empty());
    // The window of the file is two cells wide: they stand side by side,
    // 630 high as the reader made them.
    EXPECT_EQ(cells[0]->Left(), 0);
    EXPECT_EQ(cells[1]->Left(), 1935);
    EXPECT_EQ(cells[1]->Top(), 0);
    EXPECT_EQ(cells[1]->Height(), 630);
    ASSERT_NE(P().runtime.Focus(), nullptr);
    EXPECT_EQ(P().runtime.Focus()->Name(), "Equal");
    EXPECT_EQ(P().MDIForm1->Caption(), "two");
    EXPECT_EQ(P().MDIForm1->Left(), 1635);
    EXPECT_EQ(P().MDIForm1->Top(), 1980);
}

TEST_F(MemoryFile, OpenAsksFirstAndCancelTouchesNothing) {
    MakeCell("Memory 1", "7'- ");
    messages.nextAnswer = forms::MessageAnswer::Cancel;
    Choose("never.mem");
    Menu("mnuOpen");
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0].text,
              "Existing memory and memory tapes will be erased. Are you sure you want to "
              "continue?");
    EXPECT_EQ(messages.shown[0].buttons, forms::MessageButtons::OkCancel);
    EXPECT_EQ(messages.shown[0].icon, forms::MessageIcon::Exclamation);
    EXPECT_TRUE(dialogs.shown.empty());
    EXPECT_EQ(Cells().size(), 1u);
}

TEST_F(MemoryFile, OpenAsksEvenWhenEveryCellIsClosedAgain) {
    Menu("NewMemory");
    P().runtime.Unload(*Cells().front());
    ASSERT_TRUE(Cells().empty());
    Cancel();
    Menu("mnuOpen");
    EXPECT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(dialogs.shown.size(), 1u);
}

TEST_F(MemoryFile, OpenWithoutCellsAsksNothing) {
    Cancel();
    Menu("mnuOpen");
    EXPECT_TRUE(messages.shown.empty());
    ASSERT_EQ(dialogs.shown.size(), 1u);
    EXPECT_FALSE(dialogs.shown[0].save);
}

TEST_F(MemoryFile, TheOpenDialogKeepsTheTitleSaveAsLeft) {
    Cancel();
    Menu("mnuOpen");
    EXPECT_EQ(dialogs.shown[0].title, "");
    MakeCell("Memory 1", "0.");
    Choose("x.mem");
    Menu("mnuSaveAs");
    Cancel();
    Menu("mnuOpen");
    ASSERT_EQ(dialogs.shown.size(), 3u);
    EXPECT_EQ(dialogs.shown[2].title, "Save As");
    EXPECT_EQ(dialogs.shown[2].filter, "Memory (*.mem)|*.mem|all files (*.*)|*.*");
}

TEST_F(MemoryFile, OpeningAMissingFileKeepsTheCellsAndTakesTheName) {
    MakeCell("Memory 1", "3'- ");
    Choose("typed.mem");
    Menu("mnuOpen");
    EXPECT_EQ(Cells().size(), 1u);
    EXPECT_EQ(Value(*Cells()[0]), "3'- ");
    EXPECT_EQ(P().MemoryFileName, PathOf("typed.mem"));
    // A later Save writes to it, without a dialog.
    Menu("mnuSave");
    EXPECT_EQ(dialogs.shown.size(), 1u);
    EXPECT_TRUE(std::filesystem::exists(PathOf("typed.mem")));
}

TEST_F(MemoryFile, ACountOfZeroErasesMovesAndRenamesTheHiddenWindow) {
    MakeCell("Memory 1", "3'- ");
    WriteLines("none.mem", {" 300 ", " 400 ", " 2055 ", " 990 ", " 0", " 1935"});
    Choose("none.mem");
    Menu("mnuOpen");
    EXPECT_TRUE(Cells().empty());
    forms::Form& parent = *P().MDIForm1;
    EXPECT_FALSE(parent.Visible());
    EXPECT_EQ(parent.Caption(), "none");
    EXPECT_EQ(parent.Left(), 300);
    EXPECT_EQ(parent.Top(), 400);
    EXPECT_EQ(parent.Width(), 2055);
    EXPECT_EQ(parent.Height(), 990);
    EXPECT_EQ(P().MemoryCount, 1);
    EXPECT_EQ(P().ArrangingMemory, 0);
}

TEST_F(MemoryFile, ATitleOfOnlyAnExtensionGivesAnEmptyCaption) {
    WriteLines(".mem", {" 0 ", " 0 ", " 2055 ", " 990 ", " 0", " 1935"});
    Choose(".mem");
    Menu("mnuOpen");
    EXPECT_EQ(P().MDIForm1->Caption(), "");
}

TEST_F(MemoryFile, ALineWithoutDigitsReadsAsZero) {
    WriteLines("zero.mem", {"left", " 0 ", " 2055 ", " 990 ", " 1", "width", "A", "1"});
    Choose("zero.mem");
    Menu("mnuOpen");
    ASSERT_EQ(Cells().size(), 1u);
    EXPECT_EQ(P().MDIForm1->Left(), 0);
    EXPECT_EQ(P().MemoryWidth, 0);
    EXPECT_EQ(P().ArrangingMemory, 0);
}

TEST_F(MemoryFile, NumbersAreRoundedHalfToEven) {
    WriteLines("round.mem", {" 100.5 ", " 101.5 ", " 2055 ", " 990 ", " 0", " 1935"});
    Choose("round.mem");
    Menu("mnuOpen");
    EXPECT_EQ(P().MDIForm1->Left(), 100);
    EXPECT_EQ(P().MDIForm1->Top(), 102);
}

TEST_F(MemoryFile, LinesLeftOverAreIgnored) {
    WriteLines("more.mem", {" 0 ", " 0 ", " 2055 ", " 990 ", " 1", " 1935", "A", "1", "B", "2"});
    Choose("more.mem");
    Menu("mnuOpen");
    EXPECT_EQ(Cells().size(), 1u);
    EXPECT_EQ(P().ArrangingMemory, 0);
}

// Lines that end in a lone LF (a file edited elsewhere) or in nothing at all
// read the same.
TEST_F(MemoryFile, LineFeedsAndAMissingLastLineEndReadTheSame) {
    WriteBytes("lf.mem", " 0 \n 0 \n 2055 \n 990 \n 1\n 1935\nA\n9'- ");
    Choose("lf.mem");
    Menu("mnuOpen");
    ASSERT_EQ(Cells().size(), 1u);
    EXPECT_EQ(Value(*Cells()[0]), "9'- ");
}

// Every line end counts once, also where lines are empty: LF LF is an
// empty line between two, and a file may begin with a line end (an empty
// first line, which reads as 0).
TEST_F(MemoryFile, EmptyLinesBetweenLineFeedsAreLinesOfTheirOwn) {
    WriteBytes("empty.mem", "\n 0 \n\n 990 \n 2\n 1935\r\n\r\nA\n\nB\n 5\" ");
    Choose("empty.mem");
    Menu("mnuOpen");
    const auto cells = Cells();
    ASSERT_EQ(cells.size(), 2u);
    EXPECT_EQ(cells[0]->Caption(), "");
    EXPECT_EQ(Value(*cells[0]), "A");
    EXPECT_EQ(cells[1]->Caption(), "");
    EXPECT_EQ(Value(*cells[1]), "B");
    EXPECT_EQ(P().MemoryWidth, 1935);
    EXPECT_FALSE(P().OpenFileNumbers.contains(2));
}

// A count that promises more cells than the file holds: the read ends at
// the end of the file. The cells read so far stay stacked at the corner,
// the parent no longer reacts to sizing, file number 2 stays in use.
TEST_F(MemoryFile, AShortFileLeavesTheCellsStackedAndTheFileOpen) {
    MakeCell("Old", "1'- ");
    WriteLines("short.mem", {" 0 ", " 0 ", " 2055 ", " 990 ", " 3", " 1935", "A", "1", "B", "2"});
    Choose("short.mem");
    Menu("mnuOpen");
    const auto cells = Cells();
    ASSERT_EQ(cells.size(), 2u);
    EXPECT_EQ(cells[0]->Caption(), "A");
    for (forms::Form* cell : cells) {
        EXPECT_EQ(cell->Left(), 0);
        EXPECT_EQ(cell->Top(), 0);
    }
    EXPECT_EQ(P().ArrangingMemory, 1);
    EXPECT_TRUE(P().OpenFileNumbers.contains(2));
    EXPECT_EQ(P().MemoryFileName, PathOf("short.mem"));
    EXPECT_TRUE(messages.shown.size() == 1u);  // the question, and no message after it

    // The parent's Resize ignores the sizing now.
    const double width = P().MDIForm1->Width();
    P().MDIForm1->SetWidth(width + 2000);
    EXPECT_EQ(P().MDIForm1->Width(), width + 2000);

    // Every later read erases the cells, then fails.
    WriteLines("good.mem", {" 0 ", " 0 ", " 2055 ", " 990 ", " 1", " 1935", "A", "1"});
    Choose("good.mem");
    Menu("mnuOpen");
    EXPECT_TRUE(Cells().empty());
    EXPECT_EQ(P().MemoryFileName, PathOf("good.mem"));
}

TEST_F(MemoryFile, AnEmptyFileFailsAtOnce) {
    WriteBytes("empty.mem", "");
    Choose("empty.mem");
    Menu("mnuOpen");
    EXPECT_TRUE(Cells().empty());
    EXPECT_EQ(P().ArrangingMemory, 1);
    EXPECT_TRUE(P().OpenFileNumbers.contains(2));
    EXPECT_EQ(P().MDIForm1->Caption(), "Memory");
}

// A window wider than 32,767 twips is saved, but the file fails on reading
// at its third line, before the window's caption changes.
TEST_F(MemoryFile, AWidthPast16BitsIsSavedButFailsTheReadAtLineThree) {
    MakeCell("Memory 1", "0.");
    app->Runtime().SetScreen({57600, 32400, 15, 15});  // a 4K screen
    PlaceParent(0, 0, 40000, 990);
    Choose("wide.mem");
    Menu("mnuSaveAs");
    EXPECT_EQ(ReadBytes("wide.mem").substr(0, 19), " 0 \r\n 0 \r\n 40000 \r\n");
    Choose("wide.mem");
    Menu("mnuOpen");
    EXPECT_TRUE(Cells().empty());
    EXPECT_EQ(P().ArrangingMemory, 1);
    EXPECT_EQ(P().MDIForm1->Caption(), "Memory");
}

TEST_F(MemoryFile, ANegativeCountFailsAfterTheWindowMoved) {
    WriteLines("neg.mem", {" 500 ", " 0 ", " 2055 ", " 990 ", "-1", " 1935"});
    Choose("neg.mem");
    Menu("mnuOpen");
    EXPECT_TRUE(Cells().empty());
    EXPECT_EQ(P().MDIForm1->Caption(), "neg");
    EXPECT_EQ(P().MDIForm1->Left(), 500);
    EXPECT_EQ(P().ArrangingMemory, 1);
    EXPECT_TRUE(P().OpenFileNumbers.contains(2));
}

TEST_F(MemoryFile, AWriteIntoAMissingFolderShowsWhyAndKeepsFileNumberOne) {
    MakeCell("Memory 1", "4'- ");
    Choose("no/such/folder/x.mem");
    Menu("mnuSaveAs");
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0].text, "No such file or directory");
    EXPECT_EQ(messages.shown[0].buttons, forms::MessageButtons::OkOnly);
    EXPECT_EQ(Value(*Cells()[0]), "4'- ");
    EXPECT_TRUE(P().OpenFileNumbers.contains(1));
    // Every later write fails at once, even to a good name.
    Choose("good.mem");
    Menu("mnuSaveAs");
    ASSERT_EQ(messages.shown.size(), 2u);
    EXPECT_EQ(messages.shown[1].text, "File already open");
    EXPECT_FALSE(std::filesystem::exists(PathOf("good.mem")));
}

// The superuser may write anywhere: it checks the folder's rights as
// nobody, whose rights the folder refuses as well.
class AsNobody {
  public:
    AsNobody() {
        if (::geteuid() == 0) ::setfsuid(kNobody);
    }
    ~AsNobody() {
        if (::geteuid() == 0) ::setfsuid(0);
    }
    // False where the system refused the change: the rights can't be tested.
    static bool Took() {
        return ::geteuid() != 0 || ::setfsuid(static_cast<uid_t>(-1)) == static_cast<int>(kNobody);
    }

  private:
    static constexpr uid_t kNobody = 65534;
};

TEST_F(MemoryFile, AWriteIntoAFolderWithoutTheRightToWriteKeepsTheOldFile) {
    MakeCell("Memory 1", "4'- ");
    std::filesystem::create_directory(folder / "locked");
    WriteBytes("locked/old.mem", "old content");
    std::filesystem::permissions(
        folder / "locked", std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
    Choose("locked/old.mem");
    {
        AsNobody nobody;
        if (!AsNobody::Took()) GTEST_SKIP() << "the superuser could not take nobody's rights";
        Menu("mnuSaveAs");
    }
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0].text, "Permission denied");
    EXPECT_EQ(ReadBytes("locked/old.mem"), "old content");
    EXPECT_EQ(Cells().size(), 1u);
}

// A disk that is full: every write of the new file's content fails.
class FullDisk : public forms::FileSystemCalls {
  public:
    ssize_t Write(int, const void*, std::size_t) override {
        errno = ENOSPC;
        return -1;
    }
};

class MemoryFileOnFullDisk : public MemoryFileApp {
  protected:
    std::unique_ptr<forms::DiskFiles> MakeFiles() override {
        return std::make_unique<forms::DiskFiles>(folder, fullDisk);
    }
    FullDisk fullDisk;
};

TEST_F(MemoryFileOnFullDisk, AWriteShowsWhyAndLeavesTheEarlierFileWhole) {
    MakeCell("Memory 1", "4'- ");
    WriteBytes("job.mem", "the earlier file\r\n");
    Choose("job.mem");
    Menu("mnuSaveAs");
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0].text, "No space left on device");
    EXPECT_EQ(ReadBytes("job.mem"), "the earlier file\r\n");
    EXPECT_EQ(Value(*Cells()[0]), "4'- ");
    // Nothing is left behind beside it.
    int entries = 0;
    for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(folder)) {
        ++entries;
    }
    EXPECT_EQ(entries, 1);
}

TEST(FileTitle, IsWhatFollowsTheLastSeparator) {
    EXPECT_EQ(memory::FileTitleOf("/home/a/job.2.mem"), "job.2.mem");
    EXPECT_EQ(memory::FileTitleOf("C:\\jobs\\deck.mem"), "deck.mem");
    EXPECT_EQ(memory::FileTitleOf("plain"), "plain");
    EXPECT_EQ(memory::FileTitleOf("folder/"), "");
}

}  // namespace
