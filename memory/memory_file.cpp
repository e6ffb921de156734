#include "memory/memory_file.h"

#include <cstdint>
#include <optional>
#include <vector>

#include "core/evaluate.h"
#include "measure/number_text.h"
#include "measure/read_number.h"
#include "measure/whole_numbers.h"
#include "memory/cell_layout.h"
#include "memory/cells.h"
#include "memory/clear_erase.h"
#include "memory/new_memory.h"

namespace memory {

namespace {

constexpr int kWriteFileNumber = 1;
constexpr int kReadFileNumber = 2;
constexpr double kReadCellHeight = 630;
constexpr const char* kLineEnd = "\r\n";
constexpr const char* kMessageTitle = "Lathmark Calculator";

void ShowError(core::Program& p, const std::string& text) {
    if (auto* boxes = p.runtime.GetServices().messages) {
        boxes->Show(text, kMessageTitle, forms::MessageButtons::OkOnly, forms::MessageIcon::None);
    }
}

// A line read as a number in 16 bits: the number at its start (no digits
// read as 0), rounded half to even; nothing when the line is missing or the
// number doesn't fit.
std::optional<std::int16_t> NextNumber(forms::LineReader& lines) {
    auto line = lines.Next();
    if (!line) return std::nullopt;
    return measure::ToInt16(measure::ReadNumber(*line));
}

}  // namespace

std::string FileTitleOf(const std::string& path) {
    const std::size_t slash = path.find_last_of("/\\");
    return slash == std::string::npos ? path : path.substr(slash + 1);
}

std::string MemoryFileText(core::Program& p) {
    const forms::Form& parent = *p.MDIForm1;
    std::string text;
    for (double v : {parent.Left(), parent.Top(), parent.Width(), parent.Height()}) {
        text += measure::PrintedSingleText(v) + kLineEnd;
    }
    text += StrForm(static_cast<std::int16_t>(p.MemoryCount - 1)) + kLineEnd;
    text += StrForm(p.MemoryWidth) + kLineEnd;
    for (forms::Form* form : p.runtime.OpenForms()) {
        if (!IsCell(*form)) continue;
        text += form->Caption() + kLineEnd;
        text += ValueLabel(*form).Caption() + kLineEnd;
    }
    return text;
}

void WriteMemoryFile(core::Program& p) {
    if (p.OpenFileNumbers.contains(kWriteFileNumber)) {
        ShowError(p, "File already open");
        return;
    }
    forms::FileStore* files = p.runtime.GetServices().files;
    if (!files) return;
    p.OpenFileNumbers.insert(kWriteFileNumber);
    const std::string failure = files->Replace(p.MemoryFileName, MemoryFileText(p));
    if (!failure.empty()) {
        // The file number is not given back on this road.
        ShowError(p, failure);
        return;
    }
    p.OpenFileNumbers.erase(kWriteFileNumber);
}

namespace {

// Steps from the opening of the file on; false where the read fails and
// everything after it is left undone.
bool ReadCells(core::Program& p, forms::FileStore& files) {
    if (p.OpenFileNumbers.contains(kReadFileNumber)) return false;
    // The file is read a line at a time, as the lines are needed: a line
    // beyond the reader's bound, or a disk that fails, is a failure of the
    // read like an end of the file too soon.
    const forms::FileStore::OpenResult opened = files.OpenLines(p.MemoryFileName);
    if (!opened.lines) return false;
    p.OpenFileNumbers.insert(kReadFileNumber);
    p.ArrangingMemory = 1;

    forms::LineReader& lines = *opened.lines;
    std::int16_t geometry[4] = {};
    for (auto& v : geometry) {
        auto n = NextNumber(lines);
        if (!n) return false;
        v = *n;
    }
    const auto count = NextNumber(lines);
    if (!count) return false;
    const auto width = NextNumber(lines);
    if (!width) return false;
    p.MemoryWidth = *width;

    std::string title = FileTitleOf(p.MemoryFileName);
    if (const std::size_t dot = title.find('.'); dot != std::string::npos) title.resize(dot);
    forms::Form& parent = *p.MDIForm1;
    parent.SetCaption(title);
    parent.Move(geometry[0], geometry[1], geometry[2], geometry[3]);
    if (*count < 0) return false;
    auto& names = p.tape->TapeNames();
    names.resize(static_cast<std::size_t>(*count) + 1);

    forms::Grid& grid = p.tape->Grid1();
    for (std::int16_t i = 1; i <= *count; ++i) {
        auto name = lines.Next();
        if (!name) return false;
        auto value = lines.Next();
        if (!value) return false;
        // The counters go up before the cell is touched, unlike in the
        // making of a cell.
        auto cells = measure::AddInt16(p.MemoryCount, 1);
        if (!cells) return false;
        p.MemoryCount = *cells;
        auto next = measure::AddInt16(p.NextMemoryNumber, 1);
        if (!next) return false;
        p.NextMemoryNumber = *next;

        forms::Form& cell = p.NewMemoryForm();
        ApplyCellColours(p, cell);
        p.runtime.Load(cell);
        cell.SetCaption(*name);
        names[static_cast<std::size_t>(i)] = cell.Caption();
        forms::Control& label = ValueLabel(cell);
        label.SetCaption(*value);
        const auto number = static_cast<std::int16_t>(p.MemoryCount - 1);
        label.SetTag("memory" + StrForm(number));
        // A cell read from the file takes its place without a Resize of its
        // own: the layout comes once, from ArrangeMemory at the end, and a
        // read that fails half way leaves the cells stacked where they were
        // put.
        p.CellResizeGuard = 2;
        cell.Move(0, 0, p.MemoryWidth, kReadCellHeight);
        p.CellResizeGuard = 0;

        if (grid.Cols() < p.MemoryCount) grid.SetCols(p.MemoryCount);
        if (auto w = measure::ToInt32(grid.Width())) grid.SetColWidth(number, *w);
        grid.SetColAlignment(number, 1);
        grid.SetCol(number);
        auto& rows = p.tape->TapeRowCount();
        const std::int16_t used = static_cast<std::size_t>(number) < rows.size()
                                      ? rows[static_cast<std::size_t>(number)]
                                      : 0;
        if (used > 0) {
            grid.SetRow(used + 2);
            rows[static_cast<std::size_t>(number)] = static_cast<std::int16_t>(used + 2);
        } else {
            grid.SetRow(0);
        }
        // Row 0, which no other writer uses: the tape's count stays 0, and
        // its first line later goes to row 1.
        grid.SetText(*value);
    }

    p.ArrangingMemory = 0;
    ArrangeMemory(p);
    core::FocusEqual(p);
    p.OpenFileNumbers.erase(kReadFileNumber);
    return true;
}

}  // namespace

void ReadMemoryFile(core::Program& p) {
    forms::FileStore* files = p.runtime.GetServices().files;
    if (!files || !files->Exists(p.MemoryFileName)) return;
    EraseMemoryClick(p);
    ReadCells(p, *files);
}

}  // namespace memory
