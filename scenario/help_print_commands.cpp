// The scenario's commands for the printer, the help and the About box: what
// went to the printer, which guide the help was asked to show, the About box
// as it stands while shown (with the top-most band around it), and the
// system information tool that the desktop is said to offer.
#include <filesystem>
#include <ostream>

#include "scenario/runner.h"

namespace scenario {

namespace {

// A caption's lines, split at CR LF, each quoted.
std::string QuotedLines(const std::string& caption) {
    std::string out;
    std::size_t start = 0;
    while (true) {
        const std::size_t end = caption.find("\r\n", start);
        out += (out.empty() ? "" : " ") + Quote(caption.substr(start, end - start));
        if (end == std::string::npos) return out;
        start = end + 2;
    }
}

}  // namespace

void Runner::MakeGuideFolders() {
    if (scratch_.Path().empty()) return;
    std::error_code ignored;
    std::filesystem::create_directories(scratch_.Path() + "/bin/guide", ignored);
    std::filesystem::create_directories(scratch_.Path() + "/share/lathmark/guide", ignored);
}

std::string Runner::BandText() {
    std::string text;
    for (forms::Form* f : App().Runtime().TopMostBand())
        text += (text.empty() ? "" : " ") + f->Name();
    return text;
}

bool Runner::AnswerAboutBox(forms::Form& about) {
    if (about.Name() != "frmAbout") return false;
    if (aboutWatch_ != AboutWatch::Off) {
        for (const char* name : {"lblTitle", "lblVersion", "lblDescription", "lblDisclaimer"}) {
            out_ << name << " " << QuotedLines(about.Get(name).Caption()) << "\n";
        }
        out_ << "during: " << BandText() << "\n";
        aboutShown_ = true;
    }
    Driver& driver = GetDriver();
    // The box comes up first: it was shown modally a moment ago.
    driver.Settle();
    if (aboutWatch_ == AboutWatch::SysInfo) {
        driver.Click(about.Get("cmdSysInfo"));
        driver.Settle();
    }
    if (about.Loaded()) driver.Click(about.Get("cmdOK"));
    return true;
}

void Runner::AfterProgramCommand() {
    if (aboutWatch_ == AboutWatch::Off || !aboutShown_) return;
    out_ << "after: " << BandText() << "\n";
    aboutWatch_ = AboutWatch::Off;
    aboutShown_ = false;
}

bool Runner::HelpPrintCommand(const Words& w) {
    const std::string& verb = w[0].text;
    if (verb == "printed" && w.size() == 1) {
        App();
        if (printedShown_ == printer_.printed.size()) out_ << "none\n";
        for (; printedShown_ < printer_.printed.size(); ++printedShown_) {
            const auto& document = printer_.printed[printedShown_];
            out_ << "document " << Quote(document.fontName) << "\n";
            for (const std::string& line : document.lines) out_ << Quote(line) << "\n";
        }
        return true;
    }
    if (verb == "helpshown" && w.size() == 1) {
        App();
        if (helpShown_ == help_.shown.size()) out_ << "none\n";
        for (; helpShown_ < help_.shown.size(); ++helpShown_) {
            // Inside the scratch folder: the part after it.
            std::string path = help_.shown[helpShown_];
            const std::string folder = scratch_.Path() + "/";
            if (path.starts_with(folder)) path = path.substr(folder.size());
            out_ << Quote(path) << "\n";
        }
        return true;
    }
    if (verb == "about" && (w.size() == 1 || (w.size() == 2 && w[1].text == "sysinfo"))) {
        out_ << "before: " << BandText() << "\n";
        aboutWatch_ = w.size() == 1 ? AboutWatch::Ok : AboutWatch::SysInfo;
        aboutShown_ = false;
        return true;
    }
    if (verb == "sysinfo" && w.size() == 1) {
        if (systemInfo_.started.empty()) out_ << "none\n";
        for (const std::string& path : systemInfo_.started)
            out_ << "started " << Quote(path) << "\n";
        systemInfo_.started.clear();
        return true;
    }
    if (verb == "sysinfo" && w.size() == 2) {
        if (w[1].quoted) {
            systemInfo_.found = w[1].text;
            systemInfo_.startWorks = true;
        } else if (w[1].text == "none") {
            systemInfo_.found.reset();
        } else {
            return false;
        }
        return true;
    }
    if (verb == "sysinfo" && w.size() == 3 && !w[1].quoted && w[1].text == "broken" &&
        w[2].quoted) {
        systemInfo_.found = w[2].text;
        systemInfo_.startWorks = false;
        return true;
    }
    return false;
}

}  // namespace scenario
