#include "forms/settings_file.h"

#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <string_view>
#include <system_error>
#include <utility>

#include "forms/case_insensitive.h"

namespace forms {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

// The length of the well-formed UTF-8 sequence that starts at s[i], or 0 when
// none does (stray continuation bytes, overlong forms, surrogates, code points
// beyond U+10FFFF, a sequence cut short).
std::size_t Utf8Length(std::string_view s, std::size_t i) {
    const auto lead = static_cast<unsigned char>(s[i]);
    if (lead < 0x80) return 1;
    std::size_t length = 0;
    char32_t code = 0;
    char32_t smallest = 0;
    if (lead >= 0xC2 && lead <= 0xDF) {
        length = 2;
        code = lead & 0x1F;
        smallest = 0x80;
    } else if ((lead & 0xF0) == 0xE0) {
        length = 3;
        code = lead & 0x0F;
        smallest = 0x800;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        length = 4;
        code = lead & 0x07;
        smallest = 0x10000;
    } else {
        return 0;
    }
    if (s.size() - i < length) return 0;
    for (std::size_t k = 1; k < length; ++k) {
        const auto next = static_cast<unsigned char>(s[i + k]);
        if ((next & 0xC0) != 0x80) return 0;
        code = (code << 6) | (next & 0x3F);
    }
    if (code < smallest || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF)) return 0;
    return length;
}

// Bytes that no text file of ours holds raw: the writer escapes them.
bool IsForbiddenControl(unsigned char c) {
    return c < 0x20 && c != '\t' && c != '\n' && c != '\r';
}

// True when the whole file is UTF-8 text without stray control bytes. A file
// that fails this is garbage (a binary file, a wrong file, a torn write) and
// no line of it is trusted.
bool LooksLikeText(std::string_view s) {
    std::size_t i = 0;
    while (i < s.size()) {
        const auto c = static_cast<unsigned char>(s[i]);
        if (c < 0x80) {
            if (IsForbiddenControl(c)) return false;
            ++i;
            continue;
        }
        const std::size_t length = Utf8Length(s, i);
        if (length == 0) return false;
        i += length;
    }
    return true;
}

enum class Part { Section, Key, Value };

void AppendHexEscape(std::string& out, unsigned char c) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    out += "\\x";
    out += kDigits[c >> 4];
    out += kDigits[c & 0x0F];
}

// The text of a name or value as it stands in the file: always one line of
// valid UTF-8 that reads back to exactly the bytes given. Names also escape
// blanks at their ends (the reader trims raw ones, so hand-edited "key = v"
// still works); keys escape "=" and a leading "[", ";" or "#", which would
// otherwise make the line a separator, a header or a comment.
std::string Escape(std::string_view s, Part part) {
    std::string out;
    out.reserve(s.size());
    const bool isName = part != Part::Value;
    std::size_t i = 0;
    while (i < s.size()) {
        const char c = s[i];
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= 0x80) {
            const std::size_t length = Utf8Length(s, i);
            if (length == 0) {
                AppendHexEscape(out, byte);
                ++i;
            } else {
                out.append(s.substr(i, length));
                i += length;
            }
            continue;
        }
        const bool atStart = i == 0;
        const bool atEnd = i + 1 == s.size();
        if (c == '\\') {
            out += "\\\\";
        } else if (c == '\n') {
            out += "\\n";
        } else if (c == '\r') {
            out += "\\r";
        } else if (byte < 0x20 && c != '\t') {
            AppendHexEscape(out, byte);
        } else if (isName && IsBlank(c) && (atStart || atEnd)) {
            out += '\\';
            out += c;
        } else if (part == Part::Key &&
                   (c == '=' || (atStart && (c == '[' || c == ';' || c == '#')))) {
            out += '\\';
            out += c;
        } else {
            out += c;
        }
        ++i;
    }
    return out;
}

int HexValue(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

// Undoes Escape. Raw blanks at the end are dropped when trimEnd is set (for
// names); escaped ones are kept. Nothing when an escape is cut short or
// malformed: the line is damaged.
std::optional<std::string> Unescape(std::string_view s, bool trimEnd) {
    std::string out;
    out.reserve(s.size());
    std::size_t keep = 0;  // length of out up to its last character that is not a raw blank
    std::size_t i = 0;
    while (i < s.size()) {
        const char c = s[i];
        if (c != '\\') {
            out += c;
            if (!IsBlank(c)) keep = out.size();
            ++i;
            continue;
        }
        if (i + 1 >= s.size()) return std::nullopt;
        const char code = s[i + 1];
        i += 2;
        if (code == 'n') {
            out += '\n';
        } else if (code == 'r') {
            out += '\r';
        } else if (code == 'x') {
            if (s.size() - i < 2) return std::nullopt;
            const int high = HexValue(s[i]);
            const int low = HexValue(s[i + 1]);
            if (high < 0 || low < 0) return std::nullopt;
            out += static_cast<char>(high * 16 + low);
            i += 2;
        } else {
            out += code;
        }
        keep = out.size();
    }
    if (trimEnd) out.resize(keep);
    return out;
}

std::string_view TrimStart(std::string_view s) {
    std::size_t i = 0;
    while (i < s.size() && IsBlank(s[i])) ++i;
    return s.substr(i);
}

// The position of the first "=" that is not escaped, or npos.
std::size_t FindSeparator(std::string_view line) {
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] == '\\') {
            ++i;
        } else if (line[i] == '=') {
            return i;
        }
    }
    return std::string_view::npos;
}

void Parse(std::string_view text, SettingsTable& into) {
    if (text.substr(0, kByteOrderMark.size()) == kByteOrderMark) {
        text.remove_prefix(kByteOrderMark.size());
    }
    if (!LooksLikeText(text)) return;

    // Empty until a good header: key lines under a header that could not be
    // read belong to no known section and are passed over with it.
    std::optional<std::string> section;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);  // written on Windows

        const std::string_view content = TrimStart(line);
        if (content.empty() || content.front() == ';' || content.front() == '#') continue;
        if (content.front() == '[') {
            std::string_view header = content;
            while (!header.empty() && IsBlank(header.back())) header.remove_suffix(1);
            section.reset();
            if (header.size() >= 2 && header.back() == ']') {
                section = Unescape(TrimStart(header.substr(1, header.size() - 2)), true);
            }
            continue;
        }
        if (!section) continue;
        const std::size_t separator = FindSeparator(content);
        if (separator == std::string_view::npos) continue;
        const auto key = Unescape(content.substr(0, separator), true);
        const auto value = Unescape(content.substr(separator + 1), false);
        if (!key || !value) continue;
        into.Set(*section, *key, *value);  // a key met again: the later line wins
    }
}

// Closes a descriptor at the end of its scope, thrown through or not.
class FileCloser {
  public:
    explicit FileCloser(int fd) : fd_(fd) {}
    FileCloser(const FileCloser&) = delete;
    FileCloser& operator=(const FileCloser&) = delete;
    ~FileCloser() {
        if (fd_ >= 0) ::close(fd_);
    }

  private:
    int fd_;
};

// The whole of a regular file of at most kMaxFileSize bytes. Nothing for a
// file that is missing, unreadable, not a regular file or too large. The
// file is opened without blocking so that a FIFO put in its place cannot
// hang the start of the program.
std::optional<std::string> ReadSmallFile(const fs::path& file) {
    const int fd = ::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK);
    if (fd < 0) return std::nullopt;
    const FileCloser closer(fd);
    struct stat info {};
    if (::fstat(fd, &info) != 0 || !S_ISREG(info.st_mode) || info.st_size < 0 ||
        static_cast<unsigned long long>(info.st_size) > FileSettingsStore::kMaxFileSize) {
        return std::nullopt;
    }
    // One byte more than the size, to notice a file that grows while read:
    // a file in the middle of being written by hand is not trusted.
    std::string buffer(static_cast<std::size_t>(info.st_size) + 1, '\0');
    std::size_t total = 0;
    while (total < buffer.size()) {
        const ssize_t got = ::read(fd, buffer.data() + total, buffer.size() - total);
        if (got < 0) {
            if (errno == EINTR) continue;
            return std::nullopt;
        }
        if (got == 0) break;
        total += static_cast<std::size_t>(got);
    }
    if (total == buffer.size()) return std::nullopt;
    buffer.resize(total);
    return buffer;
}

// Makes the folder and any missing parents. New folders are private to the
// user, as the XDG rules ask for folders made for per-user configuration.
bool MakeFolder(const fs::path& folder) {
    std::error_code error;
    if (fs::is_directory(folder, error)) return true;
    fs::path partial;
    for (const auto& component : folder) {
        partial /= component;
        if (::mkdir(partial.c_str(), 0700) != 0 && errno != EEXIST) return false;
    }
    return fs::is_directory(folder, error);
}

std::string HeaderLine(const std::string& section) {
    return "[" + Escape(section, Part::Section) + "]\n";
}

std::string EntryLine(const SettingsStore::Entry& entry) {
    return Escape(entry.key, Part::Key) + "=" + Escape(entry.value, Part::Value) + "\n";
}

}  // namespace

FileSettingsStore::FileSettingsStore(std::filesystem::path file, FileSystemCalls& calls)
    : file_(std::move(file)), calls_(&calls) {
    Load();
}

void FileSettingsStore::Load() {
    try {
        if (auto text = ReadSmallFile(file_)) Parse(*text, table_);
    } catch (...) {
        // Out of memory while reading: start from the defaults instead.
        table_ = SettingsTable();
    }
}

std::filesystem::path FileSettingsStore::DefaultPath() {
    const fs::path tail = fs::path("lathmark") / "Lathmark.conf";
    // The XDG rules say a relative XDG_CONFIG_HOME is invalid and is ignored.
    if (const char* config = std::getenv("XDG_CONFIG_HOME"); config != nullptr && *config != '\0') {
        const fs::path base(config);
        if (base.is_absolute()) return base / tail;
    }
    if (const char* home = std::getenv("HOME"); home != nullptr && *home != '\0') {
        return fs::path(home) / ".config" / tail;
    }
    // No HOME (a bare service environment): ask the user database.
    if (const passwd* user = ::getpwuid(::getuid());
        user != nullptr && user->pw_dir != nullptr && *user->pw_dir != '\0') {
        return fs::path(user->pw_dir) / ".config" / tail;
    }
    return tail;  // beside the current folder, as a last resort
}

std::optional<std::string> FileSettingsStore::Read(const std::string& section,
                                                   const std::string& key) const {
    if (const std::string* value = table_.Find(section, key)) return *value;
    return std::nullopt;
}

void FileSettingsStore::Write(const std::string& section, const std::string& key,
                              const std::string& value) {
    const std::size_t place = table_.Set(section, key, value);
    if (written_.size() <= place) written_.resize(place + 1, false);
    written_[place] = true;
    unsaved_ = true;
}

void FileSettingsStore::Flush() {
    if (unsaved_ && Save()) unsaved_ = false;
}

std::vector<SettingsStore::Entry> FileSettingsStore::Entries() const {
    const auto& all = table_.Entries();
    std::vector<Entry> grouped;
    grouped.reserve(all.size());
    // A section written in several spellings is one section under its
    // first spelling, as one header in the file.
    const std::string* spelling = nullptr;
    for (std::size_t place : table_.GroupedBySection()) {
        if (spelling == nullptr || !EqualsIgnoringCase(*spelling, all[place].section)) {
            spelling = &all[place].section;
        }
        grouped.push_back({*spelling, all[place].key, all[place].value});
    }
    return grouped;
}

std::optional<std::string> FileSettingsStore::FileText() const {
    struct Line {
        std::size_t place;
        std::string text;
        bool kept = true;
    };
    struct Section {
        std::string header;
        std::vector<Line> lines;
        std::size_t kept = 0;
    };
    const auto& all = table_.Entries();
    std::vector<Section> sections;
    std::size_t size = 0;
    for (std::size_t place : table_.GroupedBySection()) {
        if (sections.empty() ||
            !EqualsIgnoringCase(all[sections.back().lines.front().place].section,
                                all[place].section)) {
            // Sections are parted by an empty line.
            size += sections.empty() ? 0 : 1;
            sections.push_back({HeaderLine(all[place].section), {}, 0});
            size += sections.back().header.size();
        }
        Section& section = sections.back();
        section.lines.push_back({place, EntryLine(all[place])});
        size += section.lines.back().text.size();
        ++section.kept;
    }

    // Too large for the reader: the entries only read from the file go,
    // the last first, until the rest fits.
    std::size_t sectionsKept = sections.size();
    for (auto section = sections.rbegin(); section != sections.rend(); ++section) {
        for (auto line = section->lines.rbegin();
             line != section->lines.rend() && size > kMaxFileSize; ++line) {
            if (line->place < written_.size() && written_[line->place]) continue;
            line->kept = false;
            size -= line->text.size();
            if (--section->kept == 0) {
                size -= section->header.size() + (sectionsKept > 1 ? 1 : 0);
                --sectionsKept;
            }
        }
        if (size <= kMaxFileSize) break;
    }
    if (size > kMaxFileSize) return std::nullopt;

    std::string text;
    text.reserve(size);
    for (const Section& section : sections) {
        if (section.kept == 0) continue;
        if (!text.empty()) text += '\n';
        text += section.header;
        for (const Line& line : section.lines) {
            if (line.kept) text += line.text;
        }
    }
    return text;
}

bool FileSettingsStore::Save() const {
    try {
        if (file_.empty() || !file_.has_filename()) return false;
        fs::path folder = file_.parent_path();
        if (folder.empty()) folder = ".";
        if (!MakeFolder(folder)) return false;
        const std::optional<std::string> text = FileText();
        if (!text) return false;
        // A new file is private, like the rest of the user's configuration;
        // an old one keeps whatever permissions the user gave it.
        return ReplaceFile(file_, *text, 0600, *calls_) == 0;
    } catch (...) {
        // Out of memory before anything was written.
        return false;
    }
}

}  // namespace forms
