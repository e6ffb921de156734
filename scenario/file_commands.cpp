// The scenario's commands for the user's files: answers for the file
// dialog, the dialogs the program showed, and files written and read in the
// run's scratch folder (or wherever an absolute name points), so that a
// scenario can hand the program a file and look at what it wrote.
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <ostream>

#include "scenario/runner.h"

namespace scenario {

namespace {

// The lines of a file's content, split at CR LF, at LF and at a lone CR, and
// how they end: "CRLF", "LF" or "CR" when every line end is of that kind,
// "mixed" when there are several kinds, "none" when there is no line end at
// all; " unended" follows when the last line has no end of its own.
struct FileLines {
    std::vector<std::string> lines;
    std::string ending;
};

FileLines SplitFileLines(const std::string& content) {
    FileLines result;
    bool crlf = false, lf = false, cr = false;
    std::string line;
    for (std::size_t i = 0; i < content.size(); ++i) {
        const char c = content[i];
        if (c != '\r' && c != '\n') {
            line += c;
            continue;
        }
        if (c == '\r' && i + 1 < content.size() && content[i + 1] == '\n') {
            crlf = true;
            ++i;
        } else if (c == '\r') {
            cr = true;
        } else {
            lf = true;
        }
        result.lines.push_back(std::move(line));
        line.clear();
    }
    const bool unended = !line.empty();
    if (unended) result.lines.push_back(std::move(line));
    const int kinds = int{crlf} + int{lf} + int{cr};
    if (kinds == 0) {
        result.ending = "none";
    } else if (kinds > 1) {
        result.ending = "mixed";
    } else {
        result.ending = crlf ? "CRLF" : lf ? "LF" : "CR";
    }
    if (unended && kinds > 0) result.ending += " unended";
    return result;
}

// The whole of a file that the scenario looks at, line ends and all: ""
// or the platform's text of why it could not be read. (The program itself
// reads its files a line at a time.)
std::string ReadWholeFile(const std::string& path, std::string& content) {
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) return std::strerror(errno);
    char buffer[65536];
    for (;;) {
        const ssize_t got = ::read(fd, buffer, sizeof buffer);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) {
            const int error = errno;
            ::close(fd);
            return std::strerror(error);
        }
        if (got == 0) break;
        content.append(buffer, static_cast<std::size_t>(got));
    }
    ::close(fd);
    return "";
}

}  // namespace

std::string Runner::ScratchPath(const std::string& name) const {
    return name.empty() ? name : scratch_.Resolve(name);
}

bool Runner::WriteScratchFile(const std::string& name, const std::string& content) {
    const std::string path = ScratchPath(name);
    const std::string error = files_.Replace(path, content);
    if (error.empty()) return true;
    err_ << "cannot write " << path << ": " << error << "\n";
    return false;
}

void Runner::PrintFile(const std::string& name) {
    const std::string path = ScratchPath(name);
    if (!files_.Exists(path)) {
        out_ << "missing\n";
        return;
    }
    std::string content;
    if (const std::string error = ReadWholeFile(path, content); !error.empty()) {
        out_ << "unreadable " << Quote(error) << "\n";
        return;
    }
    const FileLines file = SplitFileLines(content);
    for (const std::string& line : file.lines) out_ << Quote(line) << "\n";
    out_ << file.ending << "\n";
}

bool Runner::FileCommand(const Words& w) {
    const std::string& verb = w[0].text;
    if (verb == "dialog" && w.size() == 2) {
        if (!w[1].quoted && w[1].text == "Cancel") {
            fileDialogs_.QueueAnswer(std::nullopt);
        } else if (w[1].quoted) {
            fileDialogs_.QueueAnswer(ScratchPath(w[1].text));
        } else {
            return false;
        }
        return true;
    }
    if (verb == "dialogs" && w.size() == 1) {
        for (const forms::FileDialogRequest& shown : fileDialogs_.TakeShown()) {
            out_ << Quote(shown.title) << " " << Quote(shown.filter) << " "
                 << Quote(shown.defaultExt) << " " << (shown.save ? "save" : "open") << " "
                 << (scratch_.IsFolder(shown.initDir) ? "scratch" : Quote(shown.initDir)) << "\n";
        }
        return true;
    }
    if (verb == "memoryfile" && w.size() == 1) {
        // The name as the scenario gave it: inside the scratch folder, the
        // part after the folder.
        std::string name = P().MemoryFileName;
        const std::string folder = scratch_.Path() + "/";
        if (name.starts_with(folder)) name = name.substr(folder.size());
        out_ << "MemoryFileName = " << Quote(name) << "\n";
        out_ << "OpenFileNumbers =";
        for (int number : P().OpenFileNumbers) out_ << " " << number;
        out_ << "\n";
        return true;
    }
    if (verb == "file" && w.size() == 2 && w[1].quoted) {
        PrintFile(w[1].text);
        return true;
    }
    if (verb == "writefile" && w.size() >= 2) {
        std::string content;
        for (std::size_t i = 1; i < w.size(); ++i) {
            if (!w[i].quoted) return false;
            if (i > 1) content += w[i].text + "\r\n";
        }
        return WriteScratchFile(w[1].text, content);
    }
    if (verb == "writebytes" && w.size() == 3 && w[1].quoted && !w[1].lineEnds && w[2].quoted) {
        return WriteScratchFile(w[1].text, w[2].text);
    }
    return false;
}

}  // namespace scenario
