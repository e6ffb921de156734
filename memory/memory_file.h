// The memory file: the open cells written to a ".mem" file and read back.
//
// The file is plain text, lines ended by CR LF, without a header: the place
// and size of the memory window (lines 1 to 4), the number of cells and
// their common width (5 and 6), then for each cell in the order of the list
// of open forms its name and its value, each on a line as it stands. The
// tapes are not kept: a cell read back starts a tape that holds its value.
//
// Writer and reader don't quite match, on purpose: the writer stores the
// window's geometry as it is, the reader squeezes it into 16 bits; the
// writer leaves the window's caption alone, the reader gives it the file's
// title; cell numbers are not stored, so gaps vanish on reading.
#pragma once

#include <string>

#include "core/program.h"

namespace memory {

// The file's text for the cells as they are.
std::string MemoryFileText(core::Program& p);

// Writes the cells to MemoryFileName. A failure shows the platform's text
// of it and leaves file number 1 in use, so that every later write fails at
// once with "File already open" until the program ends.
void WriteMemoryFile(core::Program& p);

// Reads the cells from MemoryFileName, after Erase All, a line at a time
// from the disk. A missing file changes nothing. A file that fails half way
// (too short for its count, a number beyond 16 bits, a line longer than
// forms::LineReader::kMaxLineBytes, a failure of the disk) ends the read
// where it is, without a word: the cells read so far stay stacked at the
// window's corner, ArrangingMemory stays 1 and file number 2 stays in use,
// so that every later read erases the cells and then fails.
void ReadMemoryFile(core::Program& p);

// What follows the last folder separator of `path` (a slash, or a
// backslash as in names written elsewhere), or the whole path.
std::string FileTitleOf(const std::string& path);

}  // namespace memory
