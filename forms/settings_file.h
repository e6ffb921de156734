// The settings store kept in a per-user text file, under the XDG config
// folder ($XDG_CONFIG_HOME, or ~/.config) as lathmark/Lathmark.conf.
//
// The file is plain UTF-8 text in the familiar INI shape:
//
//     [Colors]
//     CalcBackground=8421376
//
//     [Settings]
//     Zoom=False
//
// Sections are written in the order they were first used, each with its keys
// in the order they were first written, so the file lists what Entries()
// lists. A backslash starts an escape: \\ is a backslash, \n a line feed, \r
// a carriage return and \xHH any byte that would not be plain text (control
// bytes, bytes that are not UTF-8); any other escaped character stands for
// itself, which is how a key holds "=" or begins with "[", ";" or "#".
// Sections and keys are found without regard to case; the first spelling
// stored is kept.
//
// It is read once when made, in one pass over the file. Settings are a
// convenience, never a reason to fail, so a file that cannot be trusted
// costs at most its entries:
//  - a missing or unreadable file, a folder or other non-file in its place,
//    or a file larger than kMaxFileSize reads as empty;
//  - a file with bytes that are not text (NUL and other control bytes but
//    tab, CR and LF, or bytes that are not UTF-8) is taken for garbage and
//    reads as empty;
//  - otherwise every line that is a good section header or key=value line
//    under a good header is kept and every other line is passed over; blank
//    lines and lines starting with ";" or "#" are comments. Where one key
//    stands twice in a section the later line wins.
//
// Write() holds the value; Flush() saves what was written, once, however
// many writes came before: the program writes all its settings at its end
// and then flushes, so they reach the disk as one new file. Save() writes
// the whole file through ReplaceFile: the new file is whole on the disk
// before it takes the old one's place, so that a crash, a kill or a full
// disk during the write never loses what was there nor leaves old and new
// entries mixed, and no temporary file outlives it. A folder that cannot be
// written costs the save and nothing else: nothing is thrown.
//
// Entries the program does not know (other sections, other keys, written
// by hand or by another version) are kept and written back. The file saved
// is never larger than kMaxFileSize, so the next start always reads it:
// where all the entries would not fit, the entries that were only read
// from the file are left out, from the end of the file backwards, and the
// entries written in this run all stay.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include "forms/file_replace.h"
#include "forms/settings_table.h"

namespace forms {

class FileSettingsStore : public SettingsStore {
  public:
    // Files beyond this size are not ours and are read as empty; the store
    // never writes one.
    static constexpr std::size_t kMaxFileSize = 1024 * 1024;

    // Saves go through `calls`, which tests wrap.
    explicit FileSettingsStore(std::filesystem::path file,
                               FileSystemCalls& calls = SystemFileCalls());
    // The per-user file of the application "Lathmark".
    static std::filesystem::path DefaultPath();

    std::optional<std::string> Read(const std::string& section,
                                    const std::string& key) const override;
    // Updates the entry, held until Flush.
    void Write(const std::string& section, const std::string& key,
               const std::string& value) override;
    // In the order of the file: sections by first use, keys by first write.
    std::vector<Entry> Entries() const override;
    // Saves the file if anything was written since it was read or last
    // saved. A failed save is silent; the values are still held for the
    // rest of the run, and the next start finds the old file.
    void Flush() override;

    // Writes every entry back to the file; false if that failed.
    bool Save() const;

    // The entries the store has looked at so far, reading, finding,
    // writing and saving: its cost, for the tests that count it.
    std::size_t Steps() const { return table_.Steps(); }

  private:
    void Load();
    // The text of the file to save, within kMaxFileSize; nothing when the
    // entries written in this run alone would pass it.
    std::optional<std::string> FileText() const;

    std::filesystem::path file_;
    FileSystemCalls* calls_;
    SettingsTable table_;
    std::vector<bool> written_;  // by place in the table: written in this run
    bool unsaved_ = false;
};

}  // namespace forms
